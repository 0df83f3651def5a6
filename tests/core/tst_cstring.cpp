#include "cstring.h"
#include "mydatastream.h"

#include <QBuffer>
#include <QTest>

namespace {

void row(const char* why, const QString& got, const QString& expected)
{
    QTest::newRow(why) << got << expected;
}

void row(const char* why, int got, int expected)
{
    row(why, QString::number(got), QString::number(expected));
}

} // namespace

class tst_CString : public QObject
{
    Q_OBJECT

private slots:
    void rules_data();
    void rules();
    void littleEndianStream();
};

void tst_CString::rules_data()
{
    QTest::addColumn<QString>("got");
    QTest::addColumn<QString>("expected");
    const CString abc("abc");
    const CString cafe(QStringLiteral("caf\u00e9"));
    const auto ed = [](CString s, auto edit) {
        edit(s);
        return QString(s);
    };
    const auto nulled = [](auto& s) { s = static_cast<const char*>(nullptr); };
    const auto trimmed = [](auto& s) { s.Trim(); };
    CString loaded;
    loaded.LoadString("caf\xc3\xa9");
    CString emptied("x");
    emptied.Empty();

    row("null const char* is empty text", CString(static_cast<const char*>(nullptr)), "");
    row("assigning a null const char* clears", ed(abc, nulled), "");
    row("constructor reads Latin-1", CString("caf\xc3\xa9"), QStringLiteral("caf\u00c3\u00a9"));
    row("LoadString reads UTF-8", loaded, cafe);
    row("default is empty, not null", CString().isNull(), false);
    row("Empty makes the text null", emptied.isNull(), true);

    row("Mid: count 0 runs to the end, not empty", abc.Mid(1, 0), "bc");
    row("Mid: negative count runs to the end", abc.Mid(1, -5), "bc");
    row("Left(-1) is the whole text", abc.Left(-1), "abc");
    row("Right(-1) is the whole text", abc.Right(-1), "abc");

    row("Trim: blanks, tabs and line ends", ed(" \t\r\nab c\n\t ", trimmed), "ab c");
    row("Trim: no-break space is not \\s of the engine, unlike trimmed()",
        ed(QStringLiteral("\u00a0a"), trimmed), QStringLiteral("\u00a0a"));
    row("Replace(char) reads Latin-1", ed(cafe, [](auto& s) { s.Replace('\xe9', 'e'); }), "cafe");
    row("Replace(const char*) reads UTF-8", ed(cafe, [](auto& s) { s.Replace("\xc3\xa9", "E"); }),
        "cafE");
    row("Replace of empty text inserts nothing", ed(abc, [](auto& s) { s.Replace("", "x"); }),
        "abc");
    row("Remove is case-sensitive", ed("banAna", [](auto& s) { s.Remove('a'); }), "bnAn");
    row("removeContinuousSpace is one pass: four blanks become two",
        ed("a    b", removeContinuousSpace), "a  b");

    row("toStdStringUTF8 cuts characters, not bytes", int(cafe.toStdStringUTF8(4).size()), 5);
    row("toStdStringLatin1 outside Latin-1 gives the replacement",
        QString::fromStdString(CString(QStringLiteral("\u20ac1")).toStdStringLatin1()), "?1");
    row("toStdString stops at an embedded NUL",
        int(CString(QString::fromLatin1("a\0b", 3)).toStdStringUTF8().size()), 1);

    row("XML: cut falls on the source, never inside an entity",
        convertToXMLString(CString("&&&&&"), 3), "&#38;&#38;&#38;");
    row("XML: numeric entities only", CString("\"'&<>").toXmlString(), "&#34;&#39;&#38;&#60;&#62;");
    row("XML: flag 8 escapes too", convertToXMLString(CString("a<b"), 0, 8), "a&#60;b");
    row("XML: without flag 4 or 8 neither escaped nor cut",
        convertToXMLString(CString("a<b"), 1, 2), "a<b");
    row("XML: negative length gives nothing", convertToXMLString(abc, -1), "");
    row("XML: nothing to escape still cut", convertToXMLString(CString("plain"), 2), "pl");
    row("XML: escape after the cut is not reached", convertToXMLString(CString("ab&"), 2), "ab");

    row("GetAt: unit 233 comes back negative", CString(QStringLiteral("\u00e9")).GetAt(0), -23);
    row("GetAt: unit 256 and above is 0", CString(QStringLiteral("\u0100")).GetAt(0), 0);
    row("Find: empty needle is 0", abc.Find(""), 0);
    row("Find: needle is UTF-8", cafe.Find("\xc3\xa9"), 3);
    row("ReverseFind: needle ending at the last character", CString("abcabc").ReverseFind("bc"), 4);
    row("CompareNoCase reads UTF-8", cafe.CompareNoCase("CAF\xc3\x89"), 0);
    row("stricmp ignores case", stricmp("aBc", "AbC"), 0);
    row("stricmp: the difference of the first differing pair", stricmp("ab", "abC"), -int('c'));
}

void tst_CString::rules()
{
    QFETCH(QString, got);
    QFETCH(QString, expected);
    QCOMPARE(got, expected);
}

void tst_CString::littleEndianStream()
{
    QBuffer buffer;
    QVERIFY(buffer.open(QIODevice::ReadWrite));
    MyDataStream stream(&buffer);
    // Two separate questions to the device, not opposites.
    QVERIFY(stream.IsLoading() && stream.IsStoring());
    stream << qint32(1) << 1.0;
    QCOMPARE(stream.Write("xyz", 3), 3);
    QCOMPARE(buffer.data(),
             QByteArray::fromHex("01000000"
                                 "000000000000f03f"
                                 "78797a"));
    char raw[16] = {};
    QVERIFY(buffer.seek(12));
    QCOMPARE(stream.Read(raw, 16), 3);
}

QTEST_GUILESS_MAIN(tst_CString)
#include "tst_cstring.moc"
