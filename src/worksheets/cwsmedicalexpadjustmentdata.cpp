#include "cwsmedicalexpadjustmentdata.h"

#include "worksheets_p.h"

#include <algorithm>

using Bedrock::clampNegative;

namespace {

constexpr unsigned int FirstVersion = 0x10083;
// The version that brought the expense and the income line into the worksheet.
constexpr unsigned int ExpenseVersion = 0x100c0;

CFloatField amount(unsigned int version)
{
    return CFloatField(0.0, 0, false, version);
}

} // namespace

CWSMedicalExpAdjustmentData::CWSMedicalExpAdjustmentData(double incomeCap, double incomeRate,
                                                         double claimLimit)
    : CWSMedicalExpAdjustmentData(incomeCap, incomeRate, claimLimit, FirstVersion)
{
    fld_exp.m_version = ExpenseVersion;
    fld_line2.m_version = ExpenseVersion;
}

CWSMedicalExpAdjustmentData::CWSMedicalExpAdjustmentData(double incomeCap, double incomeRate,
                                                         double claimLimit, unsigned int version)
    : DepNetInc(amount(version))
    , BaseAmount(amount(version))
    , fld_3(amount(version))
    , Rate(amount(version))
    , fld_exp(amount(version))
    , fld_line2(amount(version))
    , AmountClaim(amount(version))
    , m_incomeCap(incomeCap)
    , m_incomeRate(incomeRate)
    , m_claimLimit(claimLimit)
{
    Bedrock::addFields(this,
                       { { &DepNetInc, "DepNetInc" },
                         { &BaseAmount, "BaseAmount" },
                         { &fld_3, "fld_3" },
                         { &Rate, "Rate" },
                         { &fld_exp, "fld_exp" },
                         { &fld_line2, "fld_line2" },
                         { &AmountClaim, "AmountClaim" } });
}

int CWSMedicalExpAdjustmentData::Calculate()
{
    const int index = Bedrock::chosenDependant(*this);
    DepNetInc.m_value = Bedrock::dependantNetIncome(*this);
    fld_line2 = DepNetInc * m_incomeRate;
    if (fld_line2.m_value > m_incomeCap)
        fld_line2.m_value = m_incomeCap;
    if (index < 1) {
        AmountClaim.m_value = 0.0;
        return 0;
    }
    AmountClaim = fld_exp - fld_line2;
    clampNegative(AmountClaim);
    if (AmountClaim.m_value > m_claimLimit)
        AmountClaim.m_value = m_claimLimit;
    return 0;
}

DataWSAdoptionExpense::DataWSAdoptionExpense()
{
    Bedrock::addFields(this,
                       { { &fld_Adopt_ExpAmt_1, "fld_Adopt_ExpAmt_1" },
                         { &fld_Adopt_ExpAmt_2, "fld_Adopt_ExpAmt_2" },
                         { &fld_Adopt_ExpAmt_3, "fld_Adopt_ExpAmt_3" },
                         { &fld_Adopt_ExpAmt_4, "fld_Adopt_ExpAmt_4" },
                         { &fld_Adopt_ExpAmt_5, "fld_Adopt_ExpAmt_5" },
                         { &fld_Adopt_ExpAmt_6, "fld_Adopt_ExpAmt_6" } });
}

int DataWSAdoptionExpense::Calculate()
{
    for (CField* field : m_fields)
        clampNegative(*static_cast<CFloatField*>(field));
    return 0;
}

double DataWSAdoptionExpense::CalcResult(double limit)
{
    double total = 0.0;
    for (CField* field : m_fields)
        total += std::min(limit, static_cast<CFloatField*>(field)->m_value);
    return total;
}

DataWS58600::DataWS58600()
    : fld_5860(0.0, 5860)
    // Both flags set: ValidateAndCorrect leaves a negative pro-rated amount alone.
    , fld_claim(true, 0.0, 0, true, FIELD_ATTR_NONE, 0, 0x10000)
{
    Bedrock::addFields(this, { { &fld_5860, "fld_5860" }, { &fld_claim, "fld_claim" } });
}

int DataWS58600::Calculate(double factor)
{
    m_factor = factor;
    fld_claim.m_value = factor * fld_5860.m_value;
    return 0;
}
