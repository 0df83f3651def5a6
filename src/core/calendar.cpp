#include "calendar.h"

#include "mydatastream_p.h"

#include <QTime>

#include <climits>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <utility>

namespace {

int saturate(int64_t v)
{
    if (v > INT_MAX)
        return INT_MAX;
    if (v < INT_MIN)
        return INT_MIN;
    return int(v);
}

bool isLeapYear(int64_t year)
{
    // Years of 0 and below never count as leap, unlike the proleptic calendar.
    return year >= 1 && year % 4 == 0 && (year % 100 != 0 || year % 400 == 0);
}

// Leap years in 1..year; none at or below 0.
int64_t leapYearsUpTo(int64_t year)
{
    if (year < 1)
        return 0;
    return year / 4 - year / 100 + year / 400;
}

int64_t daysFromYearStart(int64_t year, int64_t month, int64_t day)
{
    if (day < 2)
        day = 1;
    if (month == 1)
        return day;
    if (month == 2)
        return day + 31;
    int64_t offset;
    switch (month) {
    case 3:
        offset = 0;
        break;
    case 4:
        offset = 31;
        break;
    case 5:
        offset = 61;
        break;
    case 6:
        offset = 92;
        break;
    case 7:
        offset = 122;
        break;
    case 8:
        offset = 153;
        break;
    case 9:
        offset = 184;
        break;
    case 10:
        offset = 214;
        break;
    case 11:
        offset = 245;
        break;
    // December and every out-of-range month alike: old files hold month 0 and 13.
    default:
        offset = 275;
        break;
    }
    return day + (isLeapYear(year) ? 60 : 59) + offset;
}

int64_t dayOfYear(const QDate& d)
{
    return daysFromYearStart(d.year(), d.month(), d.day());
}

int daysInYear(int64_t year)
{
    return isLeapYear(year) ? 366 : 365;
}

// Plain numeric ordering; a null date compares as year 0, month 0, day 0.
int compareDates(const QDate& a, const QDate& b)
{
    if (a.year() != b.year())
        return a.year() < b.year() ? -1 : 1;
    if (a.month() != b.month())
        return a.month() < b.month() ? -1 : 1;
    if (a.day() != b.day())
        return a.day() < b.day() ? -1 : 1;
    return 0;
}

// A piece that is not a base-10 number, or does not fit in 32 bits, counts as 0.
int piece(const CString& text, int start, int count)
{
    bool ok = false;
    const int v = text.Mid(start, count).toInt(&ok, 10);
    return ok ? v : 0;
}

const QString& dateTimeStoredFormat()
{
    // 24-hour field with an AM/PM marker after it: the stored form, kept as is.
    static const QString f = QStringLiteral("yyyy-MM-dd HH:mm:ssAP");
    return f;
}

const QString& localTimeFormat()
{
    static const QString f = QStringLiteral("yyyy-MM-dd HH:mm:ss");
    return f;
}

} // namespace

void FormatQDate(CString& out, QDate date, int code)
{
    const char* format = nullptr;
    const char* zero = nullptr;
    switch (code) {
    case 5:
        format = "hh:mm";
        zero = "00:00";
        break;
    case 6:
        format = "yyyyMM";
        zero = "000000";
        break;
    case 7:
        format = "MMdd";
        zero = "0000";
        break;
    case 8:
        format = "dd/MM/yy";
        zero = "00/00/00";
        break;
    case 10:
        format = "dd/MM/yyyy";
        zero = "00/00/0000";
        break;
    case 18:
        format = "yyyyMMdd";
        zero = "00000000";
        break;
    case 19:
        format = "yyyy-MM-dd";
        zero = "0000-00-00";
        break;
    default:
        return;
    }
    if (!date.isValid()) {
        out = zero;
    } else if (code == 18 && date.year() >= 1 && date.year() <= 9999) {
        // The stored form of every date field: put together directly, as the
        // framework would print it for a four-digit year.
        char text[16];
        std::snprintf(text, sizeof text, "%04d%02d%02d", date.year(), date.month(), date.day());
        out = QString::fromLatin1(text, 8);
    } else {
        out = date.toString(QString::fromLatin1(format));
    }
}

bool ReadQDate2(const CString& text, int code, QDate& date)
{
    const int len = text.GetLength();
    int year = 0;
    int month = 1;
    int day = 1;
    if (code == 10) {
        if (len < 10) {
            date = QDate();
            return false;
        }
        // Month first, although code 10 is written day first: kept for old files.
        year = piece(text, 6, 4);
        month = piece(text, 0, 2);
        day = piece(text, 3, 2);
    } else {
        if (len < 4) {
            date = QDate();
            return false;
        }
        year = piece(text, 0, 4);
        if (len >= 6)
            month = piece(text, 4, 2);
        if (len >= 8)
            day = piece(text, 6, 2);
    }
    return date.setDate(year, month, day);
}

CString GetDateStr(QDate date, int kind)
{
    CString out;
    if (kind == 1)
        FormatQDate(out, date, 18);
    else if (kind == 2)
        FormatQDate(out, date, 19);
    return out;
}

bool ValidQDate(QDate date, int maxYear)
{
    // The day is deliberately not held against the month's length.
    const int y = date.year();
    const int m = date.month();
    const int d = date.day();
    return y >= 1850 && y <= maxYear && m >= 1 && m <= 12 && d >= 1 && d <= 31;
}

bool ValidQDateTime(QDateTime dateTime, int maxYear)
{
    const int y = dateTime.date().year();
    return y >= 1850 && y <= maxYear;
}

