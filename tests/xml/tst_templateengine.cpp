#include "tempfiles.h"
#include "templateengine.h"

#include <QTest>
#include <QTextStream>

namespace {
using ValueMap = std::map<std::string, CString>;

// Keys k0x to k39x are there for the long runs.
const ValueMap& sampleValues()
{
    static const ValueMap values = [] {
        const char* pairs[] = { "name",  "Ann",  "amp",   "A&B",         "$raw",       "<x/>&",
                                "empty", "",     "multi", "a\n$$(name)", "$",          "dollar",
                                "0",     "zero", "acc",   "\xe9",        "cl\xc3\xa9", "K" };
        ValueMap v;
        for (size_t i = 0; i < std::size(pairs); i += 2)
            v[pairs[i]] = CString(pairs[i + 1]);
        for (int i = 0; i < 40; ++i)
            v["k" + std::to_string(i) + "x"] = CString(QStringLiteral("v%1&").arg(i));
        return v;
    }();
    return values;
}

const char missingKeyMessage[] = "nokey not defined in xmt";

// processTemplatePart into a FILE*; what it wrote is appended to `out`.
int writeToFile(std::string& out, const char* path, int flags)
{
    FILE* file = std::tmpfile();
    const int rc = processTemplatePart(file, path, sampleValues(), flags);
    std::rewind(file);
    char piece[65536];
    for (size_t n; (n = std::fread(piece, 1, sizeof piece, file)) > 0;)
        out.append(piece, n);
    std::fclose(file);
    return rc;
}
} // namespace

class tst_TemplateEngine : public QObject
{
    Q_OBJECT

private slots:
    // `out` is the text appended; as bytes it is UTF-8 with flag 64, else Latin-1.
    void process_data()
    {
        QTest::addColumn<QString>("tpl");
        QTest::addColumn<int>("flags");
        QTest::addColumn<int>("rc");
        QTest::addColumn<QString>("out");
        const QString amp = "$$(amp)\n$$(acc)";

        QTest::newRow("blank lines go, last line ended") << "a\n  \n\t\n\nb" << 4 << 0 << "a\nb\n";
        QTest::newRow("incomplete markers are plain")
            << "a $$ b $( c )\n$$" << 4 << 0 << "a $$ b $( c )\n$$\n";
        // Lines are cut as a text stream's readLine cuts them.
        QTest::newRow("lone CR stays") << "a\rb\n\rc" << 4 << 0 << "a\rb\n\rc\n";
        QTest::newRow("two CRs before LF, one goes") << "a\r\r\nb" << 4 << 0 << "a\r\nb\n";
        QTest::newRow("text around kept") << "  <n>$$(name)</n>" << 4 << 0 << "  <n>Ann</n>\n";
        QTest::newRow("optional missing: line goes") << "a\n$$(nokey0)\nb" << 4 << 0 << "a\nb\n";
        QTest::newRow("one more 0 reaches key 0") << "$$(00)" << 4 << 0 << "zero\n";
        QTest::newRow("empty optional kept") << "<e>$$(empty0)</e>" << 4 << 0 << "<e></e>\n";
        QTest::newRow("flag 4: escaped, Latin-1") << amp << 4 << 0 << "A&#38;B\n\u00e9\n";
        QTest::newRow("no flag: raw") << amp << 0 << 0 << "A&B\n\u00e9\n";
        QTest::newRow("flag 68: escaped, UTF-8") << amp << 68 << 0 << "A&#38;B\n\u00e9\n";
        QTest::newRow("dollar key never escaped")
            << "<r>$$($raw)</r>" << 4 << 0 << "<r><x/>&</r>\n";
        QTest::newRow("second placeholder literal")
            << "$$(name)-$$(name)" << 4 << 0 << "Ann-$$(name)\n";
        QTest::newRow("value not re-scanned") << "$$(multi)" << 0 << 0 << "a\n$$(name)\n";
        QTest::newRow("NUL passes")
            << QString("x%1$$(name)").arg(QChar(0)) << 4 << 0 << QString("x%1Ann\n").arg(QChar(0));
        // A key with a space once made the engine loop forever.
        QTest::newRow("spaces in key removed") << "<n>$$( na me )</n>" << 4 << 0 << "<n>Ann</n>\n";
        QTest::newRow("UTF-8 key") << "$$(cl\u00e9)" << 4 << 0 << "K\n";
        QTest::newRow("no ')', earlier lines kept") << "ok\nx $$(name\nz" << 4 << -101 << "ok\n";
        QTest::newRow("')' before the marker") << "ok\n) $$(name" << 4 << -101 << "ok\n";
        QTest::newRow("a million markers") << QString("$$(").repeated(1 << 20) << 4 << -101 << "";
        QTest::newRow("empty key") << "ok\n$$()" << 4 << -102 << "ok\n";
        QTest::newRow("key of spaces is empty") << "ok\n$$(  )" << 4 << -102 << "ok\n";
        QTest::newRow("key 0") << "\u00e9\n$$(0)" << 64 << -103 << "\u00e9\n";
        QTest::newRow("missing key: its name ends it")
            << "a\n<x>$$(nokey)</x>\nb" << 4 << -200 << "a\nnokey";
        // Past 32 lookups keys are found through an index: k40x on are missing.
        QString tpl, out;
        for (int i = 0; i < 300; ++i) {
            const int k = i % 50;
            tpl += QStringLiteral("<a>$$(k%1x%2)</a>\n").arg(k).arg(k >= 40 || i % 3 ? "0" : "");
            if (k < 40)
                out += QStringLiteral("<a>v%1&#38;</a>\n").arg(k);
        }
        QTest::newRow("300 lookups, then raw and missing keys") << tpl
                + "$$($raw)\n$$(nokey)\nafter\n" << 4 << -200 << out + "<x/>&\nnokey";
    }

