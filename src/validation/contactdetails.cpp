#include "contactdetails.h"

#include <QByteArray>
#include <QRegularExpression>

#include <algorithm>
#include <cstring>

namespace {

// A byte judged as the Latin-1 code unit it would be.
bool isByteDiacritic(char c)
{
    return isCharDiacritic(QChar(static_cast<unsigned char>(c)));
}

bool isLetterDigitOrDiacritic(char c)
{
    return isAlphabetic(c) || IsDigitChar(c) || isByteDiacritic(c);
}

bool isAsciiIn(QChar c, const char* set)
{
    const char16_t u = c.unicode();
    return u != 0 && u < 128 && std::strchr(set, static_cast<char>(u)) != nullptr;
}

// Shape shared by CheckAddress and CheckAddrCO; `inner` is the extra set
// allowed between the first and the last character.
bool checkAddressLine(CString& s, const char* inner)
{
    if (!CheckAddress_common(s))
        return false;
    if (s.IsEmpty())
        return true;
    // Bytes are indexed with the character count: a multi-byte letter near the
    // end is judged by its lead byte only, which old returns rely on. UTF-8 is
    // never shorter than UTF-16, so the indexes stay inside the bytes.
    const QByteArray bytes = s.toUtf8();
    const int n = std::min<int>(s.GetLength(), int(bytes.size()));
    if (!isLetterDigitOrDiacritic(bytes[0]))
        return false;
    const char last = bytes[n - 1];
    if (!isLetterDigitOrDiacritic(last) && last != '.')
        return false;
    for (int i = 1; i < n - 1; ++i) {
        const char c = bytes[i];
        if (!isLetterDigitOrDiacritic(c) && (c == 0 || !std::strchr(inner, c)))
            return false;
    }
    return true;
}

CString digitsOf(CString const& s)
{
    CString out;
    for (QChar c : s) {
        if (c >= QLatin1Char('0') && c <= QLatin1Char('9'))
            out.append(c);
    }
    return out;
}

} // namespace

bool CheckName(char const* s)
{
    const size_t n = s ? std::strlen(s) : 0;
    if (n == 0)
        return true;
    if (!isAlphabetic(s[0]) && !isByteDiacritic(s[0]))
        return false;
    const char last = s[n - 1];
    if (!isLetterDigitOrDiacritic(last) && last != '-')
        return false;
    // Inside a name only this closed list is refused; "!", the point, control
    // characters and bytes from 127 up all pass.
    static const char refused[] = "\"#$%&()*+,/:;<=>?@[\\]^_`{|}~";
    for (size_t i = 1; i + 1 < n; ++i) {
        if (std::strchr(refused, s[i]))
            return false;
    }
    return true;
}

bool CheckSpouseName(char const* s)
{
    return CheckName(s);
}

bool CheckBusiName(CString const& s)
{
    return CheckName(s.toUtf8().constData());
}

bool CheckCityName(CString const& s)
{
    for (QChar c : s) {
        const char16_t u = c.unicode();
        const bool ok = (u < 128 && (isAlphabetic(char(u)) || IsDigitChar(char(u))))
            || isAsciiIn(c, " '-./") || isCharDiacritic(c);
        if (!ok)
            return false;
    }
    return true;
}

bool CheckT2ValidChar(CString const& s)
{
    for (int i = 0; i < s.GetLength(); ++i) {
        if (!IsT2AllowedChar(static_cast<unsigned char>(s.GetAt(i))))
            return false;
    }
    return true;
}

void PurifyT2String(CString&)
{ }

bool StringHasChars(CString const& s, char const* set)
{
    if (!set)
        return false;
    for (QChar c : s) {
        const char16_t u = c.unicode();
        if (u != 0 && u < 256 && std::strchr(set, static_cast<char>(u)))
            return true;
    }
    return false;
}

bool CheckAddress_common(CString& s)
{
    s.Trim();
    if (s.IsEmpty())
        return true;
    // Case-sensitive on purpose: "C/o" is let through.
    for (const char* co : { "C/O", "c/o", "A/S", "a/s" }) {
        if (s.contains(QLatin1String(co)))
            return false;
    }
    // An address may end with a point but not begin with one.
    if (isAsciiIn(s.front(), "-`\\/&()<>{}[]#."))
        return false;
    if (isAsciiIn(s.back(), "-`\\/&()<>{}[]#"))
        return false;
    return true;
}

bool CheckAddress(CString& s)
{
    return checkAddressLine(s, " #&'(),-./");
}

bool CheckAddrCO(CString& s)
{
    return checkAddressLine(s, " &'-./");
}

CString GetPurifiedAddr(CString const& s)
{
    CString out(s);
    out.Replace("c/o ", "");
    out.Replace("C/O ", "");
    return out;
}

bool CheckCAPostCode(char const* s)
{
    const size_t n = s ? std::strlen(s) : 0;
    if (n < 6)
        return false;
    int at[6] = { 0, 1, 2, 3, 4, 5 };
    if (n > 6) {
        if (s[3] != '-' && s[3] != ' ')
            return false;
        at[3] = 4;
        at[4] = 5;
        at[5] = 6;
    }
    // Anything after the sixth character is not looked at.
    for (int k = 0; k < 6; ++k) {
        const char c = s[at[k]];
        if (k % 2 == 0 ? !Is26NormalChar(c) : !IsDigitChar(c))
            return false;
    }
    return true;
}

