#include "templateengine.h"

#include "logging_p.h"
#include "xmlguard.h"
#include "xmlreaders.h"

#include <QFile>
#include <QTextStream>

#include <tinyxml.h>

#include <cstdint>
#include <vector>

namespace {

using ValueMap = std::map<std::string, CString>;

std::string toBytes(const CString& s, int flags)
{
    return (flags & 64) ? s.toStdStringUTF8(0) : s.toStdStringLatin1(0);
}

/*
 * Finds values by key for one run. A run that looks up many keys switches to
 * an open-addressed hash index over the map, built once in one allocation; a
 * short run against a large map never pays for one. The map is not changed
 * while the run lasts, so the index may point into it.
 */
class KeyLookup
{
public:
    explicit KeyLookup(const ValueMap& values)
        : m_values(values)
    { }

    const CString* find(const std::string& key)
    {
        if (m_slots.empty() && ++m_lookups >= 32 && m_lookups * 8 >= m_values.size())
            buildIndex();
        if (m_slots.empty()) {
            const auto found = m_values.find(key);
            return found == m_values.end() ? nullptr : &found->second;
        }
        const std::uint64_t hash = hashOf(key);
        const std::size_t mask = m_slots.size() - 1;
        for (std::size_t i = hash & mask; m_slots[i].entry; i = (i + 1) & mask) {
            if (m_slots[i].hash == hash && m_slots[i].entry->first == key)
                return &m_slots[i].entry->second;
        }
        return nullptr;
    }

private:
    struct Slot {
        std::uint64_t hash = 0;
        const ValueMap::value_type* entry = nullptr;
    };

    // FNV-1a: keys are short names, for which it is quick and spreads well.
    static std::uint64_t hashOf(const std::string& key)
    {
        std::uint64_t h = 0xcbf29ce484222325ULL;
        for (const char c : key)
            h = (h ^ std::uint8_t(c)) * 0x100000001b3ULL;
        return h;
    }

    void buildIndex()
    {
        std::size_t size = 16;
        while (size < 2 * m_values.size())
            size *= 2;
        m_slots.resize(size); // an empty map still gets slots, so this runs once
        const std::size_t mask = size - 1;
        for (const auto& entry : m_values) {
            const std::uint64_t hash = hashOf(entry.first);
            std::size_t i = hash & mask;
            while (m_slots[i].entry)
                i = (i + 1) & mask;
            m_slots[i] = Slot { hash, &entry };
        }
    }

    const ValueMap& m_values;
    std::size_t m_lookups = 0;
    std::vector<Slot> m_slots;
};

// Where "$$(" starts in the line, or -1.
qsizetype findMarker(QStringView line)
{
    for (qsizetype from = 0;;) {
        const qsizetype p = line.indexOf(u'$', from);
        if (p < 0 || p + 2 >= line.size())
            return -1;
        if (line[p + 1] == u'$' && line[p + 2] == u'(')
            return p;
        from = p + 1;
    }
}

// The key's UTF-8 bytes with every blank removed, written over `key`.
void utf8KeyWithoutSpaces(QStringView text, std::string& key)
{
    key.clear();
    for (const QChar c : text) {
        if (c.unicode() >= 0x80) { // rare: let Qt encode, then drop the blanks
            const QByteArray bytes = text.toUtf8();
            key.clear();
            for (const char b : bytes)
                if (b != ' ')
                    key += b;
            return;
        }
        if (c != u' ')
            key += char(c.unicode());
    }
}

/*
 * One template line: 0 when it is done with (written, or dropped as blank or
 * as an optional line whose key is missing), otherwise the run's result code.
 */
int processLine(CString& out, QStringView line, KeyLookup& lookup, std::string& key, int flags)
{
    const qsizetype p = findMarker(line);
    if (p < 0) {
        if (!line.trimmed().isEmpty()) {
            out += line;
            out += QLatin1Char('\n');
        }
        return 0;
    }

    const qsizetype close = line.indexOf(u')', p + 3);
    if (close < 0)
        return -101;

    // Older engines looped forever once they removed a space from a key;
    // here the spaces simply go, and the key is read without them.
    utf8KeyWithoutSpaces(line.sliced(p + 3, close - p - 3), key);
    if (key.empty())
        return -102;

    const char first = key.front();
    bool optional = false;
    if (key.back() == '0') {
        if (key.size() == 1)
            return -103;
        key.pop_back();
        optional = true;
    }

    const CString* found = lookup.find(key);
    if (!found) {
        if (optional)
            return 0;
        out += QString::fromStdString(key);
        qCInfo(lcTemplateDefault, "%s not defined in xmt", key.c_str());
        return -200;
    }

    // A "$" key holds text that is already XML, such as an earlier run's output.
    out += line.first(p);
    out += convertToXMLString(*found, 0, first == '$' ? 0 : flags);
    out += line.sliced(close + 1);
    out += QLatin1Char('\n');
    return 0;
}

/*
 * The whole run over text already in memory. Lines are cut as a text stream
 * reads them: at "\n", where a "\r" just before it (or at the very end of the
 * text) belongs to the line end, and a text ending in "\n" has no empty line
 * after it.
 */
int processText(CString& out, QStringView text, const ValueMap& values, int flags)
{
    KeyLookup lookup(values);
    std::string key; // one buffer for every key of the run
    for (qsizetype start = 0; start < text.size();) {
        qsizetype end = text.indexOf(u'\n', start);
        const qsizetype next = end < 0 ? text.size() : end + 1;
        if (end < 0)
            end = text.size();
        QStringView line = text.sliced(start, end - start);
        if (line.endsWith(u'\r'))
            line.chop(1);
        start = next;
        if (const int rc = processLine(out, line, lookup, key, flags))
            return rc;
    }
    return 0;
}

// Opens the template read-only; the caller owns the QFile.
bool openTemplate(QFile& file, const QString& path)
{
    if (path.isEmpty())
        return false;
    file.setFileName(path);
    return file.open(QIODevice::ReadOnly);
}

int processFile(std::string& out, QFile& file, const ValueMap& values, int flags)
{
    QTextStream in(&file);
    in.setAutoDetectUnicode(false);
    return processStringTemplatePartInString(out, in, values, flags);
}

} // namespace

