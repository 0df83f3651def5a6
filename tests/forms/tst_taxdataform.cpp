#include "cdatefield.h"
#include "cmemoryblock.h"
#include "cstringfield.h"
#include "ctaxdata_form.h"
#include "cwsbasedata.h"
#include "mydatastream.h"

#include <QBuffer>
#include <QTest>

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
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    MyDataStream out(&buffer);
    form.Serialize(version, Key, out);
    return bytes;
}

void load(CTaxData_Form& form, const QByteArray& bytes, unsigned int version = Version)
{
    QBuffer buffer;
    buffer.setData(bytes);
    buffer.open(QIODevice::ReadOnly);
    MyDataStream in(&buffer);
    form.Serialize(version, Key, in);
}

// A record whose plain content is given, as a damaged or foreign file may hold.
QByteArray record(const QByteArray& content, qint32 delimiter = CTaxData_Form::Delimiter)
{
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    MyDataStream out(&buffer);
    out << delimiter;
    CT1EncryptedMemoryBlock block(Key);
    block.Append(content.constData(), int(content.size()));
    block.WriteToReturnArchive(out);
    return bytes;
}

CString plainContent(const QByteArray& bytes)
{
    QBuffer buffer;
    buffer.setData(bytes.mid(4));
    buffer.open(QIODevice::ReadOnly);
    MyDataStream in(&buffer);
    CT1EncryptedMemoryBlock block(Key);
    block.ReadFromReturnArchive(in);
    CString text;
    block.GetContent(text);
    return text;
}

} // namespace

