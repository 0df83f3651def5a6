#include "jurisdictiontables.h"

#include <QTest>

#include <climits>

class tst_JurisdictionTables : public QObject
{
    Q_OBJECT

private slots:
    void firstNationRows();
    void codesEqualRows();
    void oddTextsKept();
    void isCanProv_data();
    void isCanProv();
    void isUsaState_data();
    void isUsaState();
    void isProvinceSupported_data();
    void isProvinceSupported();
    void getProvince_data();
    void getProvince();
    void setProvValueToShortName_data();
    void setProvValueToShortName();
    void getCountryCode_data();
    void getCountryCode();
    void getCurrencyCode_data();
    void getCurrencyCode();
    void xmlWriteTagForCountryCode_data();
    void xmlWriteTagForCountryCode();
    void xmlWriteTagForProvCode_data();
    void xmlWriteTagForProvCode();
    void entityPlaceholder_data();
    void entityPlaceholder();
    void entityKind_data();
    void entityKind();
    void entityName_data();
    void entityName();
    void entityKeepsSecondAddressLine();
};

static QByteArray b(const char* s)
{
    return QByteArray(s);
}

void tst_JurisdictionTables::firstNationRows()
{
    QCOMPARE(g_FirstNationTotal, 12);
    QCOMPARE(b(g_FirstNationInfo[0].code), b("     "));
    QCOMPARE(b(g_FirstNationInfo[11].code), b("11013"));
}

// Codes equal rows everywhere except the country table's last row; the state
// rows of the combined list follow the state table, 17 codes on.
void tst_JurisdictionTables::codesEqualRows()
{
    for (int i = 0; i < Global2_Provs_Num; ++i)
        QCOMPARE(Global2_Provs_Info[i].id, i);
    for (int i = 1; i < Global_USStates_Num; ++i)
        QCOMPARE(b(Global2_Provs_Info[i + 17].shortName), b(Global_USStates_Info[i].shortName));
    for (int i = 0; i < Global_Countries_Num - 1; ++i)
        QCOMPARE(Global_Countries_Info[i].id, i);
    QCOMPARE(Global_Countries_Info[117].id, 999);
    QCOMPARE(b(Global_S97_NONRESI_CODE_Info[0].text), b("01"));
}

// Odd texts are stored and filed, so they stay.
void tst_JurisdictionTables::oddTextsKept()
{
    QCOMPARE(b(Global_USStates_Info[39].name), b("Neveda"));
    QCOMPARE(b(Global_USStates_Info[55].name), b("Vemont"));
    QCOMPARE(b(Global_Countries_Info[72].name), b("Solvenia"));
    QCOMPARE(b(Global_Countries_Info[102].name), b("Bolivia "));
    QCOMPARE(b(Global_Countries_Info[9].code2), b(Global_Countries_Info[48].code2));
    QCOMPARE(b(Global_Countries_Info[21].code3), b("UAE"));
    QCOMPARE(b(Global_Currency_Info[3].name), b("Australia Dolloar"));
    QVERIFY(!Global_Provs_Info[11].libName);
    QVERIFY(!Global2_Provs_Info[14].trustLibName);
    QCOMPARE(b(Global_QC_ANNEXE3_Info[4].text),
             b("D\xe9"
               "duction pour les revenus provenant d\x92un projet majeur "
               "d\x92investissement"));
    QCOMPARE(b(Global_QC_ANNEXE3_Info[12].text2), b("99"));
}

void tst_JurisdictionTables::isCanProv_data()
{
    QTest::addColumn<int>("v");
    QTest::addColumn<bool>("province");
    QTest::newRow("no choice, one below the first") << 0 << false;
    QTest::newRow("Alberta, the first") << 1 << true;
    QTest::newRow("Yukon, the last") << 13 << true;
    QTest::newRow("non-resident, one above the last") << 14 << false;
    QTest::newRow("INT_MIN") << INT_MIN << false;
}

