// Arbitrary text as a postal code.
#include "cpostcodeinfo.h"

#include <cstdint>
#include <string>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    const std::string code(reinterpret_cast<const char*>(data), size);
    CPostCodeInfo* info = CPostCodeInfo::GetInstance();
    const int prov = info->ProvFromPostCode(code.c_str());
    if (prov < 0 || prov > 13)
        __builtin_trap();
    // Only the first three bytes decide.
    if (code.size() >= 3 && info->ProvFromPostCode(code.substr(0, 3).c_str()) != prov)
        __builtin_trap();
    if (!info->IsPostCodeFromProv(code.c_str(), ENUMTYPE_PROVINCE(prov)))
        __builtin_trap();
    return 0;
}
