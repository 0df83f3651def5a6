#include "tempfiles.h"
#include "texthelpers.h"

#include <QTemporaryDir>
#include <QTest>

#include <climits>
#include <limits>

namespace {

// A null QByteArray stands for a null pointer.
const char* orNull(const QByteArray& bytes)
{
    return bytes.isNull() ? nullptr : bytes.constData();
}

// Rows as (field|field), so that an empty field and a missing row differ.
QString render(const std::vector<std::vector<std::string>>& rows)
{
    QString out;
    for (const auto& row : rows) {
        QStringList fields;
        for (const auto& field : row)
            fields << QString::fromStdString(field);
        out += QLatin1Char('(') + fields.join(QLatin1Char('|')) + QLatin1Char(')');
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

const QByteArray Null;

} // namespace

class tst_TextHelpers : public QObject
{
    Q_OBJECT

private slots:
    void doubleToString_data();
    void doubleToString();
    void percentForNetfile_data();
    void percentForNetfile();
    void percentForAT1_data();
    void percentForAT1();
    void stringToDouble_data();
    void stringToDouble();
    void numericText_data();
    void numericText();
    void timeValidate_data();
    void timeValidate();
    void phone_data();
    void phone();
    void removeBeforeKeyword_data();
    void removeBeforeKeyword();
    void findCaseInsensitive_data();
    void findCaseInsensitive();
    void stringEndwith_data();
    void stringEndwith();
    void validFilename();
    void trimSpaces_data();
    void trimSpaces();
    void fixedLength_data();
    void fixedLength();
    void maxCharsPerLine_data();
    void maxCharsPerLine();
    void t2Address104_data();
    void t2Address104();
    void t2Address104Extremes_data();
    void t2Address104Extremes();
    void t2AddressForPrint_data();
    void t2AddressForPrint();
    void htmlItems_data();
    void htmlItems();
    void htmlFragmentsAppend();
    void parseCSV_data();
    void parseCSV();
    void loadFiles();
    void numbersFromLines_data();
    void numbersFromLines();
};

void tst_TextHelpers::doubleToString_data()
{
    QTest::addColumn<double>("v");
    QTest::addColumn<int>("decimals");
    QTest::addColumn<QString>("expected");
    QTest::newRow("a whole number loses its decimals") << 12.0 << 2 << "12";
    QTest::newRow("a fraction keeps its zeros") << 12.5 << 2 << "12.50";
    QTest::newRow("decimals 1: one place") << 12.5 << 1 << "12.5";
    QTest::newRow("decimals 0 mean two") << 12.5 << 0 << "12.50";
    QTest::newRow("decimals 0: a whole number still loses them") << 5.0 << 0 << "5";
    QTest::newRow("decimals -1: one place, no zeros stripped") << 12.0 << -1 << "12.0";
    QTest::newRow("negative precision strips no zeros") << 12.0 << -2 << "12.00";
    QTest::newRow("zero at precision -2 is blanked") << 0.0 << -2 << "";
    QTest::newRow("zero at precision -1 stays") << 0.0 << -1 << "0.0";
    QTest::newRow("zero at precision -3 stays") << 0.0 << -3 << "0.000";
    QTest::newRow("zero at precision 2 prints 0") << 0.0 << 2 << "0";
    QTest::newRow("the most negative precision is bounded")
        << 1.0 << INT_MIN << "1." + QString(1074, '0');
}

void tst_TextHelpers::doubleToString()
{
    QFETCH(double, v);
    QFETCH(int, decimals);
    CString out("old");
    myDoubleToString(v, decimals, out);
    QTEST(QString(out), "expected");
}

void tst_TextHelpers::percentForNetfile_data()
{
    QTest::addColumn<double>("v");
    QTest::addColumn<int>("precision");
    QTest::addColumn<QString>("expected");
    QTest::newRow("negative precision strips trailing zeros") << 12.5 << -4 << "12.5";
    QTest::newRow("and then the point") << 12.0 << -2 << "12";
    QTest::newRow("precision -1 strips") << 12.0 << -1 << "12";
    QTest::newRow("precision 0 strips no zeros of the whole part") << 100.0 << 0 << "100";
    QTest::newRow("precision 1 strips nothing") << 12.0 << 1 << "12.0";
    QTest::newRow("positive precision keeps zeros") << 12.0 << 2 << "12.00";
    QTest::newRow("zeros before the point stay") << 100.0 << -2 << "100";
}

void tst_TextHelpers::percentForNetfile()
{
    QFETCH(double, v);
    QFETCH(int, precision);
    CString out("old");
    GetPercentStringForNetfile(v, precision, out);
    QTEST(QString(out), "expected");
}

void tst_TextHelpers::percentForAT1_data()
{
    QTest::addColumn<double>("v");
    QTest::addColumn<int>("digits");
    QTest::addColumn<QString>("expected");
    QTest::newRow("four digits") << 12.5 << 4 << ".125";
    QTest::newRow("left-filled with zeros") << 5.0 << 2 << ".05";
    QTest::newRow("trailing zeros go") << 50.0 << 2 << ".5";
    QTest::newRow("digits 3: three places") << 12.5 << 3 << ".125";
    QTest::newRow("digits 2: two places, half up") << 12.5 << 2 << ".13";
    QTest::newRow("digits 1 mean 2: two places") << 5.0 << 1 << ".05";
    QTest::newRow("just under 100") << 99.99 << 4 << ".9999";
    QTest::newRow("100 is 1") << 100.0 << 4 << "1";
    QTest::newRow("rounding up to 100 gives .1") << 99.999 << 2 << ".1";
    QTest::newRow("just above 0") << 0.01 << 4 << ".0001";
    QTest::newRow("0 is 0") << 0.0 << 4 << "0";
    QTest::newRow("negative is 0") << -1.0 << 4 << "0";
    QTest::newRow("below one half terminates as zero") << 0.4 << 2 << "0";
    QTest::newRow("NaN reads as zero") << qQNaN() << 4 << "0";
    QTest::newRow("a huge digit count is bounded") << 12.5 << INT_MAX << ".125";
}

void tst_TextHelpers::percentForAT1()
{
    QFETCH(double, v);
    QFETCH(int, digits);
    CString out("old");
    GetPercentStringForAT1(v, digits, out);
    QTEST(QString(out), "expected");
}

void tst_TextHelpers::stringToDouble_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<double>("expected");
    QTest::newRow("empty") << QByteArray() << 0.0;
    QTest::newRow("letters") << QByteArray("abc") << 0.0;
    QTest::newRow("thousands separator removed") << QByteArray("1,234.50") << 1234.5;
    QTest::newRow("brackets go, and no sign comes") << QByteArray("(12.50)") << 12.5;
    QTest::newRow("all thirteen characters removed") << QByteArray("\"#!*()[]{}<>1,2") << 12.0;
    QTest::newRow("only the removed characters: empty") << QByteArray("(,)") << 0.0;
    QTest::newRow("a written sign stays") << QByteArray("-12.5") << -12.5;
    QTest::newRow("a dollar sign makes it unreadable") << QByteArray("$5") << 0.0;
    QTest::newRow("an exponent makes it unreadable") << QByteArray("1e3") << 0.0;
}

void tst_TextHelpers::stringToDouble()
{
    QFETCH(QByteArray, text);
    QTEST(myStringToDouble(text.toStdString()), "expected");
}

void tst_TextHelpers::numericText_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<bool>("numeric");
    QTest::addColumn<bool>("digitsOnly");
    QTest::addColumn<bool>("isDigits");
    QTest::newRow("empty: numeric but no digits") << QByteArray("") << true << true << false;
    QTest::newRow("digits") << QByteArray("0129") << true << true << true;
    QTest::newRow("signs and points in any number and place")
        << QByteArray("+1.-.") << true << false << false;
    QTest::newRow("a blank is neither") << QByteArray("1 2") << false << false << false;
    QTest::newRow("a letter is neither") << QByteArray("12a") << false << false << false;
}

