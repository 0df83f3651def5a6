#include "cwsdepamtdata.h"

#include "worksheets_p.h"

#include <algorithm>

using Bedrock::clampNegative;

namespace {

constexpr unsigned int FirstVersion = 0x10083;
// The version that brought the F185-adjusted income into CWSDepAmtData.
constexpr unsigned int AdjustedIncomeVersion = 0x1009a;
constexpr unsigned int CaregiverOverwriteVersion = 0x10192;

// Below this a maximum of CWSDepAmtData counts as none.
constexpr double NoMaximum = 0.009;

CFloatField amount(unsigned int version)
{
    return CFloatField(0.0, 0, false, version);
}

} // namespace

CWSDepAmtData::CWSDepAmtData()
    : CWSDepAmtData(FirstVersion)
{
    bOverWriteDepNetInc_notused.m_version = AdjustedIncomeVersion;
    DepNetInc.m_version = AdjustedIncomeVersion;
    AmountClaim.m_version = AdjustedIncomeVersion;
}

CWSDepAmtData::CWSDepAmtData(unsigned int version)
    : BaseAmount(amount(version))
    , bOverWriteDepNetInc_notused(0, 0, FIELD_ATTR_NONE, 0, version)
    , DepNetInc(amount(version))
    , AmountClaim(amount(version))
{
    Bedrock::addFields(this,
                       { { &BaseAmount, "BaseAmount" },
                         { &bOverWriteDepNetInc_notused, "bOverWriteDepNetInc_notused" },
                         { &DepNetInc, "DepNetInc" },
                         { &AmountClaim, "AmountClaim" } });
}

void CWSDepAmtData::SetParameter(double baseAmount, double maxAmount)
{
    BaseAmount.m_value = baseAmount;
    m_maxAmount = maxAmount;
}

int CWSDepAmtData::Calculate()
{
    bOverWriteDepNetInc_notused.m_value = 0;
    const int index = Bedrock::chosenDependant(*this);
    if (index < 1) {
        DepNetInc.m_value = 0.0;
        AmountClaim.m_value = 0.0;
        return 0;
    }
    DepNetInc.m_value = m_pDepInfo->GetDepNetIncConsideringF185(index - 1);
    AmountClaim = BaseAmount - DepNetInc;
    clampNegative(AmountClaim);
    if (m_maxAmount >= NoMaximum && AmountClaim.m_value > m_maxAmount)
        AmountClaim.m_value = m_maxAmount;
    return 0;
}

CWSInfirmDepAmtData::CWSInfirmDepAmtData()
    : CWSInfirmDepAmtData(FirstVersion)
{ }

CWSInfirmDepAmtData::CWSInfirmDepAmtData(unsigned int version)
    : BaseAmount(amount(version))
    , DepNetInc(amount(version))
    , fld_3(amount(version))
    , fld_bClaim5816_notused(0, 0, FIELD_ATTR_NONE, 0, version)
    , fld_4(amount(version))
    , AmountClaim(amount(version))
{
    Bedrock::addFields(this,
                       { { &BaseAmount, "BaseAmount" },
                         { &DepNetInc, "DepNetInc" },
                         { &fld_3, "fld_3" },
                         { &fld_bClaim5816_notused, "fld_bClaim5816_notused" },
                         { &fld_4, "fld_4" },
                         { &AmountClaim, "AmountClaim" } });
}

void CWSInfirmDepAmtData::SetParameterAndF5816Info(double baseAmount, double maxAmount,
                                                   int f5816DepIdx, double f5816Amount)
{
    BaseAmount.m_value = baseAmount;
    m_maxAmount = maxAmount;
    m_f5816DepIdx = f5816DepIdx;
    m_f5816Amount = f5816Amount;
}

int CWSInfirmDepAmtData::Calculate()
{
    // The reserved index names nobody on the list, however long the list is,
    // and keeps the income the user typed.
    const bool notOnList = DepIdx.m_value == NotOnListDepIdx;
    const int index = notOnList ? NotOnListDepIdx : Bedrock::chosenDependant(*this);
    if (!notOnList)
        DepNetInc.m_value = Bedrock::dependantNetIncome(*this);
    // Unlike CWSDepAmtData, a maximum of 0 is a maximum here.
    Bedrock::setCappedRemainder(fld_3, BaseAmount, DepNetInc, m_maxAmount);
    fld_4.m_value = 0.0;
    if (index < 1) {
        AmountClaim.m_value = 0.0;
        return 0;
    }
    if (notOnList || index == m_f5816DepIdx)
        fld_4.m_value = m_f5816Amount;
    AmountClaim = fld_3 - fld_4;
    clampNegative(AmountClaim);
    return 0;
}

CWSCaregiverAmtData::CWSCaregiverAmtData()
    : CWSCaregiverAmtData(FirstVersion)
{
    bOverwrite.m_version = CaregiverOverwriteVersion;
}