class tst_TaxDataForm : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { CStringField::setLargeSizeSerializeOption(0x10000, 1000); }

    void assignAndCompare()
    {
        Form a, b;
        fill(b);
        QVERIFY(a != b);
        a = b;
        QVERIFY(!(a != b));
        QCOMPARE(a.stamp.m_value, b.stamp.m_value);
        QCOMPARE(a.m_DataFlag1.m_value, 0); // the flags are not the form's values
        b.amount.m_value += 0.008;
        b.sheet.amount.m_value = 1; // worksheets take no part in the comparison
        QVERIFY(!(a != b));
        b.amount.m_value += 0.002;
        QVERIFY(a != b);

        CTaxData_Form empty(ENUM_FORM_T1);
        QVERIFY(!(a != empty));
        QVERIFY(!(empty != a));
        // A pair of different types at one position is passed over.
        CTaxData_Form odd(ENUM_FORM_T1);
        CStringField wrongType("x", 10);
        odd.m_fields.push_back(&wrongType);
        QVERIFY(!(odd != a));
        odd = a;
        QCOMPARE(wrongType.m_text, CString("x"));

        CString name;
        a.GetDisplayName(name);
        QCOMPARE(name, CString("Untitled"));
    }

    void recordRoundTrip()
    {
        Form original, loaded;
        fill(original);
        const QByteArray bytes = store(original);
        QCOMPARE(bytes.left(4), QByteArray("\x04\x03\x02\x01", 4));
        load(loaded, bytes);
        QCOMPARE(loaded.retired.m_value, 0.0); // a "notused" field is not in the record
        loaded.retired.m_value = original.retired.m_value;
        QVERIFY(!(loaded != original));
        QCOMPARE(loaded.text.m_text, original.text.m_text);
        QCOMPARE(loaded.stamp.m_value, original.stamp.m_value);
        QCOMPARE(loaded.sheet.amount.m_value, 5.5);
        QCOMPARE(loaded.m_DataFlag1.m_value, 3);
        QVERIFY(!plainContent(bytes).contains("notused"));
    }

    void flagsFromVersion66036()
    {
        CTaxData_Form empty(ENUM_FORM_T1);
        QCOMPARE(plainContent(store(empty, Version - 1)), CString("<m></m>"));
        QCOMPARE(plainContent(store(empty)),
                 CString("<m><f n=\"m_DataFlag1\">0</f><f n=\"m_DataFlag2\">0</f>"
                         "<f n=\"m_DataFlag3\">0</f><f n=\"m_DataFlag4\">0</f></m>"));
    }

    void loading_data()
    {
        QTest::addColumn<QByteArray>("bytes");
        QTest::addColumn<int>("count");
        QTest::addColumn<QString>("text");
        const QByteArray good = "<m><f n=\"fld_count\">5</f><f n=\"fld_text\">new</f></m>";
        QTest::newRow("wrong delimiter is logged and ignored") << record(good, 7) << 5 << "new";
        QTest::newRow("old name fills the renamed field")
            << record("<m><f n=\"old_count\">4</f></m>") << 4 << "kept";
        QTest::newRow("new name wins over an old one")
            << record("<m><f n=\"older_count\">3</f><f n=\"fld_count\">5</f></m>") << 5 << "kept";
        QTest::newRow("first old name added wins")
            << record("<m><f n=\"older_count\">3</f><f n=\"old_count\">4</f></m>") << 4 << "kept";
        QTest::newRow("names no field claims are ignored")
            << record("<m><f n=\"stranger\">1</f><f>2</f></m>") << 1 << "kept";
        QTest::newRow("unparsable record keeps values") << record("<m><f n=") << 1 << "kept";
        QTest::newRow("deep nesting keeps values")
            << record(QByteArray("<m>") + QByteArray(50000 * 3, 'x').replace("xxx", "<a>")) << 1
            << "kept";
        QTest::newRow("doctype that hides the root keeps values")
            << record("<!DOCTYPE m [<!ELEMENT m ANY>]><m><f n=\"fld_count\">5</f></m>") << 1
            << "kept";
        QTest::newRow("block cut short keeps values") << record(good).left(40) << 1 << "kept";
        QTest::newRow("empty stream keeps values") << QByteArray() << 1 << "kept";
    }

    void loading()
    {
        QFETCH(QByteArray, bytes);
        Form form;
        form.count = 1;
        form.text.m_text = "kept";
        form.addFieldOldName("fld_count", "old_count");
        form.addFieldOldName("fld_count", "older_count");
        load(form, bytes);
        QTEST(form.count.m_value, "count");
        QTEST(QString(form.text.m_text), "text");
    }

    void rollover_data()
    {
        QTest::addColumn<bool>("keep");
        QTest::addColumn<int>("count");
        QTest::addColumn<double>("amount");
        QTest::addColumn<QDate>("date");
        QTest::newRow("new year") << false << 8 << 0.0 << QDate();
        QTest::newRow("values kept, marked text still cleared")
            << true << 7 << 1234.56 << QDate(2024, 2, 29);
    }

    void rollover()
    {
        QFETCH(bool, keep);
        Form form;
        fill(form);
        form.ChangeToNewYearData(keep);
        QTEST(form.count.m_value, "count");
        QTEST(form.amount.m_value, "amount");
        QTEST(form.date.m_value, "date"); // 29 February has no next-year twin
        QVERIFY(form.text.m_text.isEmpty());
        QCOMPARE(form.sheet.amount.m_value, keep ? 5.5 : 0.0);
        QCOMPARE(form.m_DataFlag1.m_value, 3);
    }

    void refile()
    {
        Form a, b;
        fill(a);
        fill(b);
        std::map<int, _ReFileFieldCompareStru> differences;
        b.text.m_text = a.text.m_text.toUpper(); // letter case alone is no change
        b.amount.m_value += 0.008;
        b.stamp.m_value = QDateTime();
        a.ReFileCompareFields(&b, differences);
        QVERIFY(differences.empty());
        b.amount.m_value += 0.002;
        b.count = 9;
        b.count.m_id = 0; // no line code: never reported
        a.count.m_id = 0;
        a.ReFileCompareFields(&b, differences);
        QCOMPARE(differences.size(), size_t(1));
        QCOMPARE(differences[102].m_pField, &a.amount);
        QCOMPARE(differences[102].m_pOtherField, &b.amount);
    }

    void sharableForm()
    {
        CSharableTaxData_Form form(ENUM_SLIP_T5);
        QCOMPARE(form.m_fields.size(), size_t(2));
        QCOMPARE(form.m_fields[0], &form.m_bOverwritePercentIfShared);
        form.m_MyPercent = 150.0; // a plain amount: no limit at 100
        const CString content = plainContent(store(form));
        QVERIFY(content.contains("<f n=\"fld_bOverwritePercentIfShared\">0</f>"
                                 "<f n=\"fld_MyPercent\">150.00</f>"));
        CSharableTaxData_Form loaded(ENUM_SLIP_T5);
        load(loaded, record("<m></m>"));
        QCOMPARE(loaded.m_MyPercent.m_value, 0.0);
    }

    void printXml()
    {
        CTaxData_Form form(ENUM_FORM_T1);
        CFloatField amount(12.5, 0);
        CFloatFieldNotused gone(0x10000, 0x10000);
        form.m_fields = { &amount, &gone };
        amount.m_name = "fld_1";
        gone.m_name = "fld_notused";
        QByteArray bytes;
        QBuffer buffer(&bytes);
        buffer.open(QIODevice::WriteOnly);
        MyDataStream out(&buffer);
        form.SerializeXml("T1", 1, out);
        QCOMPARE(bytes,
                 QByteArray("<item>\n<c>T1</c>\n<d>1</d>\n<f><c>fld_1</c><v>12.50</v></f>\n"
                            "</item>"));
    }

    void imports()
    {
        QVERIFY(CTaxData_Form(ENUM_FORM_T1).ShouldBeImported(1, ENUM_PROV_ON)); // mandatory
        QVERIFY(
            CTaxData_Form(ENUMTYPE_FORM(3)).ShouldBeImported(0, ENUM_PROV_ON)); // always imported
        QVERIFY(!CTaxData_Form(ENUMTYPE_FORM(4)).ShouldBeImported(3, ENUM_PROV_ON));
    }
};

QTEST_GUILESS_MAIN(tst_TaxDataForm)
#include "tst_taxdataform.moc"
