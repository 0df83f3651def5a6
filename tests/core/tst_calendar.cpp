#include "calendar.h"
#include "mydatastream.h"
#include "streambytes.h"

#include <QElapsedTimer>
#include <QTest>

#include <climits>
#include <ctime>
#include <limits>

class tst_Calendar : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void formatDate_data();
    void formatDate();
    void dateStr_data();
    void dateStr();
    void readDate_data();
    void readDate();
    void storedDateTime();
    void validDate_data();
    void validDate();
    void daysInYear_data();
    void daysInYear();
    void daysFromYearStart_data();
    void daysFromYearStart();
    void daysBetween_data();
    void daysBetween();
    void monthsBetween_data();
    void monthsBetween();
    void daysBeforeAndAfter_data();
    void daysBeforeAndAfter();
    void age_data();
    void age();
    void daysInCanada_data();
    void daysInCanada();
    void daysWithinYear_data();
    void daysWithinYear();
    void hostileYearsReturnPromptly();
    void dateToDouble_data();
    void dateToDouble();
    void doubleToDate_data();
    void doubleToDate();
    void serializeIsOneDouble();
};

void tst_Calendar::initTestCase()
{
    // The date-time conversions read local time; pin it so the exact figures hold.
    qputenv("TZ", "UTC");
    tzset();
}

void tst_Calendar::formatDate_data()
{
    QTest::addColumn<QDate>("date");
    QTest::addColumn<int>("code");
    QTest::addColumn<QString>("expected");
    const QDate d(2025, 3, 4);
    QTest::newRow("code 4 is unknown: the text stays") << d << 4 << "untouched";
    QTest::newRow("code 5 is the first known: its zero text") << QDate() << 5 << "00:00";
    QTest::newRow("code 6") << d << 6 << "202503";
    QTest::newRow("code 7") << d << 7 << "0304";
    QTest::newRow("code 8") << d << 8 << "04/03/25";
    QTest::newRow("code 9 is reserved: the text stays") << d << 9 << "untouched";
    QTest::newRow("code 10 writes day first") << d << 10 << "04/03/2025";
    QTest::newRow("code 10 of a null date") << QDate() << 10 << "00/00/0000";
    QTest::newRow("code 11 is reserved") << d << 11 << "untouched";
    QTest::newRow("code 17 is reserved") << d << 17 << "untouched";
    QTest::newRow("code 18 is what date fields store") << d << 18 << "20250304";
    QTest::newRow("code 18 of a null date is all zeros") << QDate() << 18 << "00000000";
    QTest::newRow("code 19 is the last known") << d << 19 << "2025-03-04";
    QTest::newRow("code 20 is unknown") << d << 20 << "untouched";
}

void tst_Calendar::formatDate()
{
    QFETCH(QDate, date);
    QFETCH(int, code);
    CString out("untouched");
    FormatQDate(out, date, code);
    QTEST(QString(out), "expected");
}

void tst_Calendar::dateStr_data()
{
    QTest::addColumn<int>("kind");
    QTest::addColumn<QString>("expected");
    QTest::newRow("kind 0 is empty") << 0 << "";
    QTest::newRow("kind 1 is code 18") << 1 << "20250304";
    QTest::newRow("kind 2 is code 19") << 2 << "2025-03-04";
    QTest::newRow("kind 3 is empty") << 3 << "";
}

void tst_Calendar::dateStr()
{
    QFETCH(int, kind);
    QTEST(QString(GetDateStr(QDate(2025, 3, 4), kind)), "expected");
}

void tst_Calendar::readDate_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("code");
    QTest::addColumn<QDate>("expected");
    QTest::newRow("all zeros: month 0 is no date") << "00000000" << 18 << QDate();
    QTest::newRow("3 characters: no date") << "202" << 18 << QDate();
    QTest::newRow("4 characters: January 1") << "2025" << 18 << QDate(2025, 1, 1);
    QTest::newRow("5 characters: still January 1") << "20250" << 18 << QDate(2025, 1, 1);
    QTest::newRow("6 characters: the first of the month") << "202503" << 18 << QDate(2025, 3, 1);
    QTest::newRow("7 characters: still the first") << "2025030" << 18 << QDate(2025, 3, 1);
    QTest::newRow("8 characters: the day") << "20250304" << 18 << QDate(2025, 3, 4);
    QTest::newRow("the rest is ignored") << "20250304xyz" << 18 << QDate(2025, 3, 4);
    QTest::newRow("dashed text: the month piece -0 counts as 0") << "2025-03-04" << 18 << QDate();
    QTest::newRow("every other code reads the compact form")
        << "20250304" << 19 << QDate(2025, 3, 4);
    QTest::newRow("code 10 reads month first") << "03/04/2025" << 10 << QDate(2025, 3, 4);
    QTest::newRow("code 10 does not look at the separators")
        << "03x04y2025" << 10 << QDate(2025, 3, 4);
    QTest::newRow("code 10, 9 characters: no date") << "03/04/202" << 10 << QDate();
    QTest::newRow("code 10 as written does not read back") << "14/03/2025" << 10 << QDate();
}