void tst_TextHelpers::numericText()
{
    QFETCH(QByteArray, text);
    QTEST(isNumericStr(CString(text.constData()), false), "numeric");
    QTEST(isNumericStr(CString(text.constData()), true), "digitsOnly");
    QTEST(IsDigits(text.data()), "isDigits");
}

void tst_TextHelpers::timeValidate_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("hour");
    QTest::addColumn<QString>("minutes");
    QTest::newRow("padded to two digits") << "7"
                                          << "07"
                                          << "07";
    QTest::newRow("truncated, not rounded") << "7.9"
                                            << "07"
                                            << "07";
    QTest::newRow("0 stays") << "0"
                             << "00"
                             << "00";
    QTest::newRow("below 0 clamps to 0") << "-1"
                                         << "00"
                                         << "00";
    QTest::newRow("23 is the last hour") << "23"
                                         << "23"
                                         << "23";
    QTest::newRow("24 clamps to 23, a valid minute") << "24"
                                                     << "23"
                                                     << "24";
    QTest::newRow("59 is the last minute") << "59"
                                           << "23"
                                           << "59";
    QTest::newRow("60 clamps to 59") << "60"
                                     << "23"
                                     << "59";
    QTest::newRow("a huge number clamps") << QString(400, '9') << "23"
                                          << "59";
    QTest::newRow("no number is 0") << "abc"
                                    << "00"
                                    << "00";
}