void tst_JurisdictionTables::isCanProv()
{
    QFETCH(int, v);
    QTEST(::isCanProv(v), "province");
    QTEST(isCanProvince(v), "province");
}

void tst_JurisdictionTables::isUsaState_data()
{
    QTest::addColumn<int>("v");
    QTest::addColumn<bool>("state");
    QTest::newRow("Outside Canada, one below the first state") << 17 << false;
    QTest::newRow("first state") << 18 << true;
    QTest::newRow("last state") << 76 << true;
    QTest::newRow("one past the table") << 77 << false;
    QTest::newRow("a province is no state") << 9 << false;
}

void tst_JurisdictionTables::isUsaState()
{
    QFETCH(int, v);
    QTEST(::isUsaState(v), "state");
}

void tst_JurisdictionTables::isProvinceSupported_data()
{
    QTest::addColumn<int>("v");
    QTest::addColumn<bool>("supported");
    QTest::newRow("no choice") << 0 << false;
    QTest::newRow("Alberta, the first, has a library") << 1 << true;
    QTest::newRow("Quebec has none") << 11 << false;
    QTest::newRow("Yukon, the last, has a library") << 13 << true;
    QTest::newRow("non-resident, one above the last") << 14 << false;
    QTest::newRow("past the table") << 18 << false;
    QTest::newRow("INT_MIN") << INT_MIN << false;
}

void tst_JurisdictionTables::isProvinceSupported()
{
    QFETCH(int, v);
    QTEST(IsProvinceSupported(v), "supported");
}

void tst_JurisdictionTables::getProvince_data()
{
    QTest::addColumn<QByteArray>("name");
    QTest::addColumn<int>("province");
    QTest::newRow("first row") << QByteArray("AB") << 1;
    QTest::newRow("any letter case") << QByteArray("on") << 9;
    QTest::newRow("last row") << QByteArray("yt") << 13;
    QTest::newRow("OT of the rows past the last") << QByteArray("OT") << 0;
    QTest::newRow("unknown") << QByteArray("xx") << 0;
    QTest::newRow("empty") << QByteArray("") << 0;
}

void tst_JurisdictionTables::getProvince()
{
    QFETCH(QByteArray, name);
    QTEST(int(::getProvince(name.constData())), "province");
    QCOMPARE(::getProvince(nullptr), ENUM_PROV_NONE);
}

void tst_JurisdictionTables::setProvValueToShortName_data()
{
    QTest::addColumn<int>("country");
    QTest::addColumn<int>("prov");
    QTest::addColumn<QString>("out"); // starts as "x"
    QTest::newRow("state 0, one below the first, stays") << 2 << 0 << "x";
    QTest::newRow("first state") << 2 << 1 << "AK";
    QTest::newRow("last state") << 2 << 59 << "WY";
    QTest::newRow("state 60, one past the table, stays") << 2 << 60 << "x";
    QTest::newRow("province 0, one below the first, stays") << 1 << 0 << "x";
    QTest::newRow("first province") << 1 << 1 << "AB";
    QTest::newRow("last row, a non-resident kind") << 1 << 17 << "OT";
    QTest::newRow("province 18, one past the table, stays") << 1 << 18 << "x";
    QTest::newRow("huge province stays") << 1 << INT_MAX << "x";
    QTest::newRow("country 0 stays") << 0 << 1 << "x";
    QTest::newRow("country 3 stays") << 3 << 1 << "x";
}

void tst_JurisdictionTables::setProvValueToShortName()
{
    QFETCH(int, country);
    QFETCH(int, prov);
    CString out("x");
    ::setProvValueToShortName(country, prov, out);
    QTEST(QString(out), "out");
}

