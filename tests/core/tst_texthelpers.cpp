#include "tempfiles.h"
#include "texthelpers.h"

#include <QTemporaryDir>
#include <QTest>

#include <climits>

// A call on a text, a second text and a number that leaves its result in out (which
// starts as "old"); the row picks the call.
using Fn = void (*)(QString text, QString arg, int n, CString& out);
Q_DECLARE_METATYPE(Fn)

namespace {

// Rows as (field|field), so that an empty field and a missing row differ.
QString render(const std::vector<std::vector<std::string>>& rows)
{
    QString out;
    for (const auto& row : rows) {
        QStringList fields;
        for (const auto& field : row)
            fields << QString::fromStdString(field);
        out += '(' + fields.join('|') + ')';
    }
    return out;
}

QStringList sorted(const std::set<std::string>& numbers)
{
    QStringList out;
    for (const auto& n : numbers)
        out << QString::fromStdString(n);
    return out;
}

} // namespace

class tst_TextHelpers : public QObject
{
    Q_OBJECT

private slots:
    void calls_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<Fn>("fn");
        QTest::addColumn<QString>("arg");
        QTest::addColumn<int>("n");
        QTest::addColumn<QString>("expected");
        const Fn dbl = [](auto t, auto, auto n, auto& o) { myDoubleToString(t.toDouble(), n, o); };
        const Fn netfile
            = [](auto t, auto, auto n, auto& o) { GetPercentStringForNetfile(t.toDouble(), n, o); };
        const Fn at1
            = [](auto t, auto, auto n, auto& o) { GetPercentStringForAT1(t.toDouble(), n, o); };
        const Fn toDouble = [](auto t, auto, auto, auto& o) {
            o = QString::number(myStringToDouble(t.toStdString()));
        };
        const Fn numeric
            = [](auto t, auto, auto n, auto& o) { o = QString::number(isNumericStr(t, n)); };
        const Fn digits = [](auto t, auto, auto, auto& o) {
            o = QString::number(IsDigits(t.toLatin1().data()));
        };
        const Fn hour = [](auto t, auto, auto, auto& o) { myStringTimeHourValidate(o = t); };
        const Fn minutes = [](auto t, auto, auto, auto& o) { myStringTimeMinsValidate(o = t); };
        const Fn cut = [](auto t, auto a, auto, auto& o) {
            removeBeforeKeywordFromKeyChar(o = t, a.toUtf8().data(), '<');
        };
        const Fn endsWith = [](auto t, auto a, auto n, auto& o) {
            o = QString::number(stringEndwith(t, a.toUtf8().data(), n));
        };
        const Fn fixed = [](auto t, auto, auto n, auto& o) {
            makeStringToFixLengthStringByTrailingSpaces(
                o, t.isNull() ? nullptr : t.toLatin1().data(), n);
        };
        const Fn lines
            = [](auto t, auto, auto n, auto& o) { formatStringToMaxCharsPerLine(t, n, o); };
        // The text is the country; province ON, city Ottawa, address line 2 empty.
        const Fn addr104 = [](auto t, auto, auto, auto& o) {
            formatStringToT2AddrIn104Letters(o, t.toLatin1().data(), "ON", "Ottawa", "123 Main St",
                                             "", "K1A 0B1");
        };
        // Every piece the text; a null text gives null pieces.
        const Fn addrSame = [](auto t, auto, auto, auto& o) {
            const QByteArray b = t.toLatin1();
            const char* s = t.isNull() ? nullptr : b.data();
            formatStringToT2AddrIn104Letters(o, s, s, s, s, s, s);
        };
        const Fn csv = [](auto t, auto, auto, auto& o) {
            std::vector<std::vector<std::string>> rows { { "stale" } };
            ParseCSV(t.toStdString(), rows);
            o = render(rows);
        };