int processStringTemplatePartInString(CString& out, QTextStream& in, const ValueMap& values,
                                      int flags)
{
    const QString text = in.readAll();
    return processText(out, text, values, flags);
}

int processStringTemplatePartInString(std::string& out, QTextStream& in, const ValueMap& values,
                                      int flags)
{
    CString made;
    const int rc = processStringTemplatePartInString(made, in, values, flags);
    out += toBytes(made, flags);
    return rc;
}

int processStringTemplatePartInString(CString& out, const CString& text, const ValueMap& values,
                                      int flags)
{
    return processText(out, text, values, flags);
}

int processStringTemplatePartInString(std::string& out, const CString& text, const ValueMap& values,
                                      int flags)
{
    CString made;
    const int rc = processStringTemplatePartInString(made, text, values, flags);
    out += toBytes(made, flags);
    return rc;
}

int processTemplatePartInString(CString& out, const CString& path, const ValueMap& values,
                                int flags)
{
    QFile file;
    if (!openTemplate(file, path))
        return 0;
    QTextStream in(&file);
    in.setAutoDetectUnicode(false);
    return processStringTemplatePartInString(out, in, values, flags);
}

int processTemplatePartInString(std::string& out, const CString& path, const ValueMap& values,
                                int flags)
{
    QFile file;
    if (!openTemplate(file, path))
        return 0;
    return processFile(out, file, values, flags);
}

int processTemplatePart(std::string& out, char const* path, const ValueMap& values, int flags)
{
    QFile file;
    if (!path || !openTemplate(file, QFile::decodeName(path)))
        return -1;
    return processFile(out, file, values, flags);
}

int processTemplatePart(FILE* f, char const* path, const ValueMap& values, int flags)
{
    QFile file;
    if (!path || !openTemplate(file, QFile::decodeName(path)))
        return -1;
    std::string made;
    const int rc = processFile(made, file, values, flags);
    if (f)
        std::fputs(made.c_str(), f);
    return rc;
}

int parseXMLFilePartIntoMap(std::string const& xmlText, ValueMap& parts)
{
    TiXmlDocument doc;
    if (!parseXmlSafely(doc, xmlText.data(), xmlText.size()))
        return 130;
    TiXmlElement* root = doc.FirstChildElement();
    if (!root)
        return 0;

    TiXmlElement* e = MyTiXmlHandle(root).FirstChildElement("filepart").ToElement();
    for (; e; e = e->NextSiblingElement("filepart")) {
        const char* name = e->Attribute("name");
        const char* text = e->GetText();
        // Producers always give both; an element missing either (an empty
        // element has no text) is skipped rather than read through a null.
        if (!name || !text)
            continue;
        parts[name] = CString(QString::fromUtf8(text));
    }
    return 0;
}
