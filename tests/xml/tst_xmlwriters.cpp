#include "xmlwriters.h"

#include <QFile>
#include <QTest>

#include <cmath>
#include <functional>
#include <limits>

enum class FileWriter { Tag, TagFromLatin1, IfNotEmpty, IfNotEmptyFromLatin1, Open, Close };
Q_DECLARE_METATYPE(FileWriter)

enum class WholeWriter { Long, Long64 };
Q_DECLARE_METATYPE(WholeWriter)

enum class TagUtil { TagString, TagStringFromLatin1, IfNotEmpty, Fill };
Q_DECLARE_METATYPE(TagUtil)

class tst_XmlWriters : public QObject
{
    Q_OBJECT

private slots:
    void writeXMLString_data();
    void writeXMLString();
    void writeXMLStringShortForms();
    void fileWriters_data();
    void fileWriters();
    void nullFileWritesNothing();
    void rounding_data();
    void rounding();
    void wholeNumbers_data();
    void wholeNumbers();
    void writeXMLInteger_data();
    void writeXMLInteger();
    void booleans_data();
    void booleans();
    void tagStrings();
    void xmlUtil_data();
    void xmlUtil();
};

namespace {

// What `write` puts into a fresh stdio file.
QByteArray writtenToFile(const std::function<void(FILE*)>& write)
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

} // namespace

void tst_XmlWriters::writeXMLString_data()
{
    QTest::addColumn<QString>("value");
    QTest::addColumn<int>("maxLen");
    QTest::addColumn<int>("flags");
    QTest::addColumn<QString>("appended");
    QTest::newRow("escaped; the value keeps its own blanks")
        << " a&b " << 0 << 4 << "<t> a&#38;b </t>\n";
    QTest::newRow("flag 8 escapes too") << "a<b" << 0 << 8 << "<t>a&#60;b</t>\n";
    QTest::newRow("flags 0: markup stays, maxLen ignored")
        << "<b>x</b>" << 2 << 0 << "<t><b>x</b></t>\n";
    QTest::newRow("blank value leaves no element") << "  \t" << 0 << 4 << "";
    QTest::newRow("empty value leaves no element") << "" << 0 << 4 << "";
    QTest::newRow("markers in the value are never filled") << "%1%2" << 0 << 0 << "<t>%1%2</t>\n";
}

void tst_XmlWriters::writeXMLString()
{
    QFETCH(QString, value);
    QFETCH(int, maxLen);
    QFETCH(int, flags);
    QFETCH(QString, appended);
    CString out("x");
    ::writeXMLString(out, "t", value, maxLen, flags);
    QCOMPARE(QString(out), "x" + appended);
}

void tst_XmlWriters::writeXMLStringShortForms()
{
    CString out;
    ::writeXMLString(out, "t", CString("a&b"));
    ::writeXMLString(out, "u", CString("c>d"), 0);
    QCOMPARE(QString(out), "<t>a&#38;b</t>\n<u>c&#62;d</u>\n");
}

void tst_XmlWriters::fileWriters_data()
{
    QTest::addColumn<FileWriter>("writer");
    QTest::addColumn<QString>("value");
    QTest::addColumn<QByteArray>("written");
    QTest::newRow("tag: a blank value stays inside the element")
        << FileWriter::Tag << "  " << QByteArray("<t>  </t>\n");
    QTest::newRow("tag: an empty value still gives an element")
        << FileWriter::Tag << "" << QByteArray("<t></t>\n");
    QTest::newRow("tag: escaped, then UTF-8")
        << FileWriter::Tag << QStringLiteral("\u00e9\"") << QByteArray("<t>\xc3\xa9&#34;</t>\n");
    QTest::newRow("tag: a NUL in the value is written")
        << FileWriter::Tag << QString::fromUtf16(u"a\0b", 3) << QByteArray("<t>a\0b</t>\n", 11);
    QTest::newRow("tag: a byte value is read as Latin-1")
        << FileWriter::TagFromLatin1 << QStringLiteral("\u00e9") << QByteArray("<t>\xc3\xa9</t>\n");
    QTest::newRow("if not empty: trimmed")
        << FileWriter::IfNotEmpty << " a b\t" << QByteArray("<t>a b</t>\n");
    QTest::newRow("if not empty: blank writes nothing")
        << FileWriter::IfNotEmpty << " \t " << QByteArray();
    QTest::newRow("if not empty: byte form trimmed too")
        << FileWriter::IfNotEmptyFromLatin1 << " a " << QByteArray("<t>a</t>\n");
    QTest::newRow("open tag") << FileWriter::Open << "" << QByteArray("<t>\n");
    QTest::newRow("close tag") << FileWriter::Close << "" << QByteArray("</t>\n");
}

