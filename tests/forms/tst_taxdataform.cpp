#include "cdatefield.h"
#include "cmemoryblock.h"
#include "cstringfield.h"
#include "ctaxdata_form.h"
#include "cwsbasedata.h"
#include "logcapture.h"
#include "mydatastream.h"
#include "onefieldform.h"
#include "streambytes.h"
#include "xmlguard.h"

#include <QTest>

#include <functional>
#include <memory>

namespace {

const CString Key("test key");
constexpr unsigned int Version = 0x101F4;

struct Sheet : CWSBaseData {
    Sheet()
    {
        m_prefix = "WS1";
        amount.m_name = "fld_1";
        m_fields.push_back(&amount);
    }
    CFloatField amount { 0.0, 0 };
};

// A small concrete form: one field of each kind and one worksheet.
struct Form : CTaxData_Form {
    Form()
        : CTaxData_Form(ENUM_FORM_T1)
    {
        add(count, "fld_count", 101);
        add(amount, "fld_amount", 102);
        add(text, "fld_text", 103);
        add(flag, "fld_flag", 104);
        add(date, "fld_date", 105);
        add(stamp, "fld_stamp", 0);
        add(retired, "fld_notused_1", 106);
        m_worksheets.push_back(&sheet);
    }
    void add(CField& field, const char* name, int id)
    {
        m_fields.push_back(&field);
        field.m_name = name;
        field.m_id = id;
    }
    CIntField count { 0, FIELD_ATTR_INCREMENT_ON_ROLLOVER };
    CFloatField amount { 0.0, 0 };
    CStringField text { 0, "", 40, FIELD_ATTR_CLEAR_TEXT_ON_ROLLOVER, 0, 0x10000 };
    CBoolField flag { 0 };
    CDateField date { FIELD_ATTR_ADVANCE_DATE_ON_ROLLOVER };
    CDateTimeField stamp;
    CFloatFieldNotused retired { 0x10000, 0x10100 };
    Sheet sheet;
};

void fill(Form& f)
{
    f.count = 7;
    f.amount = 1234.56;
    f.text.m_text.LoadString("Renée & <Co>");
    f.flag = 1;
    f.date = QDate(2024, 2, 29);
    f.stamp.m_value = QDateTime(QDate(2025, 4, 30), QTime(13, 5, 6));
    f.retired.m_value = 99;
    f.sheet.amount.m_value = 5.5;
    f.m_DataFlag1 = 3;
}

QByteArray store(CTaxData_Form& form, unsigned int version = Version)
{
    return storeBytes([&](MyDataStream& out) { form.Serialize(version, Key, out); });
}

void load(CTaxData_Form& form, const QByteArray& bytes, unsigned int version = Version)
{
    loadBytes(bytes, [&](MyDataStream& in) { form.Serialize(version, Key, in); });
}

// A record whose plain content is given, as a damaged or foreign file may hold.
QByteArray record(const QByteArray& content, qint32 delimiter = CTaxData_Form::Delimiter)
{
    return storeBytes([&](MyDataStream& out) {
        out << delimiter;
        CT1EncryptedMemoryBlock block(Key);
        block.Append(content.constData(), int(content.size()));
        block.WriteToReturnArchive(out);
    });
}

CString plainContent(const QByteArray& bytes)
{
    CString text;
    loadBytes(bytes.mid(4), [&](MyDataStream& in) {
        CT1EncryptedMemoryBlock block(Key);
        block.ReadFromReturnArchive(in);
        block.GetContent(text);
    });
    return text;
}

// A record whose enciphered block has a salt of its own and 44 bytes that
// open under no key: 68 bytes with its delimiter and size, as a hostile file
// may hold by the thousand.
QByteArray foreignSaltRecord(int salt)
{
    return storeBytes([&](MyDataStream& out) {
        const QByteArray envelope
            = "BRK\x01" + QByteArray::number(salt).leftJustified(16, '.') + QByteArray(44, '\x5a');
        out << qint32(CTaxData_Form::Delimiter) << qint32(envelope.size());
        out.writeRawData(envelope.constData(), int(envelope.size()));
    });
}

// `count` foreign-salt records with `distinct` different salts among them.
QByteArray foreignSaltRecords(int count, int distinct)
{
    QByteArray bytes;
    for (int i = 0; i < count; ++i)
        bytes += foreignSaltRecord(i % distinct);
    return bytes;
}

// A well-formed record that sets fld_count to 5 and nests elements `depth`
// levels deep, its root counting as the first.
QByteArray nestedRecord(int depth)
{
    return "<m><f n=\"fld_count\">5</f>" + QByteArray("<a>").repeated(depth - 1)
        + QByteArray("</a>").repeated(depth - 1) + "</m>";
}

// Through the base, as applications assign: a concrete form's own implicit
// copy assignment would copy its members directly.
void assign(CTaxData_Form& to, CTaxData_Form& from)
{
    to = from;
}

using Change = std::function<void(Form& mine, Form& other)>;

} // namespace

