#include "tempfiles.h"
#include "templateengine.h"

#include <QTest>
#include <QTextStream>

enum class Entry { CStringFromPath, StdStringFromPath, StdStringFromCharPath, FileFromCharPath };
Q_DECLARE_METATYPE(Entry)

namespace {

using ValueMap = std::map<std::string, CString>;

const ValueMap& sampleValues()
{
    static const ValueMap values = { { "name", CString("Ann") },
                                     { "amp", CString("A&B") },
                                     { "$raw", CString("<x/>&") },
                                     { "empty", CString() },
                                     { "multi", CString("a\n$$(name)") },
                                     { "$", CString("dollar") },
                                     { "0", CString("zero") },
                                     { "line1", CString("L1") },
                                     { "acc", CString("\xe9") },
                                     { "cl\xc3\xa9", CString("K") } };
    return values;
}

const char missingKeyMessage[] = "nokey not defined in xmt";

} // namespace

class tst_TemplateEngine : public QObject
{
    Q_OBJECT

private slots:
    void process_data();
    void process();
    void byteOutput_data();
    void byteOutput();
    void fromFile_data();
    void fromFile();
    void manyLookups_data();
    void manyLookups();
    void fileParts_data();
    void fileParts();
};

void tst_TemplateEngine::process_data()
{
    QTest::addColumn<QString>("tpl");
    QTest::addColumn<int>("flags");
    QTest::addColumn<int>("rc");
    QTest::addColumn<QString>("out");
    QTest::addColumn<bool>("logged");

    QTest::newRow("empty template") << "" << 4 << 0 << "" << false;
    QTest::newRow("blank and white-space lines vanish") << "\n  \n\t\n\n" << 4 << 0 << "" << false;
    QTest::newRow("last line without terminator gets one") << "a\nb" << 4 << 0 << "a\nb\n" << false;
    QTest::newRow("plain text keeps its indentation") << "  <a>\n" << 4 << 0 << "  <a>\n" << false;
    QTest::newRow("line shorter than the marker is plain") << "$$" << 4 << 0 << "$$\n" << false;
    QTest::newRow("incomplete markers are plain") << "a $$ b $( c )" << 4 << 0 << "a $$ b $( c )\n"
                                                  << false;

    // Lines are cut as a text stream's readLine cuts them.
    QTest::newRow("CR LF read as one terminator") << "a\r\n\r\nb\r\n"
                                                  << 4 << 0 << "a\nb\n"
                                                  << false;
    QTest::newRow("lone CR stays inside a line") << "a\rb\n" << 4 << 0 << "a\rb\n" << false;
    QTest::newRow("two CRs before LF, one goes") << "a\r\r\nb" << 4 << 0 << "a\r\nb\n" << false;
    QTest::newRow("CR at the very end goes") << "a\r" << 4 << 0 << "a\n" << false;
    QTest::newRow("CRs inside a last line stay") << "x\r\ry" << 4 << 0 << "x\r\ry\n" << false;
    QTest::newRow("CR starting a line stays") << "a\n\rb" << 4 << 0 << "a\n\rb\n" << false;
    QTest::newRow("placeholder line ending in CR LF, then a lone CR")
        << "<n>$$(name)</n>\r\n\r" << 4 << 0 << "<n>Ann</n>\n"
        << false;

    QTest::newRow("placeholder keeps text around it")
        << "  <n>$$(name)</n>" << 4 << 0 << "  <n>Ann</n>\n"
        << false;
    QTest::newRow("a third $ before the marker stays as text") << "$$$(name)" << 4 << 0 << "$Ann\n"
                                                               << false;
    QTest::newRow("optional present acts as required")
        << "<n>$$(name0)</n>" << 4 << 0 << "<n>Ann</n>\n"
        << false;
    QTest::newRow("optional missing drops the whole line")
        << "a\n<x>$$(nokey0)</x>\nb" << 4 << 0 << "a\nb\n"
        << false;
    QTest::newRow("key ending in 0 is the optional form") << "$$(line10)" << 4 << 0 << "L1\n"
                                                          << false;
    QTest::newRow("one more 0 reaches a key ending in 0") << "$$(00)" << 4 << 0 << "zero\n"
                                                          << false;
    QTest::newRow("empty value keeps the line") << "<e>$$(empty)</e>" << 4 << 0 << "<e></e>\n"
                                                << false;
    QTest::newRow("empty optional value keeps the line")
        << "<e>$$(empty0)</e>" << 4 << 0 << "<e></e>\n"
        << false;
    QTest::newRow("flag 4 escapes") << "$$(amp)" << 4 << 0 << "A&#38;B\n" << false;
    QTest::newRow("flag 8 escapes") << "$$(amp)" << 8 << 0 << "A&#38;B\n" << false;
    QTest::newRow("no flag leaves value raw") << "$$(amp)" << 0 << 0 << "A&B\n" << false;
    QTest::newRow("dollar key never escaped") << "<r>$$($raw)</r>" << 4 << 0 << "<r><x/>&</r>\n"
                                              << false;
    QTest::newRow("dollar key raw without flags too")
        << "<r>$$($raw)</r>" << 0 << 0 << "<r><x/>&</r>\n"
        << false;
    QTest::newRow("key that is only a dollar is looked up") << "$$($)" << 4 << 0 << "dollar\n"
                                                            << false;
    QTest::newRow("second placeholder stays literal")
        << "$$(name)-$$(name)" << 4 << 0 << "Ann-$$(name)\n"
        << false;
    QTest::newRow("value is not re-scanned") << "$$(multi)" << 0 << 0 << "a\n$$(name)\n" << false;
    QTest::newRow("NUL inside a line passes through")
        << QString("x%1$$(name)").arg(QChar(0)) << 4 << 0 << QString("x%1Ann\n").arg(QChar(0))
        << false;
    // A key with a space once made the engine loop forever; the spaces now just go.
    QTest::newRow("space in key removed, no hang")
        << "<n>$$( na me )</n>" << 4 << 0 << "<n>Ann</n>\n"
        << false;
    QTest::newRow("non-ASCII key, spaces removed")
        << QString::fromUtf8("$$( cl\xc3\xa9 )") << 4 << 0 << "K\n"
        << false;

    QTest::newRow("no closing paren, earlier lines kept")
        << "ok\nx $$(name\nlater" << 4 << -101 << "ok\n"
        << false;
    QTest::newRow("marker at the very end of a line") << "ok\nabc$$(" << 4 << -101 << "ok\n"
                                                      << false;
    QTest::newRow("a ')' before the marker does not close it")
        << "ok\n) $$(name" << 4 << -101 << "ok\n"
        << false;
    QTest::newRow("a million markers, no ')': stops at once")
        << QString("$$(").repeated(1 << 20) << 4 << -101 << "" << false;
    QTest::newRow("empty key") << "ok\n$$()" << 4 << -102 << "ok\n" << false;
    QTest::newRow("key of only spaces is empty") << "ok\n$$(  )" << 4 << -102 << "ok\n" << false;
    QTest::newRow("key of a single 0") << "ok\n$$(0)" << 4 << -103 << "ok\n" << false;
    QTest::newRow("missing required key ends output with its name")
        << "a\n<x>$$(nokey)</x>\nb" << 4 << -200 << "a\nnokey" << true;
}

