// Plain-text XML writers: tags appended to a stdio file, to a CString, or
// returned as a value. None of them builds a document tree.
#pragma once

#include "cstring.h"
#include "libbedrock_export.h"

#include <cstdio>

/*
 * All values pass through the one escaping rule, convertToXMLString; tags are
 * never escaped. A null tag counts as an empty one. A `char const*` value is
 * turned into a CString first, so it is read as Latin-1. Whole-number writers
 * taking a double round half away from zero into 64 bits; NaN writes 0 and
 * values beyond 64 bits saturate.
 */

// To a stdio file. The handle is open and owned by the caller; values are
// written as UTF-8. A null handle writes nothing, and write errors are ignored.
LIBBEDROCK_EXPORT void xmlWriteOpenTag(FILE* file, char const* tag);
LIBBEDROCK_EXPORT void xmlWriteCloseTag(FILE* file, char const* tag);
// An empty or blank value still gives an element.
LIBBEDROCK_EXPORT void xmlWriteTag(FILE* file, char const* tag, char const* value);
LIBBEDROCK_EXPORT void xmlWriteTag(FILE* file, char const* tag, CString const& value);
// Writes the value trimmed at both ends, or nothing when nothing is left.
LIBBEDROCK_EXPORT void xmlWriteTagIfNotEmpty(FILE* file, char const* tag, char const* value);
LIBBEDROCK_EXPORT void xmlWriteTagIfNotEmpty(FILE* file, char const* tag, CString const& value);
LIBBEDROCK_EXPORT void xmlWriteTagForLong(FILE* file, char const* tag, double value);
LIBBEDROCK_EXPORT void xmlWriteTagForBool(FILE* file, char const* tag, bool value,
                                          bool skipIfFalse);

// Appended to `out`, which is never cleared.
LIBBEDROCK_EXPORT void writeXMLOpenTagString(CString& out, char const* tag);
LIBBEDROCK_EXPORT void writeXMLCloseTagString(CString& out, char const* tag);
// Nothing at all when the converted value is blank; otherwise the converted value
// with its own surrounding blanks. Flags without bit 4 or 8 write the value raw.
LIBBEDROCK_EXPORT void writeXMLString(CString& out, char const* tag, CString const& value,
                                      int maxLen, int flags);
LIBBEDROCK_EXPORT void writeXMLString(CString& out, char const* tag, CString const& value,
                                      int maxLen);
LIBBEDROCK_EXPORT void writeXMLString(CString& out, char const* tag, CString const& value);
// A width of 1 or more right-aligns the value in that many columns filled with 0.
LIBBEDROCK_EXPORT void writeXMLInteger(CString& out, char const* tag, int value, int width);
LIBBEDROCK_EXPORT void writeXMLInteger(CString& out, char const* tag, int value);
// The flag of both writeXMLForLong forms is ignored: zero is always written.
LIBBEDROCK_EXPORT void writeXMLForLong(CString& out, char const* tag, long value, bool);
LIBBEDROCK_EXPORT void writeXMLForLong(CString& out, char const* tag, double value, bool);
LIBBEDROCK_EXPORT void writeXMLForLong64(CString& out, char const* tag, long long value,
                                         bool skipIfZero);
LIBBEDROCK_EXPORT void writeXMLForBool(CString& out, char const* tag, bool value, bool skipIfFalse);

// Returned as a value, with no line end.
class LIBBEDROCK_EXPORT XmlUtil
{
public:
    XmlUtil() = default;

    static CString xmlTagString(char const* tag, char const* value);
    // The template is filled one marker at a time, so a value holding "%1" or "%2"
    // receives the closing tag's name and "%3" is left in the closing tag. Old
    // output depends on it.
    static CString xmlTagString(char const* tag, CString const& value);
    // Empty when the value has no characters at all; blanks still make an element.
    static CString xmlTagStringIfNotEmpty(char const* tag, CString const& value);
    // Wraps text that is XML already: the value goes in unescaped.
    static CString xmlTagFill(char const* tag, CString const& value);
};
