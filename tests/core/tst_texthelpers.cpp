#include "texthelpers.h"

#include <QFile>
#include <QTemporaryDir>
#include <QTest>

#include <climits>
#include <limits>

namespace {

void row(const char* why, const QString& got, const QString& expected)
{
    QTest::newRow(why) << got << expected;
}

void row(const char* why, double got, double expected)
{
    row(why, QString::number(got), QString::number(expected));
}

// f(args..., out): the text it leaves in out.
template<typename F, typename... A> QString outLast(F f, A... args)
{
    CString out("old");
    f(args..., out);
    return out;
}

// f(s, args...): what it makes of s.
template<typename F, typename... A> QString inPlace(F f, CString s, A... args)
{
    f(s, args...);
    return s;
}

// Rows as (field|field), so that an empty field and a missing row differ.
QString csv(const char* text)
{
    std::vector<std::vector<std::string>> rows { { "stale" } };
    ParseCSV(text, rows);
    QString out;
    for (const auto& r : rows) {
        QStringList fields;
        for (const auto& f : r)
            fields << QString::fromStdString(f);
        out += QLatin1Char('(') + fields.join(QLatin1Char('|')) + QLatin1Char(')');
    }
    return out;
}

} // namespace

class tst_TextHelpers : public QObject
{
    Q_OBJECT

private slots:
    void rules_data();
    void rules();
    void fileReaders();
};

