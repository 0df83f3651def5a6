#include "calendar.h"
#include "mydatastream.h"
#include "streambytes.h"

#include <QElapsedTimer>
#include <QTest>

#include <climits>
#include <ctime>

// Every count takes dates and a number; the row picks the call.
using Count = int (*)(QDate, QDate, int);
Q_DECLARE_METATYPE(Count)

// The period that days before and after a date are counted in.
const QDate From(2025, 3, 1), To(2025, 3, 10);

class tst_Calendar : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase()
    {
        // The date-time conversions read local time; pin it so the exact figures hold.
        qputenv("TZ", "UTC");
        tzset();
    }

    void dateText_data()
    {
        QTest::addColumn<QDate>("date");
        QTest::addColumn<int>("code");
        QTest::addColumn<QString>("text");
        QTest::addColumn<bool>("read"); // else written
        const QDate d(2025, 3, 4), march(2025, 3, 1), january(2025, 1, 1);
        QTest::newRow("code 4: unknown, kept") << d << 4 << "untouched" << false;
        QTest::newRow("code 5: first known, null") << QDate() << 5 << "00:00" << false;
        QTest::newRow("code 10: day first") << d << 10 << "04/03/2025" << false;
        QTest::newRow("code 18: stored form") << d << 18 << "20250304" << false;
        QTest::newRow("code 19: last known") << d << 19 << "2025-03-04" << false;
        QTest::newRow("code 20: unknown") << d << 20 << "untouched" << false;
        QTest::newRow("read 3 characters: none") << QDate() << 18 << "202" << true;
        QTest::newRow("read 4: January 1") << january << 18 << "2025" << true;
        QTest::newRow("read 5: still January 1") << january << 18 << "20250" << true;
        QTest::newRow("read 6: the first") << march << 18 << "202503" << true;
        QTest::newRow("read 7: still the first") << march << 18 << "2025030" << true;
        QTest::newRow("read 8: the day, rest ignored") << d << 18 << "20250304xyz" << true;
        QTest::newRow("read code 10: month first") << d << 10 << "03/04/2025" << true;
        QTest::newRow("read code 10, 9 characters") << QDate() << 10 << "03/04/202" << true;
    }
    void dateText()
    {
        QFETCH(QDate, date);
        QFETCH(int, code);
        QFETCH(QString, text);
        QFETCH(bool, read);
        CString out("untouched");
        QDate back(1999, 9, 9);
        if (read) {
            QCOMPARE(ReadQDate2(CString(text), code, back), date.isValid());
            QCOMPARE(back, date);
        } else {
            FormatQDate(out, date, code);
            QCOMPARE(QString(out), text);
        }
    }

    void counts_data()
    {
        QTest::addColumn<Count>("count");
        QTest::addColumn<QDate>("a");
        QTest::addColumn<QDate>("b");
        QTest::addColumn<int>("n");
        QTest::addColumn<int>("expected");
        const Count inYear = [](auto, auto, auto y) { return GetDaysInYear(y); };
        const Count valid = [](auto a, auto, auto y) {
            return ValidQDate(a, y) + ValidQDateTime(QDateTime(a, QTime(12, 0)), y);
        };
        const Count month = [](auto, auto, auto m) { return GetDaysFromYearStart(2023, m, 1); };
        const Count day = [](auto, auto, auto d) { return GetDaysFromYearStart(2023, 12, d); };
        const Count between = [](auto a, auto b, auto) { return GetDaysBetween(a, b); };
        const Count months = [](auto a, auto b, auto) { return GetMonthsBetween(a, b); };
        const Count before = [](auto cut, auto, auto) { return GetDaysBeforeDate(From, To, cut); };
        const Count after = [](auto cut, auto, auto) { return GetDaysAfterDate(From, To, cut); };
        const Count age = [](auto birth, auto, auto y) { return GetAge(y, birth); };
        const Count inCanada
            = [](auto a, auto b, auto y) { return DaysInCanadaInTaxYear(y, a, b); };
        const Count within = [](auto a, auto b, auto y) { return GetDaysWithinYear(a, b, y); };
        const QDate none, d(2025, 3, 10), dec31(2023, 12, 31), jan1(2024, 1, 1);
        const QDate cutBefore(2025, 2, 28), cutFrom(2025, 3, 1), cutAfter(2025, 3, 11);
        QTest::newRow("divisible by 100") << inYear << none << none << 1900 << 365;
        QTest::newRow("divisible by 400") << inYear << none << none << 2000 << 366;
        QTest::newRow("year 0 is never leap") << inYear << none << none << 0 << 365;
        QTest::newRow("1849-12-31: too early") << valid << QDate(1849, 12, 31) << none << 2025 << 0;
        QTest::newRow("1850-01-01: in") << valid << QDate(1850, 1, 1) << none << 2025 << 2;
        QTest::newRow("maxYear: in") << valid << QDate(2025, 12, 31) << none << 2025 << 2;
        QTest::newRow("maxYear + 1: out") << valid << QDate(2026, 1, 1) << none << 2025 << 0;
        QTest::newRow("month 13 is December") << month << none << none << 13 << 335;
        QTest::newRow("day 0 counts as 1") << day << none << none << 0 << 335;
        QTest::newRow("a huge day saturates") << day << none << none << INT_MAX << INT_MAX;
        QTest::newRow("one date: both ends") << between << d << d << 0 << 1;
        QTest::newRow("across new year") << between << dec31 << jan1 << 0 << 2;
        QTest::newRow("a leap year between") << between << dec31 << QDate(2025, 1, 1) << 0 << 368;
        QTest::newRow("1900 between")
            << between << QDate(1899, 12, 31) << QDate(1901, 1, 1) << 0 << 367;
        QTest::newRow("a null from") << between << none << d << 0 << 0;
        QTest::newRow("within a year") << months << QDate(2023, 11, 30) << dec31 << 0 << 1;
        QTest::newRow("within, reversed") << months << dec31 << QDate(2023, 11, 30) << 0 << 1;
        QTest::newRow("across a year: one more") << months << dec31 << jan1 << 0 << 2;
        QTest::newRow("across, reversed: 13") << months << QDate(2024, 12, 1) << dec31 << 0 << 13;
        QTest::newRow("before: cut before from") << before << cutBefore << none << 0 << 0;
        QTest::newRow("before: cut after to") << before << cutAfter << none << 0 << 10;
        QTest::newRow("after: cut before from") << after << cutBefore << none << 0 << 10;
        QTest::newRow("after: cut at from") << after << cutFrom << none << 0 << 9;
        QTest::newRow("after: cut after to") << after << cutAfter << none << 0 << 0;
        QTest::newRow("age saturates") << age << QDate(5, 1, 1) << none << INT_MIN << INT_MIN;
        QTest::newRow("no dates: whole leap year") << inCanada << none << none << 2024 << 366;
        QTest::newRow("arrived") << inCanada << cutFrom << none << 2025 << 306;
        QTest::newRow("left") << inCanada << none << cutFrom << 2025 << 60;
        QTest::newRow("left on arrival") << inCanada << cutFrom << cutFrom << 2025 << 1;
        QTest::newRow("left the day before") << inCanada << cutFrom << cutBefore << 2025 << 0;
        QTest::newRow("within: end ignored") << within << cutFrom << d << 2025 << 306;
        QTest::newRow("within: spanning") << within << dec31 << d << 2024 << 366;
        QTest::newRow("within: ending") << within << jan1 << d << 2025 << 69;
        QTest::newRow("within: ending before") << within << dec31 << dec31 << 2024 << 0;
    }
    void counts()
    {
        QFETCH(Count, count);
        QFETCH(QDate, a);
        QFETCH(QDate, b);
        QFETCH(int, n);
        QTEST(count(a, b, n), "expected");
    }

    void hostileYearsReturnPromptly()
    {
        QElapsedTimer timer;
        timer.start();
        QCOMPARE(GetDaysBetween(QDate(1, 1, 1), QDate(2000000000, 1, 1)), INT_MAX);
        QCOMPARE(GetMonthsBetween(QDate(1, 1, 1), QDate(2000000000, 12, 1)), INT_MAX);
        QCOMPARE(GetDaysWithinYear(QDate(1, 1, 1), QDate(2000000000, 1, 1), 1000000001), 365);
        QVERIFY2(timer.elapsed() < 1000, "whole years must not be walked one by one");
    }

    void serialDays_data()
    {
        // The two conversions are not inverses: reading adds a day.
        QTest::addColumn<QDate>("date");
        QTest::addColumn<double>("serial");
        QTest::addColumn<bool>("toSerial");
        // 2025-01-01 12:00 UTC is 1735732800 s after the epoch.
        QTest::newRow("noon plus 300 s") << QDate(2025, 1, 1) << 3944894700.0 / 86400.0 << true;
        QTest::newRow("0 is before 1900: null") << QDate() << 0.0 << false;
        QTest::newRow("1 is 1900-01-01") << QDate(1900, 1, 1) << 1.0 << false;
        QTest::newRow("a day later") << QDate(2025, 1, 2) << 45658.0 << false;
        QTest::newRow("NaN: null") << QDate() << qQNaN() << false;
    }
    void serialDays()
    {
        QFETCH(QDate, date);
        QFETCH(double, serial);
        QFETCH(bool, toSerial);
        if (toSerial)
            QCOMPARE(DateAsDouble(date).m_value, serial);
        else
            QCOMPARE(DateAsDouble::convertDoubleToDate(serial), date);
    }

    void serializeIsOneDouble()
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
};

QTEST_GUILESS_MAIN(tst_Calendar)
#include "tst_calendar.moc"
