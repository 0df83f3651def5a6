#include "cdatefield.h"
#include "cstringfield.h"
#include "ctaxdata_form.h"

#include <QtTest>

namespace {

// Fields of each kind, names with one and two dots, an unused field and one that ended at 66000.
struct TestForm : CTaxData_Form {
    CIntField a { 0, 0 };
    CBoolField b;
    CStringField s { 7, "x", 20 };
    CFloatField amt { 0.0, 123 }, unused, old;
    CDateField d;
    CDateTimeField t;

    TestForm()
        : CTaxData_Form(ENUM_FORM_NONE)
    {
        const std::pair<CField*, const char*> list[]
            = { { &a, "fld_a.b" },   { &b, "fld_x.y.z" },          { &s, "fld_s" },
                { &amt, "fld_amt" }, { &unused, "fld_notused.x" }, { &old, "fld_old" },
                { &d, "fld_date" },  { &t, "fld_stamp" } };
        for (const auto& [field, name] : list) {
            m_fields.push_back(field);
            field->m_name = name;
        }
        amt.m_tag = 2;
        unused.m_version = 65537;
        unused.m_versionEnd = old.m_versionEnd = 66000;
    }
};

QByteArray readAll(const QString& path)
{
    QFile f(path);
    return f.open(QIODevice::ReadOnly) ? f.readAll() : QByteArray("<missing>");
}

} // namespace

class tst_Generators : public QObject
{
    Q_OBJECT

private slots:
    void formDefinition()
    {
        QTemporaryDir dir;
        TestForm form;
        form.m_fields = { &form.a, &form.s, &form.unused, &form.t };
        const QByteArray base = QFile::encodeName(dir.path());
        form.WriteRadiantFormXmlFile(base, "TaxData_T1Test", "f.xml", 0); // no xml folder
        QVERIFY(QDir(dir.path()).isEmpty() && QDir(dir.path()).mkdir("xml"));
        form.WriteRadiantFormXmlFile(base, "TaxData_T1Test", "", 0);
        form.WriteRadiantFormXmlFile(nullptr, nullptr, nullptr, 0);
        QVERIFY(QDir(dir.filePath("xml")).isEmpty());
        form.WriteRadiantFormXmlFile(base, "TaxData_T1Test", "f.xml", 0);
        QCOMPARE(readAll(dir.filePath("xml/f.xml")),
                 "<form classname=\"T1Test\">\n<tab title=\"page 1\">\n<section maxindent=\"6\">\n"
                 "<row>\n\t<radio name=\"a_b\" />\n</row>\n"
                 "<row>\n\t<string name=\"s\" size=\"20\" />\n</row>\n"
                 "<row>\n\t<float name=\"notused_x\" notused=\"1\" version=\"0x00010001\""
                 " versionend=\"0x000101d0\"/>\n</row>\n"
                 "<row>\n/>\n</row>\n</section>\n</tab>\n</form>\n");
    }

