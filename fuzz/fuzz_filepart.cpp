// Arbitrary text as a template container of file parts (read through the XML guard).
#include "templateengine.h"

#include <cstdint>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    std::map<std::string, CString> parts;
    parseXMLFilePartIntoMap(std::string(reinterpret_cast<const char*>(data), size), parts);
    return 0;
}
