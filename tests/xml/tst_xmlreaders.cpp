#include "tempfiles.h"
#include "xmlguard.h"
#include "xmlreaders.h"

#include <QTest>

#include <limits>

class tst_XmlReaders : public QObject
{
    Q_OBJECT

private slots:
    void childByName_data();
    void childByName();
    void stringText_data();
    void stringText();
    void asInt_data();
    void asInt();
    void asBool_data();
    void asBool();
    void asFloat_data();
    void asFloat();
    void attribute_data();
    void attribute();
    void nullElementGivesDefaults();
    void fieldsToStringMap_data();
    void fieldsToStringMap();
    void guard_data();
    void guard();
    void loadFile_data();
    void loadFile();
};

namespace {

// Every reader row is one small document; the readers look below its root.
struct Parsed {
    explicit Parsed(const QByteArray& xml)
    {
        if (!parseXmlSafely(doc, xml.constData(), size_t(xml.size())))
            QTest::qFail("the test document was refused", __FILE__, __LINE__);
    }
    TiXmlElement* root() { return doc.RootElement(); }
    TiXmlDocument doc;
};

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

// A well-formed document of exactly `size` bytes: one element and its text.
QByteArray documentOfSize(qsizetype size)
{
    return "<m>" + QByteArray(size - 7, 'x') + "</m>";
}

} // namespace

void tst_XmlReaders::childByName_data()
{
    QTest::addColumn<QByteArray>("xml");
    QTest::addColumn<QByteArray>("name");
    QTest::addColumn<QByteArray>("found");
    QTest::newRow("namespace prefix skipped")
        << QByteArray("<r><sfd:Commodity/></r>") << QByteArray("Commodity")
        << QByteArray("sfd:Commodity");
    QTest::newRow("letter case ignored")
        << QByteArray("<r><Name/></r>") << QByteArray("nAME") << QByteArray("Name");
    QTest::newRow("any name ending in the letters")
        << QByteArray("<r><Surname/></r>") << QByteArray("name") << QByteArray("Surname");
    QTest::newRow("first in document order wins")
        << QByteArray("<r><xName/><Name/></r>") << QByteArray("Name") << QByteArray("xName");
    QTest::newRow("a longer wanted name matches nothing shorter")
        << QByteArray("<r><ame/></r>") << QByteArray("Name") << QByteArray();
    QTest::newRow("grandchildren are not looked at")
        << QByteArray("<r><a><Name/></a></r>") << QByteArray("Name") << QByteArray();
    QTest::newRow("UTF-8 name matched by characters")
        << QByteArray("<r><p:Pr\xc3\xa9nom/></r>") << QByteArray("PR\xc3\xa9NOM")
        << QByteArray("p:Pr\xc3\xa9nom");
}

void tst_XmlReaders::childByName()
{
    QFETCH(QByteArray, xml);
    QFETCH(QByteArray, name);
    QFETCH(QByteArray, found);
    Parsed parsed(xml);
    const TiXmlElement* child = getElementSubElement(parsed.root(), name.constData());
    QCOMPARE(QByteArray(child ? child->Value() : nullptr), found);
    const TiXmlElement* viaHandle
        = MyTiXmlHandle(parsed.root()).FirstChildElement(name.constData(), "ignored").ToElement();
    QCOMPARE(viaHandle, child);
}

void tst_XmlReaders::stringText_data()
{
    QTest::addColumn<QByteArray>("xml");
    QTest::addColumn<QByteArray>("text");
    QTest::newRow("text of the child")
        << QByteArray("<r><sfd:Name>Ann</sfd:Name></r>") << QByteArray("Ann");
    QTest::newRow("missing child") << QByteArray("<r><x>Ann</x></r>") << QByteArray("");
    QTest::newRow("child without text") << QByteArray("<r><Name/></r>") << QByteArray("");
}

void tst_XmlReaders::stringText()
{
    QFETCH(QByteArray, xml);
    QFETCH(QByteArray, text);
    Parsed parsed(xml);
    QCOMPARE(QByteArray(getElementSubEleStringText(parsed.root(), "Name")), text);
}

