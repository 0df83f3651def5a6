#include "cstring.h"
#include "mydatastream.h"
#include "streambytes.h"

#include <QBuffer>
#include <QTest>

namespace {

int sign(int v)
{
    return (v > 0) - (v < 0);
}

const char* const NullText = nullptr;

} // namespace

class tst_CString : public QObject
{
    Q_OBJECT

private slots:
    void nullPointerIsEmptyText();
    void emptyIsNotNull();
    void encodingOfConstChar_data();
    void encodingOfConstChar();
    void mid_data();
    void mid();
    void leftAndRight_data();
    void leftAndRight();
    void trim_data();
    void trim();
    void replaceText_data();
    void replaceText();
    void replaceAndRemoveChar_data();
    void replaceAndRemoveChar();
    void removeContinuousSpace_data();
    void removeContinuousSpace();
    void toStdString_data();
    void toStdString();
    void xmlEscape_data();
    void xmlEscape();
    void getAt_data();
    void getAt();
    void find_data();
    void find();
    void reverseFind_data();
    void reverseFind();
    void compare_data();
    void compare();
    void stricmp_data();
    void stricmp();
    void streamDirection_data();
    void streamDirection();
    void littleEndianStream();
};

void tst_CString::nullPointerIsEmptyText()
{
    QCOMPARE(CString(NullText), QString(""));
    CString assigned("abc");
    assigned = NullText;
    QVERIFY(assigned.isEmpty());
    CString loaded("abc");
    loaded.LoadString(NullText);
    QVERIFY(loaded.isEmpty());
    QCOMPARE(CString("abc").Find(NullText), 0);
    QCOMPARE(::stricmp(NullText, ""), 0);
}

void tst_CString::emptyIsNotNull()
{
    QVERIFY(!CString().isNull());
    CString text("x");
    text.Empty();
    QVERIFY(text.isNull());
}

void tst_CString::encodingOfConstChar_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("constructed");
    QTest::addColumn<QString>("loaded");
    QTest::newRow("UTF-8 bytes: Latin-1 by the constructor, UTF-8 by LoadString")
        << QByteArray("caf\xc3\xa9") << QStringLiteral("caf\u00c3\u00a9")
        << QStringLiteral("caf\u00e9");
    QTest::newRow("a Latin-1 byte: a letter by the constructor, no UTF-8 for LoadString")
        << QByteArray("caf\xe9") << QStringLiteral("caf\u00e9") << QStringLiteral("caf\ufffd");
}

void tst_CString::encodingOfConstChar()
{
    QFETCH(QByteArray, bytes);
    QTEST(QString(CString(bytes.constData())), "constructed");
    CString assigned("old");
    assigned = bytes.constData();
    QTEST(QString(assigned), "constructed");
    CString loaded("old");
    loaded.LoadString(bytes.constData());
    QTEST(QString(loaded), "loaded");
}

void tst_CString::mid_data()
{
    QTest::addColumn<int>("start");
    QTest::addColumn<int>("count");
    QTest::addColumn<QString>("expected");
    QTest::newRow("count 1 takes one unit") << 1 << 1 << "b";
    QTest::newRow("count 0 runs to the end, not empty") << 1 << 0 << "bc";
    QTest::newRow("count -1 runs to the end") << 1 << -1 << "bc";
    QTest::newRow("any negative count runs to the end") << 1 << -5 << "bc";
    QTest::newRow("count beyond the end stops there") << 1 << 9 << "bc";
}

void tst_CString::mid()
{
    QFETCH(int, start);
    QFETCH(int, count);
    QTEST(QString(CString("abc").Mid(start, count)), "expected");
}

void tst_CString::leftAndRight_data()
{
    QTest::addColumn<int>("n");
    QTest::addColumn<QString>("left");
    QTest::addColumn<QString>("right");
    QTest::newRow("-1 gives the whole text") << -1 << "abc"
                                             << "abc";
    QTest::newRow("0 gives nothing") << 0 << ""
                                     << "";
    QTest::newRow("one short of the length cuts") << 2 << "ab"
                                                  << "bc";
    QTest::newRow("the length gives the whole text") << 3 << "abc"
                                                     << "abc";
    QTest::newRow("beyond the length gives the whole text") << 4 << "abc"
                                                            << "abc";
}

void tst_CString::leftAndRight()
{
    QFETCH(int, n);
    const CString text("abc");
    QTEST(QString(text.Left(n)), "left");
    QTEST(QString(text.Right(n)), "right");
}

