#include "onefieldform.h"
#include "tempfiles.h"

#include <QtTest>

namespace {

QByteArray readAll(const QString& path)
{
    QFile f(path);
    return f.open(QIODevice::ReadOnly) ? f.readAll() : QByteArray("<missing>");
}

// One field's entry of a print layout, from after its name to its end.
QByteArray layoutEntry(const QByteArray& layout, const QByteArray& name)
{
    const QByteArray start = "<name>" + name + "</name>\n";
    const qsizetype from = layout.indexOf(start);
    if (from < 0)
        return QByteArray("<no entry>");
    const qsizetype body = from + start.size();
    return layout.mid(body, layout.indexOf("\t</field>\n", body) - body);
}

const QByteArray DefinitionHead = "<form classname=\"T1Test\">\n<tab title=\"page 1\">\n"
                                  "<section maxindent=\"6\">\n";
const QByteArray DefinitionTail = "</section>\n</tab>\n</form>\n";
const QByteArray JavaHead = "package myledgerwave.makereport;\nimport java.io.*;\n"
                            "import java.util.Vector;\n\npublic class T extends TaxFormData\n{\n";

} // namespace

class tst_Generators : public QObject
{
    Q_OBJECT

private slots:
    void definitionRow_data();
    void definitionRow();
    void definitionClassName();
    void definitionWritesNothing();

    void layoutLeavesOut_data();
    void layoutLeavesOut();
    void layoutHead_data();
    void layoutHead();
    void layoutPlacement_data();
    void layoutPlacement();
    void layoutDropsRemovedFields();
    void layoutRegeneratesStably();
    void layoutWritesNothing();

    void javaDeclaration_data();
    void javaDeclaration();
    void javaPrintModulePackage();
    void javaFileResult_data();
    void javaFileResult();

    void fillTestPrintInt_data();
    void fillTestPrintInt();
    void fillTestPrintString_data();
    void fillTestPrintString();
};

void tst_Generators::definitionRow_data()
{
    QTest::addColumn<int>("kind");
    QTest::addColumn<QByteArray>("name");
    QTest::addColumn<uint>("version");
    QTest::addColumn<uint>("versionEnd");
    QTest::addColumn<QByteArray>("row");
    const uint first = 65536, noEnd = 0xfffffff;
    QTest::newRow("integer is a radio") << int(KindInt) << QByteArray("fld_f") << first << noEnd
                                        << QByteArray("\t<radio name=\"f\" ");
    QTest::newRow("bool is a check") << int(KindBool) << QByteArray("fld_f") << first << noEnd
                                     << QByteArray("\t<check name=\"f\" ");
    QTest::newRow("string carries its size")
        << int(KindString) << QByteArray("fld_f") << first << noEnd
        << QByteArray("\t<string name=\"f\" size=\"20\" ");
    QTest::newRow("float") << int(KindFloat) << QByteArray("fld_f") << first << noEnd
                           << QByteArray("\t<float name=\"f\" ");
    QTest::newRow("date") << int(KindDate) << QByteArray("fld_f") << first << noEnd
                          << QByteArray("\t<date name=\"f\" ");
    QTest::newRow("date-time opens no element")
        << int(KindDateTime) << QByteArray("fld_f") << first << noEnd << QByteArray();
    QTest::newRow("first dot only becomes an underscore")
        << int(KindInt) << QByteArray("fld_a.b.c") << first << noEnd
        << QByteArray("\t<radio name=\"a_b.c\" ");
    QTest::newRow("every fld_ leaves the label")
        << int(KindInt) << QByteArray("fld_a_fld_b") << first << noEnd
        << QByteArray("\t<radio name=\"a_b\" ");
    QTest::newRow("notused marked") << int(KindFloat) << QByteArray("fld_notused") << first << noEnd
                                    << QByteArray("\t<float name=\"notused\" notused=\"1\"");
    QTest::newRow("NotUsed marked") << int(KindFloat) << QByteArray("fld_NotUsed") << first << noEnd
                                    << QByteArray("\t<float name=\"NotUsed\" notused=\"1\"");
    QTest::newRow("first version writes none") << int(KindFloat) << QByteArray("fld_f") << first
                                               << noEnd << QByteArray("\t<float name=\"f\" ");
    QTest::newRow("one version later is written")
        << int(KindFloat) << QByteArray("fld_f") << first + 1 << noEnd
        << QByteArray("\t<float name=\"f\"  version=\"0x00010001\"");
    QTest::newRow("no end writes none") << int(KindFloat) << QByteArray("fld_f") << first << noEnd
                                        << QByteArray("\t<float name=\"f\" ");
    QTest::newRow("one version before no end is written")
        << int(KindFloat) << QByteArray("fld_f") << first << noEnd - 1
        << QByteArray("\t<float name=\"f\"  versionend=\"0x0ffffffe\"");
}