void tst_XmlWriters::fileWriters()
{
    QFETCH(FileWriter, writer);
    QFETCH(QString, value);
    QFETCH(QByteArray, written);
    const QByteArray latin1 = value.toLatin1();
    const QByteArray got = writtenToFile([&](FILE* f) {
        switch (writer) {
        case FileWriter::Tag:
            xmlWriteTag(f, "t", CString(value));
            break;
        case FileWriter::TagFromLatin1:
            xmlWriteTag(f, "t", latin1.constData());
            break;
        case FileWriter::IfNotEmpty:
            xmlWriteTagIfNotEmpty(f, "t", CString(value));
            break;
        case FileWriter::IfNotEmptyFromLatin1:
            xmlWriteTagIfNotEmpty(f, "t", latin1.constData());
            break;
        case FileWriter::Open:
            xmlWriteOpenTag(f, "t");
            break;
        case FileWriter::Close:
            xmlWriteCloseTag(f, "t");
            break;
        }
    });
    QCOMPARE(got, written);
}

void tst_XmlWriters::nullFileWritesNothing()
{
    // Nothing to compare: none of these may touch the null handle.
    xmlWriteOpenTag(nullptr, "t");
    xmlWriteCloseTag(nullptr, "t");
    xmlWriteTag(nullptr, "t", "v");
    xmlWriteTagIfNotEmpty(nullptr, "t", "v");
    xmlWriteTagForLong(nullptr, "t", 1);
    xmlWriteTagForBool(nullptr, "t", true, false);
}

void tst_XmlWriters::rounding_data()
{
    QTest::addColumn<double>("value");
    QTest::addColumn<QString>("text");
    constexpr double Inf = std::numeric_limits<double>::infinity();
    QTest::newRow("half goes up") << 2.5 << "3";
    QTest::newRow("negative half goes down") << -2.5 << "-3";
    QTest::newRow("just under a half goes down") << 0.49 << "0";
    QTest::newRow("just over a negative half goes up") << -0.49 << "0";
    QTest::newRow("zero is written despite the flag") << 0.0 << "0";
    QTest::newRow("negative small value gives 0") << -0.4 << "0";
    QTest::newRow("NaN gives 0") << std::nan("") << "0";
    QTest::newRow("largest double below 2^63 exact")
        << 9223372036854774784.0 << "9223372036854774784";
    QTest::newRow("2^63 saturates") << 9223372036854775808.0 << "9223372036854775807";
    QTest::newRow("infinity saturates") << Inf << "9223372036854775807";
    QTest::newRow("-2^63 exact") << -9223372036854775808.0 << "-9223372036854775808";
    QTest::newRow("beyond -2^63 saturates") << -1e300 << "-9223372036854775808";
    QTest::newRow("minus infinity saturates") << -Inf << "-9223372036854775808";
}

void tst_XmlWriters::rounding()
{
    QFETCH(double, value);
    QFETCH(QString, text);
    const QString element = "<t>" + text + "</t>\n";
    CString out;
    writeXMLForLong(out, "t", value, true);
    QCOMPARE(QString(out), element);
    QCOMPARE(writtenToFile([value](FILE* f) { xmlWriteTagForLong(f, "t", value); }),
             element.toUtf8());
}

void tst_XmlWriters::wholeNumbers_data()
{
    QTest::addColumn<WholeWriter>("writer");
    QTest::addColumn<qint64>("value");
    QTest::addColumn<bool>("flag");
    QTest::addColumn<QString>("appended");
    QTest::newRow("long: 0 written despite its flag")
        << WholeWriter::Long << qint64(0) << true << "<t>0</t>\n";
    QTest::newRow("long: negative") << WholeWriter::Long << qint64(-12) << false << "<t>-12</t>\n";
    QTest::newRow("long64: 0 skipped with the flag")
        << WholeWriter::Long64 << qint64(0) << true << "";
    QTest::newRow("long64: 0 written without it")
        << WholeWriter::Long64 << qint64(0) << false << "<t>0</t>\n";
    QTest::newRow("long64: -1 is not skipped")
        << WholeWriter::Long64 << qint64(-1) << true << "<t>-1</t>\n";
    QTest::newRow("long64: beyond 32 bits")
        << WholeWriter::Long64 << std::numeric_limits<qint64>::min() << true
        << "<t>-9223372036854775808</t>\n";
}

void tst_XmlWriters::wholeNumbers()
{
    QFETCH(WholeWriter, writer);
    QFETCH(qint64, value);
    QFETCH(bool, flag);
    QFETCH(QString, appended);
    CString out("x");
    if (writer == WholeWriter::Long)
        writeXMLForLong(out, "t", long(value), flag);
    else
        writeXMLForLong64(out, "t", static_cast<long long>(value), flag);
    QCOMPARE(QString(out), "x" + appended);
}