CWSCaregiverAmtData::CWSCaregiverAmtData(unsigned int version)
    : BaseAmount(amount(version))
    , DepNetInc(amount(version))
    , fld_3(amount(version))
    , fld_bClaim5816_notused(0, 0, FIELD_ATTR_NONE, 0, version)
    , fld_4(amount(version))
    , AmountClaim(amount(version))
    , bOverwrite(0, 0, FIELD_ATTR_NONE, 0, version)
{
    Bedrock::addFields(this,
                       { { &BaseAmount, "BaseAmount" },
                         { &DepNetInc, "DepNetInc" },
                         { &fld_3, "fld_3" },
                         { &fld_bClaim5816_notused, "fld_bClaim5816_notused" },
                         { &fld_4, "fld_4" },
                         { &AmountClaim, "AmountClaim" },
                         { &bOverwrite, "bOverwrite" } });
}

void CWSCaregiverAmtData::SetParameter(double baseAmount, double maxAmount, int f5816DepIdx,
                                       double f5816Amount)
{
    BaseAmount.m_value = baseAmount;
    m_maxAmount = maxAmount;
    m_f5816DepIdx = f5816DepIdx;
    m_f5816Amount = f5816Amount;
}

int CWSCaregiverAmtData::Calculate()
{
    const int index = Bedrock::chosenDependant(*this);
    DepNetInc.m_value = Bedrock::dependantNetIncome(*this);
    Bedrock::setCappedRemainder(fld_3, BaseAmount, DepNetInc, m_maxAmount);
    fld_4.m_value = 0.0;
    if (index < 1) {
        AmountClaim.m_value = 0.0;
        return 0;
    }
    if (index == m_f5816DepIdx)
        fld_4.m_value = m_f5816Amount;
    const double computed = fld_3 - fld_4;
    if (bOverwrite.m_value == 0 || AmountClaim.m_value > computed)
        AmountClaim.m_value = computed;
    clampNegative(AmountClaim);
    return 0;
}

CWSDisabilityTransferAmtData::CWSDisabilityTransferAmtData()
    : fld_BaseAmount(amount(FirstVersion))
    , fld_Line2Max(amount(FirstVersion))
    , fld_Line3ChldCareExp(amount(FirstVersion))
    , fld_Line4ExpBase(amount(FirstVersion))
    , fld_Line5CareExpAfter(amount(FirstVersion))
    , fld_Line6AmtUnder18(amount(FirstVersion))
    , fld_2(amount(FirstVersion))
    , fld_Line8(amount(FirstVersion))
    , fld_4(amount(FirstVersion))
    , fld_5(amount(FirstVersion))
    , DepTaxInc(amount(FirstVersion))
    , fld_7(amount(FirstVersion))
    , fld_overwrite(0, 0, FIELD_ATTR_NONE, 0, FirstVersion)
    , fld_claim(amount(FirstVersion))
{
    Bedrock::addFields(this,
                       { { &fld_BaseAmount, "fld_BaseAmount" },
                         { &fld_Line2Max, "fld_Line2Max" },
                         { &fld_Line3ChldCareExp, "fld_Line3ChldCareExp" },
                         { &fld_Line4ExpBase, "fld_Line4ExpBase" },
                         { &fld_Line5CareExpAfter, "fld_Line5CareExpAfter" },
                         { &fld_Line6AmtUnder18, "fld_Line6AmtUnder18" },
                         { &fld_2, "fld_2" },
                         { &fld_Line8, "fld_Line8" },
                         { &fld_4, "fld_4" },
                         { &fld_5, "fld_5" },
                         { &DepTaxInc, "DepTaxInc" },
                         { &fld_7, "fld_7" },
                         { &fld_overwrite, "fld_overwrite" },
                         { &fld_claim, "fld_claim" } });
}

void CWSDisabilityTransferAmtData::SetF5848Parameter(double baseAmount, double line2Max,
                                                     double line4ExpBase)
{
    fld_BaseAmount.m_value = baseAmount;
    fld_Line2Max.m_value = line2Max;
    fld_Line4ExpBase.m_value = line4ExpBase;
}

int CWSDisabilityTransferAmtData::Calculate()
{
    for (CFloatField* line :
         { &fld_Line5CareExpAfter, &fld_Line6AmtUnder18, &fld_2, &fld_Line8, &fld_5, &fld_7 })
        line->m_value = 0.0;
    _OneDependantInfoStru* row = Bedrock::dependantRow(*this);
    if (!row) {
        fld_4.m_value = 0.0;
        DepTaxInc.m_value = 0.0;
        fld_claim.m_value = 0.0;
        return 0;
    }
    if (row->getAge() < 18) {
        fld_Line5CareExpAfter = fld_Line3ChldCareExp - fld_Line4ExpBase;
        clampNegative(fld_Line5CareExpAfter);
        fld_Line6AmtUnder18 = fld_Line2Max - fld_Line5CareExpAfter;
        clampNegative(fld_Line6AmtUnder18);
    }
    fld_2.m_value = std::max(fld_Line6AmtUnder18.m_value, 0.0);
    clampNegative(fld_4);
    clampNegative(DepTaxInc);
    fld_Line8 = fld_2 + fld_BaseAmount;
    fld_5 = fld_Line8 + fld_4;
    fld_7 = fld_5 - DepTaxInc;
    clampNegative(fld_7);
    const double limit = std::min(fld_Line8.m_value, fld_7.m_value);
    fld_claim.m_value = fld_overwrite.m_value != 0 ? std::min(fld_claim.m_value, limit) : limit;
    clampNegative(fld_claim);
    return 0;
}