void tst_Generators::definitionRow()
{
    QFETCH(int, kind);
    QFETCH(QByteArray, name);
    QFETCH(uint, version);
    QFETCH(uint, versionEnd);
    QFETCH(QByteArray, row);
    QTemporaryDir dir;
    QVERIFY(QDir(dir.path()).mkdir("xml"));
    OneFieldForm form(kind, name.constData());
    form.field->m_version = version;
    form.field->m_versionEnd = versionEnd;
    form.WriteRadiantFormXmlFile(QFile::encodeName(dir.path()), "TaxData_T1Test", "f.xml", 0);
    QCOMPARE(readAll(dir.filePath("xml/f.xml")),
             DefinitionHead + "<row>\n" + row + "/>\n</row>\n" + DefinitionTail);
}

void tst_Generators::definitionClassName()
{
    QTemporaryDir dir;
    QVERIFY(QDir(dir.path()).mkdir("xml"));
    CTaxData_Form form(ENUM_FORM_NONE);
    form.WriteRadiantFormXmlFile(QFile::encodeName(dir.path()), "TaxData_T1TaxData_Test", "f.xml",
                                 0);
    QCOMPARE(readAll(dir.filePath("xml/f.xml")), DefinitionHead + DefinitionTail);
}

void tst_Generators::definitionWritesNothing()
{
    QTemporaryDir dir;
    OneFieldForm form(KindInt);
    const QByteArray base = QFile::encodeName(dir.path());
    form.WriteRadiantFormXmlFile(base, "TaxData_T1Test", "f.xml", 0); // no xml folder
    QVERIFY(QDir(dir.path()).isEmpty());
    QVERIFY(QDir(dir.path()).mkdir("xml"));
    form.WriteRadiantFormXmlFile(base, "TaxData_T1Test", "", 0);
    form.WriteRadiantFormXmlFile(nullptr, nullptr, nullptr, 0);
    QVERIFY(QDir(dir.filePath("xml")).isEmpty());
}

void tst_Generators::layoutLeavesOut_data()
{
    QTest::addColumn<QByteArray>("name");
    QTest::addColumn<uint>("versionEnd");
    QTest::addColumn<bool>("printed");
    const uint noEnd = 0xfffffff;
    // Written for version 66000.
    QTest::newRow("ends at the version: kept") << QByteArray("fld_f") << 66000u << true;
    QTest::newRow("ended one before the version: left out")
        << QByteArray("fld_f") << 65999u << false;
    QTest::newRow("_notused") << QByteArray("fld_f_notused") << noEnd << false;
    QTest::newRow("notused after the first dot") << QByteArray("fld.notused") << noEnd << false;
    QTest::newRow("NotUsed in capitals is printed") << QByteArray("fld_NotUsed") << noEnd << true;
    QTest::newRow("_overwrite") << QByteArray("fld_f_overwrite") << noEnd << false;
    QTest::newRow("_t1con") << QByteArray("fld_f_t1con") << noEnd << false;
    QTest::newRow("_ws") << QByteArray("fld_f_ws1") << noEnd << false;
    QTest::newRow("ws without the underscore is printed")
        << QByteArray("fld_fws1") << noEnd << true;
    QTest::newRow("_LYA") << QByteArray("fld_f_LYA") << noEnd << false;
    QTest::newRow("DataFlag") << QByteArray("m_DataFlag1") << noEnd << false;
    QTest::newRow("_t2203") << QByteArray("fld_f_t2203") << noEnd << false;
    QTest::newRow("_condensed") << QByteArray("fld_f_condensed") << noEnd << false;
}

