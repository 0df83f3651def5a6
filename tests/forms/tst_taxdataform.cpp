#include "cboolfield.h"
#include "cdatefield.h"
#include "cintfield.h"
#include "cmemoryblock.h"
#include "cstringfield.h"
#include "ctaxdata_form.h"
#include "cwsbasedata.h"
#include "logcapture.h"
#include "streambytes.h"
#include "xmlguard.h"

#include <QTest>

#include <functional>

namespace {

const CString Key("test key");
constexpr unsigned int Version = 0x101F4;
using L = QList<int>;
using B = QByteArray;

struct Sheet : CWSBaseData {
    Sheet()
    {
        m_prefix = "WS1", amount.m_name = "fld_1";
        m_fields.push_back(&amount);
    }
    CFloatField amount { 5.5 };
};

// A small concrete form, filled: one field of each kind and one worksheet.
struct Form : CTaxData_Form {
    Form()
        : CTaxData_Form(ENUM_FORM_T1)
    {
        add(count, "fld_count", 101), add(amount, "fld_amount", 102), add(text, "fld_text", 103);
        add(flag, "fld_flag", 104), add(date, "fld_date", 105), add(stamp, "fld_stamp", 0);
        m_worksheets.push_back(&sheet);
        date = QDate(2024, 2, 29);
        stamp.m_value = QDateTime(QDate(2025, 4, 30), QTime(13, 5, 6));
        m_DataFlag1 = 3;
    }
    void add(CField& field, const char* name, int id)
    {
        m_fields.push_back(&field);
        field.m_name = name, field.m_id = id;
    }
    CIntField count { 7 };
    CFloatField amount { 1234.56 };
    CStringField text { "Ann & Bo", 40 };
    CBoolField flag { 1 };
    CDateField date;
    CDateTimeField stamp;
    Sheet sheet;
};

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

// `count` records of blocks no key opens, with `distinct` salts among them.
QByteArray foreignSaltRecords(int count, int distinct)
{
    return storeBytes([&](MyDataStream& out) {
        for (int i = 0; i < count; ++i) {
            const QByteArray envelope = "BRK\x01"
                + QByteArray::number(i % distinct).leftJustified(16, '.') + QByteArray(44, '\x5a');
            out << qint32(CTaxData_Form::Delimiter) << qint32(envelope.size());
            out.writeRawData(envelope.constData(), int(envelope.size()));
        }
    });
}

// Sets fld_count to 5, its elements `depth` levels deep, the root the first.
QByteArray nestedRecord(int depth)
{
    return "<m><f n=\"fld_count\">5</f>" + QByteArray("<a>").repeated(depth - 1)
        + QByteArray("</a>").repeated(depth - 1) + "</m>";
}

using Change = std::function<void(Form& mine, Form& other)>;

} // namespace

Q_DECLARE_METATYPE(Change)

class tst_TaxDataForm : public QObject
{
    Q_OBJECT
private slots:
    void initTestCase() { CStringField::setLargeSizeSerializeOption(0x10000, 1000); }

    void differences_data()
    {
        QTest::addColumn<Change>("change");
        QTest::addColumn<bool>("differs"); // operator!=
        QTest::addColumn<L>("lines"); // the line codes refiling reports
        QTest::newRow("amount 0.008 apart is equal")
            << Change([](auto&, auto& b) { b.amount.m_value += 0.008; }) << false << L();
        QTest::newRow("amount 0.01 apart differs")
            << Change([](auto&, auto& b) { b.amount.m_value += 0.01; }) << true << L { 102 };
        QTest::newRow("letter case: differs, not refiled")
            << Change([](auto&, auto& b) { b.text.m_text = "ANN & BO"; }) << true << L();
        QTest::newRow("date-time: differs, never refiled")
            << Change([](auto& a, auto& b) { a.stamp.m_id = 107, b.stamp.m_value = QDateTime(); })
            << true << L();
        QTest::newRow("line code 0 is never refiled")
            << Change([](auto& a, auto& b) { a.count.m_id = 0, b.count = 8; }) << true << L();
        QTest::newRow("this form's line code counts")
            << Change([](auto&, auto& b) { b.count.m_id = 0, b.count = 8; }) << true << L { 101 };
    }
    void differences()
    {
        QFETCH(Change, change);
        Form a, b;
        change(a, b);
        QTEST(a != b, "differs");
        std::map<int, _ReFileFieldCompareStru> differences;
        a.ReFileCompareFields(&b, differences);
        QList<int> lines;
        for (const auto& entry : differences)
            lines << entry.first;
        QTEST(lines, "lines");
    }

