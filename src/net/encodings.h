// Base64 (RFC 4648, standard alphabet) and URL escaping for text on the wire.
#pragma once

#include "libbedrock_export.h"

#include <string>

/*
 * Base64 works on caller-owned C buffers. Size the output with the matching
 * _len function first:
 *  - Base64encode_len(size) counts the closing zero byte. It gives 0 when the
 *    encoded text could not be counted in an int (or for a negative size it
 *    gives 1, room for the empty text).
 *  - Base64encode writes the text and its closing zero and returns that length,
 *    zero included; it writes nothing and returns 0 when Base64encode_len is 0.
 *  - Base64decode_len(text) scans to the first character outside the alphabet
 *    and gives enough room for the decoded bytes plus a closing zero.
 *  - Base64decode stops at that same character ("=" included), writes the bytes
 *    and a closing zero and returns the byte count. It reports no error.
 * Null pointers are taken as empty input; a null output buffer is never written.
 */
LIBBEDROCK_EXPORT int Base64encode_len(int size);
LIBBEDROCK_EXPORT int Base64encode(char* out, char const* data, int size);
LIBBEDROCK_EXPORT int Base64decode_len(char const* text);
LIBBEDROCK_EXPORT int Base64decode(char* out, char const* text);

/*
 * URL escaping, meant for ASCII text. urlEncode stops at the first zero byte,
 * passes letters, digits and "-._~", and writes every other byte as "%" plus
 * its hex digits, "%0" for values below 16. Bytes from 0x80 are taken as
 * negative and come out as "%0FFFFFFxx", which urlDecode does not read back.
 * urlDecode turns "+" into a blank, and "%" with the two characters after it
 * into one byte: they are read as hex the way "%x" scanning reads them, and
 * give "?" when they hold no digit at all.
 */
LIBBEDROCK_EXPORT std::string urlEncode(std::string text);
LIBBEDROCK_EXPORT std::string urlDecode(std::string text);
