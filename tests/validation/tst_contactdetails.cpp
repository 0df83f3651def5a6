#include "cintfield.h"
#include "contactdetails.h"
#include "cstringfield.h"

#include <QTest>

#include <string>

class tst_ContactDetails : public QObject
{
    Q_OBJECT
private slots:
    void characterTables();
    void textChecks_data();
    void textChecks();
    void rawValues_data();
    void rawValues();
    void smallChecks();
    void validateAddr_data();
    void validateAddr();
    void hostileInput();
};

using Check = bool (*)(const QString&);
Q_DECLARE_METATYPE(Check)

void tst_ContactDetails::characterTables()
{
    int t2 = 0;
    for (int c = 0; c < 256; ++c)
        t2 += IsT2AllowedChar(static_cast<unsigned char>(c));
    QCOMPARE(t2, 154);
    QVERIFY(!IsT2AllowedChar(0) && !IsT2AllowedChar(0x7F) && !IsT2AllowedChar(0xC5));
    QVERIFY(IsT2AllowedChar(' ') && IsT2AllowedChar('~') && IsT2AllowedChar(0xE9));
    int diacritics = 0;
    for (int u = 0; u <= 0xFFFF; ++u)
        diacritics += isCharDiacritic(QChar(char16_t(u)));
    QCOMPARE(diacritics, 60);
    for (char16_t u : { 0xC0, 0xD7, 0xDF, 0xF7, 0xFF })
        QVERIFY2(isCharDiacritic(QChar(u)), qPrintable(QString::number(u, 16)));
    for (char16_t u : { 0xBF, 0xC5, 0xD5, 0xE5, 0xF5, 0x100 })
        QVERIFY2(!isCharDiacritic(QChar(u)), qPrintable(QString::number(u, 16)));
    QVERIFY(!isAlphabetic('@') && !isAlphabetic('[') && !isAlphabetic(char(0xC1)));
}

static bool name(const QString& s)
{
    return CheckName(s.toLatin1().constData());
}
static bool busiName(const QString& s)
{
    return CheckBusiName(s);
}
static bool city(const QString& s)
{
    return CheckCityName(s);
}
static bool address(const QString& s)
{
    CString c(s);
    return CheckAddress(c);
}
static bool addrCO(const QString& s)
{
    CString c(s);
    return CheckAddrCO(c);
}
static bool caPost(const QString& s)
{
    return CheckCAPostCode(s.toLatin1().constData());
}
static bool usPost(const QString& s)
{
    return CheckUSPostCode(s.toLatin1().constData());
}
static bool phone(const QString& s)
{
    return CheckPhoneNumber(s);
}
static bool flatPhone(const QString& s)
{
    return CheckPhoneFlatEditNumber(s, false);
}
static bool phoneTyped(const QString& s)
{
    return ChkPhoneStrHasSomething(s);
}
static bool email(const QString& s)
{
    QString t(s);
    return is_email_valid(t);
}
static bool t2(const QString& s)
{
    return CheckT2ValidChar(s);
}

