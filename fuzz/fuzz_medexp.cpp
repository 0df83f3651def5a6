// Arbitrary bytes as a medical expense record: the first byte picks the
// archive version, the rest is loaded through a buffer and through a device
// that hides its size; the record is then copied, compared, cleared and stored.
#include "fuzzrows.h"
#include "medexpinfo.h"

#include <algorithm>
#include <cstdint>
#include <cstring>

namespace {

constexpr int Versions[] = { 0x100d1, 0x100d2, 0x10185, 0x10300 };
// A record without rows in the archive comes out with this many.
constexpr int DefaultRows = 12;
// The smallest row that an archive with rows holds: five amounts.
constexpr qint64 MinRowBytes = 5 * 8;

void exercise(_MedExpInfoStruct& rec, qint64 inputSize)
{
    const int count = rec.fld_nDepNum.m_value;
    if (count < 0 || !rec.m_pData
        || (count > DefaultRows && qint64(count) * MinRowBytes > inputSize))
        __builtin_trap();
    _MedExpInfoStruct copy(rec);
    if (!(copy == rec) || !(rec == copy))
        __builtin_trap();
    copy.ClearData();
    if (copy.fld_nDepNum.m_value != count)
        __builtin_trap();
    (void)(rec == copy);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    loadCheckAndStore<_MedExpInfoStruct>(data, size, Versions, exercise);
    return 0;
}
