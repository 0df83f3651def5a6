#include "jurisdictiontables.h"

#include <QTest>

#include <climits>

class tst_JurisdictionTables : public QObject
{
    Q_OBJECT

private slots:
    void shapesAndKeptRows();
    void provinces_data();
    void provinces();
    void lookups_data();
    void lookups();
    void entity();
};

static QByteArray b(const char* s)
{
    return QByteArray(s);
}

void tst_JurisdictionTables::shapesAndKeptRows()
{
    QCOMPARE(int(sizeof(Global_QC_ANNEXE3_Info) / sizeof(STRUCT_CODE_INFO)), 13);
    QCOMPARE(int(sizeof(Global_S8_ASSET43_CODE_Info) / sizeof(STRUCT_CODE_INFO)), 25);
    QCOMPARE(g_FirstNationTotal, 12);
    QCOMPARE(b(g_FirstNationInfo[0].code), b("     "));
    QCOMPARE(b(g_FirstNationInfo[11].code), b("11013"));
    // Codes equal rows everywhere except the country table's last row.
    for (int i = 0; i < Global2_Provs_Num; ++i)
        QCOMPARE(Global2_Provs_Info[i].id, i);
    for (int i = 1; i < Global_USStates_Num; ++i)
        QCOMPARE(b(Global2_Provs_Info[i + 17].shortName), b(Global_USStates_Info[i].shortName));
    for (int i = 0; i < Global_Countries_Num - 1; ++i)
        QCOMPARE(Global_Countries_Info[i].id, i);
    QCOMPARE(Global_Countries_Info[117].id, 999);
    QCOMPARE(b(Global_S97_NONRESI_CODE_Info[0].text), b("01"));
    // Odd texts are stored and filed, so they stay.
    QCOMPARE(b(Global_USStates_Info[39].name), b("Neveda"));
    QCOMPARE(b(Global_USStates_Info[55].name), b("Vemont"));
    QCOMPARE(b(Global_Countries_Info[72].name), b("Solvenia"));
    QCOMPARE(b(Global_Countries_Info[102].name), b("Bolivia "));
    QCOMPARE(b(Global_Countries_Info[9].code2), b(Global_Countries_Info[48].code2));
    QCOMPARE(b(Global_Countries_Info[21].code3), b("UAE"));
    QCOMPARE(b(Global_Currency_Info[3].name), b("Australia Dolloar"));
    QVERIFY(!Global_Provs_Info[11].libName && !Global2_Provs_Info[14].trustLibName);
    QCOMPARE(b(Global_QC_ANNEXE3_Info[4].text),
             b("D\xe9"
               "duction pour les revenus provenant d\x92un projet majeur "
               "d\x92investissement"));
    QCOMPARE(b(Global_QC_ANNEXE3_Info[12].text2), b("99"));
}

void tst_JurisdictionTables::provinces_data()
{
    QTest::addColumn<int>("v");
    QTest::addColumn<bool>("can");
    QTest::addColumn<bool>("usa");
    QTest::addColumn<bool>("supported");
    QTest::newRow("no choice") << 0 << false << false << false;
    QTest::newRow("Ontario has a library") << 9 << true << false << true;
    QTest::newRow("Quebec has none") << 11 << true << false << false;
    QTest::newRow("last territory") << 13 << true << false << true;
    QTest::newRow("non-resident is not a province") << 14 << false << false << false;
    QTest::newRow("Outside Canada, before the states") << 17 << false << false << false;
    QTest::newRow("first state") << 18 << false << true << false;
    QTest::newRow("last state") << 76 << false << true << false;
    QTest::newRow("past the table") << 77 << false << false << false;
    QTest::newRow("INT_MIN") << INT_MIN << false << false << false;
}

void tst_JurisdictionTables::provinces()
{
    QFETCH(int, v);
    QTEST(isCanProv(v), "can");
    QTEST(isCanProvince(v), "can");
    QTEST(isUsaState(v), "usa");
    QTEST(IsProvinceSupported(v), "supported");
}

enum Lookup { ShortName, Country, Currency, XmlCountry, XmlProv };