Q_DECLARE_METATYPE(Change)

class tst_TaxDataForm : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { CStringField::setLargeSizeSerializeOption(0x10000, 1000); }

    void compare_data();
    void compare();
    void emptyFieldListsCompareEqual();
    void mismatchedTypesArePassedOver();
    void assignCopiesValuesNotFlags();
    void assignCopiesTheCommonPrefix();
    void displayName();

    void recordRoundTrip();
    void recordFlags_data();
    void recordFlags();
    void flagsLoaded_data();
    void flagsLoaded();
    void recordLeavesOut_data();
    void recordLeavesOut();
    void loading_data();
    void loading();
    void saltsPerFile_data();
    void saltsPerFile();
    void delimiterChecked_data();
    void delimiterChecked();
    void wrongDelimiterKeptUntilStored();

    void rollover_data();
    void rollover();
    void rolloverReachesWorksheetsNotFlags_data();
    void rolloverReachesWorksheetsNotFlags();
    void refile_data();
    void refile();
    void refileLastPairOfALineCodeWins();
    void refileAddsToTheMap();
    void refileStopsAtTheShorterList();

    void sharableFieldsComeFirst();
    void sharableRecord();
    void printXml();
    void imports_data();
    void imports();
};

void tst_TaxDataForm::compare_data()
{
    QTest::addColumn<Change>("change");
    QTest::addColumn<bool>("differs");
    QTest::newRow("identical") << Change([](Form&, Form&) {}) << false;
    QTest::newRow("integer") << Change([](Form&, Form& b) { b.count = 8; }) << true;
    QTest::newRow("amount 0.008 apart is equal")
        << Change([](Form&, Form& b) { b.amount.m_value += 0.008; }) << false;
    QTest::newRow("amount 0.01 apart differs")
        << Change([](Form&, Form& b) { b.amount.m_value += 0.01; }) << true;
    QTest::newRow("text") << Change([](Form&, Form& b) { b.text.m_text = "other"; }) << true;
    QTest::newRow("letter case of a text")
        << Change([](Form&, Form& b) { b.text.m_text = b.text.m_text.toUpper(); }) << true;
    QTest::newRow("bool") << Change([](Form&, Form& b) { b.flag = 0; }) << true;
    QTest::newRow("date") << Change([](Form&, Form& b) { b.date = QDate(2024, 3, 1); }) << true;
    QTest::newRow("date-time") << Change([](Form&, Form& b) {
        b.stamp.m_value = b.stamp.m_value.addSecs(1);
    }) << true;
    QTest::newRow("a worksheet alone is no difference")
        << Change([](Form&, Form& b) { b.sheet.amount.m_value = 1; }) << false;
    QTest::newRow("a form flag alone is no difference")
        << Change([](Form&, Form& b) { b.m_DataFlag1 = 9; }) << false;
}

void tst_TaxDataForm::compare()
{
    QFETCH(Change, change);
    Form a, b;
    fill(a);
    fill(b);
    change(a, b);
    QTEST(a != b, "differs");
}

void tst_TaxDataForm::emptyFieldListsCompareEqual()
{
    Form a;
    fill(a);
    CTaxData_Form empty(ENUM_FORM_T1);
    QVERIFY(!(a != empty));
    QVERIFY(!(empty != a));
}

// Position 0 pairs a text with an integer; the amounts at position 1 still pair.
void tst_TaxDataForm::mismatchedTypesArePassedOver()
{
    Form a;
    fill(a);
    CTaxData_Form odd(ENUM_FORM_T1);
    CStringField wrongType("x", 10);
    CFloatField amount(1234.56, 0);
    odd.m_fields = { &wrongType, &amount };
    QVERIFY(!(odd != a));
    QVERIFY(!(a != odd));
    a.amount.m_value = 1.0;
    assign(odd, a);
    QCOMPARE(wrongType.m_text, CString("x"));
    QCOMPARE(amount.m_value, 1.0);
}