void tst_ContactDetails::textChecks_data()
{
    QTest::addColumn<Check>("check");
    QTest::addColumn<QString>("input");
    QTest::addColumn<bool>("ok");
    auto row = [](const char* why, Check c, const QString& in, bool ok) {
        QTest::newRow(why) << c << in << ok;
    };
    row("name: empty", name, "", true);
    row("name: apostrophe inside", name, "O'Brien", true);
    row("name: hyphen inside", name, "Jean-Luc", true);
    row("name: may end with a hyphen", name, "Smith-", true);
    row("name: may not begin with one", name, "-Smith", false);
    row("name: comma inside", name, "Smith, John", false);
    row("name: '!' is not on the closed list", name, "Hi!There", true);
    row("name: Latin-1 accent last", name, QStringLiteral("Jos\u00e9"), true);
    row("busi name: UTF-8 accent inside", busiName, QStringLiteral("H\u00e9l\u00e8ne"), true);
    row("busi name: UTF-8 accent last", busiName, QStringLiteral("Jos\u00e9"), false);
    row("city: hyphen", city, "Saint-Hyacinthe", true);
    row("city: point and apostrophe", city, "St. John's", true);
    row("city: accent", city, QStringLiteral("Rue Montr\u00e9al"), true);
    row("city: comma", city, "Ottawa, ON", false);
    row("address: second UTF-8 byte of an accent", address, QStringLiteral("Rue Montr\u00e9al"),
        false);
    row("address: scan stops before the last byte", address, QStringLiteral("Caf\u00e9"), true);
    row("address: c/o inside", address, "12 Main St c/o Smith", false);
    row("address: mixed-case C/o is let through", address, "C/o Smith", true);
    row("address: may not begin with one", address, ".12 Main St", false);
    row("address: '#' and ',' allowed", address, "Unit #4, 12 Main", true);
    row("address: closing bracket last", address, "12 Main (rear)", false);
    row("c/o line: '#' and ',' not allowed", addrCO, "Unit #4, 12 Main", false);
    row("ca post: space", caPost, "K1A 0B1", true);
    row("ca post: underscore", caPost, "K1A_0B1", false);
    row("ca post: text after the code", caPost, "K1A 0B1 Canada", true);
    row("ca post: lower case", caPost, "k1a0b1", true);
    row("us zip: zip+4", usPost, "12345-6789", true);
    row("us zip: six", usPost, "123456", false);
    row("us zip: hyphen anywhere", usPost, "----------", true);
    row("phone: punctuated ten digits", phone, "(613) 555-0199", true);
    row("phone: eleven digits", phone, "1-613-555-0199", true);
    row("phone: nine digits", phone, "613-555-019", false);
    row("phone: ten zeros", phone, "(000) 000-0000", false);
    row("flat phone: one allowed character is enough", flatPhone, "tel:6135550199", true);
    row("phone typed: empty", phoneTyped, "", false);
    row("phone typed: blank mask", phoneTyped, "(   )   -    ", false);
    row("phone typed: one digit, zeros padded right", phoneTyped, "5", true);
    row("email: inside other text", email, "write to a_b@mail.example.com today", true);
    row("email: one-letter top level", email, "a@b.c", false);
    row("t2: French letters", t2, QStringLiteral("\u00c9cole \u00e9t\u00e9"), true);
    row("t2: ring letter", t2, QStringLiteral("\u00c5se"), false);
    row("t2: beyond Latin-1", t2, QStringLiteral("\u20ac"), false);
}

void tst_ContactDetails::textChecks()
{
    QFETCH(Check, check);
    QFETCH(QString, input);
    QFETCH(bool, ok);
    QCOMPARE(check(input), ok);
}

void tst_ContactDetails::rawValues_data()
{
    QTest::addColumn<QString>("result");
    QTest::addColumn<QString>("expected");
    QTest::newRow("CA raw: lower case and blank") << QString(GetRawPostcode("k1a 0b1")) << "K1A0B1";
    QTest::newRow("CA raw: leading digit skipped") << QString(GetCARawPostcode("1K1A")) << "K1A";
    QTest::newRow("CA raw: stops at six") << QString(GetCARawPostcode("K1A0B1X")) << "K1A0B1";
    QTest::newRow("US raw: trimmed, five kept")
        << QString(GetUSRawPostcode("  12345-6789")) << "12345";
    QTest::newRow("phone raw: padded right")
        << QString(GetRawPhoneStr("(613) 5", true)) << "6135000000";
    QTest::newRow("date raw: year first") << QString(GetRawDate("31/12/2025")) << "20251231";
    QTest::newRow("purified: only c/o and C/O")
        << QString(GetPurifiedAddr("c/o A, C/O B, C/o C")) << "A, B, C/o C";
    QTest::newRow("num str") << QString(GetNumStr("a1b2\u0663", true, 3)) << "12";
    CString out("9");
    GetPureDigitStr("x1-2", out);
    QTest::newRow("pure digits appended") << QString(out) << "912";
}

void tst_ContactDetails::rawValues()
{
    QFETCH(QString, result);
    QFETCH(QString, expected);
    QCOMPARE(result, expected);
}

