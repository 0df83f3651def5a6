#include "currencyinfo.h"
#include "currencyinfo_p.h"
#include "tempfiles.h"

#include <QtTest>

#include <limits>

using Bedrock::ExchangeRates;

namespace {
constexpr int IntMin = std::numeric_limits<int>::min();
constexpr int IntMax = std::numeric_limits<int>::max();
const char usd[] = R"({"USD":{"2022":1.35}})";
} // namespace

class tst_CurrencyInfo : public QObject
{
    Q_OBJECT

private slots:
    // A rates file, padded with blanks to `size` bytes when above 0; what was
    // there before never survives a read.
    void read_data()
    {
        QTest::addColumn<QString>("json"); // null: no file
        QTest::addColumn<qint64>("size");
        QTest::addColumn<bool>("ok");
        QTest::addColumn<ExchangeRates>("expected");
        const ExchangeRates none, usd2022 { { "USD", { { 2022, 1.35 } } } };
        const qint64 bound = CurrencyInfo::MaxRatesFileBytes;
        QTest::newRow("codes, years, rates; a text rate is 0")
            << R"({"USD":{"2020":1.3,"2022":"1.35"},"EUR":{"2022":1.5}})" << 0ll << true
            << ExchangeRates { { "USD", { { 2020, 1.3 }, { 2022, 0.0 } } },
                               { "EUR", { { 2022, 1.5 } } } };
        QTest::newRow("codes as written, with no years or no object")
            << R"({"usd":{"2021":1.2},"GBP":{},"CHF":5})" << 0ll << true
            << ExchangeRates { { "usd", { { 2021, 1.2 } } }, { "GBP", {} }, { "CHF", {} } };
        QTest::newRow("year in hexadecimal is 0") << R"({"USD":{"0x7E6":1.5}})" << 0ll << true
                                                  << ExchangeRates { { "USD", { { 0, 1.5 } } } };
        QTest::newRow("largest 32-bit year") << R"({"USD":{"2147483647":1.5}})" << 0ll << true
                                             << ExchangeRates { { "USD", { { IntMax, 1.5 } } } };
        QTest::newRow("one past it is 0") << R"({"USD":{"2147483648":1.5}})" << 0ll << true
                                          << ExchangeRates { { "USD", { { 0, 1.5 } } } };
        QTest::newRow("top-level array") << R"([{"USD":{"2022":1.35}}])" << 0ll << false << none;
        QTest::newRow("cut short") << R"({"USD":{"2022":1.35})" << 0ll << false << none;
        QTest::newRow("at the size bound") << usd << bound << true << usd2022;
        QTest::newRow("one byte over, refused") << usd << bound + 1 << false << none;
        QTest::newRow("no file") << QString() << 0ll << false << none;
    }

    void read()
    {
        QFETCH(QString, json);
        QFETCH(qint64, size);
        QByteArray bytes = json.toUtf8();
        if (size > 0)
            bytes += QByteArray(size - bytes.size(), ' ');
        QTemporaryDir dir;
        const QString path
            = json.isNull() ? dir.filePath("none.json") : writeTempFile(dir, "rates.json", bytes);
        ExchangeRates rates { { "OLD", { { 2000, 9.0 } } } };
        QTEST(Bedrock::readExchangeRatesFile(path, rates), "ok");
        QTEST(rates, "expected");
    }

    // Against USD 2020, 2022, 2025; CAD 2021 at 5; chf 2021; GBP without
    // years; XAU 2000; MAX at the largest year; MIN at the least.
    void lookup_data()
    {
        QTest::addColumn<QString>("code");
        QTest::addColumn<int>("year");
        QTest::addColumn<bool>("found");
        QTest::addColumn<double>("rate");
        QTest::newRow("exact year") << "USD" << 2022 << true << 1.35;
        QTest::newRow("equally near: the earlier") << "USD" << 2021 << true << 1.30;
        QTest::newRow("nearer later year") << "USD" << 2024 << true << 1.40;
        QTest::newRow("code upper-cased") << "uSd" << 2022 << true << 1.35;
        QTest::newRow("CAD in any case is 1") << "cAd" << 2021 << true << 1.0;
        QTest::newRow("lower-case code never found") << "chf" << 2021 << false << -1.0;
        QTest::newRow("unknown code") << "ZZZ" << 2022 << false << -1.0;
        QTest::newRow("code without years") << "GBP" << 2022 << false << -1.0;
        QTest::newRow("998 years later") << "XAU" << 2998 << true << 7.0;
        QTest::newRow("999 years later") << "XAU" << 2999 << false << -1.0;
        QTest::newRow("998 years earlier") << "XAU" << 1002 << true << 7.0;
        QTest::newRow("999 years earlier") << "XAU" << 1001 << false << -1.0;
        QTest::newRow("least year, largest rate: no overflow") << "MAX" << IntMin << false << -1.0;
        QTest::newRow("largest year, least rate: no overflow") << "MIN" << IntMax << false << -1.0;
    }

    void lookup()
    {
        QFETCH(QString, code);
        QFETCH(int, year);
        const ExchangeRates rates { { "USD", { { 2020, 1.30 }, { 2022, 1.35 }, { 2025, 1.40 } } },
                                    { "CAD", { { 2021, 5.0 } } },
                                    { "chf", { { 2021, 0.70 } } },
                                    { "GBP", {} },
                                    { "XAU", { { 2000, 7.0 } } },
                                    { "MAX", { { IntMax, 2.0 } } },
                                    { "MIN", { { IntMin, 3.0 } } } };
        double rate = -1.0;
        QTEST(Bedrock::lookupExchangeRate(rates, code, year, rate), "found");
        QTEST(rate, "rate");
    }

    // The one object of this process: "CAD" costs no load, the first other
    // lookup loads the named file, and nothing changes what was loaded.
    void singletonLoadsOnce()
    {
        CurrencyInfo& info = CurrencyInfo::instance();
        QCOMPARE(&CurrencyInfo::instance(), &info);
        double rate = -1.0;
        QVERIFY(info.getExchangeRate("cad", 2022, rate));
        QCOMPARE(rate, 1.0);
        QTemporaryDir dir;
        const QString first = writeTempFile(dir, "first.json", usd);
        QVERIFY(!first.isEmpty());
        info.setExchangeRatesFile(first);
        QVERIFY(info.getExchangeRate("usd", 2022, rate));
        QCOMPARE(rate, 1.35);
        info.setExchangeRatesFile(writeTempFile(dir, "second.json", R"({"EUR":{"2022":1.5}})"));
        QVERIFY(!writeTempFile(dir, "first.json", R"({"USD":{"2022":3.0}})").isEmpty());
        info.initializeExchangeRates();
        QVERIFY(info.getExchangeRate("USD", 2022, rate));
        QCOMPARE(rate, 1.35);
        QVERIFY(!info.getExchangeRate("EUR", 2022, rate));
        QCOMPARE(rate, 1.35);
    }
};

QTEST_GUILESS_MAIN(tst_CurrencyInfo)
#include "tst_currencyinfo.moc"
