// The fast record reader against the general path it stands in for: wherever
// it answers, the map must be the one the guarded TinyXML parse gives.
#include "recordreader_p.h"
#include "xmlguard.h"
#include "xmlreaders.h"

#include <cstdint>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    const char* text = reinterpret_cast<const char*>(data);
    std::map<std::string, CString> fast;
    if (!Bedrock::readFieldRecord(text, size, fast))
        return 0;
    std::map<std::string, CString> general;
    TiXmlDocument document;
    if (!parseXmlSafely(document, text, size))
        __builtin_trap(); // the fast reader took something the parser refuses
    readXMLFieldsToStringMap(document.RootElement(), general);
    if (fast != general)
        __builtin_trap();
    return 0;
}
