#include "texthelpers.h"

#include <QDateTime>
#include <QFile>
#include <QRegularExpression>
#include <QStringConverter>
#include <QTextStream>

#include <algorithm>
#include <cctype>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstring>

namespace {

// A double has at most 1074 significant decimals; a larger count only adds
// zeros, and a hostile count would otherwise allocate gigabytes of them.
constexpr int MaxFixedDecimals = 1074;

int fixedDecimals(int count)
{
    // Negating INT_MIN is undefined; it is far past the bound anyway.
    if (count < -MaxFixedDecimals || count > MaxFixedDecimals)
        return MaxFixedDecimals;
    return count < 0 ? -count : count;
}

QString fromLatin1(const char* s)
{
    return s ? QString::fromLatin1(s) : QString();
}

QString fromUtf8(const std::string& s)
{
    return QString::fromUtf8(s.data(), qsizetype(s.size()));
}

bool isAsciiDigit(char c)
{
    return c >= '0' && c <= '9';
}

bool allDigits(const char* s, size_t n)
{
    return n > 0 && std::all_of(s, s + n, isAsciiDigit);
}

// Clamps a parsed time component before it becomes an int.
int clampedTimeValue(double v, int max)
{
    if (std::isnan(v) || v < 0.0)
        return 0;
    if (v > max)
        return max;
    return int(v);
}

int timeValidate(CString& s, int max)
{
    const int v = clampedTimeValue(myStringToDouble(s.toStdStringUTF8()), max);
    const CString text = CString::sprintf2023("%02d", v);
    if (text.Compare(s) != 0)
        s = text;
    return 0;
}

void toHtmlItem(CString& out, const std::string& value, const char* skipValue, const QString& text)
{
    if (value.empty())
        return;
    if (CString(fromUtf8(value)).CompareNoCase(skipValue ? skipValue : "") == 0)
        return;
    out += text;
}

std::string withoutSpaces(const char* s)
{
    std::string r(s);
    r.erase(std::remove(r.begin(), r.end(), ' '), r.end());
    return r;
}

// One fixed-width piece of a T2 address; a null source gives spaces only.
CString fixedPiece(const char* s, int width, bool dropSpaces)
{
    CString piece;
    if (s && dropSpaces) {
        const std::string compact = withoutSpaces(s);
        makeStringToFixLengthStringByTrailingSpaces(piece, compact.c_str(), width);
    } else {
        makeStringToFixLengthStringByTrailingSpaces(piece, s, width);
    }
    return piece;
}

} // namespace

void myDoubleToString(double v, int decimals, CString& out)
{
    const int p = decimals == 0 ? 2 : fixedDecimals(decimals);
    out = QString::number(v, 'f', p);
    if (decimals < 0) {
        // Only a precision of two can blank a zero; other zeros stay as text.
        if (out.CompareNoCase("0.00") == 0)
            out = CString();
        return;
    }
    out.replace(QLatin1Char('.') + QString(p, QLatin1Char('0')), QString());
}

void GetPercentStringForNetfile(double v, int precision, CString& out)
{
    out = QString::number(v, 'f', fixedDecimals(precision));
    if (precision < 0) {
        static const QRegularExpression trailingZeros(QStringLiteral("0+$"));
        out.replace(trailingZeros, QString());
    }
    static const QRegularExpression finalPoint(QStringLiteral("\\.$"));
    out.replace(finalPoint, QString());
}

void GetPercentStringForAT1(double v, int digits, CString& out)
{
    if (v >= 100.0) {
        out = "1";
        return;
    }
    // NaN compares false with everything; it reads as no percentage at all.
    if (!(v > 0.0)) {
        out = "0";
        return;
    }
    int n = digits < 3 ? 2 : digits;
    // 10^n must stay inside the 64-bit m below; a double carries no more
    // digits than this anyway.
    if (n > 17)
        n = 17;
    int64_t scale = 1;
    for (int i = 2; i < n; ++i)
        scale *= 10;
    const double x = v * double(scale);
    const double whole = std::trunc(x);
    int64_t m = int64_t(whole);
    if (x - whole >= 0.5)
        ++m;
    // A value that rounds to nothing would strip zeros forever; it is written
    // as a zero value is.
    if (m == 0) {
        out = "0";
        return;
    }
    while (m % 10 == 0) {
        m /= 10;
        --n;
    }
    // Rounding up to 100 leaves n at 0 and gives ".1"; old filings expect it.
    out = QLatin1Char('.') + QString::number(m).rightJustified(n, QLatin1Char('0'));
}

double myStringToDouble(std::string const& s)
{
    static const char removed[] = ",\"#!*()[]{}<>";
    std::string text;
    text.reserve(s.size());
    for (char c : s) {
        if (!std::memchr(removed, c, sizeof removed - 1))
            text += c;
    }
    const CString str(fromUtf8(text));
    if (str.IsEmpty() || !isNumericStr(str, false))
        return 0.0;
    return str.toDouble();
}