void tst_Generators::layoutLeavesOut()
{
    QFETCH(QByteArray, name);
    QFETCH(uint, versionEnd);
    QTemporaryDir dir;
    OneFieldForm form(KindFloat, name.constData());
    form.field->m_versionEnd = versionEnd;
    form.WriteXMLFile(QFile::encodeName(dir.path()), "ignored", "p.xml", 66000);
    QTEST(readAll(dir.filePath("p.xml")).contains("\t<field>\n"), "printed");
}

void tst_Generators::layoutHead_data()
{
    QTest::addColumn<QByteArray>("old");
    QTest::addColumn<QByteArray>("head");
    QTest::newRow("no old layout") << QByteArray() << QByteArray("<form>");
    QTest::newRow("x of the first group kept")
        << QByteArray("<form x1=\"5\"/>") << QByteArray("<form x1=\"5\">");
    QTest::newRow("ry of the last group kept")
        << QByteArray("<form ry20=\"-3\"/>") << QByteArray("<form ry20=\"-3\">");
    QTest::newRow("group 0 is before the groups")
        << QByteArray("<form x0=\"4\"/>") << QByteArray("<form>");
    QTest::newRow("group 21 is past the groups")
        << QByteArray("<form x21=\"4\"/>") << QByteArray("<form>");
    QTest::newRow("zero dropped") << QByteArray("<form r3=\"0\"/>") << QByteArray("<form>");
    QTest::newRow("groups in order, x y r rx ry within each")
        << QByteArray("<form ry2=\"1\" r2=\"6\" x2=\"2\" y1=\"3\"/>")
        << QByteArray("<form y1=\"3\" x2=\"2\" r2=\"6\" ry2=\"1\">");
    QTest::newRow("unparsable layout counts as none")
        << QByteArray("<form x1=\"5\"><field>") << QByteArray("<form>");
}

void tst_Generators::layoutHead()
{
    QFETCH(QByteArray, old);
    QFETCH(QByteArray, head);
    QTemporaryDir dir;
    if (!old.isNull())
        QVERIFY(!writeTempFile(dir, "p.xml", old).isEmpty());
    CTaxData_Form form(ENUM_FORM_NONE);
    form.WriteXMLFile(QFile::encodeName(dir.path()), nullptr, "p.xml", 66000);
    QCOMPARE(readAll(dir.filePath("p.xml")), head + "\n</form>\n");
}

void tst_Generators::layoutPlacement_data()
{
    QTest::addColumn<QByteArray>("old"); // the old entry of fld_f after its name; null for none
    QTest::addColumn<QByteArray>("entry");
    const QByteArray defaults = "\t\t<x>100.0</x>\n\t\t<y>100.0</y>\n\t\t<page>1</page>\n"
                                "\t\t<fs>10</fs>\n\t\t<v>false</v>\n\t\t<type>0</type>\n";
    QTest::newRow("no old entry: defaults") << QByteArray() << defaults + "\t\t<para1>0</para1>\n";
    QTest::newRow("an old entry without values: defaults, para1 empty")
        << QByteArray("") << defaults + "\t\t<para1></para1>\n";
    QTest::newRow("hand placement kept")
        << QByteArray("<x>12.34</x><y>7</y><page>2</page><fs>8</fs><v>true</v><type>3</type>"
                      "<para1>p1</para1>")
        << QByteArray("\t\t<x>12.3</x>\n\t\t<y>7.0</y>\n\t\t<page>2</page>\n\t\t<fs>8</fs>\n"
                      "\t\t<v>true</v>\n\t\t<type>3</type>\n\t\t<para1>p1</para1>\n");
    QTest::newRow("para1 escaped again")
        << QByteArray("<para1>a &amp; b</para1>") << defaults + "\t\t<para1>a &#38; b</para1>\n";
    QTest::newRow("para2 kept") << QByteArray("<para2>p2</para2>")
                                << defaults + "\t\t<para1></para1>\n\t\t<para2>p2</para2>\n";
    QTest::newRow("xoff true gives no entry")
        << QByteArray("<xoff>true</xoff>") << defaults + "\t\t<para1></para1>\n";
    QTest::newRow("xoff false kept") << QByteArray("<xoff>false</xoff>")
                                     << defaults + "\t\t<para1></para1>\n\t\t<xoff>false</xoff>\n";
    QTest::newRow("yoff false kept") << QByteArray("<yoff>false</yoff>")
                                     << defaults + "\t\t<para1></para1>\n\t\t<yoff>false</yoff>\n";
}