void tst_ContactDetails::smallChecks()
{
    CString s("   -12 Main  "), e(" \t ");
    QVERIFY(!CheckAddress_common(s)); // trimmed in place even when refused
    QCOMPARE(QString(s), QStringLiteral("-12 Main"));
    QVERIFY(CheckAddress(e) && e.IsEmpty());
    QVERIFY(CheckPhoneNumber("0000000000", true) && CheckCountryCode("CAN")
            && !CheckCountryCode("can"));
    QVERIFY(CheckIsAlphaOrSpace("A-B_C +$%<>") && CheckDate("20250101xyz")
            && !CheckDate("2025010"));
    std::list<CString> a { "ON", "", "", "qc", "QC" }, none, allowed { "Qc" };
    QVERIFY(!CheckIfAllSomeStringsAreSame(a, none));
    QVERIFY(CheckIfAllSomeStringsAreSame(a, allowed));
    QVERIFY(CheckIfAllSomeStringsAreSame(none, none));
    QVERIFY(CheckIfAmongListOfString("on", a) && !CheckIfAmongListOfString("AB", a));
    QVERIFY(IsAllZeroString("") && IsAllZeroString("000") && !IsAllZeroString("010"));
    QVERIFY(CheckIsAllNumber(nullptr) && !CheckIsAllNumber("12\xb3"));
    QVERIFY(CheckIsDigitStr("", 5) && !CheckIsDigitStr(QStringLiteral("1\u0661"), 0));
    // validateAddr2: one street field, here blank; the ZIP code is valid.
    CStringField blank("  "), ignored("x"), zip("90210");
    CIntField state(5), us(2);
    long count = 1;
    std::list<CString> messages;
    QCOMPARE(validateAddr2(count, messages, blank, ignored, blank, state, us, zip, "[%s]", nullptr),
             2L);
    QCOMPARE(count, 3L);
    QCOMPARE(QList<CString>(messages.begin(), messages.end()),
             (QList<CString> { "[Street address]", "[City]" }));
}

void tst_ContactDetails::validateAddr_data()
{
    QTest::addColumn<QString>("number");
    QTest::addColumn<int>("prov");
    QTest::addColumn<int>("country");
    QTest::addColumn<QString>("postal");
    QTest::addColumn<QStringList>("labels");
    QTest::newRow("complete Canadian") << "12" << 9 << 1 << "K1A 0B1" << QStringList();
    QTest::newRow("nine-character street number")
        << "123456789" << 9 << 1 << "K1A 0B1" << QStringList { "Street number/name" };
    QTest::newRow("CA: no province, bad code")
        << "12" << 0 << 1 << "12345" << QStringList { "Province", "Postal code" };
    QTest::newRow("US: no state, empty zip")
        << "12" << 0 << 2 << " " << QStringList { "State", "Postal code" };
    QTest::newRow("US: Canadian code")
        << "12" << 5 << 2 << "K1A 0B1" << QStringList { "Postal code" };
    QTest::newRow("country 3: nothing further") << "12" << 0 << 3 << "" << QStringList();
    QTest::newRow("country 0: postal ignored")
        << "" << 0 << 0 << "" << QStringList { "Street number/name", "Country" };
}

void tst_ContactDetails::validateAddr()
{
    QFETCH(QString, number);
    QFETCH(int, prov);
    QFETCH(int, country);
    QFETCH(QString, postal);
    QFETCH(QStringList, labels);
    CStringField num(number.toLatin1()), street("Main St"), town("Ottawa"), code(postal.toLatin1());
    CIntField provField(prov), countryField(country);
    long count = 5;
    std::list<CString> messages { "earlier" };
    const long added = ::validateAddr(count, messages, num, street, town, provField, countryField,
                                      code, "%s missing%s", " (spouse)");
    QCOMPARE(added, long(labels.size()));
    QCOMPARE(count, 5 + added);
    QCOMPARE(QString(messages.front()), QStringLiteral("earlier"));
    const QStringList got(std::next(messages.begin()), messages.end());
    QStringList want;
    for (const QString& l : labels)
        want << l + QStringLiteral(" missing (spouse)");
    QCOMPARE(got, want);
}

void tst_ContactDetails::hostileInput()
{
    QString huge = QString(200000, QLatin1Char('a')) + QString::fromUtf16(u"@\u00e9\0x.", 5);
    CString line(huge);
    QVERIFY(!CheckAddress(line));
    QVERIFY(!is_email_valid(huge));
    QVERIFY(!checkEmail(nullptr) && CheckName(nullptr) && !CheckCAPostCode(nullptr));
    QVERIFY(!CheckCityName(QString::fromUtf16(u"Ott\0awa", 7)));
    QVERIFY(!CheckBusiName(QString(QChar(0xD800))));
    QVERIFY(CheckPhoneNumber(QString(100000, QLatin1Char('7'))));
    QCOMPARE(GetCARawPostcode(huge).GetLength(), 1);
}

QTEST_GUILESS_MAIN(tst_ContactDetails)
#include "tst_contactdetails.moc"
