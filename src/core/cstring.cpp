#include "cstring.h"

#include <QRegularExpression>

#include <algorithm>
#include <cctype>
#include <cstdarg>
#include <cstring>

namespace {

// A null pointer is text of length zero everywhere.
QString latin1Text(const char* s)
{
    return s ? QString::fromLatin1(s) : QString(QLatin1String(""));
}

QString utf8Text(const char* s)
{
    return s ? QString::fromUtf8(s) : QString(QLatin1String(""));
}

// The trims go through the regular-expression engine on purpose: its \s class
// is what old data was cleaned with, and QString::trimmed differs from it.
const QRegularExpression& leadingSpace()
{
    static const QRegularExpression re(QStringLiteral("^\\s+"));
    return re;
}

const QRegularExpression& trailingSpace()
{
    static const QRegularExpression re(QStringLiteral("\\s+$"));
    return re;
}

std::string untilNul(const QByteArray& bytes)
{
    return std::string(bytes.constData(), ::strnlen(bytes.constData(), size_t(bytes.size())));
}

} // namespace

CString::CString(const char* latin1)
    : QString(latin1Text(latin1))
{ }

CString& CString::operator=(const QString& other)
{
    QString::operator=(other);
    return *this;
}

CString& CString::operator=(const char* latin1)
{
    QString::operator=(latin1Text(latin1));
    return *this;
}

void CString::LoadString(const char* utf8)
{
    QString::operator=(utf8Text(utf8));
}

void CString::Empty()
{
    if (!isNull())
        QString::operator=(QString());
}

char CString::GetAt(int i) const
{
    // Outside the text there is no unit; 0 keeps a careless caller safe.
    if (i < 0 || i >= size())
        return 0;
    const char16_t unit = at(i).unicode();
    return unit < 256 ? static_cast<char>(static_cast<unsigned char>(unit)) : 0;
}

void CString::TrimLeft()
{
    replace(leadingSpace(), QString());
}

void CString::TrimRight()
{
    replace(trailingSpace(), QString());
}

void CString::Trim()
{
    TrimLeft();
    TrimRight();
}

int CString::Replace(char from, char to)
{
    replace(QChar(static_cast<unsigned char>(from)), QChar(static_cast<unsigned char>(to)),
            Qt::CaseSensitive);
    return 0;
}

int CString::Replace(const char* from, const char* to)
{
    const QString needle = utf8Text(from);
    // Replacing the empty text would insert between every character.
    if (!needle.isEmpty())
        replace(needle, utf8Text(to), Qt::CaseSensitive);
    return 0;
}

int CString::Remove(char c)
{
    remove(QChar(static_cast<unsigned char>(c)), Qt::CaseSensitive);
    return 0;
}

void CString::MakeUpper()
{
    QString::operator=(toUpper());
}

void CString::MakeLower()
{
    QString::operator=(toLower());
}

CString CString::Mid(int start, int count) const
{
    return CString(mid(start, count <= 0 ? -1 : count));
}

CString CString::Left(int n) const
{
    return CString(n < 0 ? QString(*this) : left(n));
}

CString CString::Right(int n) const
{
    return CString(n < 0 ? QString(*this) : right(n));
}

int CString::Compare(const char* utf8) const
{
    return QString::compare(utf8Text(utf8), Qt::CaseSensitive);
}

int CString::Compare(const CString& other) const
{
    return QString::compare(other, Qt::CaseSensitive);
}

int CString::CompareNoCase(const char* utf8) const
{
    return QString::compare(utf8Text(utf8), Qt::CaseInsensitive);
}

int CString::CompareNoCase(const CString& other) const
{
    return QString::compare(other, Qt::CaseInsensitive);
}

int CString::Find(const char* utf8) const
{
    if (!utf8 || !*utf8)
        return 0;
    return int(indexOf(QString::fromUtf8(utf8), 0, Qt::CaseSensitive));
}

int CString::ReverseFind(const char* utf8) const
{
    return int(lastIndexOf(utf8Text(utf8), size(), Qt::CaseSensitive));
}

CString CString::toXmlString() const
{
    return convertToXMLString(*this);
}

std::string CString::toStdStringLatin1(int n) const
{
    return untilNul((n > 0 ? left(n) : QString(*this)).toLatin1());
}

std::string CString::toStdStringUTF8(int n) const
{
    return untilNul((n > 0 ? left(n) : QString(*this)).toUtf8());
}

CString CString::sprintf2023(const char* format, ...)
{
    if (!format)
        return CString();
    va_list ap;
    va_start(ap, format);
    CString result(QString::vasprintf(format, ap));
    va_end(ap);
    return result;
}

int stricmp(char const* a, char const* b)
{
    if (!a)
        a = "";
    if (!b)
        b = "";
    for (;; ++a, ++b) {
        const int ca = std::tolower(std::toupper(static_cast<unsigned char>(*a)));
        const int cb = std::tolower(std::toupper(static_cast<unsigned char>(*b)));
        if (ca != cb || *a == '\0')
            return ca - cb;
    }
}

void removeContinuousSpace(CString& s)
{
    s.replace(QLatin1String("  "), QLatin1String(" "));
}

CString convertToXMLString(CString const& s, int maxLen, int flags)
{
    if (!(flags & (4 | 8)))
        return s;
    const int n = int(s.size());
    if (maxLen < 0)
        return CString();
    if (maxLen == 0 || n < maxLen)
        maxLen = n;

    const QChar* const first = s.constData();
    const QChar* const end = first + maxLen;
    auto needsEntity = [](QChar c) {
        const char16_t u = c.unicode();
        return u == '"' || u == '\'' || u == '&' || u == '<' || u == '>';
    };
    const QChar* next = std::find_if(first, end, needsEntity);
    // Most values need no escaping: hand back the text itself, shared, not a copy.
    if (next == end)
        return maxLen == n ? s : CString(s.left(maxLen));

    QString out;
    out.reserve(maxLen + 16);
    for (const QChar* from = first;; from = next + 1, next = std::find_if(from, end, needsEntity)) {
        out.append(from, next - from);
        if (next == end)
            break;
        switch (next->unicode()) {
        case '"':
            out += QLatin1String("&#34;");
            break;
        case '\'':
            out += QLatin1String("&#39;");
            break;
        case '&':
            out += QLatin1String("&#38;");
            break;
        case '<':
            out += QLatin1String("&#60;");
            break;
        default:
            out += QLatin1String("&#62;");
        }
    }
    return CString(std::move(out));
}

CString convertToXMLString(CString const& s, int maxLen)
{
    return convertToXMLString(s, maxLen, 4);
}

CString convertToXMLString(CString const& s)
{
    return convertToXMLString(s, 0, 4);
}