void tst_TaxDataForm::assignCopiesValuesNotFlags()
{
    Form a, b;
    fill(b);
    assign(a, b);
    QVERIFY(!(a != b));
    QCOMPARE(a.stamp.m_value, b.stamp.m_value);
    QCOMPARE(a.sheet.amount.m_value, 5.5);
    QCOMPARE(a.m_DataFlag1.m_value, 0);
}

void tst_TaxDataForm::assignCopiesTheCommonPrefix()
{
    Form full;
    fill(full);
    CTaxData_Form shorter(ENUM_FORM_T1);
    CIntField count(42);
    shorter.m_fields = { &count };
    assign(full, shorter);
    QCOMPARE(full.count.m_value, 42);
    QCOMPARE(full.amount.m_value, 1234.56);
    count = 0;
    assign(shorter, full);
    QCOMPARE(count.m_value, 42);
}

void tst_TaxDataForm::displayName()
{
    CTaxData_Form form(ENUM_FORM_T1);
    CString name;
    form.GetDisplayName(name);
    QCOMPARE(name, CString("Untitled"));
}

void tst_TaxDataForm::recordRoundTrip()
{
    Form original, loaded;
    fill(original);
    const QByteArray bytes = store(original);
    QCOMPARE(bytes.left(4), QByteArray("\x04\x03\x02\x01", 4));
    load(loaded, bytes);
    loaded.retired.m_value = original.retired.m_value; // not in the record
    QVERIFY(!(loaded != original));
    QCOMPARE(loaded.text.m_text, original.text.m_text);
    QCOMPARE(loaded.stamp.m_value, original.stamp.m_value);
    QCOMPARE(loaded.sheet.amount.m_value, 5.5);
    QCOMPARE(loaded.m_DataFlag1.m_value, 3);
}

void tst_TaxDataForm::recordFlags_data()
{
    QTest::addColumn<unsigned int>("version");
    QTest::addColumn<QString>("content");
    QTest::newRow("one version before the flags: the root alone") << Version - 1 << "<m></m>";
    QTest::newRow("first version with the flags")
        << Version
        << "<m><f n=\"m_DataFlag1\">0</f><f n=\"m_DataFlag2\">0</f>"
           "<f n=\"m_DataFlag3\">0</f><f n=\"m_DataFlag4\">0</f></m>";
}

void tst_TaxDataForm::recordFlags()
{
    QFETCH(unsigned int, version);
    CTaxData_Form empty(ENUM_FORM_T1);
    QTEST(QString(plainContent(store(empty, version))), "content");
}

void tst_TaxDataForm::flagsLoaded_data()
{
    QTest::addColumn<unsigned int>("version");
    QTest::addColumn<int>("flag");
    QTest::newRow("one version before the flags: not read") << Version - 1 << 0;
    QTest::newRow("first version with the flags: read") << Version << 3;
}

void tst_TaxDataForm::flagsLoaded()
{
    QFETCH(unsigned int, version);
    CTaxData_Form form(ENUM_FORM_T1);
    load(form, record("<m><f n=\"m_DataFlag1\">3</f></m>"), version);
    QTEST(form.m_DataFlag1.m_value, "flag");
}

void tst_TaxDataForm::recordLeavesOut_data()
{
    QTest::addColumn<int>("kind");
    QTest::addColumn<QByteArray>("name");
    QTest::addColumn<int>("maxLen");
    QTest::addColumn<bool>("written");
    QTest::newRow("plain name") << int(KindFloat) << QByteArray("fld_a") << 0 << true;
    QTest::newRow("notused in the name")
        << int(KindFloat) << QByteArray("fld_a_notused") << 0 << false;
    QTest::newRow("NotUsed in capitals")
        << int(KindFloat) << QByteArray("fld_a_NotUsed") << 0 << true;
    QTest::newRow("string one below the large size")
        << int(KindString) << QByteArray("fld_a") << 999 << true;
    QTest::newRow("string of the large size")
        << int(KindString) << QByteArray("fld_a") << 1000 << false;
}

