#include "xmlguard.h"

#include "logging_p.h"

#include <QByteArray>
#include <QFile>

#include <algorithm>
#include <cctype>
#include <cstring>
#include <string>
#include <string_view>

namespace {

// The parser reads past a multi-byte lead at the very end of its text; this
// many NULs after the text keep every such read inside the buffer.
constexpr std::size_t Padding = 16;

// The parser's own test, locale and all: a byte it skips as white space
// between nodes must not end the scan there.
bool isSpace(unsigned char c)
{
    return std::isspace(c) || c == '\n' || c == '\r';
}

// The parser's generous name rule: every byte from 127 up is a letter.
bool isNameStart(unsigned char c)
{
    return c >= 127 || c == '_' || ((c | 0x20) >= 'a' && (c | 0x20) <= 'z');
}

bool isNameChar(unsigned char c)
{
    return isNameStart(c) || (c >= '0' && c <= '9') || c == '-' || c == '.' || c == ':';
}

// Bytes the parser takes at once for a UTF-8 lead byte, trail or no trail.
int leadLength(unsigned char c)
{
    return c >= 0xC2 && c <= 0xDF ? 2 : c >= 0xE0 && c <= 0xEF ? 3 : c >= 0xF0 && c <= 0xF4 ? 4 : 1;
}

enum class Reading { Whole, GivesUp, TooDeep };

/*
 * Follows the parser's own reading of the text (UTF-8 mode) closely enough to
 * know how deep its recursion will go and whether it will read to the end:
 * content, start tags with their quoted or bare values, end tags, comments,
 * CDATA, the declaration and other "<!" and "<?" blocks, which end at their
 * first '>' (so does a DOCTYPE, subset or not). Up to the first point where
 * either the parser or this scan gives up the two walk in step, so the scan
 * never counts fewer levels than the parser reaches. Where the parser would
 * give up, silently or not, the text is refused: what follows would be lost.
 * Linear in the length.
 */
class NestingScan
{
public:
    NestingScan(const char* text, std::size_t length)
        : m_text(text, length)
    { }

    Reading read(int limit) const
    {
        int depth = 0;
        bool rootClosed = false;
        std::size_t i = 0;
        while (i < m_text.size()) {
            bool ok = true;
            if (at(i) != '<' && depth == 0) {
                // Between top-level nodes only white space may stand; at any
                // other text the parser stops without an error. That loses
                // nothing once the first element has closed, so the rest of
                // the text is never read and cannot count.
                const std::size_t next = skipSpace(i);
                if (next == i && rootClosed)
                    return Reading::Whole;
                ok = next > i;
                i = next;
            } else if (at(i) != '<') {
                ok = step(i);
            } else if (startsWith(i, "<?xml", true)) {
                ok = declaration(i);
            } else if (startsWith(i, "<!--")) {
                i = after(i + 4, "-->");
            } else if (startsWith(i, "<![CDATA[")) {
                i = after(i + 9, "]]>");
            } else if (at(i + 1) == '/' && depth > 0) {
                rootClosed |= --depth == 0;
                i = after(i + 2, ">");
            } else if (!isNameStart(at(i + 1))) {
                ok = !opensDocTypeSubset(i);
                i = after(i + 1, ">");
            } else {
                if (++depth > limit)
                    return Reading::TooDeep;
                bool closed = false;
                ok = element(i, closed);
                if (closed)
                    rootClosed |= --depth == 0;
            }
            if (!ok)
                return Reading::GivesUp;
        }
        return depth == 0 ? Reading::Whole : Reading::GivesUp;
    }

private:
    unsigned char at(std::size_t i) const
    {
        return i < m_text.size() ? static_cast<unsigned char>(m_text[i]) : 0;
    }

    /*
     * One character of text or of a quoted value, as the parser steps over it:
     * a UTF-8 lead byte takes its trail bytes even when one is '<' or a quote,
     * and "&#x" or "&#" runs to the next ';' anywhere ahead when the characters
     * just before it, back to the nearest 'x' or '#', are digits. Either can
     * swallow markup. False where the parser would give up.
     */
    bool step(std::size_t& i) const
    {
        if (at(i) != '&' || at(i + 1) != '#' || i + 2 >= m_text.size()) {
            i += leadLength(at(i));
            return true;
        }
        const bool hex = at(i + 2) == 'x';
        const std::size_t semicolon = m_text.find(';', i + (hex ? 3 : 2));
        if (semicolon == m_text.npos)
            return false;
        for (std::size_t k = semicolon - 1; at(k) != (hex ? 'x' : '#'); --k) {
            const unsigned char c = at(k);
            const bool digit
                = (c >= '0' && c <= '9') || (hex && ((c | 0x20) >= 'a' && (c | 0x20) <= 'f'));
            if (!digit)
                return false;
        }
        i = semicolon + 1;
        return true;
    }

    bool startsWith(std::size_t i, const char* literal, bool anyCase = false) const
    {
        for (; *literal; ++literal, ++i) {
            unsigned char c = at(i);
            if (anyCase && c >= 'A' && c <= 'Z')
                c |= 0x20;
            if (c != static_cast<unsigned char>(*literal))
                return false;
        }
        return true;
    }

    /*
     * A DOCTYPE ends at its first '>' for the parser, inside an internal subset
     * or not, and the rest of the subset becomes text or elements of its own:
     * "<!DOCTYPE m [<!ENTITY e 'v'><x/>]><m/>" reads as the root <x/> and stops.
     * Only an empty subset, "[ ]", closes before that '>'.
     */
    bool opensDocTypeSubset(std::size_t i) const
    {
        if (!startsWith(i, "<!doctype", true))
            return false;
        const std::size_t close = std::min(m_text.find('>', i), m_text.size());
        const std::size_t open = m_text.find('[', i);
        if (open >= close)
            return false;
        const std::size_t last = skipSpace(open + 1);
        return at(last) != ']' || skipSpace(last + 1) != close;
    }