void tst_TextHelpers::timeValidate()
{
    QFETCH(QString, text);
    CString hour(text), minutes(text);
    QCOMPARE(myStringTimeHourValidate(hour), 0);
    QCOMPARE(myStringTimeMinsValidate(minutes), 0);
    QTEST(QString(hour), "hour");
    QTEST(QString(minutes), "minutes");
}

void tst_TextHelpers::phone_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QString>("expected");
    QTest::newRow("ten digits: bracketed area code and a hyphen")
        << QByteArray("6135551234") << "(613)-5551234";
    QTest::newRow("already bracketed: as it is") << QByteArray("(613)555") << "(613)555";
}

void tst_TextHelpers::phone()
{
    QFETCH(QByteArray, text);
    CString out("old");
    myStringToPhone(text.constData(), out);
    QTEST(QString(out), "expected");
}

void tst_TextHelpers::removeBeforeKeyword_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QByteArray>("keyword");
    QTest::addColumn<char>("keyChar");
    QTest::addColumn<QString>("expected");
    QTest::newRow("cut at the key character, which stays")
        << "junk <Total> x" << QByteArray("total") << '<' << "<Total> x";
    QTest::newRow("the nearest key character before the keyword")
        << "<a <b total" << QByteArray("total") << '<' << "<b total";
    QTest::newRow("index 1 is a cut point")
        << "x<a total" << QByteArray("total") << '<' << "<a total";
    QTest::newRow("index 0 is never a cut point: cut point 0")
        << "<a total" << QByteArray("total") << '<' << "<a total";
    QTest::newRow("keyword at index 0 leaves the text")
        << "total <x" << QByteArray("total") << '<' << "total <x";
    QTest::newRow("keyword missing leaves the text")
        << "a <b" << QByteArray("total") << '<' << "a <b";
}

void tst_TextHelpers::removeBeforeKeyword()
{
    QFETCH(QString, text);
    QFETCH(QByteArray, keyword);
    QFETCH(char, keyChar);
    CString s(text);
    removeBeforeKeywordFromKeyChar(s, keyword.constData(), keyChar);
    QTEST(QString(s), "expected");
}