// A field left out costs the record nothing else: the one after it is there.
void tst_TaxDataForm::recordLeavesOut()
{
    QFETCH(int, kind);
    QFETCH(QByteArray, name);
    QFETCH(int, maxLen);
    OneFieldForm form(kind, name.constData());
    if (kind == KindString)
        static_cast<CStringField*>(form.field.get())->m_nMaxLen = maxLen;
    CIntField after(5);
    after.m_name = "fld_after";
    form.m_fields.push_back(&after);
    const CString content = plainContent(store(form));
    QTEST(content.contains("<f n=\"" + QString(name) + "\">"), "written");
    QVERIFY(content.contains("<f n=\"fld_after\">5</f></m>"));
}

void tst_TaxDataForm::loading_data()
{
    const int Max = XmlGuardMaxDepth;
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<int>("count"); // 1 before the load
    const QByteArray good = "<m><f n=\"fld_count\">5</f></m>";
    QTest::newRow("the record read") << record(good) << 5;
    QTest::newRow("wrong delimiter: the block still read") << record(good, 7) << 5;
    QTest::newRow("old name fills the renamed field")
        << record("<m><f n=\"old_count\">4</f></m>") << 4;
    QTest::newRow("new name wins over an old one")
        << record("<m><f n=\"older_count\">3</f><f n=\"fld_count\">5</f></m>") << 5;
    QTest::newRow("first old name added wins")
        << record("<m><f n=\"older_count\">3</f><f n=\"old_count\">4</f></m>") << 4;
    QTest::newRow("names no field claims are ignored")
        << record("<m><f n=\"stranger\">9</f></m>") << 1;
    QTest::newRow("unparsable record keeps values") << record("<m><f n=") << 1;
    QTest::newRow("nesting at the depth bound is read") << record(nestedRecord(Max)) << 5;
    QTest::newRow("one level deeper keeps values") << record(nestedRecord(Max + 1)) << 1;
    // TinyXML alone would end the DOCTYPE at the comment's '>' and take the
    // commented-out root, with 9, for the real one.
    QTest::newRow("DOCTYPE subset that would hide the real root keeps values")
        << record("<!DOCTYPE m [<!--><m><f n=\"fld_count\">9</f></m>-->]>" + good) << 1;
    // The parser stops at text after the root without an error; the record is whole.
    QTest::newRow("stray text after the root: the record still read") << record(good + "junk") << 5;
    QTest::newRow("a cut UTF-8 sequence after the root: the record still read")
        << record(good + "\xc3") << 5;
    QTest::newRow("block cut short keeps values") << record(good).left(40) << 1;
    QTest::newRow("empty stream keeps values") << QByteArray() << 1;
}

void tst_TaxDataForm::loading()
{
    QFETCH(QByteArray, bytes);
    Form form;
    form.count = 1;
    form.addFieldOldName("fld_count", "old_count");
    form.addFieldOldName("fld_count", "older_count");
    load(form, bytes);
    QTEST(form.count.m_value, "count");
}

void tst_TaxDataForm::saltsPerFile_data()
{
    QTest::addColumn<QByteArray>("bytes"); // foreign-salt records, then a good one
    QTest::addColumn<int>("count"); // 1 before the load
    QTest::addColumn<int>("refused"); // blocks refused for their salt
    const QByteArray good = record("<m><f n=\"fld_count\">5</f></m>");
    QTest::newRow("the good record alone") << good << 5 << 0;
    QTest::newRow("its salt the fourth in the file: read")
        << foreignSaltRecords(3, 3) + good << 5 << 0;
    QTest::newRow("its salt the fifth in the file: refused, values kept")
        << foreignSaltRecords(4, 4) + good << 1 << 1;
    QTest::newRow("salts counted once however often they recur")
        << foreignSaltRecords(40, 3) + good << 5 << 0;
    // Unbounded, each record would cost one key derivation: over a minute here.
    QTest::newRow("a thousand records with a salt each")
        << foreignSaltRecords(1000, 1000) + good << 1 << 997;
}

void tst_TaxDataForm::saltsPerFile()
{
    QFETCH(QByteArray, bytes);
    LogCapture cap("bedrock.filing");
    Form form;
    form.count = 1;
    loadBytes(bytes, [&](MyDataStream& in) {
        while (!in.atEnd())
            form.Serialize(Version, Key, in);
    });
    QTEST(form.count.m_value, "count");
    QTEST(int(cap.messages().count("enciphered block refused: more than 4 key salts in one file")),
          "refused");
}