    std::size_t after(std::size_t i, const char* literal) const
    {
        const std::size_t found = m_text.find(literal, i);
        return found == m_text.npos ? m_text.size() : found + std::strlen(literal);
    }

    // The parser's white space includes the three byte-order-mark-like sequences.
    std::size_t skipSpace(std::size_t i) const
    {
        while (i < m_text.size()) {
            if (at(i) == 0xEF
                && ((at(i + 1) == 0xBB && at(i + 2) == 0xBF)
                    || (at(i + 1) == 0xBF && (at(i + 2) == 0xBE || at(i + 2) == 0xBF)))) {
                i += 3;
            } else if (isSpace(at(i))) {
                ++i;
            } else {
                break;
            }
        }
        return i;
    }

    // From the '<' of a start tag to just past its '>' or "/>".
    bool element(std::size_t& i, bool& closed) const
    {
        i = skipSpace(i + 1);
        if (!isNameStart(at(i)))
            return false;
        while (isNameChar(at(i)))
            ++i;
        for (;;) {
            i = skipSpace(i);
            if (i >= m_text.size())
                return false;
            if (at(i) == '/') {
                if (at(i + 1) != '>')
                    return false;
                closed = true;
                i += 2;
                return true;
            }
            if (at(i) == '>') {
                ++i;
                return true;
            }
            if (!attribute(i))
                return false;
        }
    }

    bool attribute(std::size_t& i) const
    {
        i = skipSpace(i);
        if (!isNameStart(at(i)))
            return false;
        while (isNameChar(at(i)))
            ++i;
        i = skipSpace(i);
        if (at(i) != '=')
            return false;
        i = skipSpace(i + 1);
        if (i >= m_text.size())
            return false;
        const unsigned char quote = at(i);
        if (quote == '"' || quote == '\'') {
            for (++i; i < m_text.size() && at(i) != quote;) {
                if (!step(i))
                    return false;
            }
            if (i >= m_text.size())
                return false;
            ++i;
            return true;
        }
        // Unquoted values are tolerated up to white space, '/' or '>'.
        for (; i < m_text.size() && !isSpace(at(i)) && at(i) != '/' && at(i) != '>'; ++i) {
            if (at(i) == '"' || at(i) == '\'')
                return false;
        }
        return true;
    }

    // "<?xml" in any letter case, even inside an element: only the version,
    // encoding and standalone values are read as quoted; the rest ends at '>'.
    bool declaration(std::size_t& i) const
    {
        for (i += 5; i < m_text.size();) {
            if (at(i) == '>') {
                ++i;
                return true;
            }
            i = skipSpace(i);
            if (startsWith(i, "version", true) || startsWith(i, "encoding", true)
                || startsWith(i, "standalone", true)) {
                if (!attribute(i))
                    return false;
            } else {
                while (i < m_text.size() && at(i) != '>' && !isSpace(at(i)))
                    ++i;
            }
        }
        return false;
    }

    std::string_view m_text;
};

bool refuse(TiXmlDocument& doc, const char* why)
{
    doc.Clear();
    doc.ClearError();
    qCInfo(lcBedrockXml, "XML refused: %s", why);
    return false;
}

} // namespace

bool parseXmlSafely(TiXmlDocument& doc, const char* text, std::size_t length,
                    const char* expectedRoot)
{
    doc.Clear();
    doc.ClearError();
    if (!text)
        return refuse(doc, "no text");
    if (length > XmlGuardMaxBytes)
        return refuse(doc, "too long");
    // The parser reads up to the first NUL, so that is the text judged: a NUL
    // inside the root leaves it unclosed and is refused below, one after it is
    // as harmless as NUL padding.
    const void* nul = std::memchr(text, '\0', length);
    const std::size_t end = nul ? std::size_t(static_cast<const char*>(nul) - text) : length;
    switch (NestingScan(text, end).read(XmlGuardMaxDepth)) {
    case Reading::TooDeep:
        return refuse(doc, "nested too deeply");
    case Reading::GivesUp:
        return refuse(doc, "the parser would stop before the end");
    case Reading::Whole:
        break;
    }

    std::string buffer;
    buffer.reserve(end + Padding);
    buffer.append(text, end).append(Padding, '\0');
    doc.Parse(buffer.c_str(), nullptr, TIXML_ENCODING_UTF8);
    if (doc.Error())
        return refuse(doc, "parse error");
    const TiXmlElement* root = doc.RootElement();
    // A lost root parses without error: a DOCTYPE subset ends at its first '>'.
    if (!root)
        return refuse(doc, "no root element");
    if (expectedRoot && std::strcmp(root->Value(), expectedRoot) != 0)
        return refuse(doc, "unexpected root element");
    return true;
}

bool loadXmlFileSafely(TiXmlDocument& doc, const QString& path, const char* expectedRoot)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return refuse(doc, "file will not open");
    // Read in pieces, so a device that reports no size cannot make us take more
    // than the bound.
    QByteArray data;
    char piece[65536];
    for (;;) {
        const qint64 got = file.read(piece, sizeof piece);
        if (got < 0)
            return refuse(doc, "file read error");
        if (got == 0)
            break;
        if (std::size_t(data.size()) + std::size_t(got) > XmlGuardMaxBytes)
            return refuse(doc, "file too long");
        data.append(piece, got);
    }
    data.replace("\r\n", "\n");
    data.replace('\r', '\n');
    return parseXmlSafely(doc, data.constData(), std::size_t(data.size()), expectedRoot);
}
