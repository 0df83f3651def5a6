// Arbitrary text and format code for the date reader, then the text forms back.
#include "calendar.h"

#include <cstdint>
#include <cstring>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    if (size < 1)
        return 0;
    const int code = data[0] % 32;
    CString text;
    text.LoadString(std::string(reinterpret_cast<const char*>(data + 1), size - 1).c_str());
    QDate date;
    const bool ok = ReadQDate2(text, code, date);
    if (ok != date.isValid())
        __builtin_trap();
    CString out;
    FormatQDate(out, date, code);
    FormatQDate(out, date, 18);
    GetDaysBetween(date, QDate(2025, 12, 31));
    GetMonthsBetween(date, QDate(2025, 1, 1));
    GetDaysWithinYear(date, QDate(2025, 12, 31), 2025);
    DaysInCanadaInTaxYear(2025, date, date);
    DateAsDouble::convertDateToDouble(date);
    double raw = 0;
    if (size >= 1 + sizeof raw) {
        std::memcpy(&raw, data + 1, sizeof raw);
        DateAsDouble::convertDoubleToDate(raw);
    }
    return 0;
}
