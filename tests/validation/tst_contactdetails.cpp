#include "cintfield.h"
#include "contactdetails.h"
#include "cstringfield.h"

#include <QTest>

#include <functional>

// A refusing row is acceptable in every respect but the one its name gives.
// Character classes and the per-position rules of names and address lines are
// checked as whole sets, written out as hexadecimal ranges, so both ends of
// every range and the code one step outside each are compared at once.

enum class CharSet {
    T2Byte,
    T2Text,
    Diacritic,
    Alphabetic,
    Normal26,
    AlphaChar,
    AlphaOrSpace,
    Digit,
    Numeric,
    NameFirst,
    NameLast,
    NameRefusedInside,
    City,
    AddressFirst,
    AddressLast,
    AddressInside,
    AddrCOInside,
    CommonRefusedFirst,
    CommonRefusedLast,
};
Q_DECLARE_METATYPE(CharSet)

enum class TextCheck { Date, AllNumber, DigitStr, AlphaOrSpace, AllZero };
Q_DECLARE_METATYPE(TextCheck)

enum class Conversion {
    CARaw,
    Raw,
    USRaw,
    Phone,
    PhonePadded,
    Date,
    PurifiedAddr,
    NumStr,
    PureDigits
};
Q_DECLARE_METATYPE(Conversion)

class tst_ContactDetails : public QObject
{
    Q_OBJECT
private slots:
    void characterSets_data();
    void characterSets();
    void checkName_data();
    void checkName();
    void checkBusiName_data();
    void checkBusiName();
    void checkCityName_data();
    void checkCityName();
    void checkAddress_data();
    void checkAddress();
    void checkAddressCommon_data();
    void checkAddressCommon();
    void checkCAPostCode_data();
    void checkCAPostCode();
    void checkUSPostCode_data();
    void checkUSPostCode();
    void checkCountryCode_data();
    void checkCountryCode();
    void checkPhoneNumber_data();
    void checkPhoneNumber();
    void chkPhoneStrHasSomething_data();
    void chkPhoneStrHasSomething();
    void email_data();
    void email();
    void checkT2ValidChar_data();
    void checkT2ValidChar();
    void textChecks_data();
    void textChecks();
    void duplicates_data();
    void duplicates();
    void amongList_data();
    void amongList();
    void conversions_data();
    void conversions();
    void validateAddr_data();
    void validateAddr();
    void validateAddr2_data();
    void validateAddr2();
};

namespace {

// 200000 letters and then "@", an accented letter, a NUL, "x.".
const QString huge = QString(200000, QLatin1Char('a')) + QString::fromUtf16(u"@\u00e9\0x.", 5);

const char* bytesOrNull(const QByteArray& bytes)
{
    return bytes.isNull() ? nullptr : bytes.constData();
}

// The codes from `first` to `last` for which `in` holds, as "20-7e 91 ...".
QString rangesOf(int first, int last, const std::function<bool(int)>& in)
{
    QStringList ranges;
    int from = -1;
    for (int c = first; c <= last + 1; ++c) {
        const bool member = c <= last && in(c);
        if (member && from < 0)
            from = c;
        if (!member && from >= 0) {
            const QString start = QString::number(from, 16);
            ranges << (from == c - 1 ? start : start + '-' + QString::number(c - 1, 16));
            from = -1;
        }
    }
    return ranges.join(' ');
}

QByteArray byte(int c)
{
    return QByteArray(1, char(c));
}

} // namespace

