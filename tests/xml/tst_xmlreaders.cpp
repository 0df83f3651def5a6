#include "tempfiles.h"
#include "xmlguard.h"
#include "xmlreaders.h"

#include <QTest>

// A reader of the root's child `name`, its result as text.
using Read = QString (*)(TiXmlElement* root, QByteArray name);
Q_DECLARE_METATYPE(Read)

namespace {
// `levels` nested elements, the innermost holding some text.
QByteArray nested(int levels)
{
    return QByteArray("<a>").repeated(levels) + "x" + QByteArray("</a>").repeated(levels);
}

// `levels` elements that the parser reads as nested, though each seems closed:
// a UTF-8 lead byte takes the next byte with it, so every "</a>" right after
// one loses its '<' and is text. Real end tags follow.
QByteArray swallowedEndTags(int levels)
{
    return QByteArray("<a>\xc3</a>").repeated(levels) + QByteArray("</a>").repeated(levels);
}

// The root of `xml`, parsed into `doc`; null for a null `xml`.
TiXmlElement* rootOf(TiXmlDocument& doc, const QString& xml)
{
    const QByteArray bytes = xml.toUtf8();
    if (!xml.isNull() && !parseXmlSafely(doc, bytes.constData(), size_t(bytes.size())))
        QTest::qFail("the test document was refused", __FILE__, __LINE__);
    return doc.RootElement();
}
} // namespace