void tst_XmlReaders::asInt_data()
{
    QTest::addColumn<QByteArray>("xml");
    QTest::addColumn<int>("value");
    QTest::newRow("number") << QByteArray("<r><n>42</n></r>") << 42;
    QTest::newRow("missing child gives the default") << QByteArray("<r/>") << 5;
    QTest::newRow("empty text gives the default") << QByteArray("<r><n></n></r>") << 5;
    QTest::newRow("malformed text gives 0, not the default")
        << QByteArray("<r><n>abc</n></r>") << 0;
    QTest::newRow("largest int") << QByteArray("<r><n>2147483647</n></r>") << 2147483647;
    QTest::newRow("one above the largest gives 0") << QByteArray("<r><n>2147483648</n></r>") << 0;
    QTest::newRow("least int") << QByteArray("<r><n>-2147483648</n></r>")
                               << std::numeric_limits<int>::min();
    QTest::newRow("one below the least gives 0") << QByteArray("<r><n>-2147483649</n></r>") << 0;
    QTest::newRow("base 10 only") << QByteArray("<r><n>0x10</n></r>") << 0;
}

void tst_XmlReaders::asInt()
{
    QFETCH(QByteArray, xml);
    QFETCH(int, value);
    Parsed parsed(xml);
    QCOMPARE(getElementSubEleStringAsInt(parsed.root(), "n", 5), value);
}

void tst_XmlReaders::asBool_data()
{
    QTest::addColumn<QByteArray>("xml");
    QTest::addColumn<bool>("def");
    QTest::addColumn<bool>("value");
    QTest::newRow("TRUE in any letter case") << QByteArray("<r><b>TRUE</b></r>") << false << true;
    QTest::newRow("1") << QByteArray("<r><b>1</b></r>") << false << true;
    QTest::newRow("False in any letter case") << QByteArray("<r><b>False</b></r>") << true << false;
    QTest::newRow("0") << QByteArray("<r><b>0</b></r>") << true << false;
    QTest::newRow("yes is unknown: default false")
        << QByteArray("<r><b>yes</b></r>") << false << false;
    QTest::newRow("no is unknown: default true") << QByteArray("<r><b>no</b></r>") << true << true;
    QTest::newRow("01 is unknown") << QByteArray("<r><b>01</b></r>") << false << false;
    QTest::newRow("missing text gives the default") << QByteArray("<r><b/></r>") << true << true;
    QTest::newRow("missing child gives the default") << QByteArray("<r/>") << true << true;
}

void tst_XmlReaders::asBool()
{
    QFETCH(QByteArray, xml);
    QFETCH(bool, def);
    QFETCH(bool, value);
    Parsed parsed(xml);
    QCOMPARE(getElementSubEleStringAsBool(parsed.root(), "b", def), value);
}

void tst_XmlReaders::asFloat_data()
{
    QTest::addColumn<QByteArray>("xml");
    QTest::addColumn<float>("value");
    constexpr float Inf = std::numeric_limits<float>::infinity();
    QTest::newRow("atof takes the leading number") << QByteArray("<r><x>1.5xyz</x></r>") << 1.5f;
    QTest::newRow("unparsable text gives 0") << QByteArray("<r><x>abc</x></r>") << 0.0f;
    QTest::newRow("missing child gives the default") << QByteArray("<r/>") << 9.0f;
    QTest::newRow("missing text gives the default") << QByteArray("<r><x/></r>") << 9.0f;
    QTest::newRow("beyond float's range: infinity") << QByteArray("<r><x>1e39</x></r>") << Inf;
    QTest::newRow("below float's range: minus infinity")
        << QByteArray("<r><x>-1e39</x></r>") << -Inf;
}

void tst_XmlReaders::asFloat()
{
    QFETCH(QByteArray, xml);
    QFETCH(float, value);
    Parsed parsed(xml);
    QCOMPARE(getElementSubEleAsFloat(parsed.root(), "x", 9.0f), value);
}

void tst_XmlReaders::attribute_data()
{
    QTest::addColumn<QByteArray>("xml");
    QTest::addColumn<QByteArray>("name");
    QTest::addColumn<QByteArray>("value");
    const QByteArray prefixed("<r><sfd:Name id=\"7\">Ann</sfd:Name></r>");
    QTest::newRow("by the exact name") << prefixed << QByteArray("sfd:Name") << QByteArray("7");
    QTest::newRow("no suffix matching") << prefixed << QByteArray("Name") << QByteArray("");
    QTest::newRow("letter case counts") << prefixed << QByteArray("sfd:name") << QByteArray("");
    QTest::newRow("missing attribute")
        << QByteArray("<r><Name/></r>") << QByteArray("Name") << QByteArray("");
    QTest::newRow("first of that name")
        << QByteArray("<r><a id=\"1\"/><a id=\"2\"/></r>") << QByteArray("a") << QByteArray("1");
}