void tst_ContactDetails::characterSets_data()
{
    QTest::addColumn<CharSet>("set");
    QTest::addColumn<int>("first");
    QTest::addColumn<int>("last");
    QTest::addColumn<QString>("members");
    const QString letters = "41-5a 61-7a";
    const QString diacritics = "c0-c4 c6-d4 d6-e4 e6-f4 f6-ff";
    const QString t2 = "20-7e 91-92 a1-a3 a5-a9 ab-ac ae-b4 b6-c0 c2 c7-cb ce-cf d4 d6-d7 d9 "
                       "db-dc e0 e2 e7-eb ee-ef f4 f6-f7 f9 fb-fc";
    QTest::newRow("IsT2AllowedChar: printable ASCII and French letters")
        << CharSet::T2Byte << 0 << 0xFF << t2;
    QTest::newRow("CheckT2ValidChar: the same, nothing beyond Latin-1")
        << CharSet::T2Text << 0 << 0xFFFF << t2;
    QTest::newRow("isCharDiacritic: C0 to FF but the ring and tilde letters")
        << CharSet::Diacritic << 0 << 0xFFFF << diacritics;
    QTest::newRow("isAlphabetic: ASCII letters only")
        << CharSet::Alphabetic << 0 << 0xFF << letters;
    QTest::newRow("Is26NormalChar: ASCII letters only")
        << CharSet::Normal26 << 0 << 0xFF << letters;
    QTest::newRow("IsAlphaChar: letters and -_+$%<>")
        << CharSet::AlphaChar << 0 << 0xFF << "24-25 2b 2d 3c 3e 41-5a 5f 61-7a";
    QTest::newRow("CheckIsAlphaOrSpace: IsAlphaChar and the space")
        << CharSet::AlphaOrSpace << 0 << 0xFFFF << "20 24-25 2b 2d 3c 3e 41-5a 5f 61-7a";
    QTest::newRow("IsDigitChar: 0 to 9") << CharSet::Digit << 0 << 0xFF << "30-39";
    QTest::newRow("isNumeric: 0 to 9") << CharSet::Numeric << 0 << 0xFF << "30-39";
    // Name and address sets start at 1: a NUL byte ends the text.
    QTest::newRow("CheckName: first byte a letter or diacritic")
        << CharSet::NameFirst << 1 << 0xFF << letters + ' ' + diacritics;
    QTest::newRow("CheckName: last byte also a digit or hyphen")
        << CharSet::NameLast << 1 << 0xFF << "2d 30-39 " + letters + ' ' + diacritics;
    QTest::newRow("CheckName: the closed list refused inside")
        << CharSet::NameRefusedInside << 1 << 0xFF << "22-26 28-2c 2f 3a-40 5b-60 7b-7e";
    QTest::newRow("CheckCityName: letters, digits, diacritics and ' -./")
        << CharSet::City << 0 << 0xFFFF << "20 27 2d-39 " + letters + ' ' + diacritics;
    // Blanks around a line are trimmed away before it is judged.
    QTest::newRow("CheckAddress: first a letter or digit")
        << CharSet::AddressFirst << 1 << 0x7F << "9-d 20 30-39 " + letters;
    QTest::newRow("CheckAddress: last also a point")
        << CharSet::AddressLast << 1 << 0x7F << "9-d 20 2e 30-39 " + letters;
    QTest::newRow("CheckAddress: inside also space #&'(),-./")
        << CharSet::AddressInside << 1 << 0x7F << "20 23 26-29 2c-39 " + letters;
    QTest::newRow("CheckAddrCO: inside also space &'-./")
        << CharSet::AddrCOInside << 1 << 0x7F << "20 26-27 2d-39 " + letters;
    QTest::newRow("CheckAddress_common: first refused among -`\\/&()<>{}[]#.")
        << CharSet::CommonRefusedFirst << 1 << 0x7F << "23 26 28-29 2d-2f 3c 3e 5b-5d 60 7b 7d";
    QTest::newRow("CheckAddress_common: last refused, the point not among them")
        << CharSet::CommonRefusedLast << 1 << 0x7F << "23 26 28-29 2d 2f 3c 3e 5b-5d 60 7b 7d";
}

void tst_ContactDetails::characterSets()
{
    QFETCH(CharSet, set);
    QFETCH(int, first);
    QFETCH(int, last);
    QFETCH(QString, members);
    const auto in = [set](int c) {
        const QByteArray a("a");
        CString line;
        switch (set) {
        case CharSet::T2Byte:
            return IsT2AllowedChar(static_cast<unsigned char>(c));
        case CharSet::T2Text:
            return CheckT2ValidChar(QString(QChar(c)));
        case CharSet::Diacritic:
            return isCharDiacritic(QChar(c));
        case CharSet::Alphabetic:
            return isAlphabetic(char(c));
        case CharSet::Normal26:
            return Is26NormalChar(char(c));
        case CharSet::AlphaChar:
            return IsAlphaChar(char(c));
        case CharSet::AlphaOrSpace:
            return CheckIsAlphaOrSpace(QString(QChar(c)));
        case CharSet::Digit:
            return IsDigitChar(char(c));
        case CharSet::Numeric:
            return isNumeric(char(c));
        case CharSet::NameFirst:
            return CheckName((byte(c) + a).constData());
        case CharSet::NameLast:
            return CheckName((a + byte(c)).constData());
        case CharSet::NameRefusedInside:
            return !CheckName((a + byte(c) + a).constData());
        case CharSet::City:
            return CheckCityName(QString(QChar(c)));
        case CharSet::AddressFirst:
            line = QString(byte(c) + a);
            return CheckAddress(line);
        case CharSet::AddressLast:
            line = QString(a + byte(c));
            return CheckAddress(line);
        case CharSet::AddressInside:
            line = QString(a + byte(c) + a);
            return CheckAddress(line);
        case CharSet::AddrCOInside:
            line = QString(a + byte(c) + a);
            return CheckAddrCO(line);
        case CharSet::CommonRefusedFirst:
            line = QString(byte(c) + a);
            return !CheckAddress_common(line);
        case CharSet::CommonRefusedLast:
            line = QString(a + byte(c));
            return !CheckAddress_common(line);
        }
        return false;
    };
    QCOMPARE(rangesOf(first, last, in), members);
}