void tst_TextHelpers::findCaseInsensitive_data()
{
    QTest::addColumn<QByteArray>("hay");
    QTest::addColumn<QByteArray>("needle");
    QTest::addColumn<ulong>("pos");
    QTest::addColumn<ulong>("expected");
    const ulong absent = ulong(-1);
    QTest::newRow("letter case ignored")
        << QByteArray("Hello World") << QByteArray("WORLD") << 0ul << 6ul;
    QTest::newRow("searched from pos") << QByteArray("abcABC") << QByteArray("abc") << 1ul << 3ul;
    QTest::newRow("absent is -1 as unsigned")
        << QByteArray("abc") << QByteArray("x") << 0ul << absent;
    QTest::newRow("empty needle gives pos") << QByteArray("abc") << QByteArray() << 2ul << 2ul;
    QTest::newRow("empty needle at the end") << QByteArray("abc") << QByteArray() << 3ul << 3ul;
    QTest::newRow("empty needle beyond the end is absent")
        << QByteArray("abc") << QByteArray() << 4ul << absent;
}

void tst_TextHelpers::findCaseInsensitive()
{
    QFETCH(QByteArray, hay);
    QFETCH(QByteArray, needle);
    QFETCH(ulong, pos);
    QTEST(::findCaseInsensitive(hay.toStdString(), needle.toStdString(), pos), "expected");
}

void tst_TextHelpers::stringEndwith_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QByteArray>("suffix");
    QTest::addColumn<bool>("caseSensitive");
    QTest::addColumn<bool>("expected");
    QTest::newRow("letter case ignored") << "a.PDF" << QByteArray(".pdf") << false << true;
    QTest::newRow("letter case counts") << "a.PDF" << QByteArray(".pdf") << true << false;
    QTest::newRow("as long as the suffix") << "pdf" << QByteArray("pdf") << true << true;
    QTest::newRow("shorter than the suffix") << "df" << QByteArray("pdf") << false << false;
}

void tst_TextHelpers::stringEndwith()
{
    QFETCH(QString, text);
    QFETCH(QByteArray, suffix);
    QFETCH(bool, caseSensitive);
    QTEST(::stringEndwith(CString(text), suffix.constData(), caseSensitive), "expected");
}

void tst_TextHelpers::validFilename()
{
    CString name(QStringLiteral("my file-1.t\u00e9xt_2"));
    QVERIFY(makeValidFilename(name));
    QCOMPARE(QString(name), QStringLiteral("myfile1txt_2"));
}

void tst_TextHelpers::trimSpaces_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QByteArray>("expected");
    QTest::newRow("spaces and tabs only") << QByteArray(" \t\na b \t") << QByteArray("\na b");
    QTest::newRow("blank only becomes empty") << QByteArray(" \t ") << QByteArray("");
}

void tst_TextHelpers::trimSpaces()
{
    QFETCH(QByteArray, text);
    std::string s = text.toStdString();
    ::trimSpaces(s);
    QTEST(QByteArray::fromStdString(s), "expected");
}

void tst_TextHelpers::fixedLength_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<int>("n");
    QTest::addColumn<QString>("expected");
    QTest::newRow("trimmed, then filled") << QByteArray(" \tab ") << 5 << "ab   ";
    QTest::newRow("one short of n: one space") << QByteArray("ab") << 3 << "ab ";
    QTest::newRow("as long as n: as it is") << QByteArray("abc") << 3 << "abc";
    QTest::newRow("longer than n: cut") << QByteArray("abcd") << 3 << "abc";
    QTest::newRow("null gives n spaces") << Null << 3 << "   ";
    QTest::newRow("negative width is none") << QByteArray("abc") << -2 << "";
}

void tst_TextHelpers::fixedLength()
{
    QFETCH(QByteArray, text);
    QFETCH(int, n);
    CString out("old");
    makeStringToFixLengthStringByTrailingSpaces(out, orNull(text), n);
    QTEST(QString(out), "expected");
}

