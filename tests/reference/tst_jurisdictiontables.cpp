#include "jurisdictiontables.h"

#include <QTest>

#include <functional>

enum Lookup { CanProv, UsaState, Supported, ShortName, Country, Currency, CountryTag, ProvTag };
Q_DECLARE_METATYPE(Lookup)

class tst_JurisdictionTables : public QObject
{
    Q_OBJECT
private slots:
    void lookups_data()
    {
        QTest::addColumn<Lookup>("lookup");
        QTest::addColumn<int>("a"); // the code, or the country for ShortName and ProvTag
        QTest::addColumn<int>("b"); // the province for ShortName and ProvTag
        QTest::addColumn<int>("result"); // a bool, a row or -1, or the country
        QTest::addColumn<QString>("out"); // starts as "x"
        QTest::newRow("no choice, below the first") << CanProv << 0 << 0 << 0 << "x";
        QTest::newRow("Alberta, the first") << CanProv << 1 << 0 << 1 << "x";
        QTest::newRow("Yukon, the last") << CanProv << 13 << 0 << 1 << "x";
        QTest::newRow("non-resident, above the last") << CanProv << 14 << 0 << 0 << "x";
        QTest::newRow("Outside Canada, below the states") << UsaState << 17 << 0 << 0 << "x";
        QTest::newRow("first state") << UsaState << 18 << 0 << 1 << "x";
        QTest::newRow("last state") << UsaState << 76 << 0 << 1 << "x";
        QTest::newRow("one past the states") << UsaState << 77 << 0 << 0 << "x";
        QTest::newRow("Quebec has none") << Supported << 11 << 0 << 0 << "x";
        QTest::newRow("Yukon has a library") << Supported << 13 << 0 << 1 << "x";
        QTest::newRow("non-resident: none") << Supported << 14 << 0 << 0 << "x";
        QTest::newRow("state 0 stays") << ShortName << 2 << 0 << 0 << "x";
        QTest::newRow("WY, the last state") << ShortName << 2 << 59 << 0 << "WY";
        QTest::newRow("state 60, past the table, stays") << ShortName << 2 << 60 << 0 << "x";
        QTest::newRow("first province") << ShortName << 1 << 1 << 0 << "AB";
        QTest::newRow("last row, a non-resident kind") << ShortName << 1 << 17 << 0 << "OT";
        QTest::newRow("province 18, past the table, stays") << ShortName << 1 << 18 << 0 << "x";
        QTest::newRow("Select is no country") << Country << 0 << 0 << -1 << "x";
        QTest::newRow("Canada, the first") << Country << 1 << 0 << 1 << "CAN";
        QTest::newRow("Nigeria, the last located") << Country << 116 << 0 << 116 << "NGA";
        QTest::newRow("999 is never located") << Country << 999 << 0 << -1 << "x";
        QTest::newRow("yen, the last") << Currency << 5 << 0 << 5 << "JPY";
        QTest::newRow("one past the currencies") << Currency << 6 << 0 << -1 << "x";
        QTest::newRow("negative currency") << Currency << -1 << 0 << -1 << "x";
        QTest::newRow("Canada tag") << CountryTag << 1 << 0 << 1 << "x<c>CAN</c>\n";
        QTest::newRow("state row 0") << ProvTag << 2 << 0 << 2 << "x<c>N/A</c>\n";
        QTest::newRow("state past the table") << ProvTag << 2 << 60 << 2 << "x";
        QTest::newRow("last province row") << ProvTag << 1 << 17 << 1 << "x<c>OT</c>\n";
        QTest::newRow("province past the table") << ProvTag << 1 << 18 << 1 << "x";
        QTest::newRow("negative province") << ProvTag << 1 << -5 << 1 << "x";
        QTest::newRow("country 3 writes nothing") << ProvTag << 3 << 1 << 3 << "x";
    }
    void lookups()
    {
        QFETCH(Lookup, lookup);
        QFETCH(int, a);
        QFETCH(int, b);
        CString out("x");
        // Where two functions answer the same question, -99 when they differ.
        const auto agreed = [](int x, int y) { return x == y ? x : -99; };
        const std::function<int()> calls[] = {
            [&] { return agreed(isCanProv(a), isCanProvince(a)); },
            [&] { return int(isUsaState(a)); },
            [&] { return int(IsProvinceSupported(a)); },
            [&] { return setProvValueToShortName(a, b, out), 0; },
            [&] { return agreed(getCountryCode(out, a, 7), __locateCountryCode(a)); }, // 7 unread
            [&] { return agreed(getCurrencyCode(out, a), __locateCrcyCode(a)); },
            [&] { return xmlWriteTagForCountryCode(out, "c", a); },
            [&] { return xmlWriteTagForProvCode(out, "c", a, b); },
        };
        QTEST(calls[lookup](), "result");
        QTEST(QString(out), "out");
    }
};

QTEST_GUILESS_MAIN(tst_JurisdictionTables)
#include "tst_jurisdictiontables.moc"