// The text and the stream forms share one reading of the template.
void tst_TemplateEngine::process()
{
    QFETCH(QString, tpl);
    QFETCH(int, flags);
    QFETCH(int, rc);
    QFETCH(QString, out);
    QFETCH(bool, logged);

    if (logged)
        QTest::ignoreMessage(QtInfoMsg, missingKeyMessage);
    CString made(QStringLiteral("pre|"));
    QCOMPARE(processStringTemplatePartInString(made, CString(tpl), sampleValues(), flags), rc);
    QCOMPARE(QString(made), "pre|" + out);

    if (logged)
        QTest::ignoreMessage(QtInfoMsg, missingKeyMessage);
    QTextStream in(&tpl, QIODevice::ReadOnly);
    CString fromStream(QStringLiteral("pre|"));
    QCOMPARE(processStringTemplatePartInString(fromStream, in, sampleValues(), flags), rc);
    QCOMPARE(QString(fromStream), "pre|" + out);
}

void tst_TemplateEngine::byteOutput_data()
{
    QTest::addColumn<QString>("tpl");
    QTest::addColumn<int>("flags");
    QTest::addColumn<int>("rc");
    QTest::addColumn<QByteArray>("out");
    QTest::newRow("bit 64 writes UTF-8")
        << "<a>$$(acc)</a>" << 64 << 0 << QByteArray("<a>\xc3\xa9</a>\n");
    QTest::newRow("no bit 64 writes Latin-1")
        << "<a>$$(acc)</a>" << 4 << 0 << QByteArray("<a>\xe9</a>\n");
    QTest::newRow("bit 64 alone does not escape") << "$$(amp)" << 64 << 0 << QByteArray("A&B\n");
    QTest::newRow("bit 64 keeps the escaping of bit 4")
        << "$$(amp)" << 68 << 0 << QByteArray("A&#38;B\n");
    QTest::newRow("partial output converted on error")
        << "$$(acc)\n$$(0)" << 64 << -103 << QByteArray("\xc3\xa9\n");
}