void tst_TextHelpers::maxCharsPerLine_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("maxChars");
    QTest::addColumn<QString>("expected");
    QTest::newRow("exactly maxChars: no break") << "abc" << 3 << "abc";
    QTest::newRow("one more: a hard break") << "abcd" << 3 << "abc\nd";
    QTest::newRow("no space: hard breaks") << "abcdefg" << 3 << "abc\ndef\ng";
    QTest::newRow("break before the space, which leads the line")
        << "aaa bbb ccc" << 5 << "aaa\n bbb\n ccc";
    QTest::newRow("a space at the limit becomes the break") << "abc def" << 3 << "abc\ndef";
    QTest::newRow("a space at column 1 is remembered") << "a bcd" << 3 << "a\n bcd";
    QTest::newRow("a space at column 0 is not") << " abcd" << 3 << " ab\ncd";
    QTest::newRow("a line feed resets the count") << "ab\ncdef" << 3 << "ab\ncde\nf";
    QTest::newRow("a carriage return resets the count") << "ab\rcdef" << 3 << "ab\rcde\nf";
    QTest::newRow("past Latin-1 becomes 0")
        << QStringLiteral("a\u20acb") << 9 << QStringLiteral("a\u0000b");
    QTest::newRow("zero width breaks before every character") << "ab" << 0 << "\na\nb";
}

void tst_TextHelpers::maxCharsPerLine()
{
    QFETCH(QString, text);
    QFETCH(int, maxChars);
    CString out("old");
    formatStringToMaxCharsPerLine(CString(text), maxChars, out);
    QTEST(QString(out), "expected");
}

void tst_TextHelpers::t2Address104_data()
{
    QTest::addColumn<QByteArray>("country");
    QTest::addColumn<QByteArray>("addr1");
    QTest::addColumn<QByteArray>("postal");
    QTest::addColumn<QString>("expected");
    // Province "ON", city "Ottawa", address line 2 empty.
    const QString lines = QStringLiteral("123 Main St").leftJustified(30) + QString(30, ' ')
        + QStringLiteral("Ottawa").leftJustified(30);
    const QString longLine = QStringLiteral("123 Main St, Suite 1000, Build");
    QTest::newRow("province kept for ca, in any case")
        << QByteArray("ca") << QByteArray("123 Main St") << QByteArray("K1A 0B1")
        << lines + "ONcaK1A0B1    ";
    QTest::newRow("province kept for US") << QByteArray("US") << QByteArray("123 Main St")
                                          << QByteArray("K1A 0B1") << lines + "ONUSK1A0B1    ";
    QTest::newRow("province blank elsewhere") << QByteArray("FR") << QByteArray("123 Main St")
                                              << QByteArray("K1A 0B1") << lines + "  FRK1A0B1    ";
    QTest::newRow("address of 30 kept whole")
        << QByteArray("CA") << longLine.toLatin1() << QByteArray("K1A 0B1")
        << longLine + lines.mid(30) + "ONCAK1A0B1    ";
    QTest::newRow("address of 31 cut at 30")
        << QByteArray("CA") << (longLine + "i").toLatin1() << QByteArray("K1A 0B1")
        << longLine + lines.mid(30) + "ONCAK1A0B1    ";
    QTest::newRow("postal code of 10 after its spaces go")
        << QByteArray("CA") << QByteArray("123 Main St") << QByteArray("12345 67890")
        << lines + "ONCA1234567890";
    QTest::newRow("postal code of 11 cut at 10")
        << QByteArray("CA") << QByteArray("123 Main St") << QByteArray("12345 678901")
        << lines + "ONCA1234567890";
}

void tst_TextHelpers::t2Address104()
{
    QFETCH(QByteArray, country);
    QFETCH(QByteArray, addr1);
    QFETCH(QByteArray, postal);
    CString out("old");
    formatStringToT2AddrIn104Letters(out, country.constData(), "ON", "Ottawa", addr1.constData(),
                                     "", postal.constData());
    QTEST(QString(out), "expected");
}

void tst_TextHelpers::t2Address104Extremes_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QString>("expected");
    QTest::newRow("all null: 104 spaces") << Null << QString(104, ' ');
    QTest::newRow("all too long: each piece cut, still 104")
        << QByteArray(500, 'z') << QString(90, 'z') + "  zz" + QString(10, 'z');
}

