#include "cstring.h"
#include "mydatastream.h"
#include "streambytes.h"

#include <QBuffer>
#include <QTest>

// A call on a text with a byte-string argument and a number; the row picks it.
using Op = QString (*)(CString text, QByteArray utf8, int n);
Q_DECLARE_METATYPE(Op)

namespace {

int sign(int v)
{
    return (v > 0) - (v < 0);
}

} // namespace

class tst_CString : public QObject
{
    Q_OBJECT

private slots:
    void nullAndEmpty()
    {
        const char* const nullText = nullptr;
        QCOMPARE(CString(nullText), QString(""));
        QVERIFY(!CString(nullText).isNull());
        CString text("abc");
        text = nullText;
        QVERIFY(text.isEmpty() && !text.isNull());
        text.LoadString(nullText);
        QVERIFY(text.isEmpty());
        QCOMPARE(CString("abc").Find(nullText), 0);
        QCOMPARE(::stricmp(nullText, ""), 0);
        text.Empty(); // the one way to a null text
        QVERIFY(text.isNull());
    }

    void ops_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<Op>("op");
        QTest::addColumn<QString>("arg"); // reaches the call as UTF-8 bytes
        QTest::addColumn<int>("n");
        QTest::addColumn<QString>("expected");
        // A call that changes the text in place returns it by the comma operator.
        const Op ctor = [](auto, auto a, auto) { return QString(CString(a.data())); };
        const Op load = [](auto t, auto a, auto) { return t.LoadString(a.data()), QString(t); };
        const Op mid = [](auto t, auto, auto n) { return QString(t.Mid(1, n)); };
        const Op left = [](auto t, auto, auto n) { return QString(t.Left(n)); };
        const Op right = [](auto t, auto, auto n) { return QString(t.Right(n)); };
        const Op trimLeft = [](auto t, auto, auto) { return t.TrimLeft(), QString(t); };
        const Op trim = [](auto t, auto, auto) { return t.Trim(), QString(t); };
        const Op spaces = [](auto t, auto, auto) { return removeContinuousSpace(t), QString(t); };
        const Op replace
            = [](auto t, auto a, auto) { return t.Replace(a.data(), "xy"), QString(t); };
        const Op replaceChar
            = [](auto t, auto, auto) { return t.Replace('\xe9', 'e'), QString(t); };
        const Op remove = [](auto t, auto a, auto) { return t.Remove(a[0]), QString(t); };
        const Op latin1
            = [](auto t, auto, auto n) { return QString::fromLatin1(t.toStdStringLatin1(n)); };
        const Op utf8
            = [](auto t, auto, auto n) { return QString::fromStdString(t.toStdStringUTF8(n)); };
        const Op xml
            = [](auto t, auto a, auto n) { return QString(convertToXMLString(t, n, a.toInt())); };
        const Op at = [](auto t, auto, auto) { return QString::number(t.GetAt(0)); };
        const Op find = [](auto t, auto a, auto) { return QString::number(t.Find(a.data())); };
        const Op rfind
            = [](auto t, auto a, auto) { return QString::number(t.ReverseFind(a.data())); };
        const Op cmp
            = [](auto t, auto a, auto) { return QString::number(sign(t.Compare(a.data()))); };
        const Op noCase
            = [](auto t, auto a, auto) { return QString::number(sign(t.CompareNoCase(a.data()))); };
        const Op ci = [](auto t, auto a, auto) {
            return QString::number(::stricmp(t.toLatin1().data(), a.data()));
        };
        const QString cafe = "caf\u00e9", ete = "\u00e9t\u00e9", blanks = " \t\r\nab c\n\t ";
        QTest::newRow("constructor: Latin-1") << "" << ctor << cafe << 0 << "caf\u00c3\u00a9";
        QTest::newRow("LoadString: UTF-8") << "" << load << cafe << 0 << cafe;
        QTest::newRow("Mid: count 0 to the end") << "abc" << mid << "" << 0 << "bc";
        QTest::newRow("Left: -1 is all") << "abc" << left << "" << -1 << "abc";
        QTest::newRow("Left: 0 is none") << "abc" << left << "" << 0 << "";
        QTest::newRow("Right: 0 is none") << "abc" << right << "" << 0 << "";
        QTest::newRow("TrimLeft") << blanks << trimLeft << "" << 0 << "ab c\n\t ";
        QTest::newRow("Trim") << blanks << trim << "" << 0 << "ab c";
        // QString::trimmed would take the no-break space: the trims use the engine's \s.
        QTest::newRow("Trim: no-break space")
            << "\u00a0a\u00a0" << trim << "" << 0 << "\u00a0a\u00a0";
        QTest::newRow("spaces: one pass") << "a    b" << spaces << "" << 0 << "a  b";
        QTest::newRow("Replace: UTF-8 needle") << cafe << replace << "\u00e9" << 0 << "cafxy";
        QTest::newRow("Replace: all, by case") << "aAba" << replace << "a" << 0 << "xyAbxy";
        QTest::newRow("Replace: empty needle") << "abc" << replace << "" << 0 << "abc";
        QTest::newRow("Replace char: a Latin-1 byte") << ete << replaceChar << "" << 0 << "ete";
        QTest::newRow("Remove: by case") << "banAna" << remove << "a" << 0 << "bnAn";
        QTest::newRow("Latin-1: outside is ?") << "\u20ac1" << latin1 << "" << 0 << "?1";
        QTest::newRow("UTF-8: n counts characters") << ete << utf8 << "" << 1 << "\u00e9";
        QTest::newRow("UTF-8: NUL ends")
            << QString::fromLatin1("a\0b", 3) << utf8 << "" << 0 << "a";
        QTest::newRow("xml: five entities")
            << "\"'&<>" << xml << "4" << 0 << "&#34;&#39;&#38;&#60;&#62;";
        QTest::newRow("xml: flag 8 escapes") << "a<b" << xml << "8" << 0 << "a&#60;b";
        QTest::newRow("xml: flags 3 do not") << "a<b" << xml << "3" << 1 << "a<b";
        QTest::newRow("xml: maxLen -1 is none") << "abc" << xml << "4" << -1 << "";
        QTest::newRow("xml: maxLen 2 cuts") << "abc" << xml << "4" << 2 << "ab";
        QTest::newRow("xml: maxLen past the end") << "abc" << xml << "4" << 4 << "abc";
        QTest::newRow("xml: cut before escaping")
            << "&&&&&" << xml << "4" << 3 << "&#38;&#38;&#38;";
        QTest::newRow("GetAt: 128 is negative") << "\u0080" << at << "" << 0 << "-128";
        QTest::newRow("GetAt: 256 is 0") << "\u0100" << at << "" << 0 << "0";
        QTest::newRow("Find: empty is 0") << "abc" << find << "" << 0 << "0";
        QTest::newRow("Find: UTF-8") << cafe << find << "\u00e9" << 0 << "3";
        QTest::newRow("ReverseFind: the last") << "abcabc" << rfind << "bc" << 0 << "4";
        QTest::newRow("ReverseFind: UTF-8") << ete << rfind << "\u00e9" << 0 << "2";
        QTest::newRow("Compare: case counts") << "abc" << cmp << "ABC" << 0 << "1";
        QTest::newRow("CompareNoCase: UTF-8") << cafe << noCase << "CAF\u00c9" << 0 << "0";
        QTest::newRow("stricmp: first difference") << "abx" << ci << "ABz" << 0 << "-2";
        QTest::newRow("stricmp: first text ends") << "ab" << ci << "abC" << 0 << "-99";
    }
    void ops()
    {
        QFETCH(QString, text);
        QFETCH(Op, op);
        QFETCH(QString, arg);
        QFETCH(int, n);
        QTEST(op(text, arg.toUtf8(), n), "expected");
    }

    void littleEndianStream()
    {
        const QByteArray bytes = storeBytes([](MyDataStream& stream) {
            QVERIFY(stream.IsStoring() && !stream.IsLoading());
            stream << qint32(1) << 1.0;
            QCOMPARE(stream.Write("xyz", 3), 3);
        });
        QCOMPARE(bytes, QByteArray::fromHex("01000000000000000000f03f78797a"));
        char raw[16] = {};
        int read = 0;
        // Raw reads add no length prefix and report what they got.
        QCOMPARE(loadBytes("xyz",
                           [&](MyDataStream& stream) {
                               QVERIFY(stream.IsLoading() && !stream.IsStoring());
                               read = stream.Read(raw, 16);
                           }),
                 3);
        QCOMPARE(read, 3);
        QCOMPARE(QByteArray(raw), QByteArray("xyz"));
        // Two separate questions to the device, not opposites.
        QBuffer both;
        both.open(QIODevice::ReadWrite);
        QVERIFY(MyDataStream(&both).IsLoading() && MyDataStream(&both).IsStoring());
    }
};

QTEST_GUILESS_MAIN(tst_CString)
#include "tst_cstring.moc"