        QTest::newRow("whole: no decimals") << "12" << dbl << "" << 2 << "12";
        QTest::newRow("decimals 0 mean two") << "12.5" << dbl << "" << 0 << "12.50";
        QTest::newRow("decimals -1: none stripped") << "12" << dbl << "" << -1 << "12.0";
        QTest::newRow("zero at -2 is blank") << "0" << dbl << "" << -2 << "";
        QTest::newRow("zero at -1 stays") << "0" << dbl << "" << -1 << "0.0";
        QTest::newRow("INT_MIN decimals bounded")
            << "1" << dbl << "" << INT_MIN << "1." + QString(1074, '0');
        QTest::newRow("netfile: -4 strips zeros") << "12.5" << netfile << "" << -4 << "12.5";
        QTest::newRow("netfile: -1 strips the point") << "12" << netfile << "" << -1 << "12";
        QTest::newRow("netfile: 0 keeps whole zeros") << "100" << netfile << "" << 0 << "100";
        QTest::newRow("netfile: stops at the point") << "100" << netfile << "" << -2 << "100";
        QTest::newRow("AT1: left-filled") << "5" << at1 << "" << 2 << ".05";
        QTest::newRow("AT1: trailing zeros go") << "50" << at1 << "" << 2 << ".5";
        QTest::newRow("AT1: 2 digits, half up") << "12.5" << at1 << "" << 2 << ".13";
        QTest::newRow("AT1: 3 digits") << "12.5" << at1 << "" << 3 << ".125";
        QTest::newRow("AT1: just under 100") << "99.99" << at1 << "" << 4 << ".9999";
        QTest::newRow("AT1: 100 is 1") << "100" << at1 << "" << 4 << "1";
        QTest::newRow("AT1: rounding to 100") << "99.999" << at1 << "" << 2 << ".1";
        QTest::newRow("AT1: just above 0") << "0.01" << at1 << "" << 4 << ".0001";
        QTest::newRow("AT1: under a half is 0") << "0.4" << at1 << "" << 2 << "0";
        QTest::newRow("AT1: NaN is 0") << "nan" << at1 << "" << 4 << "0";
        QTest::newRow("AT1: huge digits bounded") << "12.5" << at1 << "" << INT_MAX << ".125";
        QTest::newRow("to double: separators") << "1,234.50" << toDouble << "" << 0 << "1234.5";
        QTest::newRow("to double: 13 removed") << "\"#!*()[]{}<>1,2" << toDouble << "" << 0 << "12";
        QTest::newRow("to double: sign stays") << "-12.5" << toDouble << "" << 0 << "-12.5";
        QTest::newRow("to double: no exponent") << "1e3" << toDouble << "" << 0 << "0";
        QTest::newRow("numeric: signs, points") << "+1.-." << numeric << "" << 0 << "1";
        QTest::newRow("digits only: no sign") << "+1" << numeric << "" << 1 << "0";
        QTest::newRow("IsDigits: empty is not") << "" << digits << "" << 0 << "0";
        QTest::newRow("hour: padded, truncated") << "7.9" << hour << "" << 0 << "07";
        QTest::newRow("hour: below 0") << "-1" << hour << "" << 0 << "00";
        QTest::newRow("hour: 23 is the last") << "23" << hour << "" << 0 << "23";
        QTest::newRow("hour: 24 clamps") << "24" << hour << "" << 0 << "23";
        QTest::newRow("minutes: 59 is the last") << "59" << minutes << "" << 0 << "59";
        QTest::newRow("minutes: 60 clamps") << "60" << minutes << "" << 0 << "59";
        QTest::newRow("minutes: huge clamps") << QString(400, '9') << minutes << "" << 0 << "59";
        QTest::newRow("cut: nearest key char")
            << "<a <b Total" << cut << "total" << 0 << "<b Total";
        QTest::newRow("cut: index 1 is a point")
            << "x<a total" << cut << "total" << 0 << "<a total";
        QTest::newRow("cut: index 0 is not") << "<a total" << cut << "total" << 0 << "<a total";
        QTest::newRow("cut: keyword at 0") << "total <x" << cut << "total" << 0 << "total <x";
        QTest::newRow("cut: keyword missing") << "a <b" << cut << "total" << 0 << "a <b";
        QTest::newRow("ends: case ignored") << "a.PDF" << endsWith << ".pdf" << 0 << "1";
        QTest::newRow("ends: shorter") << "df" << endsWith << "pdf" << 0 << "0";
        QTest::newRow("fixed: trimmed, filled") << " \tab " << fixed << "" << 5 << "ab   ";
        QTest::newRow("fixed: as long as n") << "abc" << fixed << "" << 3 << "abc";
        QTest::newRow("fixed: longer, cut") << "abcd" << fixed << "" << 3 << "abc";
        QTest::newRow("fixed: null is spaces") << QString() << fixed << "" << 3 << "   ";
        QTest::newRow("fixed: negative width") << "abc" << fixed << "" << -2 << "";
        QTest::newRow("lines: exactly the max") << "abc" << lines << "" << 3 << "abc";
        QTest::newRow("lines: one more, hard break") << "abcd" << lines << "" << 3 << "abc\nd";
        QTest::newRow("lines: before the space")
            << "aaa bbb ccc" << lines << "" << 5 << "aaa\n bbb\n ccc";
        QTest::newRow("lines: space at the limit") << "abc def" << lines << "" << 3 << "abc\ndef";
        QTest::newRow("lines: space at column 1") << "a bcd" << lines << "" << 3 << "a\n bcd";
        QTest::newRow("lines: not at column 0") << " abcd" << lines << "" << 3 << " ab\ncd";
        QTest::newRow("lines: a line feed resets")
            << "ab\ncdef" << lines << "" << 3 << "ab\ncde\nf";
        QTest::newRow("lines: past Latin-1 is 0")
            << "a\u20acb" << lines << "" << 9 << QString::fromLatin1("a\0b", 3);
        QTest::newRow("lines: zero width") << "ab" << lines << "" << 0 << "\na\nb";
        const QString address = QString("123 Main St").leftJustified(30) + QString(30, ' ')
            + QString("Ottawa").leftJustified(30);
        QTest::newRow("104: province for ca")
            << "ca" << addr104 << "" << 0 << address + "ONcaK1A0B1    ";
        QTest::newRow("104: province for US")
            << "US" << addr104 << "" << 0 << address + "ONUSK1A0B1    ";
        QTest::newRow("104: none elsewhere")
            << "FR" << addr104 << "" << 0 << address + "  FRK1A0B1    ";
        QTest::newRow("104: null pieces") << QString() << addrSame << "" << 0 << QString(104, ' ');
        QTest::newRow("104: each piece cut") << QString(500, 'z') << addrSame << "" << 0
                                             << QString(90, 'z') + "  zz" + QString(10, 'z');
        QTest::newRow("csv: quoted comma") << "a,\"b,c\"" << csv << "" << 0 << "(a|b,c)";
        QTest::newRow("csv: trailing comma") << "a,b,\n" << csv << "" << 0 << "(a|b)";
        QTest::newRow("csv: two commas") << "a,,b" << csv << "" << 0 << "(a||b)";
        QTest::newRow("csv: dollar dropped") << "\"$1,234\"" << csv << "" << 0 << "(1,234)";
        QTest::newRow("csv: blank lines") << "a\r\nb\r\n\r\n\nc" << csv << "" << 0 << "(a)(b)(c)";
        QTest::newRow("csv: quoted line break") << "\"x\r\ny\",z" << csv << "" << 0 << "(x\r\ny|z)";
        QTest::newRow("csv: doubled quote") << "\"a\"\"b\"" << csv << "" << 0 << "(ab)";
        QTest::newRow("csv: last field untrimmed") << " a , b " << csv << "" << 0 << "(a| b )";
        QTest::newRow("csv: nothing, no rows") << "" << csv << "" << 0 << "";
    }
    void calls()
    {
        QFETCH(QString, text);
        QFETCH(Fn, fn);
        QFETCH(QString, arg);
        QFETCH(int, n);
        CString out("old");
        fn(text, arg, n, out);
        QTEST(QString(out), "expected");
    }

    void loadFiles()
    {
        QTemporaryDir dir;
        const QString path = writeTempFile(dir, "f.txt", "caf\xc3\xa9\r\nx");
        const QString missing = dir.filePath("missing");
        QString text("old");
        loadFileToQString(missing.toUtf8().constData(), text);
        QCOMPARE(text, QStringLiteral("old"));
        loadFileToQString(path.toUtf8().constData(), text);
        QCOMPARE(text, QStringLiteral("caf\u00e9\r\nx"));
        std::string lines("old;");
        QCOMPARE(loadFileToString(CString(missing), lines, 64), 107);
        QCOMPARE(loadFileToString(CString(path), lines, 64), 0);
        QCOMPARE(lines, std::string("old;caf\xc3\xa9\nx\n"));
    }

    void numbersFromLines_data()
    {
        QTest::addColumn<QByteArray>("file");
        QTest::addColumn<QStringList>("lastOfLine");
        QTest::addColumn<QStringList>("firstOfLine");
        QTest::newRow("one number a line at most")
            << QByteArray("x 12 13  \n\t 34 x 35\n") << QStringList { "13", "35" }
            << QStringList { "34" };
        QTest::newRow("not all digits: skipped")
            << QByteArray("1a\n-5\n") << QStringList() << QStringList();
        // Lines longer than the readers' buffers arrive in pieces, each read as a line.
        QTest::newRow("99 bytes fit the end reader")
            << QByteArray(99, '1') << QStringList { QString(99, '1') }
            << QStringList { QString(99, '1') };
        QTest::newRow("100 bytes arrive as 99 and 1")
            << QByteArray(100, '1') << QStringList { "1", QString(99, '1') }
            << QStringList { QString(100, '1') };
        QTest::newRow("255 characters fit the begin reader")
            << QByteArray(255, '2') << QStringList { QString(57, '2'), QString(99, '2') }
            << QStringList { QString(255, '2') };
        QTest::newRow("256 characters arrive as 255 and 1")
            << QByteArray(256, '2') << QStringList { QString(58, '2'), QString(99, '2') }
            << QStringList { "2", QString(255, '2') };
    }
    void numbersFromLines()
    {
        QFETCH(QByteArray, file);
        QFETCH(QStringList, lastOfLine);
        QFETCH(QStringList, firstOfLine);
        QTemporaryDir dir;
        CString path(writeTempFile(dir, "numbers.txt", file));
        QVERIFY(!path.isEmpty());
        // The sets are added to, never cleared.
        std::set<std::string> last { "7" }, first { "7" };
        ReadNumberFromLineEndIntoAList(path, last);
        ReadNumberFromLineBeginIntoAList(path, first);
        lastOfLine << "7";
        firstOfLine << "7";
        lastOfLine.sort();
        firstOfLine.sort();
        QCOMPARE(sorted(last), lastOfLine);
        QCOMPARE(sorted(first), firstOfLine);
    }
};

QTEST_GUILESS_MAIN(tst_TextHelpers)
#include "tst_texthelpers.moc"