void tst_TaxDataForm::delimiterChecked_data()
{
    QTest::addColumn<qint32>("delimiter");
    QTest::addColumn<QStringList>("messages");
    QTest::newRow("right delimiter: silent") << qint32(CTaxData_Form::Delimiter) << QStringList();
    QTest::newRow("wrong delimiter: logged")
        << qint32(0x1020305) << QStringList({ "delimeter error" });
}

void tst_TaxDataForm::delimiterChecked()
{
    QFETCH(qint32, delimiter);
    LogCapture cap("bedrock.forms");
    Form form;
    load(form, record("<m></m>", delimiter));
    QTEST(cap.messages(), "messages");
    QCOMPARE(form.m_delimiter, delimiter);
}

void tst_TaxDataForm::wrongDelimiterKeptUntilStored()
{
    Form form, copy;
    load(form, record("<m></m>", 7));
    assign(copy, form);
    QCOMPARE(copy.m_delimiter, 7);
    store(form);
    QCOMPARE(form.m_delimiter, CTaxData_Form::Delimiter);
}

void tst_TaxDataForm::rollover_data()
{
    QTest::addColumn<int>("kind");
    QTest::addColumn<uint>("attr");
    QTest::addColumn<bool>("keep");
    QTest::addColumn<QVariant>("before");
    QTest::addColumn<QVariant>("after");
    const QVariant year(2024), text(QStringLiteral("x")), amount(100.0);
    const QVariant date(QDate(2024, 3, 1)), nullDate { QDate() };
    QTest::newRow("integer marked: up by one")
        << int(KindInt) << 2u << false << year << QVariant(2025);
    QTest::newRow("integer marked, values kept") << int(KindInt) << 2u << true << year << year;
    QTest::newRow("integer with attribute 1") << int(KindInt) << 1u << false << year << year;
    QTest::newRow("integer with attribute 3") << int(KindInt) << 3u << false << year << year;
    QTest::newRow("bool") << int(KindBool) << 2u << false << QVariant(1) << QVariant(1);
    QTest::newRow("text marked: emptied")
        << int(KindString) << 5u << false << text << QVariant(QString());
    QTest::newRow("text marked: emptied with values kept too")
        << int(KindString) << 5u << true << text << QVariant(QString());
    QTest::newRow("text with attribute 4") << int(KindString) << 4u << false << text << text;
    QTest::newRow("amount cleared") << int(KindFloat) << 0u << false << amount << QVariant(0.0);
    QTest::newRow("amount, values kept") << int(KindFloat) << 0u << true << amount << amount;
    QTest::newRow("amount marked to stay") << int(KindFloat) << 1u << false << amount << amount;
    QTest::newRow("amount with attribute 2 cleared")
        << int(KindFloat) << 2u << false << amount << QVariant(0.0);
    QTest::newRow("date marked: next year")
        << int(KindDate) << 3u << false << date << QVariant(QDate(2025, 3, 1));
    QTest::newRow("date marked: 29 February has no twin")
        << int(KindDate) << 3u << false << QVariant(QDate(2024, 2, 29)) << nullDate;
    QTest::newRow("date marked, values kept") << int(KindDate) << 3u << true << date << date;
    QTest::newRow("date marked to clear") << int(KindDate) << 4u << false << date << nullDate;
    QTest::newRow("date marked to clear, values kept")
        << int(KindDate) << 4u << true << date << date;
    QTest::newRow("date with attribute 2") << int(KindDate) << 2u << false << date << date;
    QTest::newRow("date with attribute 5") << int(KindDate) << 5u << false << date << date;
    const QVariant stamp(QDateTime(QDate(2024, 3, 1), QTime(1, 2, 3)));
    QTest::newRow("date-time") << int(KindDateTime) << 3u << false << stamp << stamp;
}

void tst_TaxDataForm::rollover()
{
    QFETCH(int, kind);
    QFETCH(uint, attr);
    QFETCH(bool, keep);
    QFETCH(QVariant, before);
    OneFieldForm form(kind);
    form.field->m_attr = ENUMTYPE_FIELD_ATTR(attr);
    form.setValue(before);
    form.ChangeToNewYearData(keep);
    QTEST(form.value(), "after");
}