void tst_JurisdictionTables::lookups_data()
{
    QTest::addColumn<int>("fn");
    QTest::addColumn<int>("a"); // the country, or the code of a one-code lookup
    QTest::addColumn<int>("p");
    QTest::addColumn<int>("ret");
    QTest::addColumn<QString>("out"); // starts as "x"
    auto row = [](const char* why, Lookup fn, int a, int p, int ret, const char* out) {
        QTest::newRow(why) << int(fn) << a << p << ret << QString(out);
    };
    row("state", ShortName, 2, 40, 0, "NY");
    row("state 60 is past the table", ShortName, 2, 60, 0, "x");
    row("state 0 is not set", ShortName, 2, 0, 0, "x");
    row("province", ShortName, 1, 9, 0, "ON");
    row("non-resident kind", ShortName, 1, 17, 0, "OT");
    row("province past the table stays", ShortName, 1, 18, 0, "x");
    row("huge province stays", ShortName, 1, INT_MAX, 0, "x");
    row("other country stays", ShortName, 3, 1, 0, "x");
    row("Select is not a country", Country, 0, 0, -1, "x");
    row("Canada", Country, 1, 0, 1, "CAN");
    row("last located country", Country, 116, 0, 116, "NGA");
    row("999 is in the table, never located", Country, 999, 0, -1, "x");
    row("country INT_MIN", Country, INT_MIN, 0, -1, "x");
    row("Canadian dollar", Currency, 0, 0, 0, "CAD");
    row("yen is the last", Currency, 5, 0, 5, "JPY");
    row("past the currencies", Currency, 6, 0, -1, "x");
    row("negative currency as unsigned", Currency, -1, 0, -1, "x");
    row("xml country", XmlCountry, 16, 0, 16, "x<c>GBR</c>\n");
    row("xml Other Country writes nothing", XmlCountry, 999, 0, -1, "x");
    row("xml state", XmlProv, 2, 59, 2, "x<c>WY</c>\n");
    row("xml state past the table", XmlProv, 2, 60, 2, "x");
    row("xml province", XmlProv, 1, 11, 1, "x<c>QC</c>\n");
    row("xml province row 0 is blank", XmlProv, 1, 0, 1, "x");
    row("xml negative province", XmlProv, 1, -5, 1, "x");
    row("xml other country", XmlProv, 3, 1, 3, "x");
}

void tst_JurisdictionTables::lookups()
{
    QFETCH(int, fn);
    QFETCH(int, a);
    QFETCH(int, p);
    CString text("x");
    int ret = 0;
    if (fn == ShortName) {
        setProvValueToShortName(a, p, text);
    } else if (fn == Country) {
        ret = getCountryCode(text, a, 7);
        QCOMPARE(__locateCountryCode(a), ret);
    } else if (fn == Currency) {
        ret = getCurrencyCode(text, a);
        QCOMPARE(__locateCrcyCode(a), ret);
    } else {
        ret = fn == XmlCountry ? xmlWriteTagForCountryCode(text, "c", a)
                               : xmlWriteTagForProvCode(text, "c", a, p);
    }
    QTEST(ret, "ret");
    QTEST(QString(text), "out");
}

void tst_JurisdictionTables::entity()
{
    QCOMPARE(getProvince("on"), ENUM_PROV_ON);
    QCOMPARE(getProvince("OT"), ENUM_PROV_NONE);
    QCOMPARE(getProvince(""), ENUM_PROV_NONE);
    QCOMPARE(getProvince(nullptr), ENUM_PROV_NONE);

    const struct {
        int type;
        const char* id;
        const char* name;
    } rows[] = { { 8, "T12345678", "(trust)" },  { 2, "123456789", "(corporation)" },
                 { 1, "000000000", "(person)" }, { 4, "987654321", "(partnership)" },
                 { 0, "987654321", "(person)" }, { 5, "987654321", "(person)" } };
    for (const auto& r : rows) {
        EntityEntry e(3);
        e.update("", "Ltd", r.type, "", "1 Main", "a", "b", "K1A 0B1", "m@x.ca", "555");
        QCOMPARE(e.getGovId(), QString(r.id));
        QCOMPARE(e.getEntityTypeName(), QString(r.name));
        QCOMPARE(e.getName(), QStringLiteral("Ltd"));
        QCOMPARE(e.getAddress2(), QString());
        QCOMPARE(e.getAddress3(), QStringLiteral("b"));
    }
    EntityEntry p(1);
    p.update("Ann", "Lee", 0, "046454286", "", "", "", "", "", "");
    QCOMPARE(p.getName(), QStringLiteral("Ann Lee"));
    QCOMPARE(p.getGovId(), QStringLiteral("046454286"));
    QVERIFY(p.isPerson() && !p.isCorp() && !p.isTrust() && !p.isPartnership());
}

QTEST_GUILESS_MAIN(tst_JurisdictionTables)
#include "tst_jurisdictiontables.moc"