void tst_TextHelpers::rules_data()
{
    QTest::addColumn<QString>("got");
    QTest::addColumn<QString>("expected");
    const double nan = std::numeric_limits<double>::quiet_NaN();
    char empty[] = "";
    const auto trimmed = [](std::string s) {
        trimSpaces(s);
        return QString::fromStdString(s);
    };
    const auto fixed = [](const char* s, int n) {
        return inPlace(makeStringToFixLengthStringByTrailingSpaces, CString(), s, n);
    };
    const auto wrap = [](CString s, int n) { return outLast(formatStringToMaxCharsPerLine, s, n); };
    const auto t2 = [](const char* country, const char* addr1) {
        return inPlace(formatStringToT2AddrIn104Letters, CString(), country, "ON", "Ottawa", addr1,
                       "", "K1A 0B1");
    };
    const auto t2all = [](const char* s) {
        return inPlace(formatStringToT2AddrIn104Letters, CString(), s, s, s, s, s, s);
    };
    const QString block = QStringLiteral("123 Main St").leftJustified(30) + QString(30, ' ')
        + QStringLiteral("Ottawa").leftJustified(30);
    const QByteArray longText(500, 'z');

    row("whole number loses its decimals", outLast(myDoubleToString, 12.0, 2), "12");
    row("decimals 0 mean two, 12.50 keeps them", outLast(myDoubleToString, 12.5, 0), "12.50");
    row("negative precision blanks a zero", outLast(myDoubleToString, 0.0, -2), "");
    row("only precision two can blank a zero", outLast(myDoubleToString, 0.0, -3), "0.000");
    row("most negative precision is bounded", outLast(myDoubleToString, 1.0, INT_MIN),
        "1." + QString(1074, '0'));
    row("Netfile: trailing zeros stripped", outLast(GetPercentStringForNetfile, 12.5, -4), "12.5");
    row("Netfile: whole-part zeros stay", outLast(GetPercentStringForNetfile, 100.0, -2), "100");
    row("AT1: left-filled with zeros", outLast(GetPercentStringForAT1, 5.0, 2), ".05");
    row("AT1: rounding up to 100 gives .1", outLast(GetPercentStringForAT1, 99.999, 2), ".1");
    row("AT1: digits below 3 mean 2, half up", outLast(GetPercentStringForAT1, 12.5, 1), ".13");
    row("AT1: 100 or more", outLast(GetPercentStringForAT1, 100.0, 4), "1");
    row("AT1: below one half terminates as zero", outLast(GetPercentStringForAT1, 0.4, 2), "0");
    row("AT1: NaN reads as zero", outLast(GetPercentStringForAT1, nan, 4), "0");
    row("AT1: huge digit count is bounded", outLast(GetPercentStringForAT1, 12.5, INT_MAX), ".125");

    row("thousands separator removed", myStringToDouble("1,234.50"), 1234.5);
    row("brackets go, and no sign comes", myStringToDouble("(12.50)"), 12.5);
    row("a dollar sign makes it unreadable", myStringToDouble("$5"), 0.0);
    row("isNumericStr: empty is numeric", isNumericStr(CString(), true), true);
    row("isNumericStr: signs and points anywhere", isNumericStr(CString("+1.-"), false), true);
    row("IsDigits: empty is not digits", IsDigits(empty), false);
    row("hour is padded", inPlace(myStringTimeHourValidate, "7"), "07");
    row("hour is clamped", inPlace(myStringTimeHourValidate, "25"), "23");
    row("huge hour clamps", inPlace(myStringTimeHourValidate, QString(400, '9')), "23");
    row("phone: ten digits", outLast(myStringToPhone, "6135551234"), "(613)-5551234");
    row("phone: already bracketed", outLast(myStringToPhone, "(613)555"), "(613)555");

    row("keyword: cut at the key character, which stays",
        inPlace(removeBeforeKeywordFromKeyChar, "junk <Total> x", "total", '<'), "<Total> x");
    row("keyword: index 0 is never a cut point",
        inPlace(removeBeforeKeywordFromKeyChar, "<a total", "total", '<'), "<a total");
    row("keyword at 0 leaves the text",
        inPlace(removeBeforeKeywordFromKeyChar, "total <x", "total", '<'), "total <x");
    row("findCaseInsensitive ignores case", findCaseInsensitive("Hello World", "WORLD", 0), 6.0);
    row("empty needle beyond the end is not found", int(findCaseInsensitive("abc", "", 4)), -1);
    row("stringEndwith without case", stringEndwith(CString("a.PDF"), ".pdf", false), true);
    row("valid filename keeps [0-9a-zA-Z_] only",
        inPlace(makeValidFilename, QStringLiteral("my file-1.t\u00e9xt_2")), "myfile1txt_2");
    row("trimSpaces takes spaces and tabs only", trimmed(" \t\na b \t"), "\na b");

    row("fixed length: trimmed, then filled", fixed(" \tab ", 5), "ab   ");
    row("fixed length: negative width is none", fixed("abc", -2), "");
    row("break before the space, which leads the line", wrap("aaa bbb ccc", 5), "aaa\n bbb\n ccc");
    row("no space: hard break", wrap("abcdefg", 3), "abc\ndef\ng");
    row("space at the limit becomes the break", wrap("abc def", 3), "abc\ndef");
    row("line feed resets the count", wrap("ab\ncdef", 3), "ab\ncde\nf");
    row("past Latin-1 becomes 0", wrap(QStringLiteral("a\u20acb"), 9), QStringLiteral("a\u0000b"));
    row("zero width breaks before every character", wrap("ab", 0), "\na\nb");
    row("T2: province kept for ca, in any case", t2("ca", "123 Main St"), block + "ONcaK1A0B1    ");
    row("T2: province blank elsewhere", t2("FR", "123 Main St"), block + "  FRK1A0B1    ");
    row("T2: address cut at 30", t2("CA", "123 Main St, Suite 1000, Building 7"),
        "123 Main St, Suite 1000, Build" + block.mid(30) + "ONCAK1A0B1    ");
    row("T2: all null is 104 spaces", t2all(nullptr), QString(104, ' '));
    row("T2: long inputs still give 104", t2all(longText.data()).size(), 104.0);
    row("T2 print: pieces right-trimmed, empty ones skipped",
        inPlace(formatStringToT2AddrForPrint, CString(), "CA", "ON", "Ottawa", "123 Main St", "",
                "K1A 0B1"),
        "123 Main St Ottawa K1A0B1");

    row("CSV: quoted comma", csv("a,\"b,c\""), "(a|b,c)");
    row("CSV: trailing comma makes no empty field", csv("a,b,\n"), "(a|b)");
    row("CSV: two commas make an empty field", csv("a,,b"), "(a||b)");
    row("CSV: dollar outside quotes splits", csv("$1,234"), "(1|234)");
    row("CSV: dollar inside quotes dropped", csv("\"$1,234\""), "(1,234)");
    row("CSV: CR LF and blank lines make no rows", csv("a\r\nb\r\n\r\n\nc"), "(a)(b)(c)");
    row("CSV: quoted line break kept", csv("\"x\r\ny\",z"), "(x\r\ny|z)");
    row("CSV: doubled quote gives none", csv("\"a\"\"b\""), "(ab)");
    row("CSV: last field of the text untrimmed", csv("a, b "), "(a| b )");
}

void tst_TextHelpers::rules()
{
    QFETCH(QString, got);
    QFETCH(QString, expected);
    QCOMPARE(got, expected);
}

void tst_TextHelpers::fileReaders()
{
    QTemporaryDir dir;
    CString path(dir.filePath(QStringLiteral("f.txt")));
    QFile f(path);
    // Lines longer than the readers' buffers arrive in pieces, each read as a line.
    QVERIFY(f.open(QIODevice::WriteOnly) && f.write("x 12\n\t 34 x\n" + QByteArray(300, '1')) > 0);
    f.close();
    std::string text;
    QCOMPARE(loadFileToString(CString(dir.filePath(QStringLiteral("none"))), text, 64), 107);
    QCOMPARE(loadFileToString(path, text, 64), 0);
    QCOMPARE(text.substr(0, 12), std::string("x 12\n\t 34 x\n"));
    std::set<std::string> ends, begins;
    ReadNumberFromLineEndIntoAList(path, ends);
    ReadNumberFromLineBeginIntoAList(path, begins);
    QCOMPARE(ends, (std::set<std::string> { "12", std::string(99, '1'), "111" }));
    QCOMPARE(begins, (std::set<std::string> { "34", std::string(255, '1'), std::string(45, '1') }));
}

QTEST_GUILESS_MAIN(tst_TextHelpers)
#include "tst_texthelpers.moc"
