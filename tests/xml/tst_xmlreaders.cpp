#include "xmlguard.h"
#include "xmlreaders.h"

#include <QTemporaryFile>
#include <QTest>

namespace {

// The map that readXMLFieldsToStringMap makes of a document, as "key=value;" pairs.
QString fieldsOf(const QByteArray& xml)
{
    TiXmlDocument doc;
    std::map<std::string, CString> values;
    if (parseXmlSafely(doc, xml.constData(), size_t(xml.size())))
        readXMLFieldsToStringMap(doc.RootElement(), values);
    QString text;
    for (const auto& [key, value] : values)
        text += QString::fromStdString(key) + '=' + value + ';';
    return text;
}

} // namespace

class tst_XmlReaders : public QObject
{
    Q_OBJECT

private slots:
    void readers_data();
    void readers();
    void guard_data();
    void guard();
    void loadFile();

private:
    TiXmlDocument m_sample;
};

void tst_XmlReaders::readers_data()
{
    const char text[] = "<r><sfd:Name id=\"7\">Ann</sfd:Name><n>abc</n><void></void>"
                        "<t>TRUE</t><y>yes</y><x>1.5xyz</x></r>";
    QVERIFY(parseXmlSafely(m_sample, text, sizeof text - 1, "r"));
    TiXmlElement* r = m_sample.RootElement();
    QTest::addColumn<QVariant>("got");
    QTest::addColumn<QVariant>("expected");
    const auto row = [](const char* why, QVariant got, QVariant expected) {
        QTest::newRow(why) << got << expected;
    };
    row("AsInt: missing child gives the default", getElementSubEleStringAsInt(r, "none", 5), 5);
    row("AsInt: malformed text gives 0, no default", getElementSubEleStringAsInt(r, "n", 5), 0);
    row("AsInt: empty text gives the default", getElementSubEleStringAsInt(r, "void", 5), 5);
    row("AsBool: TRUE in any letter case", getElementSubEleStringAsBool(r, "t", false), true);
    row("AsBool: yes is unknown: default", getElementSubEleStringAsBool(r, "y", false), false);
    row("AsFloat: atof takes the leading number", getElementSubEleAsFloat(r, "x", 9), 1.5f);
    row("suffix match skips the prefix and letter case", getElementSubEleStringText(r, "NAME"),
        "Ann");
    row("attribute reader wants the exact name", getElementSubEleStringAttribute(r, "Name", "id"),
        "");
    row("attribute reader by the exact name", getElementSubEleStringAttribute(r, "sfd:Name", "id"),
        "7");
    row("null element gives the default", getElementSubEleStringText(nullptr, "n"), "");
    row("map: siblings of any name after the first f count",
        fieldsOf("<m><g n=\"z\">0</g><f n=\"a\">1</f><g n=\"b\">2</g></m>"), "a=1;b=2;");
    row("map: no f child, nothing, whatever has n", fieldsOf("<m><g n=\"a\">1</g></m>"), "");
    row("map: no n skipped, no text empty, later wins",
        fieldsOf("<m><f n=\"a\">1</f><f>x</f><f n=\"b\"/><f n=\"a\">3</f></m>"), "a=3;b=;");
    row("map: text read as UTF-8", fieldsOf("<m><f n=\"a\">\xc3\xa9</f></m>"),
        QStringLiteral("a=\u00e9;"));
}

void tst_XmlReaders::readers()
{
    QFETCH(QVariant, got);
    QTEST(got, "expected");
}

void tst_XmlReaders::guard_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<bool>("accepted");
    const QByteArray record("<m><f n=\"a\">1</f></m>");
    const auto nested = [](int n) { return "<m>" + QByteArray("<a>").repeated(n - 1); };
    QTest::newRow("field record") << record << true;
    QTest::newRow("declaration first, NUL padding last")
        << "<?xml version=\"1.0\" encoding='UTF-8'?>" + record + QByteArray(2, '\0') << true;
    QTest::newRow("NUL inside hides the rest") << QByteArray("<m>\0</m>", 8) << false;
    QTest::newRow("40,000 levels would overflow the parser's stack")
        << nested(40000) + "</a>" << false;
    QTest::newRow("256 levels allowed")
        << nested(256) + QByteArray("</a>").repeated(255) + "</m>" << true;
    QTest::newRow("257 levels not") << nested(257) << false;
    QTest::newRow("a UTF-8 lead swallows the '<' of each end tag")
        << "<m>" + QByteArray("<a>\xc3</a>").repeated(300) << false;
    QTest::newRow("DOCTYPE subset loses the root with no error")
        << "<!DOCTYPE m [ <!ELEMENT m ANY> ]>" + record << false;
    QTest::newRow("DOCTYPE subset yields a false root")
        << "<!DOCTYPE m [<!ENTITY e \"v\"><x/>]>" + record << false;
    QTest::newRow("a comment alone parses with no root") << QByteArray("<!-- m -->") << false;
    QTest::newRow("declaration after the root gives up silently")
        << record + "<?xml version=" << false;
}

void tst_XmlReaders::guard()
{
    QFETCH(QByteArray, text);
    QFETCH(bool, accepted);
    TiXmlDocument doc;
    QCOMPARE(parseXmlSafely(doc, text.constData(), size_t(text.size())), accepted);
    QCOMPARE(doc.RootElement() != nullptr, accepted);
    QCOMPARE(doc.Error(), false);
    QCOMPARE(parseXmlSafely(doc, text.constData(), size_t(text.size()), "r"), false);
}

void tst_XmlReaders::loadFile()
{
    QTemporaryFile file;
    QVERIFY(file.open());
    file.write("<m>\r\n<f n=\"a\" v=\"x\r\ny\">1</f></m>");
    file.close();
    TiXmlDocument doc;
    QVERIFY(loadXmlFileSafely(doc, file.fileName(), "m"));
    QCOMPARE(getElementSubEleStringAttribute(doc.RootElement(), "f", "v"), "x\ny");
    QVERIFY(!loadXmlFileSafely(doc, file.fileName() + ".missing"));
    QVERIFY(!doc.RootElement());
}

QTEST_GUILESS_MAIN(tst_XmlReaders)
#include "tst_xmlreaders.moc"
