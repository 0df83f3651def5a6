#include "identitynumbers.h"

#include <QTest>

// A refusing row is valid in every respect but the one its name gives.

using B = QByteArray;
using Check = bool (*)(const B&);
Q_DECLARE_METATYPE(Check)

static const char* listed[] = { "N/A", "pending", nullptr };

class tst_IdentityNumbers : public QObject
{
    Q_OBJECT
    // A null QByteArray stands for a null pointer; text goes in as UTF-8.
    static const char* p(const B& s) { return s.isNull() ? nullptr : s.constData(); }
    template<bool (*F)(const char*)> static bool bytes(const B& s) { return F(p(s)); }
    template<bool (*F)(const CString&)> static bool text(const B& s)
    {
        return F(QString::fromUtf8(s));
    }

private slots:
    void checks_data()
    {
        QTest::addColumn<Check>("check");
        QTest::addColumn<B>("input");
        QTest::addColumn<bool>("ok");
        const Check mod10 = bytes<CheckMod10>, sin = bytes<CheckSIN>, pin = bytes<CheckNISAPIN>;
        const Check bn = bytes<CheckBusiNum>, bn2 = bytes<CheckBusiNum2>,
                    sred = bytes<CheckSREDFieldCode>;
        const Check pid = bytes<CheckPartnershipID>, gst = text<CheckGSTAccountNumber>;
        const Check pn = text<CheckPartnershipNumber>, shelter = text<CheckTaxShelterNumber>;
        const Check sinListed = [](const B& s) { return CheckSIN(p(s), listed); };
        const Check trustListed = [](const B& s) { return CheckTrustNumber(p(s), listed); };
        const Check trust = [](const B& s) { return CheckTrustNumber(p(s), nullptr); };
        const Check noMod10 = [](const B& s) { return CheckCRAProgNum(p(s), "RC", false); };
        const Check inList = [](const B& s) { return isStrPartOfArrayOfStrs(p(s), listed); };
        const Check inNull = [](const B& s) { return isStrPartOfArrayOfStrs(p(s), nullptr); };
        QTest::newRow("Mod-10: Luhn example") << mod10 << B("79927398713") << true;
        QTest::newRow("Mod-10: even length, sum right") << mod10 << B("19") << false;
        QTest::newRow("Mod-10: ':' above 9, sum right") << mod10 << B(":59") << false;
        // Far beyond any fixed work buffer; odd, so a valid Mod-10 string.
        QTest::newRow("Mod-10: 100001 digits") << mod10 << B(100001, '0') << true;
        QTest::newRow("SIN: nine zeros pass") << sin << B("000000000") << true;
        QTest::newRow("SIN: wrong check digit") << sin << B("123456783") << false;
        // Even lengths fail Mod-10 anyway; the length rule shows at odd lengths.
        QTest::newRow("SIN: eleven digits") << sin << B("12345678903") << false;
        QTest::newRow("SIN: listed, any case") << sinListed << B("n/a") << true;
        QTest::newRow("trust: prefix of an entry") << trustListed << B("pend") << false;
        QTest::newRow("PIN: wrong check digit") << pin << B("12345675") << false;
        QTest::newRow("PIN: first digit 2, the highest") << pin << B("22345672") << true;
        QTest::newRow("PIN: first digit 3, check right") << pin << B("32345670") << false;
        QTest::newRow("PIN: byte 0x80 up, signed") << pin << B("\xff") + "2345673" << true;
        QTest::newRow("PIN: nine bytes, eight right") << pin << B("123456740") << false;
        QTest::newRow("PIN: null") << pin << B() << false;
        QTest::newRow("program: Mod-10 off") << noMod10 << B("123456789RC0001") << true;
        QTest::newRow("BN: program in any case") << bn << B("123456782rc0001") << true;
        QTest::newRow("BN: Mod-10 runs") << bn << B("123456789RC0001") << false;
        QTest::newRow("BN: all-zero root, sum right") << bn << B("000000000RC0001") << false;
        QTest::newRow("BN: program RT") << bn << B("123456782RT0001") << false;
        QTest::newRow("BN: letter in the account") << bn << B("123456782RC000A") << false;
        QTest::newRow("BN: 16 characters") << bn << B("123456782RC00011") << false;
        QTest::newRow("BN: null") << bn << B() << false;
        QTest::newRow("BN2: NR in any case") << bn2 << B("nR") << true;
        QTest::newRow("BN2: NR with more") << bn2 << B("NR1") << false;
        QTest::newRow("GST: Mod-10 not run") << gst << B("123456789RT0001") << true;
        QTest::newRow("PID: all-zero root accepted") << pid << B("000000000RZ0001") << true;
        QTest::newRow("PID: Mod-10 runs") << pid << B("123456789RZ0001") << false;
        QTest::newRow("PID: ':' sums right") << pid << B(":23456783RZ0001") << false;
        QTest::newRow("PID: program RC") << pid << B("123456782RC0001") << false;
        QTest::newRow("partnership: nine digits") << pn << B("123456789") << true;
        QTest::newRow("partnership: ten") << pn << B("1234567890") << false;
        QTest::newRow("partnership: NUL inside") << pn << B("1234\0005678", 9) << false;
        QTest::newRow("partnership: Arabic-Indic digit") << pn << B("12345678\xd9\xa1") << false;
        QTest::newRow("shelter: upper case") << shelter << B("TS123456") << true;
        QTest::newRow("shelter: lower case") << shelter << B("ts123456") << true;
        QTest::newRow("shelter: not T first") << shelter << B("XS123456") << false;
        QTest::newRow("shelter: letter in the digits") << shelter << B("TS12345a") << false;
        QTest::newRow("shelter: nine characters") << shelter << B("TS1234567") << false;
        QTest::newRow("trust: T") << trust << B("T12345678") << true;
        QTest::newRow("trust: t") << trust << B("t12345678") << true;
        QTest::newRow("trust: a refused") << trust << B("a12345678") << false;
        QTest::newRow("trust: letter in the digits") << trust << B("T1234567x") << false;
        QTest::newRow("trust: ten characters") << trust << B("T123456789") << false;
        QTest::newRow("SR&ED: digits 0 to 9 and points") << sred << B("0.9.12.") << true;
        QTest::newRow("SR&ED: '/' between . and 0") << sred << B("123/567") << false;
        QTest::newRow("SR&ED: ':' above 9") << sred << B("123:567") << false;
        QTest::newRow("SR&ED: eight characters") << sred << B("12345678") << false;
        QTest::newRow("list: member in any case") << inList << B("Pending") << true;
        QTest::newRow("list: null list") << inNull << B("N/A") << false;
    }
    void checks()
    {
        QFETCH(Check, check);
        QFETCH(B, input);
        QTEST(check(input), "ok");
    }
};

QTEST_GUILESS_MAIN(tst_IdentityNumbers)
#include "tst_identitynumbers.moc"
