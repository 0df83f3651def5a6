#include "calendar.h"
#include "mydatastream.h"

#include <QBuffer>
#include <QElapsedTimer>
#include <QTest>

#include <climits>
#include <ctime>
#include <limits>

namespace {

void row(const char* why, const QString& got, const QString& expected)
{
    QTest::newRow(why) << got << expected;
}

void row(const char* why, int got, int expected)
{
    row(why, QString::number(got), QString::number(expected));
}

void row(const char* why, const QDate& got, const QDate& expected)
{
    row(why, got.toString(Qt::ISODate), expected.toString(Qt::ISODate));
}

QString formatted(QDate date, int code)
{
    CString out("untouched");
    FormatQDate(out, date, code);
    return out;
}

// The date read, or year 1 when the result disagrees with the date's validity.
QDate read(const char* text, int code)
{
    QDate date(1999, 9, 9);
    const bool ok = ReadQDate2(CString(text), code, date);
    return ok == date.isValid() ? date : QDate(1, 1, 1);
}

} // namespace

class tst_Calendar : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void rules_data();
    void rules();
    void hostileYearsReturnPromptly();
    void serializeIsOneDouble();
};

void tst_Calendar::initTestCase()
{
    // The date-time conversions read local time; pin it so the exact figures hold.
    qputenv("TZ", "UTC");
    tzset();
}

void tst_Calendar::rules_data()
{
    QTest::addColumn<QString>("got");
    QTest::addColumn<QString>("expected");
    const QDate d(2025, 3, 4), from(2025, 3, 1), to(2025, 3, 10);
    const QDate dec31(2023, 12, 31), jan1(2024, 1, 1);
    const auto asDate = DateAsDouble::convertDoubleToDate;
    CString stamp;
    QDateTime back;
    FormatQDateTime(stamp, QDateTime(d, QTime(13, 5, 6)), 28);
    const bool readsBack = ReadQDateTime(stamp, 28, back) && back == QDateTime(d, QTime(13, 5, 6));

    row("null date, code 18, is all zeros", formatted(QDate(0, 0, 0), 18), "00000000");
    row("code 18 is what date fields store", formatted(d, 18), "20250304");
    row("code 10 writes day first", formatted(d, 10), "04/03/2025");
    row("reserved code 9 leaves the text alone", formatted(d, 9), "untouched");
    row("GetDateStr kind 2 is code 19", GetDateStr(d, 2), "2025-03-04");
    row("stored date-time keeps 24 hours and adds the marker", stamp, "2025-03-04 13:05:06PM");

    row("zero text of code 18 reads as null", read("00000000", 18), QDate());
    row("year alone is January 1", read("2025", 18), QDate(2025, 1, 1));
    row("year and month is the first", read("202503", 18), QDate(2025, 3, 1));
    row("shorter than a year is null", read("202", 18), QDate());
    row("dashed text: month piece -0 counts as 0", read("2025-03-04", 18), QDate());
    row("code 10 reads month first", read("03/04/2025", 10), QDate(2025, 3, 4));
    row("code 10 as written does not read back", read("14/03/2025", 10), QDate());
    row("stored date-time reads back", readsBack, true);

    row("null date as a double is 0", QString::number(DateAsDouble(QDate()).m_value), "0");
    row("to double: noon UTC plus the 300 seconds old archives hold",
        QString::number(DateAsDouble(QDate(2025, 1, 1)).m_value * 86400, 'f', 0), "3944894700");
    row("double 0.0 reads as null", asDate(0.0), QDate());
    row("serial of 2025-01-01 reads a day later", asDate(45658.0), QDate(2025, 1, 2));
    row("NaN double is null", asDate(std::numeric_limits<double>::quiet_NaN()), QDate());
    row("infinite double is null", asDate(std::numeric_limits<double>::infinity()), QDate());

    row("ValidQDate: 1849-12-31 is before the range", ValidQDate(QDate(1849, 12, 31), 2025), 0);
    row("ValidQDate: 1850-01-01 is in", ValidQDate(QDate(1850, 1, 1), 2025), 1);
    row("ValidQDate: maxYear below the year", ValidQDate(QDate(2025, 1, 1), 2024), 0);

    row("1900 is not leap", GetDaysInYear(1900), 365);
    row("2000 is leap", GetDaysInYear(2000), 366);
    row("years below 1 are never leap", GetDaysInYear(-4), 365);
    row("March 1 of a leap year", GetDaysFromYearStart(2024, 3, 1), 61);
    row("month 13 counts as December", GetDaysFromYearStart(2023, 13, 1), 335);
    row("day below 2 counts as 1", GetDaysFromYearStart(2023, 5, -40), 121);
    row("huge day saturates", GetDaysFromYearStart(2023, 12, INT_MAX), INT_MAX);

    row("GetDaysBetween: one date counts both ends", GetDaysBetween(to, to), 1);
    row("GetDaysBetween: to before from", GetDaysBetween(to, to.addDays(-1)), 0);
    row("GetDaysBetween: across new year", GetDaysBetween(dec31, jan1), 2);
    row("GetDaysBetween: null date", GetDaysBetween(QDate(), to), 0);
    row("GetDaysBetween: 1900 is a whole year of 365",
        GetDaysBetween(QDate(1899, 12, 31), QDate(1901, 1, 1)), 367);
    row("GetDaysBetween: year 0 is a whole year of 365",
        GetDaysBetween(QDate(-1, 12, 31), QDate(1, 1, 1)), 367);

    row("months within a year are exact", GetMonthsBetween(QDate(2023, 11, 30), dec31), 1);
    row("months across a year are one more", GetMonthsBetween(dec31, jan1), 2);
    row("months in either order; a year is 13", GetMonthsBetween(QDate(2024, 12, 1), dec31), 13);

    row("days before a cut equal to from", GetDaysBeforeDate(from, to, from), 0);
    row("days after a cut equal to to", GetDaysAfterDate(from, to, to), 0);
    row("days after a cut inside", GetDaysAfterDate(from, to, QDate(2025, 3, 4)), 6);
    row("a null cut compares as year 0", GetDaysAfterDate(from, to, QDate()), 10);

    row("age by calendar year only", GetAge(2025, QDate(1990, 12, 31)), 35);
    row("age of a null birth date is the year", GetAge(2025, QDate()), 2025);
    row("extreme age saturates", GetAge(INT_MIN, QDate(5, 1, 1)), INT_MIN);

    row("in Canada with no dates: the leap year", DaysInCanadaInTaxYear(2024, {}, {}), 366);
    row("in Canada: end before start", DaysInCanadaInTaxYear(2025, to, from), 0);
    row("in Canada: arrived in the year", DaysInCanadaInTaxYear(2025, from, {}), 306);
    row("in Canada: neither date in the year", DaysInCanadaInTaxYear(2022, dec31, jan1), 365);

    row("within the year the end date is ignored", GetDaysWithinYear(from, to, 2025), 306);
    row("period spanning the year", GetDaysWithinYear(QDate(2023, 1, 1), to, 2024), 366);
    row("period ending in the year", GetDaysWithinYear(QDate(2024, 1, 1), to, 2025), 69);
    row("period starting after the year", GetDaysWithinYear(to, to, 2024), 0);
}