void tst_TextHelpers::t2Address104Extremes()
{
    QFETCH(QByteArray, text);
    const char* s = orNull(text);
    CString out("old");
    formatStringToT2AddrIn104Letters(out, s, s, s, s, s, s);
    QTEST(QString(out), "expected");
}

void tst_TextHelpers::t2AddressForPrint_data()
{
    QTest::addColumn<QByteArray>("city");
    QTest::addColumn<QByteArray>("addr1");
    QTest::addColumn<QByteArray>("addr2");
    QTest::addColumn<QString>("expected");
    QTest::newRow("pieces right-trimmed, empty ones skipped")
        << QByteArray("Ottawa") << QByteArray("123 Main St") << QByteArray("")
        << "123 Main St Ottawa K1A0B1";
    QTest::newRow("an empty first line still leads")
        << QByteArray("Ottawa") << QByteArray("") << QByteArray("Unit 2")
        << " Unit 2 Ottawa K1A0B1";
}

void tst_TextHelpers::t2AddressForPrint()
{
    QFETCH(QByteArray, city);
    QFETCH(QByteArray, addr1);
    QFETCH(QByteArray, addr2);
    CString out("old");
    // Country and province are not printed.
    formatStringToT2AddrForPrint(out, "CA", "ON", city.constData(), addr1.constData(),
                                 addr2.constData(), "K1A 0B1");
    QTEST(QString(out), "expected");
}

void tst_TextHelpers::htmlItems_data()
{
    QTest::addColumn<QByteArray>("value");
    QTest::addColumn<QByteArray>("skip");
    QTest::addColumn<QString>("lineItem");
    QTest::addColumn<QString>("tableRow");
    QTest::newRow("written, nothing escaped")
        << QByteArray("<b>5") << QByteArray("0") << "oldAge: <b>5<br>\n"
        << "old<tr><td>Age</td><td><b>5</td></tr>\n";
    QTest::newRow("an empty value writes nothing") << QByteArray("") << QByteArray("0") << "old"
                                                   << "old";
    QTest::newRow("the skip value, in any case, writes nothing")
        << QByteArray("N/A") << QByteArray("n/a") << "old"
        << "old";
    QTest::newRow("a null skip value skips nothing") << QByteArray("x") << Null << "oldAge: x<br>\n"
                                                     << "old<tr><td>Age</td><td>x</td></tr>\n";
}

void tst_TextHelpers::htmlItems()
{
    QFETCH(QByteArray, value);
    QFETCH(QByteArray, skip);
    CString line("old"), row("old");
    toHtmlOneLineItem(line, value.toStdString(), "Age", orNull(skip));
    toHtmlOneTableRow(row, value.toStdString(), "Age", orNull(skip));
    QTEST(QString(line), "lineItem");
    QTEST(QString(row), "tableRow");
}

void tst_TextHelpers::htmlFragmentsAppend()
{
    CString out("old");
    toHtmlTableStart(out);
    toHtmlNewLine(out);
    toHtmlTableEnd(out);
    QCOMPARE(QString(out), QStringLiteral("old<table border='1'>\n<br>\n</table>\n"));
}

void tst_TextHelpers::parseCSV_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QString>("rows");
    QTest::newRow("a quoted comma") << QByteArray("a,\"b,c\"") << "(a|b,c)";
    QTest::newRow("a trailing comma makes no empty field") << QByteArray("a,b,\n") << "(a|b)";
    QTest::newRow("two commas make an empty field") << QByteArray("a,,b") << "(a||b)";
    QTest::newRow("a dollar outside quotes splits") << QByteArray("$1,234") << "(1|234)";
    QTest::newRow("a dollar inside quotes is dropped") << QByteArray("\"$1,234\"") << "(1,234)";
    QTest::newRow("CR LF and blank lines make no rows")
        << QByteArray("a\r\nb\r\n\r\n\nc") << "(a)(b)(c)";
    QTest::newRow("a quoted line break is kept") << QByteArray("\"x\r\ny\",z") << "(x\r\ny|z)";
    QTest::newRow("a doubled quote gives none") << QByteArray("\"a\"\"b\"") << "(ab)";
    QTest::newRow("fields trimmed at commas and line ends") << QByteArray(" a , b \n") << "(a|b)";
    QTest::newRow("the last field of the text untrimmed") << QByteArray("a, b ") << "(a| b )";
    QTest::newRow("nothing: no rows, the old ones gone") << QByteArray() << "";
}