void tst_ContactDetails::checkName_data()
{
    QTest::addColumn<QByteArray>("input");
    QTest::addColumn<bool>("ok");
    QTest::newRow("empty") << QByteArray("") << true;
    QTest::newRow("null is empty") << QByteArray() << true;
    QTest::newRow("single letter") << QByteArray("A") << true;
    QTest::newRow("apostrophe inside") << QByteArray("O'Brien") << true;
    QTest::newRow("hyphen inside") << QByteArray("Jean-Luc") << true;
    QTest::newRow("points and blanks inside") << QByteArray("J.R. Ewing") << true;
    QTest::newRow("may end with a hyphen") << QByteArray("Smith-") << true;
    QTest::newRow("may end with a digit") << QByteArray("Henry 8") << true;
    QTest::newRow("may not begin with a hyphen") << QByteArray("-Smith") << false;
    QTest::newRow("may not begin with a digit") << QByteArray("8Henry") << false;
    QTest::newRow("may not end with a point") << QByteArray("Smith Jr.") << false;
    QTest::newRow("comma inside") << QByteArray("Smith, John") << false;
    QTest::newRow("'!' is not on the closed list") << QByteArray("Hi!There") << true;
    QTest::newRow("Latin-1 accent first") << QByteArray("\xc9mile") << true;
    QTest::newRow("Latin-1 accent last") << QByteArray("Jos\xe9") << true;
}

void tst_ContactDetails::checkName()
{
    QFETCH(QByteArray, input);
    QFETCH(bool, ok);
    QCOMPARE(CheckName(bytesOrNull(input)), ok);
    QCOMPARE(CheckSpouseName(bytesOrNull(input)), ok);
}

void tst_ContactDetails::checkBusiName_data()
{
    QTest::addColumn<QString>("input");
    QTest::addColumn<bool>("ok");
    QTest::newRow("UTF-8 accents inside") << QStringLiteral("H\u00e9l\u00e8ne") << true;
    // The last byte of the sequence is A9, no letter and no diacritic.
    QTest::newRow("UTF-8 accent last") << QStringLiteral("Jos\u00e9") << false;
    QTest::newRow("lone surrogate") << QString(QChar(0xD800)) << false;
}

void tst_ContactDetails::checkBusiName()
{
    QFETCH(QString, input);
    QFETCH(bool, ok);
    QCOMPARE(CheckBusiName(input), ok);
}

void tst_ContactDetails::checkCityName_data()
{
    QTest::addColumn<QString>("input");
    QTest::addColumn<bool>("ok");
    QTest::newRow("empty") << "" << true;
    QTest::newRow("hyphen") << "Saint-Hyacinthe" << true;
    QTest::newRow("point and apostrophe") << "St. John's" << true;
    QTest::newRow("digits") << "100 Mile House" << true;
    QTest::newRow("no rule on the first character") << "-Ottawa." << true;
    QTest::newRow("accent judged as a character") << QStringLiteral("Rue Montr\u00e9al") << true;
    QTest::newRow("comma") << "Ottawa, ON" << false;
    QTest::newRow("NUL inside") << QString::fromUtf16(u"Ott\0awa", 7) << false;
}

void tst_ContactDetails::checkCityName()
{
    QFETCH(QString, input);
    QFETCH(bool, ok);
    QCOMPARE(CheckCityName(input), ok);
}

void tst_ContactDetails::checkAddress_data()
{
    QTest::addColumn<QString>("input");
    QTest::addColumn<bool>("ok");
    QTest::addColumn<bool>("okCO");
    QTest::newRow("empty") << "" << true << true;
    QTest::newRow("blanks around are trimmed") << "  12 Main St \t" << true << true;
    QTest::newRow("second UTF-8 byte of an accent is in no set")
        << QStringLiteral("Rue Montr\u00e9al") << false << false;
    QTest::newRow("scan goes by characters and stops before the last byte")
        << QStringLiteral("Caf\u00e9") << true << true;
    QTest::newRow("c/o inside") << "12 Main St c/o Smith" << false << false;
    QTest::newRow("mixed-case C/o is let through") << "C/o Smith" << true << true;
    QTest::newRow("apostrophe first") << "'Round the Bend Rd" << false << false;
    QTest::newRow("comma last") << "12 Main St," << false << false;
    QTest::newRow("may end with a point") << "12 Main St." << true << true;
    QTest::newRow("'#' inside: not in a c/o line") << "Unit #4 12 Main" << true << false;
    QTest::newRow("',' inside: not in a c/o line") << "Unit 4, 12 Main" << true << false;
    QTest::newRow("brackets inside: not in a c/o line") << "12 Main (rear) St" << true << false;
    QTest::newRow("200000 characters, '@' inside") << huge << false << false;
}