void tst_TemplateEngine::byteOutput()
{
    QFETCH(QString, tpl);
    QFETCH(int, flags);
    QFETCH(int, rc);
    QFETCH(QByteArray, out);
    std::string made = "pre|";
    QCOMPARE(processStringTemplatePartInString(made, CString(tpl), sampleValues(), flags), rc);
    QCOMPARE(QByteArray::fromStdString(made), "pre|" + out);

    QTextStream in(&tpl, QIODevice::ReadOnly);
    made = "pre|";
    QCOMPARE(processStringTemplatePartInString(made, in, sampleValues(), flags), rc);
    QCOMPARE(QByteArray::fromStdString(made), "pre|" + out);
}

void tst_TemplateEngine::fromFile_data()
{
    QTest::addColumn<Entry>("entry");
    QTest::addColumn<QByteArray>("tpl"); // null: the file does not exist
    QTest::addColumn<int>("flags");
    QTest::addColumn<int>("rc");
    QTest::addColumn<QByteArray>("written"); // for a CString, its UTF-8 form
    QTest::addColumn<bool>("logged");
    const QByteArray stopsAtMissingKey("<a>\n  $$(acc)\n$$(nokey)\n</a>\n");
    const QByteArray filler(8 << 20, 'x');

    QTest::newRow("CString: output before a missing key kept")
        << Entry::CStringFromPath << stopsAtMissingKey << 4 << -200
        << QByteArray("<a>\n  \xc3\xa9\nnokey") << true;
    QTest::newRow("CString: a path that does not open reads as empty")
        << Entry::CStringFromPath << QByteArray() << 4 << 0 << QByteArray() << false;
    QTest::newRow("template file read as UTF-8")
        << Entry::CStringFromPath << QByteArray("<a>\xc3\xa9 $$(name)</a>") << 4 << 0
        << QByteArray("<a>\xc3\xa9 Ann</a>\n") << false;
    QTest::newRow("std::string: Latin-1 without bit 64")
        << Entry::StdStringFromPath << QByteArray("<a>$$(acc)</a>") << 0 << 0
        << QByteArray("<a>\xe9</a>\n") << false;
    QTest::newRow("char path: UTF-8 with bit 64")
        << Entry::StdStringFromCharPath << QByteArray("<a>$$(acc)</a>") << 64 << 0
        << QByteArray("<a>\xc3\xa9</a>\n") << false;
    QTest::newRow("char path that does not open: -1, output untouched")
        << Entry::StdStringFromCharPath << QByteArray() << 4 << -1 << QByteArray() << false;
    QTest::newRow("one 8 MiB line without a terminator")
        << Entry::StdStringFromCharPath << filler + "$$(name)" << 4 << 0 << filler + "Ann\n"
        << false;
    QTest::newRow("FILE*: output before a missing key written")
        << Entry::FileFromCharPath << stopsAtMissingKey << 64 << -200
        << QByteArray("<a>\n  \xc3\xa9\nnokey") << true;
    QTest::newRow("FILE*: a path that does not open writes nothing")
        << Entry::FileFromCharPath << QByteArray() << 4 << -1 << QByteArray() << false;
    QTest::newRow("FILE*: one fputs, so a NUL ends the output")
        << Entry::FileFromCharPath << QByteArray("a\0b\n", 4) << 4 << 0 << QByteArray("a") << false;
}

