#include "identitynumbers.h"

#include <QTest>

#include <string>

class tst_IdentityNumbers : public QObject
{
    Q_OBJECT
private slots:
    void predicates_data();
    void predicates();
    void listsAndLongInput();
};

using Check = bool (*)(const char*);
Q_DECLARE_METATYPE(Check)

static bool sin1(const char* s)
{
    return CheckSIN(s);
}
static bool trust(const char* s)
{
    return CheckTrustNumber(s, nullptr);
}
static bool gst(const char* s)
{
    return CheckGSTAccountNumber(CString(s));
}
static bool pship(const char* s)
{
    return CheckPartnershipNumber(CString(s));
}
static bool shelter(const char* s)
{
    return CheckTaxShelterNumber(CString(s));
}
static bool prog(const char* s)
{
    return CheckCRAProgNum(s, "RC", false);
}

void tst_IdentityNumbers::predicates_data()
{
    QTest::addColumn<Check>("check");
    QTest::addColumn<QByteArray>("input");
    QTest::addColumn<bool>("ok");
    auto row = [](const char* name, Check c, const char* in, bool ok) {
        QTest::newRow(name) << c << QByteArray(in) << ok;
    };
    row("mod10: empty has even length", CheckMod10, "", false);
    row("mod10: single 0 has sum and check 0", CheckMod10, "0", true);
    row("mod10: single 5", CheckMod10, "5", false);
    row("mod10: even length never passes", CheckMod10, "18", false);
    row("mod10: published Luhn example", CheckMod10, "79927398713", true);
    row("sin: well-known sample 046 454 286", sin1, "046454286", true);
    row("sin: 123456782 passes", sin1, "123456782", true);
    row("sin: one wrong check digit", sin1, "123456783", false);
    row("sin: nine zeros pass the rule", sin1, "000000000", true);
    row("sin: null is empty", sin1, nullptr, false);
    row("nisa: check digit right", CheckNISAPIN, "12345674", true);
    row("nisa: check digit wrong", CheckNISAPIN, "12345675", false);
    row("nisa: first digit 3 refused before computing", CheckNISAPIN, "32345674", false);
    row("nisa: bytes are not tested for being digits", CheckNISAPIN, "/000000<", true);
    row("bn: valid root, program RC", CheckBusiNum, "123456782RC0001", true);
    row("bn: program letters in lower case", CheckBusiNum, "123456782rc0001", true);
    row("bn: root 123456789 fails mod 10", CheckBusiNum, "123456789RC0001", false);
    row("bn: all-zero root refused", CheckBusiNum, "000000000RC0001", false);
    row("bn: other program", CheckBusiNum, "123456782RT0001", false);
    row("bn: NR refused without the 2 form", CheckBusiNum, "NR", false);
    row("bn2: lower-case nr", CheckBusiNum2, "nr", true);
    row("prog: mod 10 can be switched off", prog, "123456789RC0001", true);
    row("gst: no mod 10 check", gst, "123456789RT0001", true);
    row("gst: program must be RT", gst, "123456789RC0001", false);
    row("partnership: all-zero root accepted", CheckPartnershipID, "000000000RZ0001", true);
    row("partnership: mod 10 always runs", CheckPartnershipID, "123456789RZ0001", false);
    row("partnership no.: nine digits, no check digit", pship, "123456789", true);
    row("shelter: lower-case letters", shelter, "ts123456", true);
    row("shelter: five digits", shelter, "TS12345", false);
    row("trust: T", trust, "T12345678", true);
    row("trust: t", trust, "t12345678", true);
    row("trust: A", trust, "A12345678", true);
    row("trust: lower-case a refused", trust, "a12345678", false);
    row("sred: digits", CheckSREDFieldCode, "1234567", true);
    row("sred: seven points", CheckSREDFieldCode, ".......", true);
    row("sred: points anywhere", CheckSREDFieldCode, "12.34.5", true);
}

void tst_IdentityNumbers::predicates()
{
    QFETCH(Check, check);
    QFETCH(QByteArray, input);
    QFETCH(bool, ok);
    QCOMPARE(check(input.isNull() ? nullptr : input.constData()), ok);
}

void tst_IdentityNumbers::listsAndLongInput()
{
    const char* list[] = { "N/A", "pending", nullptr };
    QVERIFY(CheckSIN("n/a", list));
    QVERIFY(CheckTrustNumber("PENDING", list));
    QVERIFY(!CheckSIN("123", list));
    QVERIFY(!CheckTrustNumber("a12345678", list));
    QVERIFY(isStrPartOfArrayOfStrs("Pending", list));
    QVERIFY(!isStrPartOfArrayOfStrs("pend", list));
    QVERIFY(!isStrPartOfArrayOfStrs("x", nullptr));
    const char* empty[] = { nullptr };
    QVERIFY(!isStrPartOfArrayOfStrs("", empty));
    // Far beyond any old fixed buffer: judged, never overrun.
    const std::string zeros(100001, '0');
    QVERIFY(CheckMod10(zeros.c_str()));
    QVERIFY(!CheckSIN(zeros.c_str()));
    QVERIFY(!CheckBusiNum(zeros.c_str()));
    QVERIFY(!CheckNISAPIN(zeros.c_str()));
    QVERIFY(!CheckGSTAccountNumber(CString(QString(zeros.size(), QChar(0x00E9)))));
    // An embedded NUL ends a byte string and is no digit in a CString.
    QVERIFY(!CheckPartnershipIDOrFileID(CString(QString::fromLatin1("1234\0"
                                                                    "5678",
                                                                    9))));
    QVERIFY(!CheckTaxShelterNumber(CString(QStringLiteral("TS12345\u0661"))));
}

QTEST_GUILESS_MAIN(tst_IdentityNumbers)
#include "tst_identitynumbers.moc"
