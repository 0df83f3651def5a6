#include "encodings.h"

#include <algorithm>
#include <climits>
#include <cstddef>
#include <cstring>

namespace {

const char base64Alphabet[] = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";

// 64 marks a byte outside the alphabet, "=" and the closing zero among them.
struct DecodeTable {
    unsigned char value[256];
    DecodeTable()
    {
        for (unsigned char& v : value)
            v = 64;
        for (int i = 0; i < 64; ++i)
            value[static_cast<unsigned char>(base64Alphabet[i])] = static_cast<unsigned char>(i);
    }
};

const DecodeTable& decodeTable()
{
    static const DecodeTable table;
    return table;
}

/*
 * The decoders count in int, so a text is read no further than the number of
 * characters whose decoded size plus closing zero still fits in one. Beyond
 * that (over 2.8 billion characters) the text is taken as ending there, which
 * keeps Base64decode within what Base64decode_len promised.
 */
const std::size_t maxDecodeChars = std::size_t((INT_MAX - 1) / 3) * 4;

std::size_t base64TextLength(char const* text)
{
    if (!text)
        return 0;
    const DecodeTable& table = decodeTable();
    std::size_t n = 0;
    while (n < maxDecodeChars && table.value[static_cast<unsigned char>(text[n])] < 64)
        ++n;
    return n;
}

inline bool isUnreserved(char c)
{
    return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || (c >= '0' && c <= '9') || c == '-'
        || c == '.' || c == '_' || c == '~';
}

inline int hexValue(char c)
{
    if (c >= '0' && c <= '9')
        return c - '0';
    if (c >= 'a' && c <= 'f')
        return c - 'a' + 10;
    if (c >= 'A' && c <= 'F')
        return c - 'A' + 10;
    return -1;
}

/*
 * The byte of a "%" escape: the (up to) two characters after the "%" read the
 * way "%x" scanning reads them, so leading white space and a sign are taken
 * and reading stops at the first non-hex character ("%4g" gives 0x04, "%-1"
 * gives 0xFF). Where no digit is read at all the escape has no value of its
 * own; it then gives "?", as other unreadable text does in this library.
 */
char escapedByte(const char* window, std::size_t size)
{
    std::size_t pos = 0;
    while (pos < size && std::strchr(" \t\n\v\f\r", window[pos]) && window[pos] != '\0')
        ++pos;
    bool negative = false;
    if (pos < size && (window[pos] == '+' || window[pos] == '-'))
        negative = window[pos++] == '-';
    int value = 0;
    bool digits = false;
    for (int d; pos < size && (d = hexValue(window[pos])) >= 0; ++pos) {
        value = value * 16 + d;
        digits = true;
    }
    if (!digits)
        return '?';
    return static_cast<char>(negative ? -value : value);
}

} // namespace

int Base64encode_len(int size)
{
    if (size < 0)
        size = 0;
    const long long len = (static_cast<long long>(size) + 2) / 3 * 4 + 1;
    return len > INT_MAX ? 0 : static_cast<int>(len);
}

int Base64encode(char* out, char const* data, int size)
{
    if (!out)
        return 0;
    if (!data || size < 0)
        size = 0;
    const int len = Base64encode_len(size);
    if (len == 0)
        return 0;

    auto in = reinterpret_cast<const unsigned char*>(data);
    char* p = out;
    int i = 0;
    for (; i + 2 < size; i += 3) {
        *p++ = base64Alphabet[in[i] >> 2];
        *p++ = base64Alphabet[((in[i] & 0x03) << 4) | (in[i + 1] >> 4)];
        *p++ = base64Alphabet[((in[i + 1] & 0x0f) << 2) | (in[i + 2] >> 6)];
        *p++ = base64Alphabet[in[i + 2] & 0x3f];
    }
    if (i < size) {
        *p++ = base64Alphabet[in[i] >> 2];
        if (i + 1 == size) {
            *p++ = base64Alphabet[(in[i] & 0x03) << 4];
            *p++ = '=';
        } else {
            *p++ = base64Alphabet[((in[i] & 0x03) << 4) | (in[i + 1] >> 4)];
            *p++ = base64Alphabet[(in[i + 1] & 0x0f) << 2];
        }
        *p++ = '=';
    }
    *p++ = '\0';
    return static_cast<int>(p - out);
}

int Base64decode_len(char const* text)
{
    const std::size_t n = base64TextLength(text);
    return static_cast<int>((n + 3) / 4 * 3 + 1);
}

int Base64decode(char* out, char const* text)
{
    if (!out)
        return 0;
    const std::size_t n = base64TextLength(text);
    const unsigned char* v = decodeTable().value;
    auto in = reinterpret_cast<const unsigned char*>(text);
    unsigned char* p = reinterpret_cast<unsigned char*>(out);

    std::size_t i = 0;
    for (; i + 4 <= n; i += 4) {
        const unsigned a = v[in[i]], b = v[in[i + 1]], c = v[in[i + 2]], d = v[in[i + 3]];
        *p++ = static_cast<unsigned char>((a << 2) | (b >> 4));
        *p++ = static_cast<unsigned char>((b << 4) | (c >> 2));
        *p++ = static_cast<unsigned char>((c << 6) | d);
    }
    // A last group of two or three characters still carries one or two whole
    // bytes; a lone character carries only six bits and gives nothing.
    const std::size_t rest = n - i;
    if (rest >= 2)
        *p++ = static_cast<unsigned char>((v[in[i]] << 2) | (v[in[i + 1]] >> 4));
    if (rest == 3)
        *p++ = static_cast<unsigned char>((v[in[i + 1]] << 4) | (v[in[i + 2]] >> 2));
    *p = '\0';
    return static_cast<int>(p - reinterpret_cast<unsigned char*>(out));
}

std::string urlEncode(std::string text)
{
    static const char digits[] = "0123456789ABCDEF";
    std::string out;
    out.reserve(text.size());
    for (const char* s = text.c_str(); *s; ++s) {
        const char c = *s;
        if (isUnreserved(c)) {
            out += c;
            continue;
        }
        // The byte is read as a signed char and printed like %X, so a byte from
        // 0x80 up becomes an eight-digit negative number. Old servers were fed
        // this form; keep it.
        const int value = static_cast<signed char>(c);
        out += '%';
        if (value < 16)
            out += '0';
        unsigned u = static_cast<unsigned>(value);
        char hex[8];
        int len = 0;
        do {
            hex[len++] = digits[u & 0x0f];
            u >>= 4;
        } while (u != 0);
        while (len > 0)
            out += hex[--len];
    }
    return out;
}

std::string urlDecode(std::string text)
{
    std::string out;
    out.reserve(text.size());
    const std::size_t n = text.size();
    for (std::size_t i = 0; i < n; ++i) {
        const char c = text[i];
        if (c == '%') {
            out += escapedByte(text.data() + i + 1, std::min<std::size_t>(2, n - i - 1));
            i += 2;
        } else if (c == '+') {
            out += ' ';
        } else {
            out += c;
        }
    }
    return out;
}
