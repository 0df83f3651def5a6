#include "xmlwriters.h"

#include <QFile>
#include <QTest>

#include <cmath>
#include <functional>

namespace {

QByteArray toFile(const std::function<void(FILE*)>& write)
{
    FILE* file = std::tmpfile();
    if (!file)
        return "no tmpfile";
    write(file);
    std::rewind(file);
    QFile reader;
    const QByteArray bytes = reader.open(file, QIODevice::ReadOnly) ? reader.readAll() : "";
    reader.close();
    std::fclose(file);
    return bytes;
}

QByteArray toString(const std::function<void(CString&)>& write)
{
    CString out("x");
    write(out);
    return out.toUtf8();
}

} // namespace

class tst_XmlWriters : public QObject
{
    Q_OBJECT

private slots:
    void writers_data();
    void writers();
};

void tst_XmlWriters::writers_data()
{
    QTest::addColumn<QByteArray>("got");
    QTest::addColumn<QByteArray>("expected");
    const auto row = [](const char* why, const QByteArray& got, const char* expected) {
        QTest::newRow(why) << got << QByteArray(expected);
    };
    using S = CString&;
    row("writeXMLString: a blank value leaves no element",
        toString([](S o) { writeXMLString(o, "t", CString("  ")); }), "x");
    row("xmlWriteTag: a blank value stays inside the element",
        toFile([](FILE* f) { xmlWriteTag(f, "t", "  "); }), "<t>  </t>\n");
    row("writeXMLString keeps the value's own blanks; appends",
        toString([](S o) { writeXMLString(o, "t", CString(" a&b ")); }), "x<t> a&#38;b </t>\n");
    row("xmlWriteTagIfNotEmpty trims",
        toFile([](FILE* f) { xmlWriteTagIfNotEmpty(f, "t", CString(" a b\t")); }), "<t>a b</t>\n");
    row("flags 0: markup stays, maxLen ignored",
        toString([](S o) { writeXMLString(o, "t", CString("<b>x</b>"), 2, 0); }),
        "x<t><b>x</b></t>\n");
    row("ForLong(long) writes 0 despite its flag",
        toString([](S o) { writeXMLForLong(o, "t", 0L, true); }), "x<t>0</t>\n");
    row("ForLong64 with its flag skips 0",
        toString([](S o) { writeXMLForLong64(o, "t", 0, true); }), "x");
    row("ForLong(double): halves away from zero; 0.0 and -0.4 give 0", toString([](S o) {
            for (double v : { 2.5, -2.5, 0.0, -0.4 })
                writeXMLForLong(o, "t", v, false);
        }),
        "x<t>3</t>\n<t>-3</t>\n<t>0</t>\n<t>0</t>\n");
    row("xmlWriteTagForLong: same rounding; NaN is 0 and beyond 64 bits saturates",
        toFile([](FILE* f) {
            xmlWriteTagForLong(f, "a", 2.5);
            xmlWriteTagForLong(f, "b", std::nan(""));
            xmlWriteTagForLong(f, "c", -1e300);
        }),
        "<a>3</a>\n<b>0</b>\n<c>-9223372036854775808</c>\n");
    row("Integer zero-filled", toString([](S o) { writeXMLInteger(o, "t", 7, 3); }),
        "x<t>007</t>\n");
    row("Integer negative: the framework puts the sign first",
        toString([](S o) { writeXMLInteger(o, "t", -7, 3); }), "x<t>-07</t>\n");
    row("open and close; null tag is empty", toString([](S o) {
            writeXMLOpenTagString(o, nullptr);
            writeXMLCloseTagString(o, "t");
        }),
        "x<>\n</t>\n");
    row("file value escaped, then UTF-8",
        toFile([](FILE* f) { xmlWriteTag(f, "t", CString(QStringLiteral("\u00e9\""))); }),
        "<t>\xc3\xa9&#34;</t>\n");
    row("null FILE* writes nothing", toFile([](FILE*) {
            xmlWriteOpenTag(nullptr, "t");
            xmlWriteTagForLong(nullptr, "t", 1);
        }),
        "");
    row("xmlTagString: %1 in the value takes the closing tag's name, %3 stays",
        XmlUtil::xmlTagString("t", "a%1b").toUtf8(), "<t>atb</%3>");
    row("xmlTagString: %2 in the value likewise", XmlUtil::xmlTagString("t", "%2").toUtf8(),
        "<t>t</%3>");
    row("IfNotEmpty: blanks are not trimmed",
        XmlUtil::xmlTagStringIfNotEmpty("t", CString(" ")).toUtf8(), "<t> </t>");
    row("xmlTagFill: the value goes in raw", XmlUtil::xmlTagFill("t", CString("<x/>")).toUtf8(),
        "<t><x/></t>");
}

void tst_XmlWriters::writers()
{
    QFETCH(QByteArray, got);
    QTEST(got, "expected");
}

QTEST_GUILESS_MAIN(tst_XmlWriters)
#include "tst_xmlwriters.moc"
