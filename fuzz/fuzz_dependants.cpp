// Arbitrary bytes as a dependant list: the first byte picks the archive
// version, the rest is loaded through a buffer and through a device that
// hides its size; every query then runs over the rows and the list is stored again.
#include "dependantinfo.h"
#include "fuzzrows.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstring>

namespace {

constexpr int Versions[] = { 0x100b1, 0x100db, 0x101F4, 0x10210, 0x10211, 0x10300 };
// Every row takes at least its fixed head on the stream.
constexpr qint64 RowHeadBytes = 184;

void exercise(DependantInfoStruct& list, qint64 inputSize)
{
    if (list.m_nCount < 0 || qint64(list.m_nCount) * RowHeadBytes > inputSize
        || (list.m_nCount > 0 && !list.m_pData))
        __builtin_trap();
    CString text;
    // A NaN or infinite income is never within the tolerance of anything, itself included.
    bool comparable = true;
    for (int i = 0; i < list.m_nCount; ++i) {
        _OneDependantInfoStru& row = list.m_pData[i];
        if (std::memchr(row.m_FirstName, 0, 80) == nullptr
            || std::memchr(row.m_LastName, 0, 80) == nullptr)
            __builtin_trap();
        row.MakeComboBoxString(text);
        row.getName(text);
        text = CString(row.getInfirmStatusStr());
        row.getAge();
        row.IsDisabled();
        row.IsInfirmOrDisabled();
        row.IsMedExpForLine330();
        list.GetDepNetIncConsideringF185(i);
        comparable = comparable && std::isfinite(row.m_NetIncome);
    }
    for (int bound : { -1, 0, 17, 18, 65 }) {
        list.GetInfirmDependantsNumberNotUnderAge(bound);
        list.GetDisabledDependantsBetweenAges(bound, 18);
        list.GetDepChildrenNumberBetweenAges(0, bound);
        list.GetDepNumberBetweenAges(bound, bound);
        list.GetDepChildrenNumberBetweenAges_Infirm(bound, 0, bound & 1);
        list.GetDepNumberBetweenAgesAndRelation(0, 0, bound);
        list.GetMonthsDepChildrenAtAge_Infirm(bound);
        int index = bound;
        list.ValidateAndCorrectDepIndex(index);
    }
    list.GetInfirmDependentNumberUnderAge18();
    list.GetDepChildrenNumberForLine305();
    list.GetDepOtherThanChildrenNumberForLine305();
    int last = list.m_nCount;
    list.ValidateAndCorrectDepIndex(last);

    DependantInfoStruct copy;
    copy = list;
    if (comparable && !(copy == list))
        __builtin_trap();
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    loadCheckAndStore<DependantInfoStruct>(data, size, Versions, exercise);
    return 0;
}
