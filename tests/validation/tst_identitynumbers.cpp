#include "identitynumbers.h"

#include <QTest>

#include <vector>

// Every refusing row below is valid in every respect but the one its name
// gives: right check digits, right lengths, right program letters. A row that
// could fail for a second reason would pass with its own rule removed.

class tst_IdentityNumbers : public QObject
{
    Q_OBJECT
private slots:
    void checkMod10_data();
    void checkMod10();
    void checkSIN_data();
    void checkSIN();
    void exceptionLists_data();
    void exceptionLists();
    void checkNISAPIN_data();
    void checkNISAPIN();
    void checkCRAProgNum_data();
    void checkCRAProgNum();
    void checkBusiNum_data();
    void checkBusiNum();
    void checkGSTAccountNumber_data();
    void checkGSTAccountNumber();
    void checkPartnershipID_data();
    void checkPartnershipID();
    void checkPartnershipNumber_data();
    void checkPartnershipNumber();
    void checkTaxShelterNumber_data();
    void checkTaxShelterNumber();
    void checkTrustNumber_data();
    void checkTrustNumber();
    void checkSREDFieldCode_data();
    void checkSREDFieldCode();
    void isStrPartOfArrayOfStrs_data();
    void isStrPartOfArrayOfStrs();
};

namespace {

// Far beyond any fixed work buffer; an odd number of zeros is a valid Mod-10 string.
const QByteArray manyZeros(100001, '0');

// A null QByteArray stands for a null pointer.
const char* bytesOrNull(const QByteArray& bytes)
{
    return bytes.isNull() ? nullptr : bytes.constData();
}

// A null-ended array of pointers into `entries`, as the predicates take it.
std::vector<const char*> nullEnded(const QByteArrayList& entries)
{
    std::vector<const char*> list;
    for (const QByteArray& e : entries)
        list.push_back(e.constData());
    list.push_back(nullptr);
    return list;
}

} // namespace

void tst_IdentityNumbers::checkMod10_data()
{
    QTest::addColumn<QByteArray>("input");
    QTest::addColumn<bool>("ok");
    QTest::newRow("published Luhn example") << QByteArray("79927398713") << true;
    QTest::newRow("single 0: sum and check digit are both 0") << QByteArray("0") << true;
    QTest::newRow("single 5 is a wrong check digit") << QByteArray("5") << false;
    QTest::newRow("empty has even length") << QByteArray("") << false;
    // 1 + 9 would sum right; only the even length refuses it.
    QTest::newRow("even length refused though the sum is right") << QByteArray("19") << false;
    QTest::newRow("':' one above 9 refused though its value sums right")
        << QByteArray(":59") << false;
    QTest::newRow("'/' one below 0 refused though its value sums right")
        << QByteArray("/23456784") << false;
    QTest::newRow("100001 digits: summed in place") << manyZeros << true;
}

void tst_IdentityNumbers::checkMod10()
{
    QFETCH(QByteArray, input);
    QFETCH(bool, ok);
    QCOMPARE(CheckMod10(input.constData()), ok);
}

void tst_IdentityNumbers::checkSIN_data()
{
    QTest::addColumn<QByteArray>("input");
    QTest::addColumn<bool>("ok");
    QTest::newRow("well-known sample 046 454 286") << QByteArray("046454286") << true;
    QTest::newRow("123456782 passes") << QByteArray("123456782") << true;
    QTest::newRow("one wrong check digit") << QByteArray("123456783") << false;
    QTest::newRow("nine zeros pass the rule") << QByteArray("000000000") << true;
    // Even lengths fail Mod-10 anyway; the length rule shows at odd lengths.
    QTest::newRow("seven digits with a right check digit") << QByteArray("1234566") << false;
    QTest::newRow("eleven digits with a right check digit") << QByteArray("12345678903") << false;
    QTest::newRow("':' whose value sums right is no digit") << QByteArray(":23456783") << false;
    QTest::newRow("100001 zeros") << manyZeros << false;
    QTest::newRow("null is empty") << QByteArray() << false;
}

void tst_IdentityNumbers::checkSIN()
{
    QFETCH(QByteArray, input);
    QFETCH(bool, ok);
    QCOMPARE(CheckSIN(bytesOrNull(input)), ok);
    QCOMPARE(CheckSIN(bytesOrNull(input), nullptr), ok);
}