void tst_CString::trim_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("left");
    QTest::addColumn<QString>("right");
    QTest::addColumn<QString>("both");
    QTest::newRow("blanks, tabs and line ends") << " \t\r\nab c\n\t "
                                                << "ab c\n\t "
                                                << " \t\r\nab c"
                                                << "ab c";
    // QString::trimmed would take the no-break space: the trims must use the engine's \s.
    QTest::newRow("no-break space is not white space to the engine")
        << QStringLiteral("\u00a0a\u00a0") << QStringLiteral("\u00a0a\u00a0")
        << QStringLiteral("\u00a0a\u00a0") << QStringLiteral("\u00a0a\u00a0");
}

void tst_CString::trim()
{
    QFETCH(QString, text);
    CString left(text), right(text), both(text);
    left.TrimLeft();
    right.TrimRight();
    both.Trim();
    QTEST(QString(left), "left");
    QTEST(QString(right), "right");
    QTEST(QString(both), "both");
}

void tst_CString::replaceText_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QByteArray>("from");
    QTest::addColumn<QByteArray>("to");
    QTest::addColumn<QString>("expected");
    QTest::newRow("both texts read as UTF-8")
        << QStringLiteral("caf\u00e9") << QByteArray("\xc3\xa9") << QByteArray("\xc3\xa8")
        << QStringLiteral("caf\u00e8");
    QTest::newRow("every occurrence") << "abab" << QByteArray("b") << QByteArray("xy") << "axyaxy";
    QTest::newRow("case-sensitive") << "aA" << QByteArray("a") << QByteArray("x") << "xA";
    QTest::newRow("an empty needle inserts nothing")
        << "abc" << QByteArray() << QByteArray("x") << "abc";
}

void tst_CString::replaceText()
{
    QFETCH(QString, text);
    QFETCH(QByteArray, from);
    QFETCH(QByteArray, to);
    CString s(text);
    QCOMPARE(s.Replace(from.constData(), to.constData()), 0);
    QTEST(QString(s), "expected");
}

void tst_CString::replaceAndRemoveChar_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<char>("from");
    QTest::addColumn<char>("to");
    QTest::addColumn<QString>("replaced");
    QTest::addColumn<QString>("removed");
    QTest::newRow("the char is Latin-1")
        << QStringLiteral("\u00e9t\u00e9") << '\xe9' << 'e' << "ete"
        << "t";
    QTest::newRow("case-sensitive") << "banAna" << 'a' << 'o' << "bonAno"
                                    << "bnAn";
}

void tst_CString::replaceAndRemoveChar()
{
    QFETCH(QString, text);
    QFETCH(char, from);
    QFETCH(char, to);
    CString replaced(text), removed(text);
    QCOMPARE(replaced.Replace(from, to), 0);
    QCOMPARE(removed.Remove(from), 0);
    QTEST(QString(replaced), "replaced");
    QTEST(QString(removed), "removed");
}

void tst_CString::removeContinuousSpace_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("expected");
    QTest::newRow("two blanks become one") << "a  b"
                                           << "a b";
    QTest::newRow("one pass: three blanks become two") << "a   b"
                                                       << "a  b";
    QTest::newRow("one pass: four blanks become two") << "a    b"
                                                      << "a  b";
    QTest::newRow("tabs are not blanks") << "a\t\tb"
                                         << "a\t\tb";
}

void tst_CString::removeContinuousSpace()
{
    QFETCH(QString, text);
    CString s(text);
    ::removeContinuousSpace(s);
    QTEST(QString(s), "expected");
}

void tst_CString::toStdString_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("n");
    QTest::addColumn<QByteArray>("latin1");
    QTest::addColumn<QByteArray>("utf8");
    const QString cafe = QStringLiteral("caf\u00e9");
    QTest::newRow("n 0 cuts nothing")
        << cafe << 0 << QByteArray("caf\xe9") << QByteArray("caf\xc3\xa9");
    QTest::newRow("n -1 cuts nothing")
        << cafe << -1 << QByteArray("caf\xe9") << QByteArray("caf\xc3\xa9");
    QTest::newRow("n 1 cuts to one character") << cafe << 1 << QByteArray("c") << QByteArray("c");
    QTest::newRow("the cut counts characters: one gives two UTF-8 bytes")
        << QStringLiteral("\u00e9t\u00e9") << 1 << QByteArray("\xe9") << QByteArray("\xc3\xa9");
    QTest::newRow("outside Latin-1 gives the framework's replacement")
        << QStringLiteral("\u20ac1") << 0 << QByteArray("?1")
        << QByteArray("\xe2\x82\xac"
                      "1");
    QTest::newRow("the copy stops at an embedded NUL")
        << QString::fromLatin1("a\0b", 3) << 0 << QByteArray("a") << QByteArray("a");
}