void tst_ContactDetails::checkAddress()
{
    QFETCH(QString, input);
    QFETCH(bool, ok);
    QFETCH(bool, okCO);
    CString line(input);
    QCOMPARE(CheckAddress(line), ok);
    line = input;
    QCOMPARE(CheckAddrCO(line), okCO);
}

void tst_ContactDetails::checkAddressCommon_data()
{
    QTest::addColumn<QString>("input");
    QTest::addColumn<bool>("ok");
    QTest::addColumn<QString>("trimmed");
    QTest::newRow("trimmed in place also when refused") << "   -12 Main  " << false << "-12 Main";
    QTest::newRow("blank becomes empty and passes") << " \t " << true << "";
    QTest::newRow("C/O") << "12 Main C/O Ann" << false << "12 Main C/O Ann";
    QTest::newRow("c/o") << "12 Main c/o Ann" << false << "12 Main c/o Ann";
    QTest::newRow("A/S") << "Smith A/S Ltd" << false << "Smith A/S Ltd";
    QTest::newRow("a/s") << "Smith a/s Ltd" << false << "Smith a/s Ltd";
    QTest::newRow("mixed case C/o") << "12 Main C/o Ann" << true << "12 Main C/o Ann";
    QTest::newRow("may not begin with a point") << ".12 Main" << false << ".12 Main";
    QTest::newRow("may end with a point") << "12 Main." << true << "12 Main.";
}

void tst_ContactDetails::checkAddressCommon()
{
    QFETCH(QString, input);
    QFETCH(bool, ok);
    QFETCH(QString, trimmed);
    CString line(input);
    QCOMPARE(CheckAddress_common(line), ok);
    QCOMPARE(QString(line), trimmed);
}

void tst_ContactDetails::checkCAPostCode_data()
{
    QTest::addColumn<QByteArray>("input");
    QTest::addColumn<bool>("ok");
    QTest::newRow("six characters") << QByteArray("K1A0B1") << true;
    QTest::newRow("space") << QByteArray("K1A 0B1") << true;
    QTest::newRow("hyphen") << QByteArray("K1A-0B1") << true;
    QTest::newRow("lower case") << QByteArray("k1a0b1") << true;
    QTest::newRow("text after the code is not looked at") << QByteArray("K1A 0B1 Canada") << true;
    QTest::newRow("underscore as the separator") << QByteArray("K1A_0B1") << false;
    QTest::newRow("five characters") << QByteArray("K1A0B") << false;
    QTest::newRow("null") << QByteArray() << false;
    QTest::newRow("six: digit first") << QByteArray("11A0B1") << false;
    QTest::newRow("six: letter second") << QByteArray("KAA0B1") << false;
    QTest::newRow("six: digit third") << QByteArray("K110B1") << false;
    QTest::newRow("six: letter fourth") << QByteArray("K1AAB1") << false;
    QTest::newRow("six: digit fifth") << QByteArray("K1A011") << false;
    QTest::newRow("six: letter sixth") << QByteArray("K1A0BB") << false;
    QTest::newRow("seven: letter after the separator") << QByteArray("K1A BB1") << false;
    QTest::newRow("seven: digit in the fifth place read") << QByteArray("K1A 011") << false;
    QTest::newRow("seven: letter last") << QByteArray("K1A 0BB") << false;
}

void tst_ContactDetails::checkCAPostCode()
{
    QFETCH(QByteArray, input);
    QFETCH(bool, ok);
    QCOMPARE(CheckCAPostCode(bytesOrNull(input)), ok);
}

void tst_ContactDetails::checkUSPostCode_data()
{
    QTest::addColumn<QByteArray>("input");
    QTest::addColumn<bool>("ok");
    QTest::newRow("five digits") << QByteArray("12345") << true;
    QTest::newRow("nine digits") << QByteArray("123456789") << true;
    QTest::newRow("ZIP+4") << QByteArray("12345-6789") << true;
    QTest::newRow("hyphens anywhere") << QByteArray("----------") << true;
    QTest::newRow("four") << QByteArray("1234") << false;
    QTest::newRow("six") << QByteArray("123456") << false;
    QTest::newRow("eight") << QByteArray("12345678") << false;
    QTest::newRow("eleven") << QByteArray("12345-67890") << false;
    QTest::newRow("empty") << QByteArray("") << false;
    QTest::newRow("space as the separator") << QByteArray("12345 6789") << false;
    QTest::newRow("'/' one below 0") << QByteArray("1234/") << false;
    QTest::newRow("':' one above 9") << QByteArray("1234:") << false;
}