void tst_IdentityNumbers::exceptionLists_data()
{
    QTest::addColumn<bool>("trust");
    QTest::addColumn<QByteArray>("input");
    QTest::addColumn<bool>("ok");
    // The list is N/A and pending.
    QTest::newRow("SIN: listed value accepted whatever its form")
        << false << QByteArray("N/A") << true;
    QTest::newRow("SIN: listing ignores letter case") << false << QByteArray("n/a") << true;
    QTest::newRow("SIN: a list does not narrow the rule")
        << false << QByteArray("123456782") << true;
    QTest::newRow("SIN: unlisted and malformed") << false << QByteArray("123") << false;
    QTest::newRow("trust: listed in another letter case") << true << QByteArray("PENDING") << true;
    QTest::newRow("trust: a prefix of an entry is not listed")
        << true << QByteArray("pend") << false;
    QTest::newRow("trust: unlisted lower-case a") << true << QByteArray("a12345678") << false;
}

void tst_IdentityNumbers::exceptionLists()
{
    QFETCH(bool, trust);
    QFETCH(QByteArray, input);
    QFETCH(bool, ok);
    const QByteArrayList entries { "N/A", "pending" };
    std::vector<const char*> list = nullEnded(entries);
    if (trust)
        QCOMPARE(CheckTrustNumber(input.constData(), list.data()), ok);
    else
        QCOMPARE(CheckSIN(input.constData(), list.data()), ok);
}

void tst_IdentityNumbers::checkNISAPIN_data()
{
    QTest::addColumn<QByteArray>("input");
    QTest::addColumn<bool>("ok");
    QTest::newRow("check digit right") << QByteArray("12345674") << true;
    QTest::newRow("check digit wrong") << QByteArray("12345675") << false;
    QTest::newRow("first digit 0 counts") << QByteArray("02345676") << true;
    QTest::newRow("first digit 2, the highest, counts") << QByteArray("22345672") << true;
    QTest::newRow("first digit 3 refused, check digit right") << QByteArray("32345670") << false;
    QTest::newRow("first byte from 0x80 up is below '2' as a signed char") << QByteArray("\xff"
                                                                                         "2345673")
                                                                           << true;
    QTest::newRow("bytes are not tested for being digits") << QByteArray("/000000<") << true;
    QTest::newRow("nine bytes, the first eight a right PIN") << QByteArray("123456740") << false;
    QTest::newRow("seven bytes") << QByteArray("1234567") << false;
    QTest::newRow("100001 zeros") << manyZeros << false;
    QTest::newRow("null") << QByteArray() << false;
}

void tst_IdentityNumbers::checkNISAPIN()
{
    QFETCH(QByteArray, input);
    QFETCH(bool, ok);
    QCOMPARE(CheckNISAPIN(bytesOrNull(input)), ok);
}

void tst_IdentityNumbers::checkCRAProgNum_data()
{
    QTest::addColumn<QByteArray>("input");
    QTest::addColumn<bool>("mod10");
    QTest::addColumn<bool>("ok");
    QTest::newRow("valid root, program RC") << QByteArray("123456782RC0001") << true << true;
    QTest::newRow("program in lower case") << QByteArray("123456782rc0001") << true << true;
    QTest::newRow("root failing Mod-10 with the check off")
        << QByteArray("123456789RC0001") << false << true;
    QTest::newRow("root failing Mod-10 with the check on")
        << QByteArray("123456789RC0001") << true << false;
    QTest::newRow("all-zero root refused though it passes Mod-10")
        << QByteArray("000000000RC0001") << true << false;
    QTest::newRow("letter in the root") << QByteArray("12345678xRC0001") << false << false;
    QTest::newRow("other program") << QByteArray("123456782RT0001") << true << false;
    QTest::newRow("letter in the account") << QByteArray("123456782RC000A") << true << false;
    QTest::newRow("16 characters, the first 15 valid")
        << QByteArray("123456782RC00011") << true << false;
    // The terminator then stands where the last account digit belongs.
    QTest::newRow("14 characters") << QByteArray("123456782RC001") << true << false;
}

void tst_IdentityNumbers::checkCRAProgNum()
{
    QFETCH(QByteArray, input);
    QFETCH(bool, mod10);
    QFETCH(bool, ok);
    QCOMPARE(CheckCRAProgNum(input.constData(), "RC", mod10), ok);
}

