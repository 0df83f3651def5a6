#include "taxstairs.h"

#include "cfloatfield.h"

#include <algorithm>

STRUCT_TAX_STAIRS_JURISDICTION::STRUCT_TAX_STAIRS_JURISDICTION()
    : m_nLevels(0)
    , m_pLevels(new STRUCT_TAX_STAIRS_LEVEL[MaxLevels]())
{ }

STRUCT_TAX_STAIRS_JURISDICTION::STRUCT_TAX_STAIRS_JURISDICTION(
    const STRUCT_TAX_STAIRS_JURISDICTION& other)
    : m_nLevels(other.m_nLevels)
    , m_pLevels(new STRUCT_TAX_STAIRS_LEVEL[MaxLevels])
{
    std::copy(other.m_pLevels, other.m_pLevels + MaxLevels, m_pLevels);
}

STRUCT_TAX_STAIRS_JURISDICTION&
STRUCT_TAX_STAIRS_JURISDICTION::operator=(const STRUCT_TAX_STAIRS_JURISDICTION& other)
{
    m_nLevels = other.m_nLevels;
    std::copy(other.m_pLevels, other.m_pLevels + MaxLevels, m_pLevels);
    return *this;
}

STRUCT_TAX_STAIRS_JURISDICTION::~STRUCT_TAX_STAIRS_JURISDICTION()
{
    delete[] m_pLevels;
}

// The count is a public member; whatever was written there, no level outside
// the array is ever read.
int STRUCT_TAX_STAIRS_JURISDICTION::levelCount() const
{
    return std::clamp(m_nLevels, 0, MaxLevels);
}

int STRUCT_TAX_STAIRS_JURISDICTION::addLevel(double threshold, double rate, double baseTax)
{
    // The table has room for MaxLevels levels only. Callers were always told
    // not to add more; one that does gets its extra level dropped rather
    // than a write past the array.
    const int count = levelCount();
    if (count >= MaxLevels)
        return count;
    m_pLevels[count] = { threshold, rate, baseTax };
    m_nLevels = count + 1;
    return m_nLevels;
}

void STRUCT_TAX_STAIRS_JURISDICTION::GetIncomeThresholds(std::list<double>& out) const
{
    const int count = levelCount();
    for (int i = 1; i < count; ++i)
        out.push_back(m_pLevels[i].m_threshold);
}

// Callers make sure there is at least one level.
const STRUCT_TAX_STAIRS_LEVEL& STRUCT_TAX_STAIRS_JURISDICTION::findLevel(double income) const
{
    const int count = levelCount();
    for (int i = 1; i < count; ++i) {
        if (m_pLevels[i].m_threshold >= income)
            return m_pLevels[i - 1];
    }
    return m_pLevels[count - 1];
}

double STRUCT_TAX_STAIRS_JURISDICTION::CalcAlgoForTax(double income) const
{
    const int count = levelCount();
    if (count == 0)
        return 0.0;
    // A flat table is a plain product: no threshold, no base tax, no rounding.
    if (count == 1)
        return income * m_pLevels[0].m_rate;
    const STRUCT_TAX_STAIRS_LEVEL& level = findLevel(income);
    CFloatField step(0.0, 0);
    step = income - level.m_threshold;
    step = step.m_value * level.m_rate;
    step = step.m_value + level.m_baseTax;
    return step.m_value;
}

void STRUCT_TAX_STAIRS_JURISDICTION::CalcAlgoForSetFieldsToCalcTax(double income, double& threshold,
                                                                   double& rate,
                                                                   double& baseTax) const
{
    if (levelCount() == 0)
        return;
    const STRUCT_TAX_STAIRS_LEVEL& level = findLevel(income);
    threshold = level.m_threshold;
    rate = level.m_rate;
    baseTax = level.m_baseTax;
}

double STRUCT_TAX_STAIRS_JURISDICTION::CalcAlgoForSpouseF260S2(double income, double& tax) const
{
    tax = 0.0;
    if (levelCount() < 2)
        return income;
    const double firstBracket = m_pLevels[1].m_threshold;
    if (!(income > firstBracket) || income - firstBracket < 0.009)
        return income;
    tax = CalcAlgoForTax(income);
    return tax / m_pLevels[0].m_rate;
}
