#include "xmlwriters.h"

#include <QFile>
#include <QTest>

#include <functional>

// One writer of `value`: what it wrote, to a CString or to a file.
using Write = QString (*)(QString value, int arg);
Q_DECLARE_METATYPE(Write)

namespace {
// What `write` puts into a fresh stdio file, read as UTF-8.
QString toFile(const std::function<void(FILE*)>& write)
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
    return QString::fromUtf8(bytes);
}

// A writer with a file form too: both must write alike.
QString alike(const QString& text, const QString& file)
{
    return text == file ? text : text + " but the file has " + file;
}
} // namespace

class tst_XmlWriters : public QObject
{
    Q_OBJECT

private slots:
    // Numbers come as text; `arg` is the flags, flag, width or skip switch, or for
    // a value writer 1 to pass the value as char const*, read as Latin-1. A call
    // that writes to a CString returns it by the comma operator.
    void write_data()
    {
        QTest::addColumn<QString>("value");
        QTest::addColumn<Write>("writer");
        QTest::addColumn<int>("arg");
        QTest::addColumn<QString>("written");
        const Write str = [](auto v, auto a) {
            CString o("x"); // appended to, never cleared
            return writeXMLString(o, "t", v, 0, a), QString(o);
        };
        const Write shortForms = [](auto v, auto) {
            CString o;
            return writeXMLString(o, "t", v), writeXMLString(o, "t", v, 0), QString(o);
        };
        const Write tags = [](auto, auto) {
            CString o;
            return writeXMLOpenTagString(o, nullptr), writeXMLCloseTagString(o, nullptr),
                   QString(o);
        };
        const Write tag = [](auto v, auto a) {
            const QByteArray latin1 = v.toLatin1();
            return toFile([&](FILE* f) {
                a ? xmlWriteTag(f, "t", latin1.constData()) : xmlWriteTag(f, "t", CString(v));
            });
        };
        const Write tagIf = [](auto v, auto a) {
            const QByteArray latin1 = v.toLatin1();
            return toFile([&](FILE* f) {
                a ? xmlWriteTagIfNotEmpty(f, "t", latin1.constData())
                  : xmlWriteTagIfNotEmpty(f, "t", CString(v));
            });
        };
        const Write openClose = [](auto, auto) {
            return toFile([](FILE* f) { xmlWriteOpenTag(f, "t"), xmlWriteCloseTag(f, "t"); });
        };
        const Write util = [](auto v, auto a) {
            return QString(a ? XmlUtil::xmlTagString("t", v.toLatin1().constData())
                             : XmlUtil::xmlTagString("t", v));
        };
        const Write utilIf
            = [](auto v, auto) { return QString(XmlUtil::xmlTagStringIfNotEmpty("t", v)); };
        const Write fill = [](auto v, auto) { return QString(XmlUtil::xmlTagFill("t", v)); };
        const Write round = [](auto v, auto a) {
            CString o;
            writeXMLForLong(o, "t", v.toDouble(), a);
            return alike(o, toFile([&](FILE* f) { xmlWriteTagForLong(f, "t", v.toDouble()); }));
        };
        const Write asLong = [](auto v, auto a) {
            CString o;
            return writeXMLForLong(o, "t", v.toLong(), a), QString(o);
        };
        const Write long64 = [](auto v, auto a) {
            CString o;
            return writeXMLForLong64(o, "t", v.toLongLong(), a), QString(o);
        };
        const Write integer = [](auto v, auto a) {
            CString o;
            return writeXMLInteger(o, "t", v.toInt(), a), QString(o);
        };
        const Write boolean = [](auto v, auto a) {
            CString o;
            writeXMLForBool(o, "t", v == "1", a);
            return alike(o, toFile([&](FILE* f) { xmlWriteTagForBool(f, "t", v == "1", a); }));
        };

        QTest::newRow("escaped, own blanks kept") << " a&b " << str << 4 << "x<t> a&#38;b </t>\n";
        QTest::newRow("flags 0: raw") << "<b>x</b>" << str << 0 << "x<t><b>x</b></t>\n";
        QTest::newRow("blank: no element") << "  \t" << str << 4 << "x";
        QTest::newRow("short forms escape")
            << "a&b" << shortForms << 0 << "<t>a&#38;b</t>\n<t>a&#38;b</t>\n";
        QTest::newRow("null tag is empty") << "" << tags << 0 << "<>\n</>\n";
        QTest::newRow("file: blank stays") << "  " << tag << 0 << "<t>  </t>\n";
        QTest::newRow("file: escaped, UTF-8") << "\u00e9\"" << tag << 0 << "<t>\u00e9&#34;</t>\n";
        QTest::newRow("file: NUL written")
            << QStringLiteral("a\0b") << tag << 0 << QStringLiteral("<t>a\0b</t>\n");
        QTest::newRow("file: bytes are Latin-1") << "\u00e9" << tag << 1 << "<t>\u00e9</t>\n";
        QTest::newRow("file: trimmed") << " a b\t" << tagIf << 0 << "<t>a b</t>\n";
        QTest::newRow("file: bytes trimmed") << " a " << tagIf << 1 << "<t>a</t>\n";
        QTest::newRow("file: blank, nothing") << " \t " << tagIf << 0 << "";
        QTest::newRow("file: open, close") << "" << openClose << 0 << "<t>\n</t>\n";
        QTest::newRow("util: escaped") << "a&b" << util << 0 << "<t>a&#38;b</t>";
        // The template is filled one marker at a time; old output depends on it.
        QTest::newRow("util: %1 takes the tag") << "a%1b" << util << 0 << "<t>atb</%3>";
        QTest::newRow("util: bytes are Latin-1") << "\u00e9" << util << 1 << "<t>\u00e9</t>";
        QTest::newRow("util: empty, nothing") << "" << utilIf << 0 << "";
        QTest::newRow("util: blank not trimmed") << " " << utilIf << 0 << "<t> </t>";
        QTest::newRow("util: fill is raw") << "<x a=\"1\"/>" << fill << 0 << "<t><x a=\"1\"/></t>";
        QTest::newRow("zero despite the flag") << "0" << round << 1 << "<t>0</t>\n";
        QTest::newRow("half up") << "2.5" << round << 1 << "<t>3</t>\n";
        QTest::newRow("negative half down") << "-2.5" << round << 1 << "<t>-3</t>\n";
        QTest::newRow("under a half") << "0.49" << round << 1 << "<t>0</t>\n";
        QTest::newRow("negative, under a half") << "-0.49" << round << 1 << "<t>0</t>\n";
        QTest::newRow("NaN is 0") << "nan" << round << 1 << "<t>0</t>\n";
        QTest::newRow("largest below 2^63")
            << "9223372036854774784" << round << 1 << "<t>9223372036854774784</t>\n";
        QTest::newRow("2^63 saturates")
            << "9223372036854775808" << round << 1 << "<t>9223372036854775807</t>\n";
        QTest::newRow("-2^63 exact")
            << "-9223372036854775808" << round << 1 << "<t>-9223372036854775808</t>\n";
        QTest::newRow("beyond -2^63 saturates")
            << "-1e300" << round << 1 << "<t>-9223372036854775808</t>\n";
        QTest::newRow("long: 0 despite the flag") << "0" << asLong << 1 << "<t>0</t>\n";
        QTest::newRow("long64: 0 skipped") << "0" << long64 << 1 << "";
        QTest::newRow("long64: 0 without the flag") << "0" << long64 << 0 << "<t>0</t>\n";
        QTest::newRow("long64: -1 not skipped") << "-1" << long64 << 1 << "<t>-1</t>\n";
        QTest::newRow("long64: 64 bits")
            << "-9223372036854775808" << long64 << 1 << "<t>-9223372036854775808</t>\n";
        QTest::newRow("width 2 fills one") << "7" << integer << 2 << "<t>07</t>\n";
        QTest::newRow("width 1") << "7" << integer << 1 << "<t>7</t>\n";
        QTest::newRow("width 0 is plain") << "7" << integer << 0 << "<t>7</t>\n";
        // A negative width would pad on the right: 700.
        QTest::newRow("negative width is plain") << "7" << integer << -3 << "<t>7</t>\n";
        QTest::newRow("wider value not cut") << "1234" << integer << 2 << "<t>1234</t>\n";
        QTest::newRow("sign first") << "-7" << integer << 3 << "<t>-07</t>\n";
        QTest::newRow("true, skip if false") << "1" << boolean << 1 << "<t>1</t>\n";
        QTest::newRow("false") << "0" << boolean << 0 << "<t>0</t>\n";
        QTest::newRow("false skipped") << "0" << boolean << 1 << "";
    }

    void write()
    {
        QFETCH(QString, value);
        QFETCH(Write, writer);
        QFETCH(int, arg);
        QTEST(writer(value, arg), "written");
    }

    // None of these may touch the null handle.
    void nullFileWritesNothing()
    {
        xmlWriteOpenTag(nullptr, "t");
        xmlWriteCloseTag(nullptr, "t");
        xmlWriteTag(nullptr, "t", "v");
        xmlWriteTagIfNotEmpty(nullptr, "t", "v");
        xmlWriteTagForLong(nullptr, "t", 1);
        xmlWriteTagForBool(nullptr, "t", true, false);
    }
};

QTEST_GUILESS_MAIN(tst_XmlWriters)
#include "tst_xmlwriters.moc"
