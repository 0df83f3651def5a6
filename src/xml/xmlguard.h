// The one way the library hands text to TinyXML.
#pragma once

#include "libbedrock_export.h"

#include <QString>

#include <tinyxml.h>

#include <cstddef>

/*
 * TinyXML 2.6.2 parses by recursive descent, a few stack frames per nested
 * element, so some tens of thousands of levels overflow the stack and kill the
 * process. It also reports success on text it silently gave up on: a DOCTYPE
 * with an internal subset ends at its first '>' and the real root is dropped.
 * Every caller therefore goes through these functions, which refuse:
 *  - text longer than XmlGuardMaxBytes;
 *  - elements nested deeper than XmlGuardMaxDepth, judged by a linear scan
 *    before parsing that never counts fewer levels than the parser reaches;
 *  - a parse with an error, without a root element, with a root other than
 *    `expectedRoot` (when given, compared exactly), or that would stop before
 *    the first element has closed (a DOCTYPE subset, a NUL inside the root).
 * What follows the first element once it has closed is read as the parser
 * reads it: further top-level nodes count (their depth too), but at the first
 * other text, or a NUL, the parser stops without error and the document is
 * taken with its root whole, so junk or a cut UTF-8 sequence after a good
 * record costs nothing of it.
 * On refusal `doc` is cleared and false is returned. Text is parsed as UTF-8.
 */
// The parser's tree costs up to some 55 bytes of memory per byte of dense
// markup, so 16 MiB of text may still take most of a gigabyte. Return records
// and layouts are a small fraction of this.
inline constexpr std::size_t XmlGuardMaxBytes = 16u * 1024u * 1024u;
// Far above any document of the library, far below what overflows a thread's stack.
inline constexpr int XmlGuardMaxDepth = 256;

LIBBEDROCK_EXPORT bool parseXmlSafely(TiXmlDocument& doc, const char* text, std::size_t length,
                                      const char* expectedRoot = nullptr);
// Reads the file through QFile, no more than XmlGuardMaxBytes of it, turns CR LF
// and lone CR into LF as TiXmlDocument::LoadFile does, and parses as above.
LIBBEDROCK_EXPORT bool loadXmlFileSafely(TiXmlDocument& doc, const QString& path,
                                         const char* expectedRoot = nullptr);
