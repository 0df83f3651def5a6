// Arbitrary text through the library's guarded parse into the field map.
#include "cstring.h"
#include "xmlguard.h"
#include "xmlreaders.h"

#include <cstdint>
#include <map>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    TiXmlDocument document;
    if (!parseXmlSafely(document, reinterpret_cast<const char*>(data), size))
        return 0;
    std::map<std::string, CString> values;
    readXMLFieldsToStringMap(document.RootElement(), values);
    MyTiXmlHandle handle(document.RootElement());
    handle.FirstChildElement("f");
    getElementSubEleStringAsInt(document.RootElement(), "f", 1);
    return 0;
}