class tst_XmlReaders : public QObject
{
    Q_OBJECT

private slots:
    // Int and Float read with the defaults 5 and 9; readXMLFieldsToStringMap's
    // map shows as "key=value;", after the entry old=kept.
    void read_data()
    {
        QTest::addColumn<Read>("reader");
        QTest::addColumn<QString>("xml"); // null: a null element
        QTest::addColumn<QString>("name");
        QTest::addColumn<QString>("result");
        const Read child = [](auto e, auto n) {
            const TiXmlElement* c = getElementSubElement(e, n.data());
            if (MyTiXmlHandle(e).FirstChildElement(n.data(), "x").ToElement() != c)
                return QString("the handle differs");
            return QString(c ? c->Value() : "");
        };
        const Read text
            = [](auto e, auto n) { return QString(getElementSubEleStringText(e, n.data())); };
        const Read asInt = [](auto e, auto n) {
            return QString::number(getElementSubEleStringAsInt(e, n.data(), 5));
        };
        const Read orFalse = [](auto e, auto n) {
            return QVariant(getElementSubEleStringAsBool(e, n.data(), false)).toString();
        };
        const Read orTrue = [](auto e, auto n) {
            return QVariant(getElementSubEleStringAsBool(e, n.data(), true)).toString();
        };
        const Read asFloat = [](auto e, auto n) {
            return QString::number(getElementSubEleAsFloat(e, n.data(), 9));
        };
        const Read attribute = [](auto e, auto n) {
            return QString(getElementSubEleStringAttribute(e, n.data(), "id"));
        };
        const Read fields = [](auto e, auto) {
            std::map<std::string, CString> read { { "old", CString("kept") } };
            readXMLFieldsToStringMap(e, read);
            QString text;
            for (const auto& [key, value] : read)
                text += QString::fromStdString(key) + '=' + value + ';';
            return text;
        };
        const QString prefixed = "<r><sfd:Name id=\"7\">Ann</sfd:Name></r>";

        QTest::newRow("child: prefix, any case")
            << child << u8"<r><s:NM/></r>" << u8"nm" << u8"s:NM";
        QTest::newRow("child: first") << child << u8"<r><aNm/><Nm/></r>" << u8"Nm" << u8"aNm";
        QTest::newRow("child: shorter") << child << u8"<r><ame/></r>" << u8"Name" << u8"";
        QTest::newRow("child: grandchild") << child << u8"<r><a><N/></a></r>" << u8"N" << u8"";
        QTest::newRow("child: UTF-8 case")
            << child << u8"<r><p:\u00e9t\u00e9/></r>" << u8"\u00c9T\u00c9" << u8"p:\u00e9t\u00e9";
        QTest::newRow("null element") << child << QString() << u8"n" << u8"";
        QTest::newRow("text") << text << prefixed << u8"Name" << u8"Ann";
        QTest::newRow("int: empty text") << asInt << u8"<r><n></n></r>" << u8"n" << u8"5";
        QTest::newRow("int: malformed") << asInt << u8"<r><n>abc</n></r>" << u8"n" << u8"0";
        QTest::newRow("int: base 10") << asInt << u8"<r><n>0x10</n></r>" << u8"n" << u8"0";
        QTest::newRow("bool: TRUE") << orFalse << u8"<r><b>TRUE</b></r>" << u8"b" << u8"true";
        QTest::newRow("bool: 1") << orFalse << u8"<r><b>1</b></r>" << u8"b" << u8"true";
        QTest::newRow("bool: False") << orTrue << u8"<r><b>False</b></r>" << u8"b" << u8"false";
        QTest::newRow("bool: 0") << orTrue << u8"<r><b>0</b></r>" << u8"b" << u8"false";
        QTest::newRow("bool: no") << orTrue << u8"<r><b>no</b></r>" << u8"b" << u8"true";
        QTest::newRow("bool: 01") << orFalse << u8"<r><b>01</b></r>" << u8"b" << u8"false";
        QTest::newRow("float: atof") << asFloat << u8"<r><n>1.5e</n></r>" << u8"n" << u8"1.5";
        QTest::newRow("float: no text") << asFloat << u8"<r><n/></r>" << u8"n" << u8"9";
        QTest::newRow("float: range") << asFloat << u8"<r><n>1e39</n></r>" << u8"n" << u8"inf";
        QTest::newRow("attribute") << attribute << prefixed << u8"sfd:Name" << u8"7";
        QTest::newRow("attribute: no suffix") << attribute << prefixed << u8"Name" << u8"";
        QTest::newRow("attribute: case") << attribute << prefixed << u8"sfd:name" << u8"";
        QTest::newRow("fields: any siblings after the first f")
            << fields << u8"<m><g n='z'>0</g><f n='a'>1</f><g n='b'>2</g></m>" << QString()
            << u8"a=1;b=2;old=kept;";
        QTest::newRow("fields: no n, skipped")
            << fields << u8"<m><f n='a'>1</f><f>x</f></m>" << QString() << u8"a=1;old=kept;";
        QTest::newRow("fields: no text, empty")
            << fields << u8"<m><f n='b'/></m>" << QString() << u8"b=;old=kept;";
        QTest::newRow("fields: later replaces")
            << fields << u8"<m><f n='old'>1</f><f n='old'>3</f></m>" << QString() << u8"old=3;";
        QTest::newRow("fields: UTF-8")
            << fields << u8"<m><f n='a'>\u00e9</f></m>" << QString() << u8"a=\u00e9;old=kept;";
        QTest::newRow("fields: null element") << fields << QString() << QString() << u8"old=kept;";
    }

    void read()
    {
        QFETCH(Read, reader);
        QFETCH(QString, xml);
        QFETCH(QString, name);
        TiXmlDocument doc;
        QTEST(reader(rootOf(doc, xml), name.toUtf8()), "result");
    }