void tst_XmlReaders::attribute()
{
    QFETCH(QByteArray, xml);
    QFETCH(QByteArray, name);
    QFETCH(QByteArray, value);
    Parsed parsed(xml);
    QCOMPARE(QByteArray(getElementSubEleStringAttribute(parsed.root(), name.constData(), "id")),
             value);
}

void tst_XmlReaders::nullElementGivesDefaults()
{
    QCOMPARE(getElementSubElement(nullptr, "n"), nullptr);
    QCOMPARE(getElementSubEleStringText(nullptr, "n"), "");
    QCOMPARE(getElementSubEleStringAsInt(nullptr, "n", 5), 5);
    QCOMPARE(getElementSubEleStringAsBool(nullptr, "n", true), true);
    QCOMPARE(getElementSubEleAsFloat(nullptr, "n", 9.0f), 9.0f);
    QCOMPARE(getElementSubEleStringAttribute(nullptr, "n", "id"), "");
    std::map<std::string, CString> values { { "z", CString("old") } };
    readXMLFieldsToStringMap(nullptr, values);
    QCOMPARE(values.size(), size_t(1));
}

void tst_XmlReaders::fieldsToStringMap_data()
{
    QTest::addColumn<QByteArray>("xml");
    QTest::addColumn<QString>("values");
    QTest::newRow("siblings of any name after the first f count")
        << QByteArray("<m><g n=\"z\">0</g><f n=\"a\">1</f><g n=\"b\">2</g></m>")
        << "a=1;b=2;old=kept;";
    QTest::newRow("no f child: nothing, whatever has n")
        << QByteArray("<m><g n=\"a\">1</g></m>") << "old=kept;";
    QTest::newRow("element without n skipped")
        << QByteArray("<m><f n=\"a\">1</f><f>x</f></m>") << "a=1;old=kept;";
    QTest::newRow("element without text gives an empty value")
        << QByteArray("<m><f n=\"b\"/></m>") << "b=;old=kept;";
    QTest::newRow("later duplicate wins")
        << QByteArray("<m><f n=\"a\">1</f><f n=\"a\">3</f></m>") << "a=3;old=kept;";
    QTest::newRow("an existing key is overwritten")
        << QByteArray("<m><f n=\"old\">new</f></m>") << "old=new;";
    QTest::newRow("text read as UTF-8")
        << QByteArray("<m><f n=\"a\">\xc3\xa9</f></m>") << QStringLiteral("a=\u00e9;old=kept;");
}

void tst_XmlReaders::fieldsToStringMap()
{
    QFETCH(QByteArray, xml);
    QFETCH(QString, values);
    Parsed parsed(xml);
    std::map<std::string, CString> read { { "old", CString("kept") } };
    readXMLFieldsToStringMap(parsed.root(), read);
    QString text;
    for (const auto& [key, value] : read)
        text += QString::fromStdString(key) + '=' + value + ';';
    QCOMPARE(text, values);
}