bool CheckUSPostCode(char const* s)
{
    const size_t n = s ? std::strlen(s) : 0;
    if (n != 5 && n != 9 && n != 10)
        return false;
    for (size_t i = 0; i < n; ++i) {
        if (!IsDigitChar(s[i]) && s[i] != '-')
            return false;
    }
    return true;
}

bool CheckCountryCode(char const* s)
{
    if (!s || std::strlen(s) != 3)
        return false;
    for (int i = 0; i < 3; ++i) {
        if (s[i] < 'A' || s[i] > 'Z')
            return false;
    }
    return true;
}

CString GetUSRawPostcode(CString const& s)
{
    CString t(s);
    t.Trim();
    return t.Left(5);
}

CString GetCARawPostcode(CString const& s)
{
    CString out;
    bool wantLetter = true;
    for (QChar c : s) {
        if (out.size() >= 6)
            break;
        const char16_t u = c.unicode();
        if (u >= 128)
            continue;
        if (wantLetter && isAlphabetic(char(u))) {
            out.append(c);
            wantLetter = false;
        } else if (!wantLetter && IsDigitChar(char(u))) {
            out.append(c);
            wantLetter = true;
        }
    }
    out.MakeUpper();
    return out;
}

CString GetRawPostcode(CString const& s)
{
    return GetCARawPostcode(s);
}

CString GetRawPhoneStr(CString const& s, bool padTo10)
{
    CString out;
    for (char c : s.toUtf8()) {
        if (IsDigitChar(c))
            out.append(QLatin1Char(c));
    }
    while (padTo10 && out.size() < 10)
        out.append(QLatin1Char('0'));
    return out;
}

bool CheckPhoneNumber(CString const& s, bool allowAllZero)
{
    const CString raw = GetRawPhoneStr(s, false);
    if (raw.GetLength() < 10)
        return false;
    return allowAllZero || raw != QLatin1String("0000000000");
}

bool CheckPhoneNumber(CString const& s)
{
    return CheckPhoneNumber(s, false);
}

bool CheckPhoneFlatEditNumber(CString const& s, bool allowAllZero)
{
    // Not anchored: one allowed character anywhere satisfies it.
    static const QRegularExpression allowed(QStringLiteral("[0-9\\(\\)\\- ]+"));
    if (!allowed.match(s).hasMatch())
        return false;
    return CheckPhoneNumber(GetRawPhoneStr(s, false), allowAllZero);
}

bool ChkPhoneStrHasSomething(CString const& s)
{
    // Padding goes on the right, so a single typed digit already counts.
    const CString raw = GetRawPhoneStr(s, true);
    return !(raw.Mid(0, 3) == QLatin1String("000") && raw.Mid(3, 7) == QLatin1String("0000000"));
}

bool is_email_valid(QString& s)
{
    const QString t = s.trimmed();
    if (t.isEmpty())
        return false;
    // Built once, on first use; thread-safe as a function-local static and only
    // read afterwards. Not anchored: text around an address does not fail it.
    static const QRegularExpression email(
        QStringLiteral("[a-zA-Z0-9._%+-]+@[a-zA-Z0-9.-]+\\.[a-zA-Z]{2,}"));
    return email.match(t).hasMatch();
}

bool checkEmail(char const* s)
{
    QString text = QString::fromUtf8(s ? s : "");
    return is_email_valid(text);
}

bool CheckDate(char const* s)
{
    if (!s)
        return false;
    // Stops at the terminator of a short string, so nothing past it is read.
    for (int i = 0; i < 8; ++i) {
        if (!IsDigitChar(s[i]))
            return false;
    }
    return true;
}

CString GetRawDate(CString const& s)
{
    return CString(s.Mid(6, 4) + s.Mid(3, 2) + s.Mid(0, 2));
}

bool CheckIsAllNumber(char const* s)
{
    for (const char* p = s ? s : ""; *p; ++p) {
        if (!IsDigitChar(*p))
            return false;
    }
    return true;
}

bool CheckIsDigitStr(CString const& s, int)
{
    for (int i = 0; i < s.GetLength(); ++i) {
        if (!IsDigitChar(s.GetAt(i)))
            return false;
    }
    return true;
}

bool CheckIsAlphaOrSpace(CString const& s)
{
    for (int i = 0; i < s.GetLength(); ++i) {
        const char c = s.GetAt(i);
        if (c != ' ' && !IsAlphaChar(c))
            return false;
    }
    return true;
}

bool IsAllZeroString(CString s)
{
    for (QChar c : s) {
        if (c != QLatin1Char('0'))
            return false;
    }
    return true;
}

CString GetNumStr(CString const& s, bool, int)
{
    return digitsOf(s);
}

void GetPureDigitStr(CString const& s, CString& out)
{
    out.append(digitsOf(s));
}

bool CheckIfAmongListOfString(CString s, std::list<CString>& l)
{
    for (const CString& e : l) {
        if (e.CompareNoCase(s) == 0)
            return true;
    }
    return false;
}

bool CheckIfAllSomeStringsAreSame(std::list<CString>& a, std::list<CString>& b)
{
    for (auto it = a.begin(); it != a.end(); ++it) {
        if (it->IsEmpty() || CheckIfAmongListOfString(*it, b))
            continue;
        for (auto later = std::next(it); later != a.end(); ++later) {
            if (later->CompareNoCase(*it) == 0)
                return false;
        }
    }
    return true;
}