void tst_JurisdictionTables::getCountryCode_data()
{
    QTest::addColumn<int>("code");
    QTest::addColumn<int>("row");
    QTest::addColumn<QString>("out"); // starts as "x"
    QTest::newRow("Select, one below the first, is not a country") << 0 << -1 << "x";
    QTest::newRow("Canada, the first") << 1 << 1 << "CAN";
    QTest::newRow("Nigeria, the last located") << 116 << 116 << "NGA";
    QTest::newRow("999 is in the table, never located") << 999 << -1 << "x";
    QTest::newRow("INT_MIN") << INT_MIN << -1 << "x";
}

// The last argument is not read.
void tst_JurisdictionTables::getCountryCode()
{
    QFETCH(int, code);
    CString out("x");
    QTEST(::getCountryCode(out, code, 7), "row");
    QTEST(QString(out), "out");
    QTEST(__locateCountryCode(code), "row");
}

void tst_JurisdictionTables::getCurrencyCode_data()
{
    QTest::addColumn<int>("code");
    QTest::addColumn<int>("row");
    QTest::addColumn<QString>("out"); // starts as "x"
    QTest::newRow("Canadian dollar, the first") << 0 << 0 << "CAD";
    QTest::newRow("yen, the last") << 5 << 5 << "JPY";
    QTest::newRow("one past the currencies") << 6 << -1 << "x";
    QTest::newRow("negative is a large unsigned") << -1 << -1 << "x";
}

void tst_JurisdictionTables::getCurrencyCode()
{
    QFETCH(int, code);
    CString out("x");
    QTEST(::getCurrencyCode(out, code), "row");
    QTEST(QString(out), "out");
    QTEST(__locateCrcyCode(code), "row");
}

void tst_JurisdictionTables::xmlWriteTagForCountryCode_data()
{
    QTest::addColumn<int>("code");
    QTest::addColumn<int>("row");
    QTest::addColumn<QString>("out"); // starts as "x"
    QTest::newRow("Select writes nothing") << 0 << -1 << "x";
    QTest::newRow("Canada, the first") << 1 << 1 << "x<c>CAN</c>\n";
    QTest::newRow("Nigeria, the last") << 116 << 116 << "x<c>NGA</c>\n";
    QTest::newRow("Other Country writes nothing") << 999 << -1 << "x";
}

void tst_JurisdictionTables::xmlWriteTagForCountryCode()
{
    QFETCH(int, code);
    CString out("x");
    QTEST(::xmlWriteTagForCountryCode(out, "c", code), "row");
    QTEST(QString(out), "out");
}

void tst_JurisdictionTables::xmlWriteTagForProvCode_data()
{
    QTest::addColumn<int>("country");
    QTest::addColumn<int>("prov");
    QTest::addColumn<QString>("out"); // starts as "x"
    QTest::newRow("state row 0") << 2 << 0 << "x<c>N/A</c>\n";
    QTest::newRow("negative state writes nothing") << 2 << -1 << "x";
    QTest::newRow("last state") << 2 << 59 << "x<c>WY</c>\n";
    QTest::newRow("state one past the table writes nothing") << 2 << 60 << "x";
    QTest::newRow("province row 0 is blank") << 1 << 0 << "x";
    QTest::newRow("Quebec") << 1 << 11 << "x<c>QC</c>\n";
    QTest::newRow("last province row") << 1 << 17 << "x<c>OT</c>\n";
    QTest::newRow("province one past the table writes nothing") << 1 << 18 << "x";
    QTest::newRow("negative province writes nothing") << 1 << -5 << "x";
    QTest::newRow("country 0 writes nothing") << 0 << 1 << "x";
    QTest::newRow("country 3 writes nothing") << 3 << 1 << "x";
}

// The result is the country, whatever was written.
void tst_JurisdictionTables::xmlWriteTagForProvCode()
{
    QFETCH(int, country);
    QFETCH(int, prov);
    CString out("x");
    QCOMPARE(::xmlWriteTagForProvCode(out, "c", country, prov), country);
    QTEST(QString(out), "out");
}