void tst_TaxDataForm::rolloverReachesWorksheetsNotFlags_data()
{
    QTest::addColumn<bool>("keep");
    QTest::addColumn<double>("sheetAmount");
    QTest::newRow("new year: worksheet cleared") << false << 0.0;
    QTest::newRow("values kept: worksheet kept") << true << 5.5;
}

void tst_TaxDataForm::rolloverReachesWorksheetsNotFlags()
{
    QFETCH(bool, keep);
    Form form;
    fill(form);
    form.ChangeToNewYearData(keep);
    QTEST(form.sheet.amount.m_value, "sheetAmount");
    QCOMPARE(form.m_DataFlag1.m_value, 3);
}

void tst_TaxDataForm::refile_data()
{
    QTest::addColumn<Change>("change");
    QTest::addColumn<QList<int>>("lines");
    QTest::newRow("identical") << Change([](Form&, Form&) {}) << QList<int>();
    QTest::newRow("integer") << Change([](Form&, Form& b) { b.count = 8; }) << QList<int>({ 101 });
    QTest::newRow("amount 0.008 apart: nothing")
        << Change([](Form&, Form& b) { b.amount.m_value += 0.008; }) << QList<int>();
    QTest::newRow("amount 0.01 apart: reported")
        << Change([](Form&, Form& b) { b.amount.m_value += 0.01; }) << QList<int>({ 102 });
    QTest::newRow("text") << Change([](Form&, Form& b) { b.text.m_text = "other"; })
                          << QList<int>({ 103 });
    QTest::newRow("letter case alone is no difference")
        << Change([](Form&, Form& b) { b.text.m_text = b.text.m_text.toUpper(); }) << QList<int>();
    QTest::newRow("bool") << Change([](Form&, Form& b) { b.flag = 0; }) << QList<int>({ 104 });
    QTest::newRow("date") << Change([](Form&, Form& b) { b.date = QDate(2024, 3, 1); })
                          << QList<int>({ 105 });
    QTest::newRow("date-time with a line code is never reported") << Change([](Form& a, Form& b) {
        a.stamp.m_id = 107;
        b.stamp.m_value = QDateTime();
    }) << QList<int>();
    QTest::newRow("line code 1 is reported") << Change([](Form& a, Form& b) {
        a.count.m_id = 1;
        b.count = 8;
    }) << QList<int>({ 1 });
    QTest::newRow("line code 0 is never reported") << Change([](Form& a, Form& b) {
        a.count.m_id = 0;
        b.count = 8;
    }) << QList<int>();
    QTest::newRow("the line code of this form's field counts") << Change([](Form&, Form& b) {
        b.count.m_id = 0;
        b.count = 8;
    }) << QList<int>({ 101 });
}

void tst_TaxDataForm::refile()
{
    QFETCH(Change, change);
    Form a, b;
    fill(a);
    fill(b);
    change(a, b);
    std::map<int, _ReFileFieldCompareStru> differences;
    a.ReFileCompareFields(&b, differences);
    QList<int> lines;
    for (const auto& [line, pair] : differences) {
        lines << line;
        // Each entry pairs this form's field with its partner of the same place.
        QCOMPARE(pair.m_pOtherField->m_name, pair.m_pField->m_name);
        QVERIFY(pair.m_pOtherField != pair.m_pField);
    }
    QTEST(lines, "lines");
}

void tst_TaxDataForm::refileLastPairOfALineCodeWins()
{
    Form a, b;
    fill(a);
    fill(b);
    a.text.m_id = 102; // the amount's line code
    b.amount.m_value += 1;
    b.text.m_text = "other";
    std::map<int, _ReFileFieldCompareStru> differences;
    a.ReFileCompareFields(&b, differences);
    QCOMPARE(differences.size(), size_t(1));
    QCOMPARE(differences[102].m_pField, &a.text);
    QCOMPARE(differences[102].m_pOtherField, &b.text);
}

void tst_TaxDataForm::refileAddsToTheMap()
{
    Form a, b;
    fill(a);
    fill(b);
    b.count = 8;
    std::map<int, _ReFileFieldCompareStru> differences;
    differences[999] = _ReFileFieldCompareStru { &a.count, &b.count };
    a.ReFileCompareFields(&b, differences);
    QCOMPARE(differences.size(), size_t(2));
    QVERIFY(differences.count(999));
}