void tst_IdentityNumbers::checkBusiNum_data()
{
    QTest::addColumn<QByteArray>("input");
    QTest::addColumn<bool>("ok");
    QTest::addColumn<bool>("ok2");
    QTest::newRow("valid") << QByteArray("123456782RC0001") << true << true;
    QTest::newRow("Mod-10 always runs") << QByteArray("123456789RC0001") << false << false;
    QTest::newRow("':' whose value sums right is no digit")
        << QByteArray(":23456783RC0001") << false << false;
    QTest::newRow("all-zero root") << QByteArray("000000000RC0001") << false << false;
    QTest::newRow("program RT") << QByteArray("123456782RT0001") << false << false;
    QTest::newRow("NR: only the 2 form takes it") << QByteArray("NR") << false << true;
    QTest::newRow("nr in lower case") << QByteArray("nr") << false << true;
    QTest::newRow("nR in mixed case") << QByteArray("nR") << false << true;
    QTest::newRow("NR with more after it") << QByteArray("NR1") << false << false;
    QTest::newRow("100001 zeros") << manyZeros << false << false;
    QTest::newRow("null") << QByteArray() << false << false;
}

void tst_IdentityNumbers::checkBusiNum()
{
    QFETCH(QByteArray, input);
    QFETCH(bool, ok);
    QFETCH(bool, ok2);
    QCOMPARE(CheckBusiNum(bytesOrNull(input)), ok);
    QCOMPARE(CheckBusiNum2(bytesOrNull(input)), ok2);
}

void tst_IdentityNumbers::checkGSTAccountNumber_data()
{
    QTest::addColumn<QString>("input");
    QTest::addColumn<bool>("ok");
    QTest::newRow("root failing Mod-10 accepted") << "123456789RT0001" << true;
    QTest::newRow("program in lower case") << "123456789rt0001" << true;
    QTest::newRow("program must be RT") << "123456789RC0001" << false;
    QTest::newRow("all-zero root") << "000000000RT0001" << false;
    QTest::newRow("100000 accented letters") << QString(100000, QChar(0x00E9)) << false;
}

void tst_IdentityNumbers::checkGSTAccountNumber()
{
    QFETCH(QString, input);
    QFETCH(bool, ok);
    QCOMPARE(CheckGSTAccountNumber(CString(input)), ok);
}

void tst_IdentityNumbers::checkPartnershipID_data()
{
    QTest::addColumn<QByteArray>("input");
    QTest::addColumn<bool>("ok");
    QTest::newRow("valid") << QByteArray("123456782RZ0001") << true;
    QTest::newRow("program in lower case") << QByteArray("123456782rz0001") << true;
    QTest::newRow("all-zero root accepted") << QByteArray("000000000RZ0001") << true;
    QTest::newRow("Mod-10 always runs") << QByteArray("123456789RZ0001") << false;
    QTest::newRow("':' whose value sums right is no digit")
        << QByteArray(":23456783RZ0001") << false;
    QTest::newRow("program RC") << QByteArray("123456782RC0001") << false;
    QTest::newRow("letter in the account") << QByteArray("123456782RZ000A") << false;
    QTest::newRow("16 characters, the first 15 valid") << QByteArray("123456782RZ00011") << false;
    QTest::newRow("null") << QByteArray() << false;
}

void tst_IdentityNumbers::checkPartnershipID()
{
    QFETCH(QByteArray, input);
    QFETCH(bool, ok);
    QCOMPARE(CheckPartnershipID(bytesOrNull(input)), ok);
}

void tst_IdentityNumbers::checkPartnershipNumber_data()
{
    QTest::addColumn<QString>("input");
    QTest::addColumn<bool>("ok");
    QTest::newRow("nine digits, no check digit") << "123456789" << true;
    QTest::newRow("eight digits") << "12345678" << false;
    QTest::newRow("ten digits") << "1234567890" << false;
    QTest::newRow("letter last") << "12345678a" << false;
    QTest::newRow("embedded NUL is no digit") << QString::fromLatin1("1234\0"
                                                                     "5678",
                                                                     9)
                                              << false;
    QTest::newRow("Arabic-Indic digit is no digit") << QStringLiteral("12345678\u0661") << false;
}

void tst_IdentityNumbers::checkPartnershipNumber()
{
    QFETCH(QString, input);
    QFETCH(bool, ok);
    QCOMPARE(CheckPartnershipIDOrFileID(CString(input)), ok);
    QCOMPARE(CheckPartnershipNumber(CString(input)), ok);
}