void tst_TemplateEngine::fromFile()
{
    QFETCH(Entry, entry);
    QFETCH(QByteArray, tpl);
    QFETCH(int, flags);
    QFETCH(int, rc);
    QFETCH(QByteArray, written);
    QFETCH(bool, logged);

    QTemporaryDir dir;
    const QString path
        = tpl.isNull() ? dir.filePath("missing.xmt") : writeTempFile(dir, "template.xmt", tpl);
    QVERIFY(!path.isEmpty());
    const QByteArray localPath = QFile::encodeName(path);
    if (logged)
        QTest::ignoreMessage(QtInfoMsg, missingKeyMessage);

    switch (entry) {
    case Entry::CStringFromPath: {
        CString out(QStringLiteral("pre|"));
        QCOMPARE(processTemplatePartInString(out, CString(path), sampleValues(), flags), rc);
        QCOMPARE(out.toUtf8(), "pre|" + written);
        break;
    }
    case Entry::StdStringFromPath: {
        std::string out = "pre|";
        QCOMPARE(processTemplatePartInString(out, CString(path), sampleValues(), flags), rc);
        QCOMPARE(QByteArray::fromStdString(out), "pre|" + written);
        break;
    }
    case Entry::StdStringFromCharPath: {
        std::string out = "pre|";
        QCOMPARE(processTemplatePart(out, localPath.constData(), sampleValues(), flags), rc);
        QCOMPARE(QByteArray::fromStdString(out), "pre|" + written);
        break;
    }
    case Entry::FileFromCharPath: {
        FILE* f = std::tmpfile();
        QVERIFY(f);
        const int result = processTemplatePart(f, localPath.constData(), sampleValues(), flags);
        std::rewind(f);
        QByteArray bytes(64, '\0');
        bytes.truncate(qsizetype(std::fread(bytes.data(), 1, size_t(bytes.size()), f)));
        std::fclose(f);
        QCOMPARE(result, rc);
        QCOMPARE(bytes, written);
        break;
    }
    }
}

void tst_TemplateEngine::manyLookups_data()
{
    QTest::addColumn<int>("present");
    QTest::addColumn<int>("extra");
    QTest::addColumn<QString>("tpl");
    QTest::addColumn<int>("rc");
    QTest::addColumn<QString>("out");

    // Keys k0x to k39x are present: the first of every three lines asks for
    // its key as required, the others as optional; keys from k40x on are
    // asked for as optional only, so their lines vanish.
    QString tpl, out;
    for (int i = 0; i < 300; ++i) {
        const int k = i % 50;
        tpl += QStringLiteral("<a>$$(k%1x%2)</a>\n").arg(k).arg(k >= 40 || i % 3 ? "0" : "");
        if (k < 40)
            out += QStringLiteral("<a>v%1&#38;</a>\n").arg(k);
    }
    QTest::newRow("300 lookups in 40 keys, then a raw key and a missing one")
        << 40 << 0 << tpl + "$$($raw)\n$$(nokey)\nafter\n"
        << -200 << out + "<x/>\nnokey";
    QTest::newRow("the same among 5000 keys never asked for") << 40 << 5000 << tpl << 0 << out;
    QTest::newRow("40 optional lookups in an empty map")
        << 0 << 0 << QString("<a>$$(k1x0)</a>\n").repeated(40) << 0 << "";
}

