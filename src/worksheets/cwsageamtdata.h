// Worksheets on the taxpayer's own figures: age amount, disability amount for
// self and dividend tax credit.
#pragma once

#include "cboolfield.h"
#include "cfloatfield.h"
#include "cwsbasedata.h"

/*
 * Rates and limits come from the application through the setters; they are
 * not archived and must be set again before Calculate after a load. In every
 * Calculate, a rounded step goes through CFloatField::operator=(double) and
 * an exact one writes m_value; which is which is part of the result.
 */

// "Provincial Age Amount Worksheet (58080)". Its lines have no names and are
// on no field list: it is neither archived nor written out, only computed.
class LIBBEDROCK_EXPORT CWSAgeAmtData : public CWSBaseData
{
public:
    CWSAgeAmtData();
    explicit CWSAgeAmtData(unsigned int version);

    // The rate goes straight into AgeLine5; days prorate over the tax year.
    void SetAgeParameter(double baseAmount, double threshold, double rate, double days,
                         double claimDays, bool eligible, double netIncome);
    int Calculate() override;

    CFloatField AgeLine1; // prorated base amount
    CFloatField AgeLine2; // net income
    CFloatField AgeLine3; // prorated threshold
    CFloatField AgeLine4; // income over the threshold
    CFloatField AgeLine5; // reduction rate
    CFloatField AgeLine6; // reduction
    CFloatField AgeLine7; // result

    double m_baseAmount = 0.0;
    double m_threshold = 0.0;
    double m_days = 0.0;
    double m_claimDays = 0.0;
    bool m_bEligible = false;
    double m_netIncome = 0.0;
};

// "Disability Amount for Self (58440)".
class LIBBEDROCK_EXPORT CWSDisabilityAmtData : public CWSBaseData
{
public:
    CWSDisabilityAmtData();
    explicit CWSDisabilityAmtData(unsigned int version);

    void SetF5844Parameter(double maxAmount, double threshold, bool under18);
    // Without a claim or for an adult, line 5 is 0 and line 4 keeps its last value.
    int Calculate() override;

    CBoolField fld_ws5844_claim;
    CFloatField fld_ws5844_1; // maximum
    CFloatField fld_ws5844_2;
    CFloatField fld_ws5844_3; // threshold
    CFloatField fld_ws5844_4;
    CFloatField fld_ws5844_5; // result

    bool m_bUnder18 = false;
};

// Dividend tax credit on the amounts of return lines 120 and 180.
class LIBBEDROCK_EXPORT CWSDividendTaxCreditData : public CWSBaseData
{
public:
    CWSDividendTaxCreditData();
    explicit CWSDividendTaxCreditData(unsigned int version);

    void SetParameter(double rate1, double rate2);
    int Calculate() override;

    CFloatField fld_Line120;
    CFloatField fld_Line180;
    CFloatField fld_rate1;
    CFloatField fld_Line120_sub_Line180;
    CFloatField fld_rate2;
    CFloatField fld_4;
    CFloatField fld_5;
    CFloatField fld_6; // result
};
