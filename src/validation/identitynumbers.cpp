#include "identitynumbers.h"

#include <cstring>

namespace {

bool isDigit(char c)
{
    return c >= '0' && c <= '9';
}

bool allDigits(char const* s, size_t n)
{
    for (size_t i = 0; i < n; ++i) {
        if (!isDigit(s[i]))
            return false;
    }
    return true;
}

bool allDigits(CString const& s, int from, int n)
{
    for (int i = from; i < from + n; ++i) {
        if (!isDigit(s.GetAt(i)))
            return false;
    }
    return true;
}

// Luhn over n bytes taken as (code - '0'); callers decide whether they are
// digits. `doubleOdd` picks which positions are doubled.
bool luhn(char const* s, size_t n, bool doubleOdd)
{
    long long sum = 0;
    for (size_t i = 0; i + 1 < n; ++i) {
        const int d = s[i] - '0';
        if ((i % 2 == 1) == doubleOdd) {
            const int v = 2 * d;
            sum += v / 10 + v % 10;
        } else {
            sum += d;
        }
    }
    const int r = int(sum % 10);
    const int expected = r == 0 ? 0 : 10 - r;
    return expected == s[n - 1] - '0';
}

bool inExceptions(char const* s, char const** exceptions)
{
    if (!exceptions)
        return false;
    for (char const** e = exceptions; *e; ++e) {
        if (stricmp(s, *e) == 0)
            return true;
    }
    return false;
}

bool programIs(char const* s, char const* prog)
{
    // s points at the two program letters; compared as CString, letter case aside.
    return CString(QString(QLatin1String(s, 2))).CompareNoCase(prog ? prog : "") == 0;
}

} // namespace

bool CheckMod10(char const* s)
{
    // Odd length is a condition of validity of its own. No fixed work buffer:
    // an over-long input is summed in place and cannot overrun anything.
    const size_t n = s ? std::strlen(s) : 0;
    if (n % 2 == 0 || !allDigits(s, n))
        return false;
    return luhn(s, n, true);
}

bool CheckSIN(char const* s, char const** exceptions)
{
    if (!s)
        s = "";
    if (inExceptions(s, exceptions))
        return true;
    // "000000000" passes; refusing it is the caller's business.
    return std::strlen(s) == 9 && CheckMod10(s);
}

bool CheckSIN(char const* s)
{
    return CheckSIN(s, nullptr);
}

bool CheckNISAPIN(char const* s)
{
    if (!s || std::strlen(s) != 8)
        return false;
    if (static_cast<signed char>(s[0]) > '2')
        return false;
    // The bytes are deliberately not tested for being digits: the final
    // comparison alone decides, as it always has.
    return luhn(s, 8, false);
}

bool CheckCRAProgNum(char const* s, char const* prog, bool checkMod10)
{
    if (!s || std::strlen(s) != 15)
        return false;
    if (std::strncmp(s, "000000000", 9) == 0)
        return false;
    if (!allDigits(s, 9))
        return false;
    if (checkMod10 && !luhn(s, 9, true))
        return false;
    if (!allDigits(s + 11, 4))
        return false;
    return programIs(s + 9, prog);
}

bool CheckBusiNum(char const* s)
{
    return CheckCRAProgNum(s, "RC", true);
}

bool CheckBusiNum2(char const* s)
{
    if (s && stricmp(s, "NR") == 0)
        return true;
    return CheckBusiNum(s);
}

bool CheckGSTAccountNumber(CString const& s)
{
    return CheckCRAProgNum(s.toUtf8().constData(), "RT", false);
}

bool CheckPartnershipID(char const* s)
{
    // Mod-10 always runs and an all-zero root is accepted: both differ from
    // CheckCRAProgNum on purpose.
    if (!s || std::strlen(s) != 15)
        return false;
    if (!allDigits(s, 9) || !luhn(s, 9, true))
        return false;
    if (!allDigits(s + 11, 4))
        return false;
    return programIs(s + 9, "RZ");
}

bool CheckPartnershipIDOrFileID(CString const& s)
{
    return s.GetLength() == 9 && allDigits(s, 0, 9);
}

bool CheckPartnershipNumber(CString const& s)
{
    return CheckPartnershipIDOrFileID(s);
}

bool CheckTaxShelterNumber(CString const& s)
{
    if (s.GetLength() != 8)
        return false;
    const char t = s.GetAt(0);
    const char x = s.GetAt(1);
    return (t == 'T' || t == 't') && (x == 'S' || x == 's') && allDigits(s, 2, 6);
}

bool CheckTrustNumber(char const* s, char const** exceptions)
{
    if (!s)
        s = "";
    if (inExceptions(s, exceptions))
        return true;
    if (std::strlen(s) != 9)
        return false;
    // Lower-case "a" stays refused while "t" passes.
    if (s[0] != 'A' && s[0] != 'T' && s[0] != 't')
        return false;
    return allDigits(s + 1, 8);
}

bool CheckSREDFieldCode(char const* s)
{
    if (!s || std::strlen(s) != 7)
        return false;
    for (int i = 0; i < 7; ++i) {
        if (!isDigit(s[i]) && s[i] != '.')
            return false;
    }
    return true;
}

bool isStrPartOfArrayOfStrs(char const* s, char const* const* list)
{
    if (!list)
        return false;
    for (char const* const* e = list; *e; ++e) {
        if (stricmp(s, *e) == 0)
            return true;
    }
    return false;
}
