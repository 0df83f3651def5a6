// The template engine: fills line-oriented text skeletons with values by key.
#pragma once

#include "cstring.h"
#include "libbedrock_export.h"

#include <cstdio>
#include <map>
#include <string>

class QTextStream;

/*
 * A template is read line by line. Its one marker is "$$(key)", at most one per
 * line (text after the first placeholder's ")" is copied as it stands):
 *  - "$$(name)"  is required; a missing key stops the run with -200, after the
 *    key's name has been appended to the output;
 *  - "$$(name0)" is optional: "name" is looked up, and when it is missing the
 *    whole line is left out;
 *  - "$$($name)" is looked up with its "$" and its value is never escaped.
 * Values go through convertToXMLString(value, 0, flags), which escapes them when
 * flag 4 or 8 is set. Blank lines are dropped; every line written ends in "\n".
 * Keys are matched exactly on their UTF-8 bytes.
 *
 * Flag 64 picks the encoding of output written as bytes (std::string, FILE*):
 * set gives UTF-8, clear gives Latin-1.
 *
 * Results: 0 done; -1 template file not readable (processTemplatePart only);
 * -101 "$$(" without ")"; -102 empty key; -103 key "0"; -200 required key
 * missing. On the negative codes other than -1 whatever was produced before the
 * failing line stays in (or is written to) the output. Output is appended to,
 * never cleared. A stream is read to its end, whatever the result; lines end
 * at "\n", with a "\r" before it taken as part of the line end.
 */
LIBBEDROCK_EXPORT int
processStringTemplatePartInString(CString& out, QTextStream& in,
                                  std::map<std::string, CString> const& values, int flags);
LIBBEDROCK_EXPORT int
processStringTemplatePartInString(std::string& out, QTextStream& in,
                                  std::map<std::string, CString> const& values, int flags);
LIBBEDROCK_EXPORT int
processStringTemplatePartInString(CString& out, CString const& text,
                                  std::map<std::string, CString> const& values, int flags);
LIBBEDROCK_EXPORT int
processStringTemplatePartInString(std::string& out, CString const& text,
                                  std::map<std::string, CString> const& values, int flags);

// A path that does not open reads as an empty template here (result 0).
LIBBEDROCK_EXPORT int processTemplatePartInString(CString& out, CString const& path,
                                                  std::map<std::string, CString> const& values,
                                                  int flags);
LIBBEDROCK_EXPORT int processTemplatePartInString(std::string& out, CString const& path,
                                                  std::map<std::string, CString> const& values,
                                                  int flags);

// `path` is in the file system's encoding. -1, with nothing written, when it does not open.
LIBBEDROCK_EXPORT int processTemplatePart(std::string& out, char const* path,
                                          std::map<std::string, CString> const& values, int flags);
// The FILE* belongs to the caller; the output goes out with one fputs, so it ends at a NUL.
LIBBEDROCK_EXPORT int processTemplatePart(FILE* f, char const* path,
                                          std::map<std::string, CString> const& values, int flags);

/*
 * Reads the fragments of a template container: `xmlText` is XML (not a file
 * name) whose root holds "filepart" elements. From the first child whose name
 * ends in "filepart" (any letter case, so a namespace prefix is allowed) and
 * each following sibling named exactly "filepart": parts[name attribute] = its
 * text, read as UTF-8, replacing an earlier entry. An element without the
 * attribute or without text is skipped. Returns 130 when the text is refused
 * as XML, otherwise 0.
 */
LIBBEDROCK_EXPORT int parseXMLFilePartIntoMap(std::string const& xmlText,
                                              std::map<std::string, CString>& parts);