    // The file reader must take and refuse the same bytes as the text reader.
    void guard_data()
    {
        QTest::addColumn<QByteArray>("text");
        QTest::addColumn<QByteArray>("root"); // null: any root will do
        QTest::addColumn<bool>("accepted");
        const QByteArray record("<m><f n=\"a\">1</f></m>");
        const QByteArray any;
        QTest::newRow("root compared with case") << record << QByteArray("M") << false;
        QTest::newRow("declaration first, NUL padding last")
            << "<?xml version=\"1.0\" encoding='UTF-8'?>" + record + QByteArray(2, '\0') << any
            << true;
        // The parser stops at the NUL, where the root is still open.
        QTest::newRow("NUL inside the root") << QByteArray("<m>\0</m>", 8) << any << false;
        // The root is one level: "<m>" and 255 more make 256.
        QTest::newRow("256 levels") << "<m>" + nested(255) + "</m>" << any << true;
        QTest::newRow("257 levels") << "<m>" + nested(256) + "</m>" << any << false;
        QTest::newRow("300 siblings are one level")
            << "<m>" + QByteArray("<a/>").repeated(300) + "</m>" << any << true;
        // Unchecked, this depth would overflow the parser's stack.
        QTest::newRow("40000 levels") << "<m>" + nested(39999) + "</m>" << any << false;
        QTest::newRow("levels as the parser reads them: 256")
            << "<m>" + swallowedEndTags(255) + "</m>" << any << true;
        QTest::newRow("levels as the parser reads them: 257")
            << "<m>" + swallowedEndTags(256) + "</m>" << any << false;
        QTest::newRow("16 MiB") << "<m>" + QByteArray((16 << 20) - 7, 'x') + "</m>" << any << true;
        QTest::newRow("one byte over 16 MiB")
            << "<m>" + QByteArray((16 << 20) - 6, 'x') + "</m>" << any << false;
        QTest::newRow("DOCTYPE subset loses the root")
            << "<!DOCTYPE m [ <!ELEMENT m ANY> ]>" + record << any << false;
        QTest::newRow("DOCTYPE subset yields a false root")
            << "<!DOCTYPE m [<!ENTITY e \"v\"><x/>]>" + record << any << false;
        QTest::newRow("DOCTYPE, empty subset")
            << "<!DOCTYPE m [ ]>" + record << QByteArray("m") << true;
        // The parser stops at text between top-level nodes; after a closed root
        // that loses nothing, before it the root is never read.
        QTest::newRow("text after the root") << record + "junk" << QByteArray("m") << true;
        QTest::newRow("cut UTF-8 after the root") << record + "\xc3" << QByteArray("m") << true;
        QTest::newRow("NUL and text after the root")
            << record + QByteArray("\0junk", 5) << QByteArray("m") << true;
        QTest::newRow("text before the root") << "junk" + record << any << false;
        QTest::newRow("256 levels after the root")
            << record + nested(256) + "junk" << QByteArray("m") << true;
        QTest::newRow("257 levels after the root")
            << record + nested(257) + "junk" << QByteArray("m") << false;
    }

    void guard()
    {
        QFETCH(QByteArray, text);
        QFETCH(QByteArray, root);
        QFETCH(bool, accepted);
        const char* expected = root.isNull() ? nullptr : root.constData();
        // A refused document is left empty and without an error to report.
        TiXmlDocument doc;
        doc.Parse("<p/>");
        QCOMPARE(parseXmlSafely(doc, text.constData(), size_t(text.size()), expected), accepted);
        QCOMPARE(doc.RootElement() != nullptr, accepted);
        QCOMPARE(doc.Error(), false);

        QTemporaryDir dir;
        const QString path = writeTempFile(dir, "doc.xml", text);
        QVERIFY(!path.isEmpty());
        doc.Parse("<p/>");
        QCOMPARE(loadXmlFileSafely(doc, path, expected), accepted);
        QCOMPARE(doc.RootElement() != nullptr, accepted);
    }

    void fileLineEnds()
    {
        QTemporaryDir dir;
        const QString path = writeTempFile(dir, "doc.xml", "<m>\r\n<f v=\"x\r\ny\rz\">1</f></m>");
        TiXmlDocument doc;
        QVERIFY(loadXmlFileSafely(doc, path, "m"));
        QCOMPARE(getElementSubEleStringAttribute(doc.RootElement(), "f", "v"), "x\ny\nz");
        QVERIFY(!loadXmlFileSafely(doc, path + ".missing"));
        QVERIFY(!doc.RootElement());
    }
};

QTEST_GUILESS_MAIN(tst_XmlReaders)
#include "tst_xmlreaders.moc"
