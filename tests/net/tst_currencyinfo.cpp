#include "currencyinfo.h"
#include "currencyinfo_p.h"
#include "tempfiles.h"

#include <QCoreApplication>
#include <QProcess>
#include <QTemporaryDir>
#include <QtTest>

#include <limits>

using Bedrock::ExchangeRates;

namespace {
constexpr int IntMin = std::numeric_limits<int>::min();
constexpr int IntMax = std::numeric_limits<int>::max();
const char ChildSwitch[] = "--failed-load-child";

// Run in a process of its own, since the singleton loads once per process:
// a file that failed to load is not read again, even once it exists.
int failedLoadChild(const QString& folder)
{
    const QString path = folder + QStringLiteral("/rates.json");
    CurrencyInfo& info = CurrencyInfo::instance();
    info.setExchangeRatesFile(path);
    double rate = -1.0;
    if (info.getExchangeRate(QStringLiteral("USD"), 2022, rate) || rate != -1.0)
        return 2;
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(R"({"USD":{"2022":1.35}})") <= 0)
        return 3;
    file.close();
    if (info.getExchangeRate(QStringLiteral("USD"), 2022, rate))
        return 4;
    return 0;
}
} // namespace

class tst_CurrencyInfo : public QObject
{
    Q_OBJECT
private slots:
    void parse_data();
    void parse();
    void lookup_data();
    void lookup();
    void fileBound_data();
    void fileBound();
    void missingFile();
    void singletonLoadsOnce();
    void failedLoadNotRetried();
};

void tst_CurrencyInfo::parse_data()
{
    QTest::addColumn<QByteArray>("json");
    QTest::addColumn<bool>("ok");
    QTest::addColumn<ExchangeRates>("expected");

    QTest::newRow("codes, years and rates")
        << QByteArray(R"({"USD":{"2020":1.3,"2022":1.35},"EUR":{"2022":1.5}})") << true
        << ExchangeRates { { "USD", { { 2020, 1.3 }, { 2022, 1.35 } } },
                           { "EUR", { { 2022, 1.5 } } } };
    QTest::newRow("code kept as written, not upper-cased")
        << QByteArray(R"({"usd":{"2021":1.2}})") << true
        << ExchangeRates { { "usd", { { 2021, 1.2 } } } };
    QTest::newRow("empty inner object keeps the code")
        << QByteArray(R"({"GBP":{}})") << true << ExchangeRates { { "GBP", {} } };
    QTest::newRow("inner value not an object: code without years")
        << QByteArray(R"({"GBP":5})") << true << ExchangeRates { { "GBP", {} } };
    QTest::newRow("rate given as text reads 0") << QByteArray(R"({"USD":{"2021":"1.3"}})") << true
                                                << ExchangeRates { { "USD", { { 2021, 0.0 } } } };
    QTest::newRow("year that is no number counts as 0")
        << QByteArray(R"({"USD":{"abc":1.5}})") << true
        << ExchangeRates { { "USD", { { 0, 1.5 } } } };
    QTest::newRow("year in hexadecimal is no base-10 number")
        << QByteArray(R"({"USD":{"0x7E6":1.5}})") << true
        << ExchangeRates { { "USD", { { 0, 1.5 } } } };
    QTest::newRow("largest 32-bit year kept") << QByteArray(R"({"USD":{"2147483647":1.5}})") << true
                                              << ExchangeRates { { "USD", { { IntMax, 1.5 } } } };
    QTest::newRow("one past the largest 32-bit year counts as 0")
        << QByteArray(R"({"USD":{"2147483648":1.5}})") << true
        << ExchangeRates { { "USD", { { 0, 1.5 } } } };
    QTest::newRow("smallest 32-bit year kept")
        << QByteArray(R"({"USD":{"-2147483648":1.5}})") << true
        << ExchangeRates { { "USD", { { IntMin, 1.5 } } } };
    QTest::newRow("one below the smallest 32-bit year counts as 0")
        << QByteArray(R"({"USD":{"-2147483649":1.5}})") << true
        << ExchangeRates { { "USD", { { 0, 1.5 } } } };
    QTest::newRow("top level array gives no rates")
        << QByteArray(R"([{"USD":{"2022":1.35}}])") << false << ExchangeRates {};
    QTest::newRow("cut short gives no rates")
        << QByteArray(R"({"USD":{"2022":1.35})") << false << ExchangeRates {};
    QTest::newRow("empty text gives no rates") << QByteArray() << false << ExchangeRates {};
}

void tst_CurrencyInfo::parse()
{
    QFETCH(QByteArray, json);
    // What was there before never survives a parse.
    ExchangeRates rates { { "OLD", { { 2000, 9.0 } } } };
    QTEST(Bedrock::parseExchangeRates(json, rates), "ok");
    QTEST(rates, "expected");
}

