// Calendar arithmetic: date texts under format codes, and day and month counts.
#pragma once

#include "cstring.h"

#include <QDate>
#include <QDateTime>

class MyDataStream;

/*
 * Date format codes for FormatQDate, ReadQDate2 and their kin. Only these have
 * a meaning; any other code leaves the output unchanged. Code 10 writes day
 * first but ReadQDate2 reads it month first: the two are opposite on purpose.
 */
enum ENUMTYPE_DATE_FORMAT {
    DATE_FORMAT_HHMM = 5, // "hh:mm"
    DATE_FORMAT_YYYYMM = 6, // "yyyyMM"
    DATE_FORMAT_MMDD = 7, // "MMdd"
    DATE_FORMAT_DDMMYY = 8, // "dd/MM/yy"
    DATE_FORMAT_DDMMYYYY = 10, // "dd/MM/yyyy"
    DATE_FORMAT_YYYYMMDD = 18, // "yyyyMMdd", what CDateField stores
    DATE_FORMAT_ISO = 19, // "yyyy-MM-dd"
    DATE_FORMAT_DATETIME = 28 // passed by CDateTimeField; ignored by the date-time functions
};

LIBBEDROCK_EXPORT void FormatQDate(CString& out, QDate date, int code);
// True when the text gives a valid date; bad text gives the null date.
LIBBEDROCK_EXPORT bool ReadQDate2(const CString& text, int code, QDate& date);
// Kind 1: "yyyyMMdd", kind 2: "yyyy-MM-dd", otherwise empty.
LIBBEDROCK_EXPORT CString GetDateStr(QDate date, int kind);
LIBBEDROCK_EXPORT bool ValidQDate(QDate date, int maxYear);
LIBBEDROCK_EXPORT bool ValidQDateTime(QDateTime dateTime, int maxYear);
LIBBEDROCK_EXPORT bool isZero(QDate& date);
LIBBEDROCK_EXPORT void GetCurTime(CString& out, int code);
LIBBEDROCK_EXPORT bool ReadQDateTime(const CString& text, int code, QDateTime& dateTime);
LIBBEDROCK_EXPORT void FormatQDateTime(CString& out, QDateTime dateTime, int code);
// Returns the length of out.
LIBBEDROCK_EXPORT int getXMLDateTimeString(bool utc, CString& out);

// Counts include both ends; a year of 0 or below is never a leap year.
LIBBEDROCK_EXPORT int GetDaysInYear(int year);
LIBBEDROCK_EXPORT int GetDaysFromYearStart(int year, int month, int day);
LIBBEDROCK_EXPORT int GetDaysBetween(QDate from, QDate to);
// Across a year boundary this is one more than the exact month difference.
LIBBEDROCK_EXPORT int GetMonthsBetween(QDate a, QDate b);
LIBBEDROCK_EXPORT int GetDaysBeforeDate(QDate from, QDate to, QDate cut);
LIBBEDROCK_EXPORT int GetDaysAfterDate(QDate from, QDate to, QDate cut);
// Age by calendar year only.
LIBBEDROCK_EXPORT int GetAge(int year, QDate birth);
LIBBEDROCK_EXPORT int DaysInCanadaInTaxYear(int taxYear, QDate first, QDate second);
// When from lies in year, the period runs to December 31 whatever to says.
LIBBEDROCK_EXPORT int GetDaysWithinYear(QDate from, QDate to, int year);

/*
 * A date as a serial day number counted from 1899-12-30, as early archives
 * stored it. convertDoubleToDate adds one day that convertDateToDouble does not
 * take away: the pair are not inverses, and old files rely on that.
 */
class LIBBEDROCK_EXPORT DateAsDouble
{
public:
    DateAsDouble(const QDate& date);
    DateAsDouble(double value);

    static double convertDateToDouble(const QDate& date);
    static QDate convertDoubleToDate(double value);

    // One 8-byte double, written when the stream is storing and read otherwise.
    void serialize(MyDataStream& stream);

    double m_value;
};