void tst_TaxDataForm::refileStopsAtTheShorterList()
{
    Form a;
    fill(a);
    CTaxData_Form shorter(ENUM_FORM_T1);
    CIntField count(7);
    shorter.m_fields = { &count };
    std::map<int, _ReFileFieldCompareStru> differences;
    a.ReFileCompareFields(&shorter, differences);
    QVERIFY(differences.empty());
    count = 8;
    a.ReFileCompareFields(&shorter, differences);
    QCOMPARE(differences.size(), size_t(1));
}

void tst_TaxDataForm::sharableFieldsComeFirst()
{
    CSharableTaxData_Form form(ENUM_SLIP_T5);
    QCOMPARE(form.m_fields.size(), size_t(2));
    QCOMPARE(form.m_fields[0], &form.m_bOverwritePercentIfShared);
    QCOMPARE(form.m_fields[1], &form.m_MyPercent);
}

void tst_TaxDataForm::sharableRecord()
{
    CSharableTaxData_Form form(ENUM_FORM_T1);
    form.m_MyPercent = 150.0; // a plain amount: no limit at 100
    QVERIFY(plainContent(store(form))
                .contains("<f n=\"fld_bOverwritePercentIfShared\">0</f>"
                          "<f n=\"fld_MyPercent\">150.00</f>"));
    CSharableTaxData_Form loaded(ENUM_SLIP_T5);
    load(loaded, record("<m></m>"));
    QCOMPARE(loaded.m_MyPercent.m_value, 0.0);
    QCOMPARE(loaded.m_bOverwritePercentIfShared.m_value, 0);
}

void tst_TaxDataForm::printXml()
{
    CTaxData_Form form(ENUM_FORM_T1);
    CFloatField amount(12.5, 0);
    CFloatFieldNotused gone(0x10000, 0x10000);
    form.m_fields = { &amount, &gone };
    amount.m_name = "fld_1";
    gone.m_name = "fld_notused";
    const QByteArray bytes
        = storeBytes([&](MyDataStream& out) { form.SerializeXml("T1", 1, out); });
    QCOMPARE(bytes,
             QByteArray("<item>\n<c>T1</c>\n<d>1</d>\n<f><c>fld_1</c><v>12.50</v></f>\n"
                        "</item>"));
}

void tst_TaxDataForm::imports_data()
{
    QTest::addColumn<int>("kind"); // 0 form, 1 slip
    QTest::addColumn<int>("type");
    QTest::addColumn<int>("mode");
    QTest::addColumn<int>("province");
    QTest::addColumn<bool>("imported");
    QTest::newRow("mandatory federal form") << 0 << 96 << 1 << 9 << true;
    QTest::newRow("same form in a mode that does not require it") << 0 << 96 << 2 << 9 << false;
    QTest::newRow("mandatory provincial form") << 0 << 169 << 1 << 9 << true;
    QTest::newRow("provincial form of another province") << 0 << 169 << 1 << 1 << false;
    QTest::newRow("always imported, in no mode") << 0 << 3 << 0 << 9 << true;
    QTest::newRow("neither") << 0 << 4 << 3 << 9 << false;
    QTest::newRow("a slip's number is looked up among the forms") << 1 << 3 << 0 << 9 << true;
    QTest::newRow("form number past the catalogue") << 0 << int(ENUM_FORM_COUNT) << 3 << 9 << false;
    QTest::newRow("form -1") << 0 << -1 << 3 << 9 << false;
}

void tst_TaxDataForm::imports()
{
    QFETCH(int, kind);
    QFETCH(int, type);
    QFETCH(int, mode);
    QFETCH(int, province);
    std::unique_ptr<CTaxData_Form> form;
    if (kind == 0)
        form = std::make_unique<CTaxData_Form>(ENUMTYPE_FORM(type));
    else
        form = std::make_unique<CTaxData_Form>(ENUMTYPE_SLIP(type));
    QTEST(form->ShouldBeImported(static_cast<unsigned char>(mode), ENUMTYPE_PROVINCE(province)),
          "imported");
}

QTEST_GUILESS_MAIN(tst_TaxDataForm)
#include "tst_taxdataform.moc"