void tst_CurrencyInfo::lookup_data()
{
    QTest::addColumn<QString>("code");
    QTest::addColumn<int>("year");
    QTest::addColumn<bool>("found");
    QTest::addColumn<double>("rate");

    QTest::newRow("exact year") << "USD" << 2022 << true << 1.35;
    QTest::newRow("equally near: the earlier year wins") << "USD" << 2021 << true << 1.30;
    QTest::newRow("nearer earlier year serves") << "USD" << 2023 << true << 1.35;
    QTest::newRow("nearer later year serves") << "USD" << 2024 << true << 1.40;
    QTest::newRow("before the first year") << "USD" << 2010 << true << 1.30;
    QTest::newRow("code in any case is upper-cased") << "uSd" << 2022 << true << 1.35;
    QTest::newRow("cad in any case is 1 without rates") << "cAd" << 1999 << true << 1.0;
    QTest::newRow("CAD is 1 whatever the rates say") << "CAD" << 2021 << true << 1.0;
    QTest::newRow("code written in lower case is never found") << "chf" << 2021 << false << -1.0;
    QTest::newRow("unknown code") << "ZZZ" << 2022 << false << -1.0;
    QTest::newRow("code without years") << "GBP" << 2022 << false << -1.0;
    QTest::newRow("998 years later serves") << "XAU" << 2998 << true << 7.0;
    QTest::newRow("999 years later does not") << "XAU" << 2999 << false << -1.0;
    QTest::newRow("998 years earlier serves") << "XAU" << 1002 << true << 7.0;
    QTest::newRow("999 years earlier does not") << "XAU" << 1001 << false << -1.0;
    QTest::newRow("year 1000 against 2022 alone") << "EUR" << 1000 << false << -1.0;
    QTest::newRow("smallest year against the largest: no overflow")
        << "MAX" << IntMin << false << -1.0;
    QTest::newRow("largest year against the smallest: no overflow")
        << "MIN" << IntMax << false << -1.0;
}

void tst_CurrencyInfo::lookup()
{
    QFETCH(QString, code);
    QFETCH(int, year);
    const ExchangeRates rates {
        { "USD", { { 2020, 1.30 }, { 2022, 1.35 }, { 2025, 1.40 } } },
        { "EUR", { { 2022, 1.50 } } },
        { "CAD", { { 2021, 5.0 } } },
        { "chf", { { 2021, 0.70 } } },
        { "GBP", {} },
        { "XAU", { { 2000, 7.0 } } },
        { "MAX", { { IntMax, 2.0 } } },
        { "MIN", { { IntMin, 3.0 } } },
    };
    double rate = -1.0;
    QTEST(Bedrock::lookupExchangeRate(rates, code, year, rate), "found");
    QTEST(rate, "rate");
}

// A rates file is read up to a bound; a larger one is refused unread.
void tst_CurrencyInfo::fileBound_data()
{
    QTest::addColumn<qint64>("size");
    QTest::addColumn<bool>("ok");
    QTest::newRow("file at the bound is read") << CurrencyInfo::MaxRatesFileBytes << true;
    QTest::newRow("one byte over the bound is refused")
        << CurrencyInfo::MaxRatesFileBytes + 1 << false;
}

void tst_CurrencyInfo::fileBound()
{
    QFETCH(qint64, size);
    QFETCH(bool, ok);
    const QByteArray json = R"({"USD":{"2022":1.35}})";
    QTemporaryDir dir;
    const QString path
        = writeTempFile(dir, "rates.json", json + QByteArray(size - json.size(), ' '));
    QVERIFY(!path.isEmpty());

    ExchangeRates rates { { "OLD", { { 2000, 9.0 } } } };
    QCOMPARE(Bedrock::readExchangeRatesFile(path, rates), ok);
    QCOMPARE(rates.contains("USD"), ok);
    QVERIFY(!rates.contains("OLD"));
}

void tst_CurrencyInfo::missingFile()
{
    ExchangeRates rates { { "OLD", { { 2000, 9.0 } } } };
    QVERIFY(!Bedrock::readExchangeRatesFile("/nonexistent/dir/rates.json", rates));
    QVERIFY(rates.isEmpty());
    QVERIFY(!Bedrock::readExchangeRatesFile(QString(), rates));
}

// The one object of this process: "CAD" costs no load, the first other lookup
// loads the named file, and nothing changes what was loaded afterwards.
void tst_CurrencyInfo::singletonLoadsOnce()
{
    CurrencyInfo& info = CurrencyInfo::instance();
    QCOMPARE(&CurrencyInfo::instance(), &info);

    double rate = -1.0;
    QVERIFY(info.getExchangeRate("cad", 2022, rate));
    QCOMPARE(rate, 1.0);

    QTemporaryDir dir;
    const QString first = writeTempFile(dir, "first.json", R"({"USD":{"2022":1.35}})");
    const QString second
        = writeTempFile(dir, "second.json", R"({"USD":{"2022":2.0},"EUR":{"2022":1.5}})");
    QVERIFY(!first.isEmpty() && !second.isEmpty());
    info.setExchangeRatesFile(first);
    QVERIFY(info.getExchangeRate("usd", 2022, rate));
    QCOMPARE(rate, 1.35);

    info.setExchangeRatesFile(second);
    QVERIFY(!writeTempFile(dir, "first.json", R"({"USD":{"2022":3.0}})").isEmpty());
    info.initializeExchangeRates();
    QVERIFY(info.getExchangeRate("USD", 2022, rate));
    QCOMPARE(rate, 1.35);
    rate = -1.0;
    QVERIFY(!info.getExchangeRate("EUR", 2022, rate));
    QCOMPARE(rate, -1.0);
}

void tst_CurrencyInfo::failedLoadNotRetried()
{
    QTemporaryDir dir;
    QProcess child;
    child.start(QCoreApplication::applicationFilePath(), { ChildSwitch, dir.path() });
    QVERIFY(child.waitForFinished(30000));
    QCOMPARE(child.exitStatus(), QProcess::NormalExit);
    // 2: the missing file gave a rate; 4: the file was read a second time.
    QCOMPARE(child.exitCode(), 0);
}

int main(int argc, char** argv)
{
    QCoreApplication app(argc, argv);
    if (argc == 3 && qstrcmp(argv[1], ChildSwitch) == 0)
        return failedLoadChild(QString::fromLocal8Bit(argv[2]));
    tst_CurrencyInfo test;
    QTEST_SET_MAIN_SOURCE_PATH
    return QTest::qExec(&test, argc, argv);
}

#include "tst_currencyinfo.moc"