void tst_ContactDetails::checkUSPostCode()
{
    QFETCH(QByteArray, input);
    QFETCH(bool, ok);
    QCOMPARE(CheckUSPostCode(input.constData()), ok);
}

void tst_ContactDetails::checkCountryCode_data()
{
    QTest::addColumn<QByteArray>("input");
    QTest::addColumn<bool>("ok");
    QTest::newRow("CAN") << QByteArray("CAN") << true;
    QTest::newRow("lowest letter A") << QByteArray("AAA") << true;
    QTest::newRow("highest letter Z") << QByteArray("ZZZ") << true;
    QTest::newRow("'@' one below A") << QByteArray("CA@") << false;
    QTest::newRow("'[' one above Z") << QByteArray("CA[") << false;
    QTest::newRow("lower case") << QByteArray("can") << false;
    QTest::newRow("two letters") << QByteArray("CA") << false;
    QTest::newRow("four letters") << QByteArray("CANA") << false;
    QTest::newRow("null") << QByteArray() << false;
}

void tst_ContactDetails::checkCountryCode()
{
    QFETCH(QByteArray, input);
    QFETCH(bool, ok);
    QCOMPARE(CheckCountryCode(bytesOrNull(input)), ok);
}

void tst_ContactDetails::checkPhoneNumber_data()
{
    QTest::addColumn<QString>("input");
    QTest::addColumn<bool>("allowAllZero");
    QTest::addColumn<bool>("ok");
    QTest::newRow("punctuated ten digits") << "(613) 555-0199" << false << true;
    QTest::newRow("eleven digits") << "1-613-555-0199" << false << true;
    QTest::newRow("nine digits") << "613-555-019" << false << false;
    QTest::newRow("ten zeros") << "(000) 000-0000" << false << false;
    QTest::newRow("ten zeros allowed") << "(000) 000-0000" << true << true;
    QTest::newRow("eleven zeros are not the all-zero mark") << "00000000000" << false << true;
    QTest::newRow("only ASCII digits count") << QStringLiteral("613555019\u0661") << false << false;
    QTest::newRow("letters around the digits") << "tel:6135550199" << false << true;
    QTest::newRow("100000 digits") << QString(100000, QLatin1Char('7')) << false << true;
}

// The flat-edit form asks for at least one of "0-9() -" first; any digit is
// one, so with ten digits it always agrees with the plain form.
void tst_ContactDetails::checkPhoneNumber()
{
    QFETCH(QString, input);
    QFETCH(bool, allowAllZero);
    QFETCH(bool, ok);
    QCOMPARE(CheckPhoneNumber(input, allowAllZero), ok);
    QCOMPARE(CheckPhoneFlatEditNumber(input, allowAllZero), ok);
    if (!allowAllZero)
        QCOMPARE(CheckPhoneNumber(input), ok);
}

void tst_ContactDetails::chkPhoneStrHasSomething_data()
{
    QTest::addColumn<QString>("input");
    QTest::addColumn<bool>("typed");
    QTest::newRow("empty") << "" << false;
    QTest::newRow("blank mask") << "(   )   -    " << false;
    QTest::newRow("ten zeros") << "(000) 000-0000" << false;
    QTest::newRow("one digit, zeros padded on the right") << "5" << true;
    QTest::newRow("digit in the first place") << "1000000000" << true;
    QTest::newRow("digit in the tenth place") << "0000000001" << true;
    QTest::newRow("digit past the tenth is not looked at") << "00000000001" << false;
}

void tst_ContactDetails::chkPhoneStrHasSomething()
{
    QFETCH(QString, input);
    QFETCH(bool, typed);
    QCOMPARE(ChkPhoneStrHasSomething(input), typed);
}

void tst_ContactDetails::email_data()
{
    QTest::addColumn<QString>("input");
    QTest::addColumn<bool>("ok");
    QTest::newRow("inside other text") << "write to a_b@mail.example.com today" << true;
    QTest::newRow("two-letter top level") << "a@b.co" << true;
    QTest::newRow("one-letter top level") << "a@b.c" << false;
    QTest::newRow("blanks around") << "  a@b.co\t" << true;
    QTest::newRow("only blanks") << "   " << false;
    QTest::newRow("null") << QString() << false;
    QTest::newRow("accented domain") << QStringLiteral("a@\u00e9t\u00e9.ca") << false;
    QTest::newRow("200000 characters, no domain") << huge << false;
}