void tst_Generators::layoutPlacement()
{
    QFETCH(QByteArray, old);
    QTemporaryDir dir;
    if (!old.isNull())
        QVERIFY(!writeTempFile(dir, "p.xml",
                               "<form><field><name>fld_f</name>" + old + "</field></form>")
                     .isEmpty());
    OneFieldForm form(KindFloat);
    form.WriteXMLFile(QFile::encodeName(dir.path()), nullptr, "p.xml", 66000);
    QTEST(layoutEntry(readAll(dir.filePath("p.xml")), "fld_f"), "entry");
}

void tst_Generators::layoutDropsRemovedFields()
{
    QTemporaryDir dir;
    QVERIFY(!writeTempFile(dir, "p.xml",
                           "<form><field><name>fld_gone</name><x>1</x></field>"
                           "<field><name></name></field></form>")
                 .isEmpty());
    OneFieldForm form(KindFloat);
    form.WriteXMLFile(QFile::encodeName(dir.path()), nullptr, "p.xml", 66000);
    const QByteArray layout = readAll(dir.filePath("p.xml"));
    QVERIFY(!layout.contains("fld_gone"));
    QCOMPARE(int(layout.count("\t<field>\n")), 1);
}

void tst_Generators::layoutRegeneratesStably()
{
    QTemporaryDir dir;
    QVERIFY(!writeTempFile(dir, "p.xml",
                           "<form x1=\"5\"><field><name>fld_f</name><x>12.34</x>"
                           "<para1>a &amp; b</para1><para2>p2</para2><yoff>false</yoff>"
                           "</field></form>")
                 .isEmpty());
    OneFieldForm form(KindFloat);
    const QByteArray base = QFile::encodeName(dir.path());
    form.WriteXMLFile(base, nullptr, "p.xml", 66000);
    const QByteArray first = readAll(dir.filePath("p.xml"));
    form.WriteXMLFile(base, nullptr, "p.xml", 66000);
    QCOMPARE(readAll(dir.filePath("p.xml")), first);
}

void tst_Generators::layoutWritesNothing()
{
    QTemporaryDir dir;
    OneFieldForm form(KindFloat);
    form.WriteXMLFile(QFile::encodeName(dir.path()), nullptr, "", 66000);
    form.WriteXMLFile(nullptr, nullptr, nullptr, 66000);
    QVERIFY(QDir(dir.path()).isEmpty());
}

void tst_Generators::javaDeclaration_data()
{
    QTest::addColumn<int>("kind");
    QTest::addColumn<int>("id");
    QTest::addColumn<QByteArray>("declaration");
    const QByteArray bounds = ", 65536, 268435455);";
    QTest::newRow("integer with a line code")
        << int(KindInt) << 101
        << "IntField fld_a_b = new IntField(\"fld_a_b\", -1, \"101\", 2" + bounds;
    QTest::newRow("integer without")
        << int(KindInt) << 0 << "IntField fld_a_b = new IntField(\"fld_a_b\", -1, null, 2" + bounds;
    QTest::newRow("bool with a line code")
        << int(KindBool) << 101
        << "BoolField fld_a_b = new BoolField(\"fld_a_b\", \"101\", 2" + bounds;
    QTest::newRow("bool without") << int(
        KindBool) << 0 << "BoolField fld_a_b = new BoolField(\"fld_a_b\", null, 2" + bounds;
    QTest::newRow("string with a line code")
        << int(KindString) << 101
        << "StringField fld_a_b = new StringField(\"fld_a_b\", 20, \"101\", 2" + bounds;
    QTest::newRow("string without")
        << int(KindString) << 0
        << "StringField fld_a_b = new StringField(\"fld_a_b\", 20, null, 2" + bounds;
    QTest::newRow("float with a line code")
        << int(KindFloat) << 101
        << "FloatField fld_a_b = new FloatField(\"fld_a_b\", \"101\", 2" + bounds;
    QTest::newRow("float without")
        << int(KindFloat) << 0
        << "FloatField fld_a_b = new FloatField(\"fld_a_b\", null, 2" + bounds;
    QTest::newRow("date: no line code, no tag")
        << int(KindDate) << 101 << "DateField fld_a_b = new DateField(\"fld_a_b\"" + bounds;
    QTest::newRow("date-time: no line code, no tag")
        << int(KindDateTime) << 101
        << "DateTimeField fld_a_b = new DateTimeField(\"fld_a_b\"" + bounds;
}

