#include "recordreader_p.h"

#include <tinyxml.h>

#include <cctype>
#include <cstring>
#include <utility>
#include <vector>

namespace {

struct Cursor {
    const char* p;
    const char* end;

    bool take(const char* literal)
    {
        const size_t n = std::strlen(literal);
        if (size_t(end - p) < n || std::memcmp(p, literal, n) != 0)
            return false;
        p += n;
        return true;
    }
};

// The entities the writer emits, and the named ones TinyXML knows.
const std::pair<const char*, char> Entities[] = {
    { "&#34;", '"' },  { "&#39;", '\'' },  { "&#38;", '&' }, { "&#60;", '<' }, { "&#62;", '>' },
    { "&quot;", '"' }, { "&apos;", '\'' }, { "&amp;", '&' }, { "&lt;", '<' },  { "&gt;", '>' },
};

// TinyXML's own test for white space, locale and all.
bool isXmlSpace(char c)
{
    return std::isspace(static_cast<unsigned char>(c)) || c == '\n' || c == '\r';
}

/*
 * Reads up to `stop` as TinyXML would. Element text (`condensed`) must already
 * be in the form TinyXML's white-space condensing leaves: single spaces
 * between other characters only. Multi-byte characters are stepped with
 * TinyXML's own length table and must be well formed.
 */
bool readUntil(Cursor& c, char stop, bool condensed, std::string& value)
{
    bool atStart = true;
    bool lastWasSpace = false;
    while (c.p < c.end && *c.p != stop) {
        const char ch = *c.p;
        if (ch == '\0' || ch == '<')
            return false;
        if (condensed && isXmlSpace(ch)) {
            if (ch != ' ' || atStart || lastWasSpace)
                return false;
            lastWasSpace = true;
            value += ' ';
            ++c.p;
            continue;
        }
        atStart = false;
        lastWasSpace = false;
        if (ch == '&') {
            bool known = false;
            for (const auto& entity : Entities) {
                if (c.take(entity.first)) {
                    value += entity.second;
                    known = true;
                    break;
                }
            }
            if (!known)
                return false;
            continue;
        }
        const int length = TiXmlBase::utf8ByteTable[static_cast<unsigned char>(ch)];
        if (length < 1 || c.end - c.p < length)
            return false;
        for (int i = 1; i < length; ++i) {
            if ((static_cast<unsigned char>(c.p[i]) & 0xC0) != 0x80)
                return false;
        }
        value.append(c.p, size_t(length));
        c.p += length;
    }
    return c.p < c.end && !lastWasSpace;
}

} // namespace

bool Bedrock::readFieldRecord(const char* text, std::size_t length,
                              std::map<std::string, CString>& out)
{
    if (!text)
        return false;
    Cursor c { text, text + length };
    if (!c.take("<m>"))
        return false;
    std::vector<std::pair<std::string, std::string>> fields;
    while (!c.take("</m>")) {
        std::string name;
        std::string printName;
        std::string value;
        if (!c.take("<f n=\"") || !readUntil(c, '"', false, name) || !c.take("\""))
            return false;
        if (c.take(" p=\"") && (!readUntil(c, '"', false, printName) || !c.take("\"")))
            return false;
        if (!c.take(">") || !readUntil(c, '<', true, value) || !c.take("</f>"))
            return false;
        fields.emplace_back(std::move(name), std::move(value));
    }
    if (c.p != c.end)
        return false;
    // Later elements of one name replace earlier ones, as in the general path.
    for (auto& field : fields)
        out[field.first]
            = CString(QString::fromUtf8(field.second.data(), qsizetype(field.second.size())));
    return true;
}