void tst_ContactDetails::email()
{
    QFETCH(QString, input);
    QFETCH(bool, ok);
    QString text = input;
    QCOMPARE(is_email_valid(text), ok);
    const QByteArray utf8 = input.toUtf8();
    QCOMPARE(checkEmail(input.isNull() ? nullptr : utf8.constData()), ok);
}

void tst_ContactDetails::checkT2ValidChar_data()
{
    QTest::addColumn<QString>("input");
    QTest::addColumn<bool>("ok");
    QTest::newRow("empty") << "" << true;
    QTest::newRow("French letters") << QStringLiteral("\u00c9cole \u00e9t\u00e9") << true;
    QTest::newRow("ring letter") << QStringLiteral("\u00c5se") << false;
    QTest::newRow("beyond Latin-1") << QStringLiteral("5 \u20ac") << false;
}

void tst_ContactDetails::checkT2ValidChar()
{
    QFETCH(QString, input);
    QFETCH(bool, ok);
    QCOMPARE(CheckT2ValidChar(input), ok);
}

void tst_ContactDetails::textChecks_data()
{
    QTest::addColumn<TextCheck>("check");
    QTest::addColumn<QString>("input");
    QTest::addColumn<bool>("ok");
    QTest::newRow("date: eight digits") << TextCheck::Date << "20250101" << true;
    QTest::newRow("date: bytes after eight not looked at")
        << TextCheck::Date << "20250101xyz" << true;
    QTest::newRow("date: seven digits") << TextCheck::Date << "2025010" << false;
    QTest::newRow("date: letter eighth") << TextCheck::Date << "2025010x" << false;
    QTest::newRow("date: null") << TextCheck::Date << QString() << false;
    QTest::newRow("all number: null is empty") << TextCheck::AllNumber << QString() << true;
    QTest::newRow("all number: digits") << TextCheck::AllNumber << "0123456789" << true;
    QTest::newRow("all number: byte from 128 up")
        << TextCheck::AllNumber << QStringLiteral("12\u00b3") << false;
    QTest::newRow("digit str: empty") << TextCheck::DigitStr << "" << true;
    QTest::newRow("digit str: Arabic-Indic digit")
        << TextCheck::DigitStr << QStringLiteral("1\u0661") << false;
    QTest::newRow("alpha or space: -_+$%<> pass")
        << TextCheck::AlphaOrSpace << "A-B_C +$%<>" << true;
    QTest::newRow("alpha or space: empty") << TextCheck::AlphaOrSpace << "" << true;
    QTest::newRow("alpha or space: digit") << TextCheck::AlphaOrSpace << "A1" << false;
    QTest::newRow("all zero: empty") << TextCheck::AllZero << "" << true;
    QTest::newRow("all zero: zeros") << TextCheck::AllZero << "000" << true;
    QTest::newRow("all zero: a 1 inside") << TextCheck::AllZero << "010" << false;
}

void tst_ContactDetails::textChecks()
{
    QFETCH(TextCheck, check);
    QFETCH(QString, input);
    QFETCH(bool, ok);
    const QByteArray latin1 = input.toLatin1();
    const char* bytes = input.isNull() ? nullptr : latin1.constData();
    switch (check) {
    case TextCheck::Date:
        QCOMPARE(CheckDate(bytes), ok);
        break;
    case TextCheck::AllNumber:
        QCOMPARE(CheckIsAllNumber(bytes), ok);
        break;
    case TextCheck::DigitStr:
        QCOMPARE(CheckIsDigitStr(input, 5), ok);
        break;
    case TextCheck::AlphaOrSpace:
        QCOMPARE(CheckIsAlphaOrSpace(input), ok);
        break;
    case TextCheck::AllZero:
        QCOMPARE(IsAllZeroString(input), ok);
        break;
    }
}

void tst_ContactDetails::duplicates_data()
{
    QTest::addColumn<QStringList>("a");
    QTest::addColumn<QStringList>("b");
    QTest::addColumn<bool>("ok");
    QTest::newRow("repeat in another letter case")
        << QStringList { "ON", "qc", "QC" } << QStringList() << false;
    QTest::newRow("repeat allowed by the second list")
        << QStringList { "ON", "qc", "QC" } << QStringList { "Qc" } << true;
    QTest::newRow("empty strings may repeat")
        << QStringList { "", "ON", "" } << QStringList() << true;
    QTest::newRow("no repeat") << QStringList { "ON", "QC" } << QStringList() << true;
    QTest::newRow("empty list") << QStringList() << QStringList() << true;
}

void tst_ContactDetails::duplicates()
{
    QFETCH(QStringList, a);
    QFETCH(QStringList, b);
    QFETCH(bool, ok);
    std::list<CString> first(a.begin(), a.end()), second(b.begin(), b.end());
    QCOMPARE(CheckIfAllSomeStringsAreSame(first, second), ok);
}

