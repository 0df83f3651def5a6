#include "templateengine.h"

#include "xmlguard.h"
#include "xmlreaders.h"

#include <QFile>
#include <QLoggingCategory>
#include <QTextStream>

#include <tinyxml.h>

#include <string_view>
#include <unordered_map>

namespace {

// Template authors and older tools look for this line in the "default"
// category, so it does not go to the library's own bedrock.* categories.
Q_LOGGING_CATEGORY(lcTemplateDefault, "default", QtInfoMsg)

using ValueMap = std::map<std::string, CString>;

std::string toBytes(const CString& s, int flags)
{
    return (flags & 64) ? s.toStdStringUTF8(0) : s.toStdStringLatin1(0);
}

/*
 * Finds values by key for one run. A run that looks up many keys switches to
 * a hash index over the map, built once; a short run against a large map never
 * pays for one. The map is not changed while the run lasts, so the index may
 * point into it.
 */
class KeyLookup
{
public:
    explicit KeyLookup(const ValueMap& values) : m_values(values) { }

    const CString* find(const std::string& key)
    {
        if (!m_indexed && ++m_lookups >= 32 && m_lookups * 8 >= m_values.size())
            buildIndex();
        if (m_indexed) {
            const auto found = m_index.find(std::string_view(key));
            return found == m_index.end() ? nullptr : found->second;
        }
        const auto found = m_values.find(key);
        return found == m_values.end() ? nullptr : &found->second;
    }

private:
    void buildIndex()
    {
        m_index.reserve(m_values.size());
        for (const auto& [key, value] : m_values)
            m_index.emplace(std::string_view(key), &value);
        m_indexed = true;
    }

    const ValueMap& m_values;
    std::size_t m_lookups = 0;
    bool m_indexed = false;
    std::unordered_map<std::string_view, const CString*> m_index;
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

int processStringTemplatePartInString(CString& out, QTextStream& in, const ValueMap& values, int flags)
{
    // One line buffer and one key buffer serve the whole run.
    QString line;
    std::string key;
    KeyLookup lookup(values);
    while (!in.atEnd()) {
        in.readLineInto(&line);
        const QStringView view(line);

        const qsizetype p = findMarker(view);
        if (p < 0) {
            if (!view.trimmed().isEmpty()) {
                out += view;
                out += QLatin1Char('\n');
            }
            continue;
        }

        const qsizetype close = view.indexOf(u')', p + 3);
        if (close < 0)
            return -101;

        // Older engines looped forever once they removed a space from a key;
        // here the spaces simply go, and the key is read without them.
        utf8KeyWithoutSpaces(view.sliced(p + 3, close - p - 3), key);
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
                continue;
            out += QString::fromStdString(key);
            qCInfo(lcTemplateDefault, "%s not defined in xmt", key.c_str());
            return -200;
        }

        // A "$" key holds text that is already XML, such as an earlier run's output.
        out += view.first(p);
        out += convertToXMLString(*found, 0, first == '$' ? 0 : flags);
        out += view.sliced(close + 1);
        out += QLatin1Char('\n');
    }
    return 0;
}

int processStringTemplatePartInString(std::string& out, QTextStream& in, const ValueMap& values, int flags)
{
    CString made;
    const int rc = processStringTemplatePartInString(made, in, values, flags);
    out += toBytes(made, flags);
    return rc;
}

int processStringTemplatePartInString(CString& out, const CString& text, const ValueMap& values, int flags)
{
    QString source = text;
    QTextStream in(&source, QIODevice::ReadOnly);
    in.setAutoDetectUnicode(false);
    return processStringTemplatePartInString(out, in, values, flags);
}

int processStringTemplatePartInString(std::string& out, const CString& text, const ValueMap& values, int flags)
{
    CString made;
    const int rc = processStringTemplatePartInString(made, text, values, flags);
    out += toBytes(made, flags);
    return rc;
}

int processTemplatePartInString(CString& out, const CString& path, const ValueMap& values, int flags)
{
    QFile file;
    if (!openTemplate(file, path))
        return 0;
    QTextStream in(&file);
    in.setAutoDetectUnicode(false);
    return processStringTemplatePartInString(out, in, values, flags);
}

int processTemplatePartInString(std::string& out, const CString& path, const ValueMap& values, int flags)
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
