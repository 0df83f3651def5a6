#include "cwsageamtdata.h"

#include "calendar.h"
#include "libbedrock_config.h"
#include "worksheets_p.h"

#include <algorithm>

using Bedrock::clampNegative;

CWSAgeAmtData::CWSAgeAmtData()
    : CWSAgeAmtData(0x10083)
{ }

CWSAgeAmtData::CWSAgeAmtData(unsigned int version)
    : AgeLine1(0.0, 0, false, version)
    , AgeLine2(0.0, 0, false, version)
    , AgeLine3(0.0, 0, false, version)
    , AgeLine4(0.0, 0, false, version)
    , AgeLine5(0.0, 0, false, version)
    , AgeLine6(0.0, 0, false, version)
    , AgeLine7(0.0, 0, false, version)
{ }

void CWSAgeAmtData::SetAgeParameter(double baseAmount, double threshold, double rate, double days,
                                    double claimDays, bool eligible, double netIncome)
{
    m_baseAmount = baseAmount;
    m_threshold = threshold;
    AgeLine5.m_value = rate;
    m_days = days;
    m_claimDays = claimDays;
    m_bEligible = eligible;
    m_netIncome = netIncome;
}

int CWSAgeAmtData::Calculate()
{
    const double daysInYear = GetDaysInYear(LIBBEDROCK_TAX_YEAR);
    // Divide before multiplying, as this worksheet always has: the order shows in the last cent.
    AgeLine1.m_value = m_baseAmount / daysInYear * m_days;
    AgeLine2.m_value = m_netIncome;
    AgeLine3.m_value = m_threshold / daysInYear * m_days;
    if (!m_bEligible) {
        AgeLine7.m_value = 0.0;
        return 0;
    }
    AgeLine4 = AgeLine2 - AgeLine3;
    clampNegative(AgeLine4);
    AgeLine6 = AgeLine4 * AgeLine5;
    const double remaining = std::max(AgeLine1 - AgeLine6, 0.0);
    AgeLine7.m_value = remaining;
    AgeLine7 = div(m_claimDays, daysInYear, 0.0) * remaining;
    return 0;
}

CWSDisabilityAmtData::CWSDisabilityAmtData()
    : CWSDisabilityAmtData(0x10083)
{ }

CWSDisabilityAmtData::CWSDisabilityAmtData(unsigned int version)
    : fld_ws5844_claim(0, 0, FIELD_ATTR_NONE, 0, version)
    , fld_ws5844_1(0.0, 0, false, version)
    , fld_ws5844_2(0.0, 0, false, version)
    , fld_ws5844_3(0.0, 0, false, version)
    , fld_ws5844_4(0.0, 0, false, version)
    , fld_ws5844_5(0.0, 0, false, version)
{
    Bedrock::addFields(this,
                       { { &fld_ws5844_claim, "fld_ws5844_claim" },
                         { &fld_ws5844_1, "fld_ws5844_1" },
                         { &fld_ws5844_2, "fld_ws5844_2" },
                         { &fld_ws5844_3, "fld_ws5844_3" },
                         { &fld_ws5844_4, "fld_ws5844_4" },
                         { &fld_ws5844_5, "fld_ws5844_5" } });
}

void CWSDisabilityAmtData::SetF5844Parameter(double maxAmount, double threshold, bool under18)
{
    fld_ws5844_1.m_value = maxAmount;
    fld_ws5844_3.m_value = threshold;
    m_bUnder18 = under18;
}

int CWSDisabilityAmtData::Calculate()
{
    clampNegative(fld_ws5844_2);
    if (fld_ws5844_claim.m_value == 0 || !m_bUnder18) {
        fld_ws5844_5.m_value = 0.0;
        return 0;
    }
    fld_ws5844_4 = fld_ws5844_2 - fld_ws5844_3;
    clampNegative(fld_ws5844_4);
    fld_ws5844_5 = fld_ws5844_1 - fld_ws5844_4;
    clampNegative(fld_ws5844_5);
    return 0;
}

CWSDividendTaxCreditData::CWSDividendTaxCreditData()
    : CWSDividendTaxCreditData(0x10110)
{ }

CWSDividendTaxCreditData::CWSDividendTaxCreditData(unsigned int version)
    : fld_Line120(0.0, 0, false, version)
    , fld_Line180(0.0, 0, false, version)
    , fld_rate1(0.0, 0, false, version)
    , fld_Line120_sub_Line180(0.0, 0, false, version)
    , fld_rate2(0.0, 0, false, version)
    , fld_4(0.0, 0, false, version)
    , fld_5(0.0, 0, false, version)
    , fld_6(0.0, 0, false, version)
{
    Bedrock::addFields(this,
                       { { &fld_Line120, "fld_Line120" },
                         { &fld_Line180, "fld_Line180" },
                         { &fld_rate1, "fld_rate1" },
                         { &fld_Line120_sub_Line180, "fld_Line120_sub_Line180" },
                         { &fld_rate2, "fld_rate2" },
                         { &fld_4, "fld_4" },
                         { &fld_5, "fld_5" },
                         { &fld_6, "fld_6" } });
}

void CWSDividendTaxCreditData::SetParameter(double rate1, double rate2)
{
    fld_rate1.m_value = rate1;
    fld_rate2.m_value = rate2;
}

int CWSDividendTaxCreditData::Calculate()
{
    fld_Line120_sub_Line180 = fld_Line120 - fld_Line180;
    clampNegative(fld_Line120_sub_Line180);
    fld_4 = fld_Line180 * fld_rate1;
    fld_5 = fld_Line120_sub_Line180 * fld_rate2;
    fld_6 = fld_4 + fld_5;
    return 0;
}
