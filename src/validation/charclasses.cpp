// The character tables behind the name, address and T2 text checks.
#include "contactdetails.h"

#include <algorithm>
#include <iterator>

const char _LowerCaseAlpha[27] = "abcdefghijklmnopqrstuvwxyz";
const char _UpperCaseAlpha[27] = "ABCDEFGHIJKLMNOPQRSTUVWXYZ";
const char _OtherAlpahChars[8] = "-_+$%<>";

namespace {

// U+00C0..U+00FF without the ring and tilde letters U+00C5, U+00D5, U+00E5 and
// U+00F5. The multiplication and division signs and sharp s stay in: old
// returns were accepted with them.
// clang-format off
const char16_t kDiacritics[60] = {
    0xC0, 0xC1, 0xC2, 0xC3, 0xC4, /* C5 */ 0xC6, 0xC7,
    0xC8, 0xC9, 0xCA, 0xCB, 0xCC, 0xCD, 0xCE, 0xCF,
    0xD0, 0xD1, 0xD2, 0xD3, 0xD4, /* D5 */ 0xD6, 0xD7,
    0xD8, 0xD9, 0xDA, 0xDB, 0xDC, 0xDD, 0xDE, 0xDF,
    0xE0, 0xE1, 0xE2, 0xE3, 0xE4, /* E5 */ 0xE6, 0xE7,
    0xE8, 0xE9, 0xEA, 0xEB, 0xEC, 0xED, 0xEE, 0xEF,
    0xF0, 0xF1, 0xF2, 0xF3, 0xF4, /* F5 */ 0xF6, 0xF7,
    0xF8, 0xF9, 0xFA, 0xFB, 0xFC, 0xFD, 0xFE, 0xFF,
};
// clang-format on

// Byte ranges allowed in T2 text, inclusive: 154 values in all.
struct ByteRange {
    unsigned char lo;
    unsigned char hi;
};
const ByteRange kT2Allowed[] = {
    { 0x20, 0x7E }, { 0x91, 0x92 }, { 0xA1, 0xA3 }, { 0xA5, 0xA9 }, { 0xAB, 0xAC }, { 0xAE, 0xB4 },
    { 0xB6, 0xC0 }, { 0xC2, 0xC2 }, { 0xC7, 0xCB }, { 0xCE, 0xCF }, { 0xD4, 0xD4 }, { 0xD6, 0xD7 },
    { 0xD9, 0xD9 }, { 0xDB, 0xDC }, { 0xE0, 0xE0 }, { 0xE2, 0xE2 }, { 0xE7, 0xEB }, { 0xEE, 0xEF },
    { 0xF4, 0xF4 }, { 0xF6, 0xF7 }, { 0xF9, 0xF9 }, { 0xFB, 0xFC },
};

bool inTable(char c, const char* table)
{
    // The terminator is not a member.
    for (const char* p = table; *p; ++p) {
        if (*p == c)
            return true;
    }
    return false;
}

} // namespace

bool IsDigitChar(char c)
{
    return c >= '0' && c <= '9';
}

bool isNumeric(char c)
{
    return IsDigitChar(c);
}

bool isAlphabetic(char c)
{
    // Clearing the case bit folds a-z onto A-Z; bytes from 128 up keep their
    // high bit and stay outside.
    const char up = static_cast<char>(c & ~0x20);
    return up >= 'A' && up <= 'Z';
}

bool Is26NormalChar(char c)
{
    return inTable(c, _LowerCaseAlpha) || inTable(c, _UpperCaseAlpha);
}

bool IsAlphaChar(char c)
{
    return Is26NormalChar(c) || inTable(c, _OtherAlpahChars);
}

bool isCharDiacritic(QChar c)
{
    return std::binary_search(std::begin(kDiacritics), std::end(kDiacritics), c.unicode());
}

bool IsT2AllowedChar(unsigned char c)
{
    for (const ByteRange& r : kT2Allowed) {
        if (c >= r.lo && c <= r.hi)
            return true;
    }
    return false;
}