// Long runs look keys up through an index of their own, short runs in the map.
void tst_TemplateEngine::manyLookups()
{
    QFETCH(int, present);
    QFETCH(int, extra);
    QFETCH(QString, tpl);
    QFETCH(int, rc);
    QFETCH(QString, out);
    ValueMap values;
    for (int i = 0; i < present; ++i)
        values["k" + std::to_string(i) + "x"] = CString(QStringLiteral("v%1&").arg(i));
    for (int i = 0; i < extra; ++i)
        values["f" + std::to_string(i)] = CString("unused");
    if (present > 0)
        values["$raw"] = CString("<x/>");
    if (rc == -200)
        QTest::ignoreMessage(QtInfoMsg, missingKeyMessage);
    CString made;
    QCOMPARE(processStringTemplatePartInString(made, CString(tpl), values, 4), rc);
    QCOMPARE(QString(made), out);
}

void tst_TemplateEngine::fileParts_data()
{
    QTest::addColumn<QByteArray>("xml");
    QTest::addColumn<int>("rc");
    QTest::addColumn<QString>("parts");
    QTest::newRow("malformed XML") << QByteArray("<r><filepart name='a'>x</r>") << 130 << "z=old;";
    QTest::newRow("no filepart leaves map unchanged")
        << QByteArray("<r><x name='a'>x</x></r>") << 0 << "z=old;";
    QTest::newRow("later duplicate replaces earlier")
        << QByteArray("<r><filepart name='a'>1</filepart><filepart name='b'>2</filepart>"
                      "<filepart name='a'>3</filepart></r>")
        << 0 << "a=3;b=2;z=old;";
    QTest::newRow("first part found by suffix in any letter case")
        << QByteArray("<r><x name='o'>9</x><ns:FilePart name='a'>1</ns:FilePart></r>") << 0
        << "a=1;z=old;";
    QTest::newRow("after the first, only siblings named exactly filepart")
        << QByteArray("<r><filepart name='a'>1</filepart><other name='o'>9</other>"
                      "<FilePart name='c'>3</FilePart><filepart name='b'>2</filepart></r>")
        << 0 << "a=1;b=2;z=old;";
    QTest::newRow("an existing entry is replaced")
        << QByteArray("<r><filepart name='z'>new</filepart></r>") << 0 << "z=new;";
    // Such elements were once fatal; now they are passed over.
    QTest::newRow("part without a name skipped")
        << QByteArray("<r><filepart>x</filepart><filepart name='b'>2</filepart></r>") << 0
        << "b=2;z=old;";
    QTest::newRow("empty part skipped")
        << QByteArray("<r><filepart name='e'/><filepart name='b'>2</filepart></r>") << 0
        << "b=2;z=old;";
    QTest::newRow("part holding only an element skipped")
        << QByteArray("<r><filepart name='f'><i/></filepart><filepart name='b'>2</filepart></r>")
        << 0 << "b=2;z=old;";
    QTest::newRow("CDATA keeps line breaks, text read as UTF-8")
        << QByteArray("<r><filepart name='t'><![CDATA[<a>\n$$(v)\n\xc3\xa9</a>]]></filepart></r>")
        << 0 << QString::fromUtf8("t=<a>\n$$(v)\n\xc3\xa9</a>;z=old;");
    QTest::newRow("deep but well-formed nesting refused before parsing")
        << "<r>" + QByteArray("<a>").repeated(100000) + QByteArray("</a>").repeated(100000) + "</r>"
        << 130 << "z=old;";
}

void tst_TemplateEngine::fileParts()
{
    QFETCH(QByteArray, xml);
    QFETCH(int, rc);
    QFETCH(QString, parts);
    ValueMap map = { { "z", CString("old") } };
    QCOMPARE(parseXMLFilePartIntoMap(xml.toStdString(), map), rc);
    QString text;
    for (const auto& [key, value] : map)
        text += QString::fromStdString(key) + '=' + value + ';';
    QCOMPARE(text, parts);
}

QTEST_GUILESS_MAIN(tst_TemplateEngine)
#include "tst_templateengine.moc"