void tst_ContactDetails::amongList_data()
{
    QTest::addColumn<QString>("input");
    QTest::addColumn<QStringList>("list");
    QTest::addColumn<bool>("ok");
    QTest::newRow("member in another letter case") << "on" << QStringList { "ON", "QC" } << true;
    QTest::newRow("not a member") << "AB" << QStringList { "ON", "QC" } << false;
    QTest::newRow("empty list") << "" << QStringList() << false;
}

void tst_ContactDetails::amongList()
{
    QFETCH(QString, input);
    QFETCH(QStringList, list);
    QFETCH(bool, ok);
    std::list<CString> l(list.begin(), list.end());
    QCOMPARE(CheckIfAmongListOfString(input, l), ok);
}

void tst_ContactDetails::conversions_data()
{
    QTest::addColumn<Conversion>("conversion");
    QTest::addColumn<QString>("input");
    QTest::addColumn<QString>("expected");
    QTest::newRow("CA raw: lower case and blank") << Conversion::Raw << "k1a 0b1"
                                                  << "K1A0B1";
    QTest::newRow("CA raw: leading digit skipped") << Conversion::CARaw << "1K1A"
                                                   << "K1A";
    QTest::newRow("CA raw: stops at six") << Conversion::CARaw << "K1A0B1X"
                                          << "K1A0B1";
    QTest::newRow("CA raw: noise skipped") << Conversion::CARaw << "K-1-A"
                                           << "K1A";
    QTest::newRow("CA raw: 200000 letters, one taken") << Conversion::CARaw << huge << "A";
    QTest::newRow("US raw: trimmed, five kept") << Conversion::USRaw << "  12345-6789"
                                                << "12345";
    QTest::newRow("US raw: shorter kept whole") << Conversion::USRaw << "123 "
                                                << "123";
    QTest::newRow("phone raw: digits only") << Conversion::Phone << "(613) 5"
                                            << "6135";
    QTest::newRow("phone raw: padded on the right") << Conversion::PhonePadded << "(613) 5"
                                                    << "6135000000";
    QTest::newRow("phone raw: eleven digits not cut") << Conversion::PhonePadded << "1-613-555-0199"
                                                      << "16135550199";
    QTest::newRow("date raw: year first") << Conversion::Date << "31/12/2025"
                                          << "20251231";
    QTest::newRow("purified: only c/o and C/O with their blank")
        << Conversion::PurifiedAddr << "c/o A, C/O B, C/o C, c/oD"
        << "A, B, C/o C, c/oD";
    QTest::newRow("num str: ASCII digits only")
        << Conversion::NumStr << QStringLiteral("a1b2\u0663") << "12";
    QTest::newRow("pure digits: appended to what is there") << Conversion::PureDigits << "x1-2"
                                                            << "912";
}

void tst_ContactDetails::conversions()
{
    QFETCH(Conversion, conversion);
    QFETCH(QString, input);
    QFETCH(QString, expected);
    CString out("9");
    switch (conversion) {
    case Conversion::CARaw:
        out = GetCARawPostcode(input);
        break;
    case Conversion::Raw:
        out = GetRawPostcode(input);
        break;
    case Conversion::USRaw:
        out = GetUSRawPostcode(input);
        break;
    case Conversion::Phone:
        out = GetRawPhoneStr(input, false);
        break;
    case Conversion::PhonePadded:
        out = GetRawPhoneStr(input, true);
        break;
    case Conversion::Date:
        out = GetRawDate(input);
        break;
    case Conversion::PurifiedAddr:
        out = GetPurifiedAddr(input);
        break;
    case Conversion::NumStr:
        out = GetNumStr(input, true, 3);
        break;
    case Conversion::PureDigits:
        GetPureDigitStr(input, out);
        break;
    }
    QCOMPARE(QString(out), expected);
}