void tst_XmlReaders::guard_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QByteArray>("expectedRoot");
    QTest::addColumn<bool>("accepted");
    const QByteArray record("<m><f n=\"a\">1</f></m>");
    const QByteArray noRoot; // null: any root will do
    QTest::newRow("field record") << record << noRoot << true;
    QTest::newRow("the expected root") << record << QByteArray("m") << true;
    QTest::newRow("another root than expected") << record << QByteArray("r") << false;
    QTest::newRow("expected root compared with letter case") << record << QByteArray("M") << false;
    QTest::newRow("declaration first, NUL padding last")
        << "<?xml version=\"1.0\" encoding='UTF-8'?>" + record + QByteArray(2, '\0') << noRoot
        << true;
    // The parser stops at the NUL, where the root is still open.
    QTest::newRow("NUL inside the root") << QByteArray("<m>\0</m>", 8) << noRoot << false;
    // The root is one level: "<m>" and 255 more make 256.
    QTest::newRow("256 levels, the most allowed") << "<m>" + nested(255) + "</m>" << noRoot << true;
    QTest::newRow("257 levels, one too many") << "<m>" + nested(256) + "</m>" << noRoot << false;
    QTest::newRow("empty element at level 256")
        << "<m>" + nested(254).replace("x", "<e/>") + "</m>" << noRoot << true;
    QTest::newRow("empty element at level 257")
        << "<m>" + nested(255).replace("x", "<e/>") + "</m>" << noRoot << false;
    QTest::newRow("300 siblings are one level")
        << "<m>" + QByteArray("<a/>").repeated(300) + "</m>" << noRoot << true;
    // Unchecked, this depth would overflow the parser's stack.
    QTest::newRow("40000 levels refused before parsing")
        << "<m>" + nested(39999) + "</m>" << noRoot << false;
    QTest::newRow("levels counted as the parser reads them: 256")
        << "<m>" + swallowedEndTags(255) + "</m>" << noRoot << true;
    QTest::newRow("levels counted as the parser reads them: 257")
        << "<m>" + swallowedEndTags(256) + "</m>" << noRoot << false;
    QTest::newRow("16 MiB, the longest allowed") << documentOfSize(16 << 20) << noRoot << true;
    QTest::newRow("one byte over 16 MiB") << documentOfSize((16 << 20) + 1) << noRoot << false;
    QTest::newRow("DOCTYPE subset loses the root with no error")
        << "<!DOCTYPE m [ <!ELEMENT m ANY> ]>" + record << noRoot << false;
    QTest::newRow("DOCTYPE subset yields a false root")
        << "<!DOCTYPE m [<!ENTITY e \"v\"><x/>]>" + record << noRoot << false;
    QTest::newRow("a comment alone parses with no root")
        << QByteArray("<!-- m -->") << noRoot << false;
    QTest::newRow("DOCTYPE with an empty subset keeps the root")
        << "<!DOCTYPE m [ ]>" + record << QByteArray("m") << true;
    // The parser stops at text between top-level nodes; after a closed root
    // that loses nothing, before it the root is never read.
    QTest::newRow("text after the closed root") << record + "junk" << QByteArray("m") << true;
    QTest::newRow("a cut UTF-8 sequence after the closed root")
        << record + "\xc3" << QByteArray("m") << true;
    QTest::newRow("a NUL and text after the closed root")
        << record + QByteArray("\0junk", 5) << QByteArray("m") << true;
    QTest::newRow("text before the root") << "junk" + record << noRoot << false;
    QTest::newRow("a second element after the root: 256 levels")
        << record + nested(256) + "junk" << QByteArray("m") << true;
    QTest::newRow("a second element after the root: 257 levels")
        << record + nested(257) + "junk" << QByteArray("m") << false;
}

void tst_XmlReaders::guard()
{
    QFETCH(QByteArray, text);
    QFETCH(QByteArray, expectedRoot);
    QFETCH(bool, accepted);
    TiXmlDocument doc;
    QCOMPARE(parseXmlSafely(doc, text.constData(), size_t(text.size()),
                            expectedRoot.isNull() ? nullptr : expectedRoot.constData()),
             accepted);
    // A refused document is left empty and without an error to report.
    QCOMPARE(doc.RootElement() != nullptr, accepted);
    QCOMPARE(doc.Error(), false);
}

void tst_XmlReaders::loadFile_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<bool>("accepted");
    QTest::addColumn<QByteArray>("attribute");
    QTest::newRow("CR LF and lone CR read as LF")
        << QByteArray("<m>\r\n<f v=\"x\r\ny\rz\">1</f></m>") << true << QByteArray("x\ny\nz");
    QTest::newRow("16 MiB file, the longest allowed")
        << documentOfSize(16 << 20) << true << QByteArray("");
    QTest::newRow("one byte over 16 MiB")
        << documentOfSize((16 << 20) + 1) << false << QByteArray("");
}

void tst_XmlReaders::loadFile()
{
    QFETCH(QByteArray, content);
    QFETCH(bool, accepted);
    QFETCH(QByteArray, attribute);
    QTemporaryDir dir;
    const QString path = writeTempFile(dir, "doc.xml", content);
    QVERIFY(!path.isEmpty());
    TiXmlDocument doc;
    QCOMPARE(loadXmlFileSafely(doc, path, "m"), accepted);
    QCOMPARE(QByteArray(getElementSubEleStringAttribute(doc.RootElement(), "f", "v")), attribute);
    QVERIFY(!loadXmlFileSafely(doc, path + ".missing"));
    QVERIFY(!doc.RootElement());
}

QTEST_GUILESS_MAIN(tst_XmlReaders)
#include "tst_xmlreaders.moc"
