// Helpers shared by the worksheets.
#pragma once

#include "cfloatfield.h"
#include "cwsbasedata.h"
#include "dependantinfo.h"

#include <initializer_list>
#include <utility>

namespace Bedrock {

// To clamp: store 0 in place of a value below 0, without rounding anything else.
inline void clampNegative(CFloatField& field)
{
    if (field.m_value < 0)
        field.m_value = 0.0;
}

// Line 3 of the infirm and caregiver worksheets: the base amount less the
// dependant's income, set (rounded), clamped, then capped by the maximum,
// which counts even at 0 there.
inline void setCappedRemainder(CFloatField& line, const CFloatField& base,
                               const CFloatField& income, double maximum)
{
    line = base - income;
    clampNegative(line);
    if (line.m_value > maximum)
        line.m_value = maximum;
}

// Names each field and appends it to the worksheet's list, in the order given.
inline void addFields(CWSBaseData* ws,
                      std::initializer_list<std::pair<CField*, const char*>> fields)
{
    for (const auto& field : fields) {
        field.first->m_name = field.second;
        ws->m_fields.push_back(field.first);
    }
}

/*
 * The one-based index of the chosen dependant, or 0 when none is chosen. An
 * index that names no row of the list (it may come from a file), or a
 * worksheet without a list, counts as none: that is what the list's own
 * ValidateAndCorrectDepIndex would have made of it, and no row past the end
 * is ever read.
 */
inline int chosenDependant(const CWSDepBaseData& ws)
{
    const DependantInfoStruct* list = ws.m_pDepInfo;
    const int index = ws.DepIdx.m_value;
    if (!list || !list->m_pData || index < 1 || index > list->m_nCount)
        return 0;
    return index;
}

inline _OneDependantInfoStru* dependantRow(const CWSDepBaseData& ws)
{
    const int index = chosenDependant(ws);
    return index > 0 ? &ws.m_pDepInfo->m_pData[index - 1] : nullptr;
}

// The row's own net income, without the F185 adjustment; 0 when there is no row.
inline double dependantNetIncome(const CWSDepBaseData& ws)
{
    const _OneDependantInfoStru* row = dependantRow(ws);
    return row ? row->m_NetIncome : 0.0;
}

} // namespace Bedrock
