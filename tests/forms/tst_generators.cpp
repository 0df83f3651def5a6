#include "cfloatfield.h"
#include "cintfield.h"
#include "cstringfield.h"
#include "ctaxdata_form.h"
#include "tempfiles.h"

#include <QtTest>

#include <functional>

namespace {

using B = QByteArray;

// What `name` holds after `write` ran on a fresh folder that holds `old` as p.xml.
B written(const std::function<void(const B& folder)>& write, const QString& name, const B& old = {})
{
    QTemporaryDir dir;
    if (!old.isNull())
        writeTempFile(dir, "p.xml", old);
    write(QFile::encodeName(dir.path()));
    QFile f(dir.filePath(name));
    return f.open(QIODevice::ReadOnly) ? f.readAll() : B("<missing>");
}

} // namespace

class tst_Generators : public QObject
{
    Q_OBJECT
private slots:
    // Fields ended before the version written, or named for other uses, are not printed.
    void layoutLeavesOut()
    {
        const char* names[]
            = { "fld_f_notused", "fld.notused", "fld_f_overwrite", "fld_f_t1con",     "fld_f_ws1",
                "fld_f_LYA",     "m_DataFlag1", "fld_f_t2203",     "fld_f_condensed", "fld_NotUsed",
                "fld_fws1",      "fld_ended",   "fld_ends" };
        std::vector<CFloatField> fields(std::size(names));
        CTaxData_Form form(ENUM_FORM_T1);
        for (size_t i = 0; i < fields.size(); ++i) {
            fields[i].m_name = names[i];
            form.m_fields.push_back(&fields[i]);
        }
        fields[11].m_versionEnd = 65999;
        fields[12].m_versionEnd = 66000;
        const B layout = written(
            [&](const B& d) { form.WriteXMLFile(d, "ignored", "p.xml", 66000); }, "p.xml");
        QStringList printed;
        for (const B& part : layout.split('<'))
            if (part.startsWith("name>"))
                printed << part.mid(5);
        QCOMPARE(printed, QStringList({ "fld_NotUsed", "fld_fws1", "fld_ends" }));
    }

    void layout_data()
    {
        QTest::addColumn<QByteArray>("old"); // null for none
        QTest::addColumn<QByteArray>("head"); // the attributes of <form>
        QTest::addColumn<QByteArray>("entry"); // fld_f's, after its name
        const B plain = "\t\t<x>100.0</x>\n\t\t<y>100.0</y>\n\t\t<page>1</page>\n\t\t<fs>10</fs>\n"
                        "\t\t<v>false</v>\n\t\t<type>0</type>\n\t\t<para1>0</para1>\n";
        QTest::newRow("no old layout") << B() << B() << plain;
        QTest::newRow("first and last group kept")
            << B("<form x1=\"5\" ry20=\"-3\"/>") << B(" x1=\"5\" ry20=\"-3\"") << plain;
        QTest::newRow("group 21 is past the groups") << B("<form x21=\"4\"/>") << B() << plain;
        QTest::newRow("unparsable layout counts as none")
            << B("<form x1=\"5\"><field><name>fld_f</name><x>5</x>") << B() << plain;
        QTest::newRow("hand placement kept, para1 escaped again")
            << B("<form><field><name>fld_f</name><x>12.34</x><y>7</y><page>2</page><fs>8</fs>"
                 "<v>true</v><type>3</type><para1>a &amp; b</para1><para2>p2</para2>"
                 "<xoff>false</xoff><yoff>false</yoff></field>"
                 "<field><name>fld_gone</name></field></form>")
            << B()
            << B("\t\t<x>12.3</x>\n\t\t<y>7.0</y>\n\t\t<page>2</page>\n\t\t<fs>8</fs>\n"
                 "\t\t<v>true</v>\n\t\t<type>3</type>\n\t\t<para1>a &#38; b</para1>\n"
                 "\t\t<para2>p2</para2>\n\t\t<xoff>false</xoff>\n\t\t<yoff>false</yoff>\n");
    }
    // Fields no longer on the form leave the layout; read back, a layout comes out the same.
    void layout()
    {
        QFETCH(QByteArray, old);
        QFETCH(QByteArray, head);
        QFETCH(QByteArray, entry);
        CTaxData_Form form(ENUM_FORM_T1);
        CFloatField amount;
        amount.m_name = "fld_f";
        form.m_fields = { &amount };
        const auto once = [&](const B& d) { form.WriteXMLFile(d, nullptr, "p.xml", 66000); };
        const B layout = written(once, "p.xml", old);
        QCOMPARE(layout,
                 "<form" + head + ">\n\t<field>\n\t\t<name>fld_f</name>\n" + entry
                     + "\t</field>\n</form>\n");
        QCOMPARE(written([&](const B& d) { once(d), once(d); }, "p.xml", old), layout);
        QCOMPARE(
            written([&](const B& d) { form.WriteXMLFile(d, nullptr, "", 66000); }, "p.xml", old),
            old.isNull() ? B("<missing>") : old);
        form.WriteXMLFile(nullptr, nullptr, nullptr, 66000); // nothing written, no crash
    }

    void fillTestPrint_data()
    {
        QTest::addColumn<QByteArray>("name");
        QTest::addColumn<int>("width"); // of a text field; 0 for an integer field
        QTest::addColumn<QString>("value"); // from 7 or "x"
        QTest::newRow("any integer gets 1") << B("fld_count") << 0 << "1";
        QTest::newRow("the entry count gets 0") << B("fld_moreentry_num") << 0 << "0";
        QTest::newRow("width 10 adds 10") << B("fld_s") << 10 << "x" + QString(10, 'a');
        QTest::newRow("width 11 still adds 10") << B("fld_s") << 11 << "x" + QString(10, 'a');
    }
    void fillTestPrint()
    {
        QFETCH(QByteArray, name);
        QFETCH(int, width);
        CTaxData_Form form(ENUM_FORM_T1);
        CIntField count(7);
        CStringField text("x", width);
        CField& field = width ? static_cast<CField&>(text) : count;
        field.m_name = name.toStdString();
        form.m_fields = { &field };
        form.FillTestPrintData();
        QTEST(width ? QString(text.m_text) : QString::number(count.m_value), "value");
    }
};

QTEST_GUILESS_MAIN(tst_Generators)
#include "tst_generators.moc"