bool isZero(QDate& date)
{
    return date == QDate(0, 0, 0);
}

void GetCurTime(CString& out, int /*code*/)
{
    out = QDateTime::currentDateTime().toString(localTimeFormat());
}

bool ReadQDateTime(const CString& text, int /*code*/, QDateTime& dateTime)
{
    dateTime = QDateTime::fromString(text, dateTimeStoredFormat());
    return dateTime.isValid();
}

void FormatQDateTime(CString& out, QDateTime dateTime, int /*code*/)
{
    out = dateTime.toString(dateTimeStoredFormat());
}

int getXMLDateTimeString(bool utc, CString& out)
{
    if (utc)
        out = QDateTime::currentDateTimeUtc().toString(QStringLiteral("yyyy-MM-ddTHH:mm:ssZ"));
    else
        out = QDateTime::currentDateTime().toString(localTimeFormat());
    return out.GetLength();
}

int GetDaysInYear(int year)
{
    return daysInYear(year);
}

int GetDaysFromYearStart(int year, int month, int day)
{
    return saturate(daysFromYearStart(year, month, day));
}

int GetDaysBetween(QDate from, QDate to)
{
    if (!from.isValid() || !to.isValid())
        return 0;
    if (compareDates(to, from) < 0)
        return 0;
    const int64_t yf = from.year();
    const int64_t yt = to.year();
    if (yf == yt)
        return saturate(dayOfYear(to) - dayOfYear(from) + 1);
    // The framework's years reach far beyond any real return: the whole years
    // between are counted in closed form, never one by one.
    const int64_t wholeYears = yt - yf - 1;
    const int64_t leaps = leapYearsUpTo(yt - 1) - leapYearsUpTo(yf);
    const int64_t days
        = daysInYear(yf) - dayOfYear(from) + 1 + wholeYears * 365 + leaps + dayOfYear(to);
    return saturate(days);
}

int GetMonthsBetween(QDate a, QDate b)
{
    int64_t ya = a.year();
    int64_t ma = a.month();
    int64_t yb = b.year();
    int64_t mb = b.month();
    if (ya == yb)
        return saturate(ma > mb ? ma - mb : mb - ma);
    if (ya > yb) {
        std::swap(ya, yb);
        std::swap(ma, mb);
    }
    // One more than the exact difference across a year boundary; callers count on it.
    return saturate(mb - ma + (yb - ya - 1) * 12 + 13);
}

int GetDaysBeforeDate(QDate from, QDate to, QDate cut)
{
    if (compareDates(cut, from) < 0)
        return 0;
    if (compareDates(cut, to) > 0)
        return GetDaysBetween(from, to);
    return GetDaysBetween(from, cut) - 1;
}

int GetDaysAfterDate(QDate from, QDate to, QDate cut)
{
    if (compareDates(cut, from) < 0)
        return GetDaysBetween(from, to);
    if (compareDates(cut, to) > 0)
        return 0;
    return GetDaysBetween(cut, to) - 1;
}

int GetAge(int year, QDate birth)
{
    return saturate(int64_t(year) - birth.year());
}

int DaysInCanadaInTaxYear(int taxYear, QDate first, QDate second)
{
    const bool firstIn = first.year() == taxYear;
    const bool secondIn = second.year() == taxYear;
    const int64_t full = daysInYear(taxYear);
    if (!firstIn && !secondIn)
        return int(full);
    const int64_t start = firstIn ? dayOfYear(first) : 1;
    const int64_t end = secondIn ? dayOfYear(second) : full;
    return end < start ? 0 : saturate(end - start + 1);
}

int GetDaysWithinYear(QDate from, QDate to, int year)
{
    const int yf = from.year();
    const int yt = to.year();
    if (yf > year || yt < year)
        return 0;
    if (yf < year) {
        if (yt > year)
            return daysInYear(year);
        return saturate(dayOfYear(to));
    }
    // The end date is ignored within one year: the period runs to December 31.
    return saturate(daysInYear(year) + 1 - dayOfYear(from));
}

DateAsDouble::DateAsDouble(const QDate& date)
    : m_value(convertDateToDouble(date))
{ }

DateAsDouble::DateAsDouble(double value)
    : m_value(value)
{ }

double DateAsDouble::convertDateToDouble(const QDate& date)
{
    if (!date.isValid())
        return 0.0;
    QDateTime dt;
    dt.setDate(date);
    dt.setTime(QTime(12, 0, 0, 0));
    const double seconds = double(dt.toSecsSinceEpoch());
    // The 300 seconds are what old archives hold; they stay.
    return (seconds + 2209161600.0 + 300.0) / 86400.0;
}

QDate DateAsDouble::convertDoubleToDate(double value)
{
    // The extra day is not matched in convertDateToDouble; old files read
    // through it, so it stays.
    const double seconds = value * 86400.0 + -2209161600.0 + 86400.0;
    // About three million years either way: beyond that, or for NaN, the
    // truncation below would be undefined or the framework's range exceeded.
    if (!(std::fabs(seconds) < 1e14))
        return QDate();
    const QDateTime epoch(QDate(1970, 1, 1), QTime(0, 0, 0));
    const QDate date = epoch.addSecs(qint64(seconds)).date();
    if (date.year() < 1900)
        return QDate();
    return date;
}

void DateAsDouble::serialize(MyDataStream& stream)
{
    if (stream.IsStoring()) {
        stream << m_value;
        return;
    }
    // A short read keeps the value that was there.
    Bedrock::readKeeping(stream, m_value);
}