void tst_CString::toStdString()
{
    QFETCH(QString, text);
    QFETCH(int, n);
    QFETCH(QByteArray, latin1);
    QFETCH(QByteArray, utf8);
    QCOMPARE(CString(text).toStdStringLatin1(n), latin1.toStdString());
    QCOMPARE(CString(text).toStdStringUTF8(n), utf8.toStdString());
}

void tst_CString::xmlEscape_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("maxLen");
    QTest::addColumn<int>("flags");
    QTest::addColumn<QString>("expected");
    QTest::newRow("five characters become numeric entities")
        << "\"'&<>" << 0 << 4 << "&#34;&#39;&#38;&#60;&#62;";
    QTest::newRow("control characters are copied") << "\t\x01" << 0 << 4 << "\t\x01";
    QTest::newRow("flag 8 escapes too") << "a<b" << 0 << 8 << "a&#60;b";
    QTest::newRow("flags 12 escape") << "a<b" << 0 << 12 << "a&#60;b";
    QTest::newRow("flags 3: neither escaped nor cut") << "a<b" << 1 << 3 << "a<b";
    QTest::newRow("flags 16: neither escaped nor cut") << "a<b" << 1 << 16 << "a<b";
    QTest::newRow("maxLen -1 gives nothing") << "abc" << -1 << 4 << "";
    QTest::newRow("maxLen 0 keeps the whole text") << "abc" << 0 << 4 << "abc";
    QTest::newRow("maxLen 1 keeps one character") << "abc" << 1 << 4 << "a";
    QTest::newRow("maxLen one short of the length cuts") << "abc" << 2 << 4 << "ab";
    QTest::newRow("maxLen at the length keeps it whole") << "abc" << 3 << 4 << "abc";
    QTest::newRow("maxLen beyond the length keeps it whole") << "abc" << 4 << 4 << "abc";
    QTest::newRow("the cut falls on the source, never inside an entity")
        << "&&&&&" << 3 << 4 << "&#38;&#38;&#38;";
    QTest::newRow("an escape after the cut is not reached") << "ab&" << 2 << 4 << "ab";
}

void tst_CString::xmlEscape()
{
    QFETCH(QString, text);
    QFETCH(int, maxLen);
    QFETCH(int, flags);
    QFETCH(QString, expected);
    QCOMPARE(QString(convertToXMLString(CString(text), maxLen, flags)), expected);
    // The shorter forms are flags 4, and then maxLen 0 as well.
    if (flags == 4)
        QCOMPARE(QString(convertToXMLString(CString(text), maxLen)), expected);
    if (flags == 4 && maxLen == 0) {
        QCOMPARE(QString(convertToXMLString(CString(text))), expected);
        QCOMPARE(QString(CString(text).toXmlString()), expected);
    }
}

void tst_CString::getAt_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("expected");
    QTest::newRow("unit 127 as it is") << QStringLiteral("\u007f") << 127;
    QTest::newRow("unit 128 comes back negative") << QStringLiteral("\u0080") << -128;
    QTest::newRow("unit 233 comes back as -23") << QStringLiteral("\u00e9") << -23;
    QTest::newRow("unit 255 comes back as -1") << QStringLiteral("\u00ff") << -1;
    QTest::newRow("unit 256 gives 0") << QStringLiteral("\u0100") << 0;
    QTest::newRow("the euro sign gives 0") << QStringLiteral("\u20ac") << 0;
}

void tst_CString::getAt()
{
    QFETCH(QString, text);
    QTEST(int(CString(text).GetAt(0)), "expected");
}

void tst_CString::find_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QByteArray>("needle");
    QTest::addColumn<int>("expected");
    QTest::newRow("an empty needle is 0") << "abc" << QByteArray() << 0;
    QTest::newRow("the first of two") << "abcabc" << QByteArray("bc") << 1;
    QTest::newRow("the needle is UTF-8")
        << QStringLiteral("caf\u00e9") << QByteArray("\xc3\xa9") << 3;
    QTest::newRow("case-sensitive") << "abc" << QByteArray("B") << -1;
}