void tst_TextHelpers::parseCSV()
{
    QFETCH(QByteArray, text);
    std::vector<std::vector<std::string>> rows { { "stale" } };
    ParseCSV(text.toStdString(), rows);
    QTEST(render(rows), "rows");
}

void tst_TextHelpers::loadFiles()
{
    QTemporaryDir dir;
    const QString path = writeTempFile(dir, "f.txt", "caf\xc3\xa9\r\nx");
    QVERIFY(!path.isEmpty());
    const QString missing = dir.filePath("missing");

    QString text("old");
    loadFileToQString(missing.toUtf8().constData(), text);
    QCOMPARE(text, QStringLiteral("old"));
    loadFileToQString(path.toUtf8().constData(), text);
    QCOMPARE(text, QStringLiteral("caf\u00e9\r\nx"));

    std::string lines("old;");
    QCOMPARE(loadFileToString(CString(missing), lines, 64), 107);
    QCOMPARE(lines, std::string("old;"));
    QCOMPARE(loadFileToString(CString(path), lines, 64), 0);
    QCOMPARE(lines, std::string("old;caf\xc3\xa9\nx\n"));
}

void tst_TextHelpers::numbersFromLines_data()
{
    QTest::addColumn<QByteArray>("file");
    QTest::addColumn<QStringList>("lastOfLine");
    QTest::addColumn<QStringList>("firstOfLine");
    QTest::newRow("one number a line at most")
        << QByteArray("x 12 13  \n\t 34 x 35\n") << QStringList { "13", "35" }
        << QStringList { "34" };
    QTest::newRow("tokens that are not all digits are skipped")
        << QByteArray("1a\n-5\n") << QStringList() << QStringList();
    // Lines longer than the readers' buffers arrive in pieces, each read as a line.
    QTest::newRow("99 bytes fit the end reader's line")
        << QByteArray(99, '1') << QStringList { QString(99, '1') }
        << QStringList { QString(99, '1') };
    QTest::newRow("100 bytes arrive as 99 and 1")
        << QByteArray(100, '1') << QStringList { "1", QString(99, '1') }
        << QStringList { QString(100, '1') };
    QTest::newRow("255 characters fit the begin reader's line")
        << QByteArray(255, '2') << QStringList { QString(57, '2'), QString(99, '2') }
        << QStringList { QString(255, '2') };
    QTest::newRow("256 characters arrive as 255 and 1")
        << QByteArray(256, '2') << QStringList { QString(58, '2'), QString(99, '2') }
        << QStringList { "2", QString(255, '2') };
}

void tst_TextHelpers::numbersFromLines()
{
    QFETCH(QByteArray, file);
    QTemporaryDir dir;
    CString path(writeTempFile(dir, "numbers.txt", file));
    QVERIFY(!path.isEmpty());
    std::set<std::string> last { "7" }, first { "7" };
    ReadNumberFromLineEndIntoAList(path, last);
    ReadNumberFromLineBeginIntoAList(path, first);
    QFETCH(QStringList, lastOfLine);
    QFETCH(QStringList, firstOfLine);
    // The sets are added to, never cleared.
    lastOfLine << "7";
    firstOfLine << "7";
    lastOfLine.sort();
    firstOfLine.sort();
    QCOMPARE(sorted(last), lastOfLine);
    QCOMPARE(sorted(first), firstOfLine);
}

QTEST_GUILESS_MAIN(tst_TextHelpers)
#include "tst_texthelpers.moc"