void tst_Calendar::readDate()
{
    QFETCH(QString, text);
    QFETCH(int, code);
    QFETCH(QDate, expected);
    QDate date(1999, 9, 9);
    QCOMPARE(ReadQDate2(CString(text), code, date), expected.isValid());
    QCOMPARE(date, expected);
}

void tst_Calendar::storedDateTime()
{
    const QDateTime stamp(QDate(2025, 3, 4), QTime(13, 5, 6));
    CString text;
    FormatQDateTime(text, stamp, 28);
    // A 24-hour field followed by the marker: the stored form.
    QCOMPARE(QString(text), QStringLiteral("2025-03-04 13:05:06PM"));
    QDateTime back;
    QVERIFY(ReadQDateTime(text, 28, back));
    QCOMPARE(back, stamp);
}

void tst_Calendar::validDate_data()
{
    QTest::addColumn<QDate>("date");
    QTest::addColumn<int>("maxYear");
    QTest::addColumn<bool>("valid");
    QTest::newRow("1849-12-31 is before the range") << QDate(1849, 12, 31) << 2025 << false;
    QTest::newRow("1850-01-01 is in") << QDate(1850, 1, 1) << 2025 << true;
    QTest::newRow("the year of maxYear is in") << QDate(2025, 12, 31) << 2025 << true;
    QTest::newRow("the year after maxYear is out") << QDate(2026, 1, 1) << 2025 << false;
    QTest::newRow("a null date is out") << QDate() << 2025 << false;
}

void tst_Calendar::validDate()
{
    QFETCH(QDate, date);
    QFETCH(int, maxYear);
    QTEST(ValidQDate(date, maxYear), "valid");
    QTEST(ValidQDateTime(QDateTime(date, QTime(12, 0)), maxYear), "valid");
}

void tst_Calendar::daysInYear_data()
{
    QTest::addColumn<int>("year");
    QTest::addColumn<int>("days");
    QTest::newRow("divisible by 4") << 2024 << 366;
    QTest::newRow("not divisible by 4") << 2023 << 365;
    QTest::newRow("divisible by 100") << 1900 << 365;
    QTest::newRow("divisible by 400") << 2000 << 366;
    QTest::newRow("year 4, the first leap year") << 4 << 366;
    QTest::newRow("year 0 is never leap") << 0 << 365;
    QTest::newRow("year -4 is never leap") << -4 << 365;
}

void tst_Calendar::daysInYear()
{
    QFETCH(int, year);
    QTEST(GetDaysInYear(year), "days");
}

void tst_Calendar::daysFromYearStart_data()
{
    QTest::addColumn<int>("year");
    QTest::addColumn<int>("month");
    QTest::addColumn<int>("day");
    QTest::addColumn<int>("expected");
    QTest::newRow("January") << 2023 << 1 << 1 << 1;
    QTest::newRow("February") << 2023 << 2 << 1 << 32;
    QTest::newRow("March") << 2023 << 3 << 1 << 60;
    QTest::newRow("March of a leap year") << 2024 << 3 << 1 << 61;
    QTest::newRow("February 29 does not count itself") << 2024 << 2 << 29 << 60;
    QTest::newRow("April") << 2023 << 4 << 1 << 91;
    QTest::newRow("May") << 2023 << 5 << 1 << 121;
    QTest::newRow("June") << 2023 << 6 << 1 << 152;
    QTest::newRow("July") << 2023 << 7 << 1 << 182;
    QTest::newRow("August") << 2023 << 8 << 1 << 213;
    QTest::newRow("September") << 2023 << 9 << 1 << 244;
    QTest::newRow("October") << 2023 << 10 << 1 << 274;
    QTest::newRow("November") << 2023 << 11 << 1 << 305;
    QTest::newRow("December 31") << 2023 << 12 << 31 << 365;
    QTest::newRow("month 13 counts as December") << 2023 << 13 << 1 << 335;
    QTest::newRow("month 0 counts as December") << 2023 << 0 << 1 << 335;
    QTest::newRow("day 2 counts as itself") << 2023 << 1 << 2 << 2;
    QTest::newRow("day 0 counts as 1") << 2023 << 1 << 0 << 1;
    QTest::newRow("a negative day counts as 1") << 2023 << 5 << -40 << 121;
    QTest::newRow("a huge day saturates") << 2023 << 12 << INT_MAX << INT_MAX;
}

void tst_Calendar::daysFromYearStart()
{
    QFETCH(int, year);
    QFETCH(int, month);
    QFETCH(int, day);
    QTEST(GetDaysFromYearStart(year, month, day), "expected");
}

