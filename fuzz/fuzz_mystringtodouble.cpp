// Arbitrary bytes as loose amount text, and the number helpers on what comes back.
#include "texthelpers.h"

#include <cstdint>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    const std::string text(reinterpret_cast<const char*>(data), size);
    const double v = myStringToDouble(text);
    CString out;
    myDoubleToString(v, 2, out);
    GetPercentStringForNetfile(v, -4, out);
    GetPercentStringForAT1(v, 4, out);
    GetPercentStringForAT1(v, int(size % 24), out);
    CString hours(QString::fromUtf8(text.data(), qsizetype(text.size())));
    myStringTimeHourValidate(hours);
    return 0;
}