void tst_ContactDetails::validateAddr_data()
{
    QTest::addColumn<QString>("number");
    QTest::addColumn<QString>("street");
    QTest::addColumn<QString>("city");
    QTest::addColumn<int>("prov");
    QTest::addColumn<int>("country");
    QTest::addColumn<QString>("postal");
    QTest::addColumn<QStringList>("labels");
    QTest::newRow("complete Canadian") << "12"
                                       << "Main St"
                                       << "Ottawa" << 9 << 1 << "K1A 0B1" << QStringList();
    QTest::newRow("eight-character street number is the longest")
        << "12345678"
        << "Main St"
        << "Ottawa" << 9 << 1 << "K1A 0B1" << QStringList();
    QTest::newRow("nine-character street number counts as missing")
        << "123456789"
        << "Main St"
        << "Ottawa" << 9 << 1 << "K1A 0B1" << QStringList { "Street number/name" };
    QTest::newRow("blank street number")
        << "  "
        << "Main St"
        << "Ottawa" << 9 << 1 << "K1A 0B1" << QStringList { "Street number/name" };
    QTest::newRow("blank street name")
        << "12"
        << " "
        << "Ottawa" << 9 << 1 << "K1A 0B1" << QStringList { "Street number/name" };
    QTest::newRow("blank city") << "12"
                                << "Main St"
                                << " " << 9 << 1 << "K1A 0B1" << QStringList { "City" };
    QTest::newRow("CA: no province")
        << "12"
        << "Main St"
        << "Ottawa" << 0 << 1 << "K1A 0B1" << QStringList { "Province" };
    QTest::newRow("CA: ZIP code") << "12"
                                  << "Main St"
                                  << "Ottawa" << 9 << 1 << "12345" << QStringList { "Postal code" };
    QTest::newRow("US: no state") << "12"
                                  << "Main St"
                                  << "Boston" << 0 << 2 << "02101" << QStringList { "State" };
    QTest::newRow("US: Canadian code")
        << "12"
        << "Main St"
        << "Boston" << 5 << 2 << "K1A 0B1" << QStringList { "Postal code" };
    QTest::newRow("US: blank ZIP code")
        << "12"
        << "Main St"
        << "Boston" << 5 << 2 << "     " << QStringList { "Postal code" };
    QTest::newRow("country 3: province and postal code not looked at")
        << "12"
        << "Main St"
        << "Paris" << 0 << 3 << "" << QStringList();
    QTest::newRow("country 0: postal code ignored, Country last")
        << "12"
        << "Main St"
        << "Ottawa" << 0 << 0 << "" << QStringList { "Country" };
}

void tst_ContactDetails::validateAddr()
{
    QFETCH(QString, number);
    QFETCH(QString, street);
    QFETCH(QString, city);
    QFETCH(int, prov);
    QFETCH(int, country);
    QFETCH(QString, postal);
    QFETCH(QStringList, labels);
    CStringField numberField(number.toLatin1().constData()),
        streetField(street.toLatin1().constData()), cityField(city.toLatin1().constData()),
        postalField(postal.toLatin1().constData());
    CIntField provField(prov), countryField(country);
    long count = 5;
    std::list<CString> messages { "earlier" };
    const long added
        = ::validateAddr(count, messages, numberField, streetField, cityField, provField,
                         countryField, postalField, "%s missing%s", " (spouse)");
    QCOMPARE(added, long(labels.size()));
    QCOMPARE(count, 5 + added);
    QStringList expected { "earlier" };
    for (const QString& label : labels)
        expected << label + " missing (spouse)";
    QCOMPARE(QStringList(messages.begin(), messages.end()), expected);
}

void tst_ContactDetails::validateAddr2_data()
{
    QTest::addColumn<QString>("street");
    QTest::addColumn<QString>("city");
    QTest::addColumn<QString>("postal");
    QTest::addColumn<QStringList>("messages");
    QTest::newRow("complete; the second street field is not looked at") << "12 Main St"
                                                                        << "Boston"
                                                                        << "02101" << QStringList();
    QTest::newRow("blank street address") << "  "
                                          << "Boston"
                                          << "02101" << QStringList { "[Street address]" };
    QTest::newRow("blank city") << "12 Main St"
                                << ""
                                << "02101" << QStringList { "[City]" };
    QTest::newRow("nine-character street number is no concern here") << "123456789 Main St"
                                                                     << "Boston"
                                                                     << "02101" << QStringList();
    QTest::newRow("bad ZIP code") << "12 Main St"
                                  << "Boston"
                                  << "0210" << QStringList { "[Postal code]" };
}

// A US address with its state given; the format takes the label and a null suffix.
void tst_ContactDetails::validateAddr2()
{
    QFETCH(QString, street);
    QFETCH(QString, city);
    QFETCH(QString, postal);
    QFETCH(QStringList, messages);
    CStringField streetField(street.toLatin1().constData()), unused(""),
        cityField(city.toLatin1().constData()), postalField(postal.toLatin1().constData());
    CIntField state(5), us(2);
    long count = 1;
    std::list<CString> made;
    QCOMPARE(::validateAddr2(count, made, streetField, unused, cityField, state, us, postalField,
                             "[%s%s]", nullptr),
             long(messages.size()));
    QCOMPARE(count, 1 + long(messages.size()));
    QCOMPARE(QStringList(made.begin(), made.end()), messages);
}

QTEST_GUILESS_MAIN(tst_ContactDetails)
#include "tst_contactdetails.moc"