void tst_CString::find()
{
    QFETCH(QString, text);
    QFETCH(QByteArray, needle);
    QTEST(CString(text).Find(needle.constData()), "expected");
}

void tst_CString::reverseFind_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QByteArray>("needle");
    QTest::addColumn<int>("expected");
    QTest::newRow("a needle ending at the last character") << "abcabc" << QByteArray("bc") << 4;
    QTest::newRow("a needle at the start") << "abcxyz" << QByteArray("ab") << 0;
    QTest::newRow("the needle is UTF-8")
        << QStringLiteral("\u00e9t\u00e9") << QByteArray("\xc3\xa9") << 2;
    QTest::newRow("case-sensitive") << "abc" << QByteArray("C") << -1;
}

void tst_CString::reverseFind()
{
    QFETCH(QString, text);
    QFETCH(QByteArray, needle);
    QTEST(CString(text).ReverseFind(needle.constData()), "expected");
}

void tst_CString::compare_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QByteArray>("other");
    QTest::addColumn<int>("compare");
    QTest::addColumn<int>("compareNoCase");
    QTest::newRow("equal") << "abc" << QByteArray("abc") << 0 << 0;
    QTest::newRow("letter case counts only case-sensitively")
        << "abc" << QByteArray("ABC") << 1 << 0;
    QTest::newRow("three-way: less") << "abc" << QByteArray("abd") << -1 << -1;
    QTest::newRow("the other text is UTF-8")
        << QStringLiteral("caf\u00e9") << QByteArray("CAF\xc3\x89") << 1 << 0;
}

void tst_CString::compare()
{
    QFETCH(QString, text);
    QFETCH(QByteArray, other);
    const CString s(text);
    CString o;
    o.LoadString(other.constData());
    QTEST(sign(s.Compare(other.constData())), "compare");
    QTEST(sign(s.Compare(o)), "compare");
    QTEST(sign(s.CompareNoCase(other.constData())), "compareNoCase");
    QTEST(sign(s.CompareNoCase(o)), "compareNoCase");
}

void tst_CString::stricmp_data()
{
    QTest::addColumn<QByteArray>("a");
    QTest::addColumn<QByteArray>("b");
    QTest::addColumn<int>("expected");
    QTest::newRow("letter case is ignored") << QByteArray("aBc") << QByteArray("AbC") << 0;
    QTest::newRow("the difference of the first differing pair")
        << QByteArray("abx") << QByteArray("ABz") << int('x') - int('z');
    QTest::newRow("the first text ends the walk: 0 against the next byte")
        << QByteArray("ab") << QByteArray("abC") << -int('c');
    QTest::newRow("the second text ending first")
        << QByteArray("abc") << QByteArray("AB") << int('c');
}

void tst_CString::stricmp()
{
    QFETCH(QByteArray, a);
    QFETCH(QByteArray, b);
    QTEST(::stricmp(a.constData(), b.constData()), "expected");
}

void tst_CString::streamDirection_data()
{
    QTest::addColumn<int>("mode");
    QTest::addColumn<bool>("loading");
    QTest::addColumn<bool>("storing");
    QTest::newRow("read only") << int(QIODevice::ReadOnly) << true << false;
    QTest::newRow("write only") << int(QIODevice::WriteOnly) << false << true;
    // Two separate questions to the device, not opposites.
    QTest::newRow("read and write answers both") << int(QIODevice::ReadWrite) << true << true;
}

void tst_CString::streamDirection()
{
    QFETCH(int, mode);
    QBuffer buffer;
    QVERIFY(buffer.open(QIODevice::OpenMode(mode)));
    MyDataStream stream(&buffer);
    QTEST(stream.IsLoading(), "loading");
    QTEST(stream.IsStoring(), "storing");
}

void tst_CString::littleEndianStream()
{
    const QByteArray bytes = storeBytes([](MyDataStream& stream) {
        stream << qint32(1) << 1.0;
        QCOMPARE(stream.Write("xyz", 3), 3);
    });
    QCOMPARE(bytes, QByteArray::fromHex("01000000000000000000f03f78797a"));
    char raw[16] = {};
    int read = 0;
    // Raw reads add no length prefix and report what they got.
    QCOMPARE(loadBytes("xyz", [&](MyDataStream& stream) { read = stream.Read(raw, 16); }), 3);
    QCOMPARE(read, 3);
    QCOMPARE(QByteArray(raw), QByteArray("xyz"));
}

QTEST_GUILESS_MAIN(tst_CString)
#include "tst_cstring.moc"