void tst_Generators::javaDeclaration()
{
    QFETCH(int, kind);
    QFETCH(int, id);
    QFETCH(QByteArray, declaration);
    QTemporaryDir dir;
    OneFieldForm form(kind, "fld_a.b");
    form.field->m_id = id;
    form.field->m_tag = 2;
    QCOMPARE(form.WriteJavaFile(QFile::encodeName(dir.path()), "T", false), 0);
    QCOMPARE(readAll(dir.filePath("T.java")),
             JavaHead + declaration + "\n\npublic T()\n{\nm_data.add(fld_a_b);\n}\n}\n");
}

void tst_Generators::javaPrintModulePackage()
{
    QTemporaryDir dir;
    CTaxData_Form form(ENUM_FORM_NONE);
    QCOMPARE(form.WriteJavaFile(QFile::encodeName(dir.path()), "P", true), 0);
    QCOMPARE(readAll(dir.filePath("P.java")),
             "package myledgerwave.fmxprint.v2023;\n\nimport myledgerwave.makereport.*;\n\n"
             "public class P extends TaxFormData\n{\n\npublic P()\n{\n}\n}\n");
}

void tst_Generators::javaFileResult_data()
{
    QTest::addColumn<QByteArray>("folder"); // under the temporary folder
    QTest::addColumn<QByteArray>("className");
    QTest::addColumn<int>("result");
    QTest::addColumn<int>("files");
    QTest::newRow("written") << QByteArray() << QByteArray("T") << 0 << 1;
    QTest::newRow("empty class name") << QByteArray() << QByteArray("") << -1 << 0;
    QTest::newRow("null class name") << QByteArray() << QByteArray() << -1 << 0;
    QTest::newRow("folder missing") << QByteArray("/missing") << QByteArray("T") << -5 << 0;
}

void tst_Generators::javaFileResult()
{
    QFETCH(QByteArray, folder);
    QFETCH(QByteArray, className);
    QTemporaryDir dir;
    OneFieldForm form(KindInt);
    const QByteArray directory = QFile::encodeName(dir.path()) + folder;
    QTEST(
        form.WriteJavaFile(directory, className.isNull() ? nullptr : className.constData(), false),
        "result");
    QTEST(int(QDir(dir.path()).entryList(QDir::Files).size()), "files");
}

void tst_Generators::fillTestPrintInt_data()
{
    QTest::addColumn<QByteArray>("name");
    QTest::addColumn<int>("value");
    QTest::newRow("any integer gets 1") << QByteArray("fld_count") << 1;
    QTest::newRow("the entry count gets 0") << QByteArray("fld_moreentry_num") << 0;
    QTest::newRow("judged by the printed name") << QByteArray("fld.moreentry_num") << 0;
}

void tst_Generators::fillTestPrintInt()
{
    QFETCH(QByteArray, name);
    OneFieldForm form(KindInt, name.constData());
    static_cast<CIntField*>(form.field.get())->m_value = 7;
    form.FillTestPrintData();
    QTEST(static_cast<CIntField*>(form.field.get())->m_value, "value");
}

void tst_Generators::fillTestPrintString_data()
{
    QTest::addColumn<int>("maxLen");
    QTest::addColumn<QString>("text");
    QTest::newRow("width 0 adds nothing") << 0 << "x";
    QTest::newRow("width 9 adds 9") << 9 << "x" + QString(9, 'a');
    QTest::newRow("width 10 adds 10") << 10 << "x" + QString(10, 'a');
    QTest::newRow("width 11 still adds 10") << 11 << "x" + QString(10, 'a');
}

void tst_Generators::fillTestPrintString()
{
    QFETCH(int, maxLen);
    OneFieldForm form(KindString);
    auto* s = static_cast<CStringField*>(form.field.get());
    s->m_nMaxLen = maxLen;
    s->m_text = "x";
    form.FillTestPrintData();
    QTEST(QString(s->m_text), "text");
}

QTEST_GUILESS_MAIN(tst_Generators)
#include "tst_generators.moc"