    // Text, stream and file input, into text, bytes and a file, share one reading.
    void process()
    {
        QFETCH(QString, tpl);
        QFETCH(int, flags);
        QFETCH(int, rc);
        QFETCH(QString, out);
        // Bytes end at a NUL.
        const QByteArray bytes((flags & 64 ? out.toUtf8() : out.toLatin1()).constData());
        QTemporaryDir dir;
        const QString path = writeTempFile(dir, "t.xmt", tpl.toUtf8());
        const QByteArray local = QFile::encodeName(path);
        const ValueMap& v = sampleValues();
        for (int form = 0; form < 8; ++form) {
            if (rc == -200)
                QTest::ignoreMessage(QtInfoMsg, missingKeyMessage);
            QTextStream in(&tpl, QIODevice::ReadOnly);
            CString text(QStringLiteral("pre|"));
            std::string raw = "pre|";
            const int result = form == 0
                ? processStringTemplatePartInString(text, CString(tpl), v, flags)
                : form == 1 ? processStringTemplatePartInString(text, in, v, flags)
                : form == 2 ? processTemplatePartInString(text, CString(path), v, flags)
                : form == 3 ? processStringTemplatePartInString(raw, CString(tpl), v, flags)
                : form == 4 ? processStringTemplatePartInString(raw, in, v, flags)
                : form == 5 ? processTemplatePartInString(raw, CString(path), v, flags)
                : form == 6 ? processTemplatePart(raw, local.constData(), v, flags)
                            : writeToFile(raw, local.constData(), flags);
            QCOMPARE(result, rc);
            if (form < 3)
                QCOMPARE(QString(text), "pre|" + out);
            else
                QCOMPARE(QByteArray::fromStdString(raw), "pre|" + bytes);
        }
    }

    // A template that does not open: nothing from a CString path, -1 from a char path.
    void missingTemplate()
    {
        const QByteArray missing = "/nonexistent/t.xmt";
        CString text("pre|");
        std::string raw = "pre|";
        QCOMPARE(processTemplatePartInString(text, CString(missing.constData()), sampleValues(), 4),
                 0);
        QCOMPARE(processTemplatePartInString(raw, CString(missing.constData()), sampleValues(), 4),
                 0);
        QCOMPARE(processTemplatePart(raw, missing.constData(), sampleValues(), 4), -1);
        QCOMPARE(writeToFile(raw, missing.constData(), 4), -1);
        QCOMPARE(QString(text), QString("pre|"));
        QCOMPARE(raw, std::string("pre|"));
    }

    void fileParts_data()
    {
        QTest::addColumn<QString>("xml");
        QTest::addColumn<int>("rc");
        QTest::addColumn<QString>("parts");
        QTest::newRow("malformed") << "<r><filepart name='a'>x</r>" << 130 << "z=old;";
        QTest::newRow("later part replaces earlier and existing")
            << "<r><filepart name='z'>1</filepart><filepart name='z'>3</filepart></r>" << 0
            << "z=3;";
        QTest::newRow("first part by suffix, any case")
            << "<r><x name='o'>9</x><ns:FilePart name='a'>1</ns:FilePart></r>" << 0 << "a=1;z=old;";
        QTest::newRow("then only siblings named filepart")
            << "<r><filepart name='a'>1</filepart><o name='o'>9</o><FilePart name='c'>3</FilePart>"
               "<filepart name='b'>2</filepart></r>"
            << 0 << "a=1;b=2;z=old;";
        // Such elements were once fatal.
        QTest::newRow("nameless, empty, element-only parts skipped")
            << "<r><filepart>x</filepart><filepart name='e'/><filepart name='f'><i/></filepart>"
               "<filepart name='b'>2</filepart></r>"
            << 0 << "b=2;z=old;";
        QTest::newRow("CDATA keeps line breaks, UTF-8")
            << "<r><filepart name='t'><![CDATA[<a>\n\u00e9</a>]]></filepart></r>" << 0
            << "t=<a>\n\u00e9</a>;z=old;";
        QTest::newRow("deep nesting refused")
            << "<r>" + QString("<a>").repeated(100000) + QString("</a>").repeated(100000) + "</r>"
            << 130 << "z=old;";
    }

    void fileParts()
    {
        QFETCH(QString, xml);
        QFETCH(int, rc);
        QFETCH(QString, parts);
        ValueMap map = { { "z", CString("old") } };
        QCOMPARE(parseXMLFilePartIntoMap(xml.toStdString(), map), rc);
        QString text;
        for (const auto& [key, value] : map)
            text += QString::fromStdString(key) + '=' + value + ';';
        QCOMPARE(text, parts);
    }
};

QTEST_GUILESS_MAIN(tst_TemplateEngine)
#include "tst_templateengine.moc"