bool isNumericStr(CString const& s, bool digitsOnly)
{
    const QByteArray bytes = s.toUtf8();
    for (char c : bytes) {
        if (isAsciiDigit(c))
            continue;
        if (!digitsOnly && (c == '+' || c == '-' || c == '.'))
            continue;
        return false;
    }
    return true;
}

bool IsDigits(char* s)
{
    return s && allDigits(s, std::strlen(s));
}

int myStringTimeHourValidate(CString& s)
{
    return timeValidate(s, 23);
}

int myStringTimeMinsValidate(CString& s)
{
    return timeValidate(s, 59);
}

void myStringToPhone(char const* s, CString& out)
{
    out = s;
    if (out.startsWith(QLatin1Char('(')))
        return;
    out.prepend(QLatin1Char('('));
    // A text shorter than the area code is padded by the framework's insert.
    out.insert(4, QLatin1String(")-"));
}

CString getLeadingString(CString const& s, int n)
{
    return s.Left(n);
}

bool makeValidFilename(CString& s)
{
    static const QRegularExpression invalid(QStringLiteral("[^0-9a-zA-Z_]"));
    s.remove(invalid);
    return true;
}

void trimSpaces(std::string& s)
{
    const auto first = s.find_first_not_of(" \t");
    if (first == std::string::npos) {
        s.clear();
        return;
    }
    s.erase(s.find_last_not_of(" \t") + 1);
    s.erase(0, first);
}

void removeBeforeKeywordFromKeyChar(CString& s, char const* keyword, char keyChar)
{
    const QString needle = keyword ? QString::fromUtf8(keyword) : QString();
    const int at = int(s.indexOf(needle, 0, Qt::CaseInsensitive));
    if (at <= 0)
        return;
    const QChar key(static_cast<unsigned char>(keyChar));
    int cut = 0;
    for (int i = at; i >= 1; --i) {
        if (s.at(i) == key) {
            cut = i;
            break;
        }
    }
    s = s.Mid(cut, 0);
}

bool stringEndwith(CString const& s, char const* suffix, bool caseSensitive)
{
    const size_t len = suffix ? std::strlen(suffix) : 0;
    if (size_t(s.GetLength()) < len)
        return false;
    const CString tail = s.Right(int(len));
    return (caseSensitive ? tail.Compare(suffix) : tail.CompareNoCase(suffix)) == 0;
}

unsigned long findCaseInsensitive(std::string hay, std::string needle, unsigned long pos)
{
    const auto lower = [](std::string& t) {
        for (char& c : t)
            c = char(std::tolower(static_cast<unsigned char>(c)));
    };
    lower(hay);
    lower(needle);
    const size_t at = hay.find(needle, size_t(pos));
    return at == std::string::npos ? static_cast<unsigned long>(-1)
                                   : static_cast<unsigned long>(at);
}

void makeStringToFixLengthStringByTrailingSpaces(CString& out, char const* s, int n)
{
    // A negative width is no width: the framework's Left would keep everything.
    if (n < 0)
        n = 0;
    if (!s) {
        out = QString(n, QLatin1Char(' '));
        return;
    }
    CString t(s);
    t.Trim();
    if (t.GetLength() >= n)
        t = t.Left(n);
    out = t.leftJustified(n, QLatin1Char(' '));
}

void formatStringToMaxCharsPerLine(CString const& s, int maxChars, CString& out)
{
    out = CString();
    int column = 0;
    int spaceColumn = 0;
    const int len = s.GetLength();
    for (int i = 0; i < len; ++i) {
        const char c = s.GetAt(i);
        const QChar ch(static_cast<unsigned char>(c));
        if (c == '\r' || c == '\n') {
            column = 0;
            spaceColumn = 0;
            out += ch;
        } else if (column < maxChars) {
            if (c == ' ')
                spaceColumn = column;
            ++column;
            out += ch;
        } else if (c == ' ') {
            out += QLatin1Char('\n');
            column = 0;
            spaceColumn = 0;
        } else if (spaceColumn < 1) {
            out += QLatin1Char('\n');
            column = 1;
            spaceColumn = 0;
            out += ch;
        } else {
            // The break goes before the remembered space, which then leads the
            // new line; the character that triggered it is not counted.
            const int k = column - spaceColumn;
            out.insert(std::clamp(out.GetLength() - k, 0, out.GetLength()), QLatin1Char('\n'));
            column = k;
            spaceColumn = 0;
            out += ch;
        }
    }
}

void formatStringToT2AddrIn104Letters(CString& out, char const* country, char const* prov,
                                      char const* city, char const* addr1, char const* addr2,
                                      char const* postal)
{
    out = CString();
    out += fixedPiece(addr1, 30, false);
    out += fixedPiece(addr2, 30, false);
    out += fixedPiece(city, 30, false);
    if (stricmp(country, "CA") == 0 || stricmp(country, "US") == 0)
        out += fixedPiece(prov, 2, false);
    else
        out += QLatin1String("  ");
    out += fixedPiece(country, 2, false);
    out += fixedPiece(postal, 10, true);
}