void tst_Calendar::rules()
{
    QFETCH(QString, got);
    QFETCH(QString, expected);
    QCOMPARE(got, expected);
}

void tst_Calendar::hostileYearsReturnPromptly()
{
    QElapsedTimer timer;
    timer.start();
    QCOMPARE(GetDaysBetween(QDate(1, 1, 1), QDate(2000000000, 1, 1)), INT_MAX);
    QCOMPARE(GetMonthsBetween(QDate(1, 1, 1), QDate(2000000000, 12, 1)), INT_MAX);
    QCOMPARE(GetDaysWithinYear(QDate(1, 1, 1), QDate(2000000000, 1, 1), 1000000001), 365);
    QVERIFY2(timer.elapsed() < 1000, "whole years must not be walked one by one");
}

void tst_Calendar::serializeIsOneDouble()
{
    QBuffer buffer;
    QVERIFY(buffer.open(QIODevice::ReadWrite)); // open for both: the stream stores
    MyDataStream out(&buffer);
    DateAsDouble(45658.25).serialize(out);
    QCOMPARE(buffer.size(), 8);
    QBuffer source(&buffer.buffer());
    QVERIFY(source.open(QIODevice::ReadOnly));
    MyDataStream in(&source);
    DateAsDouble read(0.0);
    read.serialize(in);
    read.serialize(in); // past the end the value stays
    QCOMPARE(read.m_value, 45658.25);
}

QTEST_GUILESS_MAIN(tst_Calendar)
#include "tst_calendar.moc"