void tst_XmlWriters::writeXMLInteger_data()
{
    QTest::addColumn<int>("value");
    QTest::addColumn<int>("width");
    QTest::addColumn<QString>("element");
    QTest::newRow("zero-filled") << 7 << 3 << "<t>007</t>\n";
    QTest::newRow("width 1, the least that fills") << 7 << 1 << "<t>7</t>\n";
    QTest::newRow("width 2 fills one") << 7 << 2 << "<t>07</t>\n";
    QTest::newRow("width 0 is plain") << 7 << 0 << "<t>7</t>\n";
    // A negative width would pad on the right: 700.
    QTest::newRow("negative width is plain") << 7 << -3 << "<t>7</t>\n";
    QTest::newRow("wider value not cut") << 1234 << 2 << "<t>1234</t>\n";
    QTest::newRow("negative: the framework puts the sign first") << -7 << 3 << "<t>-07</t>\n";
    QTest::newRow("zero is written") << 0 << 0 << "<t>0</t>\n";
}

void tst_XmlWriters::writeXMLInteger()
{
    QFETCH(int, value);
    QFETCH(int, width);
    QFETCH(QString, element);
    CString out;
    ::writeXMLInteger(out, "t", value, width);
    QCOMPARE(QString(out), element);
    if (width == 0) {
        CString plain;
        ::writeXMLInteger(plain, "t", value);
        QCOMPARE(QString(plain), element);
    }
}

void tst_XmlWriters::booleans_data()
{
    QTest::addColumn<bool>("value");
    QTest::addColumn<bool>("skipIfFalse");
    QTest::addColumn<QString>("element");
    QTest::newRow("true") << true << false << "<t>1</t>\n";
    QTest::newRow("true with the flag") << true << true << "<t>1</t>\n";
    QTest::newRow("false") << false << false << "<t>0</t>\n";
    QTest::newRow("false skipped with the flag") << false << true << "";
}

void tst_XmlWriters::booleans()
{
    QFETCH(bool, value);
    QFETCH(bool, skipIfFalse);
    QFETCH(QString, element);
    CString out;
    writeXMLForBool(out, "t", value, skipIfFalse);
    QCOMPARE(QString(out), element);
    QCOMPARE(writtenToFile([&](FILE* f) { xmlWriteTagForBool(f, "t", value, skipIfFalse); }),
             element.toUtf8());
}

void tst_XmlWriters::tagStrings()
{
    CString out("x");
    writeXMLOpenTagString(out, nullptr);
    writeXMLOpenTagString(out, "a");
    writeXMLCloseTagString(out, "a");
    QCOMPARE(QString(out), "x<>\n<a>\n</a>\n");
}

void tst_XmlWriters::xmlUtil_data()
{
    QTest::addColumn<TagUtil>("util");
    QTest::addColumn<QString>("value");
    QTest::addColumn<QString>("result");
    QTest::newRow("tag string: escaped") << TagUtil::TagString << "a&b"
                                         << "<t>a&#38;b</t>";
    QTest::newRow("tag string: empty value, empty element") << TagUtil::TagString << ""
                                                            << "<t></t>";
    QTest::newRow("tag string: %1 in the value takes the tag, %3 stays")
        << TagUtil::TagString << "a%1b"
        << "<t>atb</%3>";
    QTest::newRow("tag string: %2 likewise") << TagUtil::TagString << "%2"
                                             << "<t>t</%3>";
    QTest::newRow("tag string: a byte value is read as Latin-1")
        << TagUtil::TagStringFromLatin1 << QStringLiteral("\u00e9")
        << QStringLiteral("<t>\u00e9</t>");
    QTest::newRow("if not empty: empty gives nothing") << TagUtil::IfNotEmpty << ""
                                                       << "";
    QTest::newRow("if not empty: blanks are not trimmed") << TagUtil::IfNotEmpty << " "
                                                          << "<t> </t>";
    QTest::newRow("fill: the value goes in raw") << TagUtil::Fill << "<x a=\"1\"/>"
                                                 << "<t><x a=\"1\"/></t>";
}

void tst_XmlWriters::xmlUtil()
{
    QFETCH(TagUtil, util);
    QFETCH(QString, value);
    QFETCH(QString, result);
    const QByteArray latin1 = value.toLatin1();
    CString made;
    switch (util) {
    case TagUtil::TagString:
        made = XmlUtil::xmlTagString("t", CString(value));
        break;
    case TagUtil::TagStringFromLatin1:
        made = XmlUtil::xmlTagString("t", latin1.constData());
        break;
    case TagUtil::IfNotEmpty:
        made = XmlUtil::xmlTagStringIfNotEmpty("t", CString(value));
        break;
    case TagUtil::Fill:
        made = XmlUtil::xmlTagFill("t", CString(value));
        break;
    }
    QCOMPARE(QString(made), result);
}

QTEST_GUILESS_MAIN(tst_XmlWriters)
#include "tst_xmlwriters.moc"