void tst_Calendar::daysBetween_data()
{
    QTest::addColumn<QDate>("from");
    QTest::addColumn<QDate>("to");
    QTest::addColumn<int>("expected");
    const QDate d(2025, 3, 10);
    QTest::newRow("one date counts both ends") << d << d << 1;
    QTest::newRow("to one day after from") << d << d.addDays(1) << 2;
    QTest::newRow("to one day before from") << d << d.addDays(-1) << 0;
    QTest::newRow("an earlier month with a later day is before") << d << QDate(2025, 2, 20) << 0;
    QTest::newRow("across new year") << QDate(2023, 12, 31) << QDate(2024, 1, 1) << 2;
    QTest::newRow("a whole leap year between") << QDate(2023, 12, 31) << QDate(2025, 1, 1) << 368;
    QTest::newRow("1900 is a whole year of 365") << QDate(1899, 12, 31) << QDate(1901, 1, 1) << 367;
    QTest::newRow("year 0 is a whole year of 365") << QDate(-1, 12, 31) << QDate(1, 1, 1) << 367;
    QTest::newRow("a null from") << QDate() << d << 0;
    QTest::newRow("a null to") << d << QDate() << 0;
}

void tst_Calendar::daysBetween()
{
    QFETCH(QDate, from);
    QFETCH(QDate, to);
    QTEST(GetDaysBetween(from, to), "expected");
}

void tst_Calendar::monthsBetween_data()
{
    QTest::addColumn<QDate>("a");
    QTest::addColumn<QDate>("b");
    QTest::addColumn<int>("expected");
    QTest::newRow("the same month") << QDate(2023, 5, 1) << QDate(2023, 5, 31) << 0;
    QTest::newRow("within a year: exact") << QDate(2023, 11, 30) << QDate(2023, 12, 31) << 1;
    QTest::newRow("within a year, either order") << QDate(2023, 12, 31) << QDate(2023, 11, 30) << 1;
    QTest::newRow("days play no part") << QDate(2025, 3, 31) << QDate(2025, 4, 1) << 1;
    QTest::newRow("across a year: one more") << QDate(2023, 12, 31) << QDate(2024, 1, 1) << 2;
    QTest::newRow("across a year, either order: a year is 13")
        << QDate(2024, 12, 1) << QDate(2023, 12, 31) << 13;
}

void tst_Calendar::monthsBetween()
{
    QFETCH(QDate, a);
    QFETCH(QDate, b);
    QTEST(GetMonthsBetween(a, b), "expected");
}

void tst_Calendar::daysBeforeAndAfter_data()
{
    // The period is 2025-03-01 to 2025-03-10, ten days.
    QTest::addColumn<QDate>("cut");
    QTest::addColumn<int>("before");
    QTest::addColumn<int>("after");
    QTest::newRow("cut one day before from") << QDate(2025, 2, 28) << 0 << 10;
    QTest::newRow("cut equal to from") << QDate(2025, 3, 1) << 0 << 9;
    QTest::newRow("cut inside") << QDate(2025, 3, 4) << 3 << 6;
    QTest::newRow("cut equal to to") << QDate(2025, 3, 10) << 9 << 0;
    QTest::newRow("cut one day after to") << QDate(2025, 3, 11) << 10 << 0;
    QTest::newRow("a null cut compares as year 0") << QDate() << 0 << 10;
}

void tst_Calendar::daysBeforeAndAfter()
{
    QFETCH(QDate, cut);
    const QDate from(2025, 3, 1), to(2025, 3, 10);
    QTEST(GetDaysBeforeDate(from, to, cut), "before");
    QTEST(GetDaysAfterDate(from, to, cut), "after");
}

void tst_Calendar::age_data()
{
    QTest::addColumn<int>("year");
    QTest::addColumn<QDate>("birth");
    QTest::addColumn<int>("expected");
    QTest::newRow("born on the last day of the year") << 2025 << QDate(1990, 12, 31) << 35;
    QTest::newRow("born on the first day: the same age") << 2025 << QDate(1990, 1, 1) << 35;
    QTest::newRow("a null birth date gives the year") << 2025 << QDate() << 2025;
    QTest::newRow("an extreme age saturates") << INT_MIN << QDate(5, 1, 1) << INT_MIN;
}

void tst_Calendar::age()
{
    QFETCH(int, year);
    QFETCH(QDate, birth);
    QTEST(GetAge(year, birth), "expected");
}