    void layout_data()
    {
        QTest::addColumn<QByteArray>("old");
        QTest::addColumn<uint>("version");
        QTest::addColumn<QByteArray>("head");
        QTest::addColumn<QByteArray>("amt");
        QTest::addColumn<int>("fields");
        const QByteArray defaults = "\t\t<x>100.0</x>\n\t\t<y>100.0</y>\n\t\t<page>1</page>\n"
                                    "\t\t<fs>10</fs>\n\t\t<v>false</v>\n\t\t<type>0</type>\n"
                                    "\t\t<para1>0</para1>\n\t</field>\n";
        QTest::newRow("no old layout: defaults, ended and unused fields left out")
            << QByteArray() << 66001u << QByteArray("<form>\n") << defaults << 6;
        QTest::newRow("hand placement kept, xoff true dropped, removed field gone")
            << QByteArray("<form x1=\"5\" ry20=\"-3\" r3=\"0\"><field><name>fld_amt</name>"
                          "<x>12.34</x><y>7</y><page>2</page><fs>8</fs><v>true</v><type>3</type>"
                          "<para1>a &amp; b</para1><para2>p2</para2><xoff>true</xoff>"
                          "<yoff>false</yoff></field><field><name>fld_gone</name></field>"
                          "<field><name></name></field></form>")
            << 66000u << QByteArray("<form x1=\"5\" ry20=\"-3\">\n")
            << QByteArray("\t\t<x>12.3</x>\n\t\t<y>7.0</y>\n\t\t<page>2</page>\n\t\t<fs>8</fs>\n"
                          "\t\t<v>true</v>\n\t\t<type>3</type>\n\t\t<para1>a &#38; b</para1>\n"
                          "\t\t<para2>p2</para2>\n\t\t<yoff>false</yoff>\n\t</field>\n")
            << 7; // version 66000 keeps the field that ended at 66000
        QTest::newRow("unparsable layout counts as none")
            << QByteArray("<form><field>") << 66001u << QByteArray("<form>\n") << defaults << 6;
    }
    void layout()
    {
        QFETCH(QByteArray, old);
        QFETCH(uint, version);
        QTemporaryDir dir;
        const QByteArray base = QFile::encodeName(dir.path());
        const QString path = dir.filePath("p.xml");
        QFile oldFile(path);
        if (!old.isNull())
            QVERIFY(oldFile.open(QIODevice::WriteOnly) && oldFile.write(old) && oldFile.flush());
        TestForm form;
        form.WriteXMLFile(base, "ignored", "p.xml", version);
        const QByteArray first = readAll(path);
        QTEST(first.left(first.indexOf('\n') + 1), "head");
        QTEST(int(first.count("\t<field>\n")), "fields");
        QVERIFY(!first.contains("notused") && !first.contains("gone") && first.contains("x_y.z<"));
        const qsizetype from = first.indexOf("<name>fld_amt</name>\n") + 21;
        QTEST(first.mid(from, first.indexOf("</field>\n", from) + 9 - from), "amt");
        form.WriteXMLFile(base, nullptr, "p.xml", version);
        QCOMPARE(readAll(path), first);
        form.WriteXMLFile(nullptr, nullptr, nullptr, version);
        form.WriteXMLFile(base, nullptr, "", version);
        QCOMPARE(QDir(dir.path()).entryList(QDir::Files).size(), 1);
    }

    void javaFile()
    {
        QTemporaryDir dir;
        TestForm form;
        form.m_fields = { &form.a, &form.b, &form.amt, &form.s, &form.d };
        const QByteArray base = QFile::encodeName(dir.path());
        QCOMPARE(form.WriteJavaFile(base, "", false), -1);
        QCOMPARE(form.WriteJavaFile(base, nullptr, false), -1);
        QVERIFY(QDir(dir.path()).isEmpty());
        QCOMPARE(form.WriteJavaFile(base + "/missing", "T1Test", false), -5);
        QCOMPARE(form.WriteJavaFile(base, "T1Test", false), 0);
        QCOMPARE(readAll(dir.filePath("T1Test.java")),
                 "package myledgerwave.makereport;\nimport java.io.*;\nimport java.util.Vector;\n\n"
                 "public class T1Test extends TaxFormData\n{\n"
                 "IntField fld_a_b = new IntField(\"fld_a_b\", -1, null, 0, 65536, 268435455);\n"
                 "BoolField fld_x_y.z = new BoolField(\"fld_x_y.z\", null, 0, 65536, 268435455);\n"
                 "FloatField fld_amt = new FloatField(\"fld_amt\", \"123\", 2, 65536, 268435455);\n"
                 "StringField fld_s = new StringField(\"fld_s\", 20, \"7\", 0, 65536, 268435455);\n"
                 "DateField fld_date = new DateField(\"fld_date\", 65536, 268435455);\n"
                 "\npublic T1Test()\n{\nm_data.add(fld_a_b);\nm_data.add(fld_x_y.z);\n"
                 "m_data.add(fld_amt);\nm_data.add(fld_s);\nm_data.add(fld_date);\n}\n}\n");
        QCOMPARE(form.WriteJavaFile(base, "P", true), 0);
        QVERIFY(readAll(dir.filePath("P.java"))
                    .startsWith("package myledgerwave.fmxprint.v2023;\n\n"
                                "import myledgerwave.makereport.*;\n\npublic class P extends"));
    }
};

QTEST_GUILESS_MAIN(tst_Generators)
#include "tst_generators.moc"