void tst_IdentityNumbers::checkTaxShelterNumber_data()
{
    QTest::addColumn<QString>("input");
    QTest::addColumn<bool>("ok");
    QTest::newRow("upper case") << "TS123456" << true;
    QTest::newRow("lower case") << "ts123456" << true;
    QTest::newRow("first letter other than T") << "XS123456" << false;
    QTest::newRow("second letter other than S") << "TX123456" << false;
    QTest::newRow("letter among the digits") << "TS12345a" << false;
    QTest::newRow("nine characters, the first eight valid") << "TS1234567" << false;
    QTest::newRow("five digits") << "TS12345" << false;
    QTest::newRow("Arabic-Indic digit is no digit") << QStringLiteral("TS12345\u0661") << false;
}

void tst_IdentityNumbers::checkTaxShelterNumber()
{
    QFETCH(QString, input);
    QFETCH(bool, ok);
    QCOMPARE(CheckTaxShelterNumber(CString(input)), ok);
}

void tst_IdentityNumbers::checkTrustNumber_data()
{
    QTest::addColumn<QByteArray>("input");
    QTest::addColumn<bool>("ok");
    QTest::newRow("T") << QByteArray("T12345678") << true;
    QTest::newRow("t") << QByteArray("t12345678") << true;
    QTest::newRow("A") << QByteArray("A12345678") << true;
    QTest::newRow("lower-case a refused") << QByteArray("a12345678") << false;
    QTest::newRow("other letter") << QByteArray("B12345678") << false;
    QTest::newRow("letter among the digits") << QByteArray("T1234567x") << false;
    QTest::newRow("ten characters, the first nine valid") << QByteArray("T123456789") << false;
    QTest::newRow("seven digits") << QByteArray("T1234567") << false;
    QTest::newRow("null") << QByteArray() << false;
}

void tst_IdentityNumbers::checkTrustNumber()
{
    QFETCH(QByteArray, input);
    QFETCH(bool, ok);
    QCOMPARE(CheckTrustNumber(bytesOrNull(input), nullptr), ok);
}

void tst_IdentityNumbers::checkSREDFieldCode_data()
{
    QTest::addColumn<QByteArray>("input");
    QTest::addColumn<bool>("ok");
    QTest::newRow("digits") << QByteArray("1234567") << true;
    QTest::newRow("seven points") << QByteArray(".......") << true;
    QTest::newRow("points anywhere") << QByteArray("12.34.5") << true;
    QTest::newRow("lowest digit 0") << QByteArray("0000000") << true;
    QTest::newRow("highest digit 9") << QByteArray("9999999") << true;
    QTest::newRow("'/' between the point and 0") << QByteArray("123/567") << false;
    QTest::newRow("':' one above 9") << QByteArray("123:567") << false;
    QTest::newRow("'-' one below the point") << QByteArray("123-567") << false;
    QTest::newRow("eight characters") << QByteArray("12345678") << false;
    QTest::newRow("six characters") << QByteArray("123456") << false;
}

void tst_IdentityNumbers::checkSREDFieldCode()
{
    QFETCH(QByteArray, input);
    QFETCH(bool, ok);
    QCOMPARE(CheckSREDFieldCode(input.constData()), ok);
}

void tst_IdentityNumbers::isStrPartOfArrayOfStrs_data()
{
    QTest::addColumn<QByteArray>("input");
    QTest::addColumn<bool>("nullList");
    QTest::addColumn<QByteArrayList>("list");
    QTest::addColumn<bool>("ok");
    const QByteArrayList list { "N/A", "pending" };
    QTest::newRow("member in another letter case")
        << QByteArray("Pending") << false << list << true;
    QTest::newRow("prefix of a member") << QByteArray("pend") << false << list << false;
    QTest::newRow("null list") << QByteArray("N/A") << true << QByteArrayList() << false;
    QTest::newRow("empty list, empty text") << QByteArray("") << false << QByteArrayList() << false;
}

void tst_IdentityNumbers::isStrPartOfArrayOfStrs()
{
    QFETCH(QByteArray, input);
    QFETCH(bool, nullList);
    QFETCH(QByteArrayList, list);
    QFETCH(bool, ok);
    std::vector<const char*> entries = nullEnded(list);
    QCOMPARE(::isStrPartOfArrayOfStrs(input.constData(), nullList ? nullptr : entries.data()), ok);
}

QTEST_GUILESS_MAIN(tst_IdentityNumbers)
#include "tst_identitynumbers.moc"
