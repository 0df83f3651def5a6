#include "xmlwriters.h"

#include "cfloatfield.h"

#include <cmath>
#include <limits>

namespace {

// Half away from zero, truncated into 64 bits. The rounding itself leaves NaN,
// infinities and values past 64 bits alone, so the cast needs its own bounds.
qint64 roundToWhole(double value)
{
    if (std::isnan(value))
        return 0;
    const double rounded = RoundFloatAtDecision(value, 0);
    constexpr double Limit = 9223372036854775808.0;
    if (rounded >= Limit)
        return std::numeric_limits<qint64>::max();
    if (rounded < -Limit)
        return std::numeric_limits<qint64>::min();
    return static_cast<qint64>(rounded);
}

void put(FILE* file, char const* text)
{
    std::fputs(text ? text : "", file);
}

// Numbers and flags need no escaping: maxLen 0 and flags 0.
void writeRaw(CString& out, char const* tag, QString const& text)
{
    writeXMLString(out, tag, CString(text), 0, 0);
}

// One marker at a time, as old output was made: markers inside the value are
// reached by the last substitution.
CString fillTemplate(char const* tag, CString const& value)
{
    const CString name(tag);
    return CString(QStringLiteral("<%1>%2</%3>").arg(name).arg(value).arg(name));
}

} // namespace

void xmlWriteOpenTag(FILE* file, char const* tag)
{
    if (!file)
        return;
    put(file, "<");
    put(file, tag);
    put(file, ">\n");
}

void xmlWriteCloseTag(FILE* file, char const* tag)
{
    if (!file)
        return;
    put(file, "</");
    put(file, tag);
    put(file, ">\n");
}

void xmlWriteTag(FILE* file, char const* tag, char const* value)
{
    xmlWriteTag(file, tag, CString(value));
}

void xmlWriteTag(FILE* file, char const* tag, CString const& value)
{
    if (!file)
        return;
    // Written by length: an escaped value may hold a NUL character.
    const QByteArray bytes = convertToXMLString(value).toUtf8();
    put(file, "<");
    put(file, tag);
    put(file, ">");
    std::fwrite(bytes.constData(), 1, size_t(bytes.size()), file);
    put(file, "</");
    put(file, tag);
    put(file, ">\n");
}

void xmlWriteTagIfNotEmpty(FILE* file, char const* tag, char const* value)
{
    xmlWriteTagIfNotEmpty(file, tag, CString(value));
}

void xmlWriteTagIfNotEmpty(FILE* file, char const* tag, CString const& value)
{
    CString trimmed(value);
    trimmed.Trim();
    if (!trimmed.IsEmpty())
        xmlWriteTag(file, tag, trimmed);
}

void xmlWriteTagForLong(FILE* file, char const* tag, double value)
{
    xmlWriteTag(file, tag, CString(QString::number(roundToWhole(value))));
}

void xmlWriteTagForBool(FILE* file, char const* tag, bool value, bool skipIfFalse)
{
    if (skipIfFalse && !value)
        return;
    xmlWriteTag(file, tag, value ? "1" : "0");
}

void writeXMLOpenTagString(CString& out, char const* tag)
{
    out += QStringLiteral("<%1>\n").arg(CString(tag));
}

void writeXMLCloseTagString(CString& out, char const* tag)
{
    out += QStringLiteral("</%1>\n").arg(CString(tag));
}

void writeXMLString(CString& out, char const* tag, CString const& value, int maxLen, int flags)
{
    const CString converted = convertToXMLString(value, maxLen, flags);
    CString trimmed(converted);
    trimmed.Trim();
    if (trimmed.IsEmpty())
        return;
    // The value goes in last, so markers inside it are never filled.
    out += QStringLiteral("<%1>%2</%1>\n").arg(CString(tag)).arg(converted);
}

void writeXMLString(CString& out, char const* tag, CString const& value, int maxLen)
{
    writeXMLString(out, tag, value, maxLen, 4);
}

void writeXMLString(CString& out, char const* tag, CString const& value)
{
    writeXMLString(out, tag, value, 0, 4);
}

void writeXMLInteger(CString& out, char const* tag, int value, int width)
{
    if (width < 1)
        writeRaw(out, tag, QString::number(value));
    else
        writeRaw(out, tag, QStringLiteral("%1").arg(value, width, 10, QLatin1Char('0')));
}

void writeXMLInteger(CString& out, char const* tag, int value)
{
    writeXMLInteger(out, tag, value, 0);
}

void writeXMLForLong(CString& out, char const* tag, long value, bool)
{
    writeRaw(out, tag, QString::number(value));
}

void writeXMLForLong(CString& out, char const* tag, double value, bool)
{
    writeRaw(out, tag, QString::number(roundToWhole(value)));
}

void writeXMLForLong64(CString& out, char const* tag, long long value, bool skipIfZero)
{
    if (skipIfZero && value == 0)
        return;
    writeRaw(out, tag, QString::number(value));
}

void writeXMLForBool(CString& out, char const* tag, bool value, bool skipIfFalse)
{
    if (skipIfFalse && !value)
        return;
    writeRaw(out, tag, value ? QStringLiteral("1") : QStringLiteral("0"));
}

CString XmlUtil::xmlTagString(char const* tag, char const* value)
{
    return xmlTagString(tag, CString(value));
}

CString XmlUtil::xmlTagString(char const* tag, CString const& value)
{
    return fillTemplate(tag, convertToXMLString(value));
}

CString XmlUtil::xmlTagStringIfNotEmpty(char const* tag, CString const& value)
{
    if (value.GetLength() == 0)
        return CString();
    return xmlTagString(tag, value);
}

CString XmlUtil::xmlTagFill(char const* tag, CString const& value)
{
    return fillTemplate(tag, value);
}
