// The fast reader of the library's own form records.
#pragma once

#include "cstring.h"

#include <cstddef>
#include <map>
#include <string>

namespace Bedrock {

/*
 * Reads a record in exactly the form the library writes it: "<m>", then
 * elements <f n="name">text</f> (an integer field may add p="..."), then
 * "</m>", with no white space between elements, and fills `out` as
 * readXMLFieldsToStringMap would from the parsed document. Anything outside
 * that form (comments, other elements, unusual white space, entities the
 * writer never emits, malformed UTF-8) returns false and leaves `out` alone,
 * and the caller takes the general, guarded XML path. The two give the same
 * map wherever this one answers; a fuzz target holds them to it.
 */
bool readFieldRecord(const char* text, std::size_t length, std::map<std::string, CString>& out);

} // namespace Bedrock