void tst_Calendar::daysInCanada_data()
{
    QTest::addColumn<int>("taxYear");
    QTest::addColumn<QDate>("first");
    QTest::addColumn<QDate>("second");
    QTest::addColumn<int>("expected");
    QTest::newRow("no dates: the whole leap year") << 2024 << QDate() << QDate() << 366;
    QTest::newRow("neither date in the year: the whole year")
        << 2022 << QDate(2023, 12, 31) << QDate(2024, 1, 1) << 365;
    QTest::newRow("arrived in the year") << 2025 << QDate(2025, 3, 1) << QDate() << 306;
    QTest::newRow("left in the year") << 2025 << QDate() << QDate(2025, 3, 1) << 60;
    QTest::newRow("left on January 1") << 2025 << QDate(2024, 6, 1) << QDate(2025, 1, 1) << 1;
    QTest::newRow("arrived on December 31")
        << 2025 << QDate(2025, 12, 31) << QDate(2026, 1, 1) << 1;
    QTest::newRow("end on the start day") << 2025 << QDate(2025, 6, 1) << QDate(2025, 6, 1) << 1;
    QTest::newRow("end one day before the start")
        << 2025 << QDate(2025, 6, 1) << QDate(2025, 5, 31) << 0;
}

void tst_Calendar::daysInCanada()
{
    QFETCH(int, taxYear);
    QFETCH(QDate, first);
    QFETCH(QDate, second);
    QTEST(DaysInCanadaInTaxYear(taxYear, first, second), "expected");
}

void tst_Calendar::daysWithinYear_data()
{
    QTest::addColumn<QDate>("from");
    QTest::addColumn<QDate>("to");
    QTest::addColumn<int>("year");
    QTest::addColumn<int>("expected");
    QTest::newRow("within the year the end date is ignored")
        << QDate(2025, 3, 1) << QDate(2025, 3, 10) << 2025 << 306;
    QTest::newRow("from January 1: the whole year")
        << QDate(2025, 1, 1) << QDate(2025, 3, 10) << 2025 << 365;
    QTest::newRow("from December 31: one day")
        << QDate(2025, 12, 31) << QDate(2026, 3, 10) << 2025 << 1;
    QTest::newRow("a period spanning the year")
        << QDate(2023, 1, 1) << QDate(2025, 3, 10) << 2024 << 366;
    QTest::newRow("a period ending in the year")
        << QDate(2024, 1, 1) << QDate(2025, 3, 10) << 2025 << 69;
    QTest::newRow("a period starting the year after")
        << QDate(2025, 1, 1) << QDate(2025, 3, 10) << 2024 << 0;
    QTest::newRow("a period ending the year before")
        << QDate(2023, 1, 1) << QDate(2023, 12, 31) << 2024 << 0;
}

void tst_Calendar::daysWithinYear()
{
    QFETCH(QDate, from);
    QFETCH(QDate, to);
    QFETCH(int, year);
    QTEST(GetDaysWithinYear(from, to, year), "expected");
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

void tst_Calendar::dateToDouble_data()
{
    QTest::addColumn<QDate>("date");
    QTest::addColumn<double>("value");
    QTest::newRow("a null date is 0") << QDate() << 0.0;
    // 2025-01-01 12:00 UTC is 1735732800 s after the epoch.
    QTest::newRow("noon, plus the 300 seconds old archives hold")
        << QDate(2025, 1, 1) << 3944894700.0 / 86400.0;
}

void tst_Calendar::dateToDouble()
{
    QFETCH(QDate, date);
    QTEST(DateAsDouble::convertDateToDouble(date), "value");
    QTEST(DateAsDouble(date).m_value, "value");
}

void tst_Calendar::doubleToDate_data()
{
    QTest::addColumn<double>("value");
    QTest::addColumn<QDate>("date");
    QTest::newRow("0.0 is 1899-12-31: before 1900, null") << 0.0 << QDate();
    QTest::newRow("1.0 is 1900-01-01, the first date kept") << 1.0 << QDate(1900, 1, 1);
    QTest::newRow("the serial of 2025-01-01 reads a day later") << 45658.0 << QDate(2025, 1, 2);
    QTest::newRow("NaN is null") << qQNaN() << QDate();
    QTest::newRow("infinity is null") << qInf() << QDate();
}

void tst_Calendar::doubleToDate()
{
    QFETCH(double, value);
    QTEST(DateAsDouble::convertDoubleToDate(value), "date");
}

void tst_Calendar::serializeIsOneDouble()
{
    const QByteArray bytes
        = storeBytes([](MyDataStream& stream) { DateAsDouble(45658.25).serialize(stream); });
    QCOMPARE(bytes, QByteArray::fromHex("00000000484be640"));
    DateAsDouble read(0.0);
    const qint64 used = loadBytes(bytes, [&](MyDataStream& stream) {
        read.serialize(stream);
        read.serialize(stream); // past the end the value stays
    });
    QCOMPARE(used, 8);
    QCOMPARE(read.m_value, 45658.25);
}

QTEST_GUILESS_MAIN(tst_Calendar)
#include "tst_calendar.moc"