void formatStringToT2AddrForPrint(CString& out, char const* /*country*/, char const* /*prov*/,
                                  char const* city, char const* addr1, char const* addr2,
                                  char const* postal)
{
    CString pieces[] = { fixedPiece(addr1, 30, false), fixedPiece(addr2, 30, false),
                         fixedPiece(city, 30, false), fixedPiece(postal, 10, true) };
    for (CString& p : pieces)
        p.TrimRight();
    out = pieces[0];
    for (int i = 1; i < 4; ++i) {
        if (!pieces[i].IsEmpty()) {
            out += QLatin1Char(' ');
            out += pieces[i];
        }
    }
}

void getCurTimeStr(CString& out, char const* format)
{
    const QString f
        = (format && *format) ? QString::fromLatin1(format) : QStringLiteral("yyyy-MM-dd HH:mm:ss");
    out = QDateTime::currentDateTime().toString(f);
}

void toHtmlNewLine(CString& out)
{
    out += QLatin1String("<br>\n");
}

void toHtmlTableStart(CString& out)
{
    out += QLatin1String("<table border='1'>\n");
}

void toHtmlTableEnd(CString& out)
{
    out += QLatin1String("</table>\n");
}

void toHtmlOneLineItem(CString& out, std::string const& value, char const* label,
                       char const* skipValue)
{
    toHtmlItem(out, value, skipValue,
               fromLatin1(label) + QLatin1String(": ") + fromUtf8(value) + QLatin1String("<br>\n"));
}

void toHtmlOneTableRow(CString& out, std::string const& value, char const* label,
                       char const* skipValue)
{
    toHtmlItem(out, value, skipValue,
               QLatin1String("<tr><td>") + fromLatin1(label) + QLatin1String("</td><td>")
                   + fromUtf8(value) + QLatin1String("</td></tr>\n"));
}

void loadFileToQString(char const* path, QString& out, int)
{
    if (!path)
        return;
    QFile file(QString::fromUtf8(path));
    if (!file.open(QIODevice::ReadOnly))
        return;
    out = QString::fromUtf8(file.readAll());
}

int loadFileToString(CString const& path, std::string& out, int flags, int)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return 107;
    QTextStream stream(&file);
    stream.setAutoDetectUnicode(false);
    if (flags & 64)
        stream.setEncoding(QStringConverter::Utf8);
    QString line;
    while (stream.readLineInto(&line)) {
        out += line.toStdString();
        out += '\n';
    }
    return 0;
}

void ReadNumberFromLineEndIntoAList(CString& path, std::set<std::string>& out)
{
    FILE* f = std::fopen(QFile::encodeName(path).constData(), "r");
    if (!f)
        return;
    // A longer line arrives in 99-byte pieces, each read as a line of its own.
    char line[100];
    while (std::fgets(line, sizeof line, f)) {
        size_t len = std::strlen(line);
        while (len > 0 && (line[len - 1] == ' ' || line[len - 1] == '\n'))
            --len;
        size_t start = len;
        while (start > 0 && line[start - 1] != ' ')
            --start;
        if (allDigits(line + start, len - start))
            out.insert(std::string(line + start, len - start));
    }
    std::fclose(f);
}

void ReadNumberFromLineBeginIntoAList(CString& path, std::set<std::string>& out)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return;
    QTextStream stream(&file);
    // A longer line arrives in 255-character pieces, each read as a line of its own.
    while (!stream.atEnd()) {
        const QString line = stream.readLine(255);
        qsizetype start = 0;
        while (start < line.size()
               && (line.at(start) == QLatin1Char(' ') || line.at(start) == QLatin1Char('\t')))
            ++start;
        qsizetype end = start;
        while (end < line.size() && line.at(end) != QLatin1Char(' ')
               && line.at(end) != QLatin1Char('\t') && line.at(end) != QLatin1Char('\n'))
            ++end;
        const QByteArray token = line.mid(start, end - start).toUtf8();
        if (allDigits(token.constData(), size_t(token.size())))
            out.insert(token.toStdString());
    }
}

void ParseCSV(std::string const& text, std::vector<std::vector<std::string>>& rows)
{
    rows.clear();
    std::string field;
    std::vector<std::string> row;
    bool inQuotes = false;
    bool afterLineBreak = false;
    for (char c : text) {
        if (c == '\r' || c == '\n') {
            if (inQuotes) {
                field += c;
            } else if (!afterLineBreak) {
                trimSpaces(field);
                if (!field.empty())
                    row.push_back(field);
                if (!row.empty())
                    rows.push_back(row);
                field.clear();
                row.clear();
                afterLineBreak = true;
            }
            // CR LF pairs and blank lines make no rows.
            continue;
        }
        afterLineBreak = false;
        switch (c) {
        case ',':
            if (inQuotes) {
                field += c;
            } else {
                trimSpaces(field);
                row.push_back(field);
                field.clear();
            }
            break;
        case '"':
            // A doubled quote flips twice and leaves no quote behind.
            inQuotes = !inQuotes;
            break;
        case '$':
            break;
        default:
            field += c;
        }
    }
    if (!field.empty())
        row.push_back(field);
    if (!row.empty())
        rows.push_back(row);
}