void tst_JurisdictionTables::entityPlaceholder_data()
{
    QTest::addColumn<int>("type");
    QTest::addColumn<QString>("govId");
    QTest::addColumn<QString>("typeName");
    QTest::newRow("trust") << 8 << "T12345678"
                           << "(trust)";
    QTest::newRow("one below a trust") << 7 << "987654321"
                                       << "(person)";
    QTest::newRow("one above a trust") << 9 << "987654321"
                                       << "(person)";
    QTest::newRow("corporation") << 2 << "123456789"
                                 << "(corporation)";
    QTest::newRow("between corporation and partnership") << 3 << "987654321"
                                                         << "(person)";
    QTest::newRow("partnership") << 4 << "987654321"
                                 << "(partnership)";
    QTest::newRow("person, type 1") << 1 << "000000000"
                                    << "(person)";
    QTest::newRow("person, type 0") << 0 << "987654321"
                                    << "(person)";
}

void tst_JurisdictionTables::entityPlaceholder()
{
    QFETCH(int, type);
    EntityEntry e(3);
    e.update("", "Ltd", type, "", "1 Main", "a", "b", "K1A 0B1", "m@x.ca", "555");
    QTEST(e.getGovId(), "govId");
    QTEST(e.getEntityTypeName(), "typeName");
}

void tst_JurisdictionTables::entityKind_data()
{
    QTest::addColumn<int>("type");
    QTest::addColumn<bool>("person");
    QTest::addColumn<bool>("corp");
    QTest::addColumn<bool>("partnership");
    QTest::addColumn<bool>("trust");
    QTest::newRow("1 is the last person type") << 1 << true << false << false << false;
    QTest::newRow("2 is a corporation") << 2 << false << true << false << false;
    QTest::newRow("3 is neither") << 3 << false << false << false << false;
    QTest::newRow("4 is a partnership") << 4 << false << false << true << false;
    QTest::newRow("8 is a trust") << 8 << false << false << false << true;
}

void tst_JurisdictionTables::entityKind()
{
    QFETCH(int, type);
    EntityEntry e(1);
    e.update("", "", type, "1", "", "", "", "", "", "");
    QTEST(e.isPerson(), "person");
    QTEST(e.isCorp(), "corp");
    QTEST(e.isPartnership(), "partnership");
    QTEST(e.isTrust(), "trust");
}

void tst_JurisdictionTables::entityName_data()
{
    QTest::addColumn<QString>("first");
    QTest::addColumn<QString>("last");
    QTest::addColumn<QString>("name");
    QTest::newRow("both names") << "Ann"
                                << "Lee"
                                << "Ann Lee";
    QTest::newRow("no first name: no space") << QString() << "Ltd"
                                             << "Ltd";
    QTest::newRow("no last name: the space stays") << "Ann" << QString() << "Ann ";
}

void tst_JurisdictionTables::entityName()
{
    QFETCH(QString, first);
    QFETCH(QString, last);
    EntityEntry e(1);
    e.update(first, last, 0, "046454286", "", "", "", "", "", "");
    QTEST(e.getName(), "name");
    QCOMPARE(e.getGovId(), QStringLiteral("046454286"));
}

// The text after the address line is not stored; the next one is.
void tst_JurisdictionTables::entityKeepsSecondAddressLine()
{
    EntityEntry e(3);
    e.update("", "Ltd", 2, "", "1 Main", "a", "b", "K1A 0B1", "m@x.ca", "555");
    QCOMPARE(e.getAddress1(), QStringLiteral("1 Main"));
    QCOMPARE(e.getAddress2(), QString());
    QCOMPARE(e.getAddress3(), QStringLiteral("b"));
    QCOMPARE(e.getPostalCode(), QStringLiteral("K1A 0B1"));
}

QTEST_GUILESS_MAIN(tst_JurisdictionTables)
#include "tst_jurisdictiontables.moc"