    void recordRoundTrip()
    {
        Form original, loaded;
        original.count = 2, original.amount = 1.25, original.flag = 0;
        original.text.m_text.LoadString("Renée & <Co>");
        original.date = QDate(2023, 1, 2);
        original.stamp.m_value = QDateTime(QDate(2020, 1, 2), QTime(3, 4, 5));
        original.sheet.amount.m_value = 6.5, original.m_DataFlag1 = 4;
        const QByteArray bytes = store(original);
        QCOMPARE(bytes.left(4), QByteArray("\x04\x03\x02\x01", 4));
        load(loaded, bytes);
        QVERIFY(!(loaded != original));
        QCOMPARE(loaded.sheet.amount.m_value, 6.5);
        QCOMPARE(loaded.m_DataFlag1.m_value, 4);
        Form copy; // assigned through the base, as applications do: values, worksheets, no flags
        static_cast<CTaxData_Form&>(copy) = loaded;
        QVERIFY(!(copy != original) && copy.sheet.amount.m_value == 6.5);
        QCOMPARE(copy.m_DataFlag1.m_value, 3);
    }

    void recordContent_data()
    {
        QTest::addColumn<unsigned int>("version");
        QTest::addColumn<QByteArray>("name");
        QTest::addColumn<int>("width"); // of a text field; 0 for an amount
        QTest::addColumn<bool>("written");
        QTest::addColumn<int>("flag"); // loaded from a record that holds 3
        QTest::newRow("one version before the flags")
            << Version - 1 << B("fld_a") << 0 << true << 0;
        QTest::newRow("first version with the flags") << Version << B("fld_a") << 0 << true << 3;
        QTest::newRow("notused in the name") << Version << B("fld_a_notused") << 0 << false << 3;
        QTest::newRow("NotUsed in capitals") << Version << B("fld_a_NotUsed") << 0 << true << 3;
        QTest::newRow("text one below the large size") << Version << B("fld_a") << 999 << true << 3;
        QTest::newRow("text of the large size") << Version << B("fld_a") << 1000 << false << 3;
    }
    // A field left out costs the record nothing else: the one after it is there.
    void recordContent()
    {
        QFETCH(unsigned int, version);
        QFETCH(QByteArray, name);
        QFETCH(int, width);
        CTaxData_Form form(ENUM_FORM_T1);
        CFloatField amount;
        CStringField text("", width);
        CIntField after(5);
        CField& field = width ? static_cast<CField&>(text) : amount;
        field.m_name = name.toStdString(), after.m_name = "fld_after";
        form.m_fields = { &field, &after };
        const CString content = plainContent(store(form, version));
        QTEST(content.contains("<f n=\"" + QString(name) + "\">"), "written");
        QVERIFY(content.contains("<f n=\"fld_after\">5</f>"));
        QCOMPARE(content.contains("<f n=\"m_DataFlag4\">0</f>"), version >= Version);
        load(form, record("<m><f n=\"m_DataFlag1\">3</f></m>"), version);
        QTEST(form.m_DataFlag1.m_value, "flag");
    }

    void loading_data()
    {
        const int Max = XmlGuardMaxDepth;
        QTest::addColumn<QByteArray>("bytes");
        QTest::addColumn<int>("count"); // 1 before the load
        const QByteArray good = "<m><f n=\"fld_count\">5</f></m>";
        QTest::newRow("wrong delimiter: the block still read") << record(good, 7) << 5;
        QTest::newRow("old name fills the renamed field")
            << record("<m><f n=\"old_count\">4</f></m>") << 4;
        QTest::newRow("unparsable record keeps values") << record("<m><f n=") << 1;
        QTest::newRow("nesting at the depth bound is read") << record(nestedRecord(Max)) << 5;
        QTest::newRow("one level deeper keeps values") << record(nestedRecord(Max + 1)) << 1;
        // Ended at the comment's '>', the DOCTYPE would let the commented-out root, with 9, win.
        QTest::newRow("DOCTYPE subset that would hide the real root keeps values")
            << record("<!DOCTYPE m [<!--><m><f n=\"fld_count\">9</f></m>-->]>" + good) << 1;
        // The parser stops at text after the root without an error; the record is whole.
        QTest::newRow("stray text after the root: the record still read")
            << record(good + "junk") << 5;
        QTest::newRow("a cut UTF-8 sequence after the root: the record still read")
            << record(good + "\xc3") << 5;
        QTest::newRow("block cut short keeps values") << record(good).left(40) << 1;
        QTest::newRow("empty stream keeps values") << QByteArray() << 1;
    }
    void loading()
    {
        QFETCH(QByteArray, bytes);
        Form form;
        form.count = 1;
        form.addFieldOldName("fld_count", "old_count");
        load(form, bytes);
        QTEST(form.count.m_value, "count");
    }

    void saltsPerFile_data()
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
    void saltsPerFile()
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
        QTEST(int(cap.messages().count(
                  "enciphered block refused: more than 4 key salts in one file")),
              "refused");
    }
};

QTEST_GUILESS_MAIN(tst_TaxDataForm)
#include "tst_taxdataform.moc"
