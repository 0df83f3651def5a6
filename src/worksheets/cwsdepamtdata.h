// Worksheets that compute an amount for one chosen dependant.
#pragma once

#include "cboolfield.h"
#include "cfloatfield.h"
#include "cwsbasedata.h"

/*
 * Each reads the dependant list through m_pDepInfo, which must be set before
 * Calculate, and names the dependant by DepIdx (one-based, 0 for none). An
 * index that names no row of the list counts as none. Rates and limits come
 * from the setters and are not archived. A rounded step goes through
 * CFloatField::operator=(double), an exact one writes m_value.
 *
 * The constructor that takes a version gives it to every field of the
 * worksheet but DepIdx; the default one uses each field's own first version.
 */

// The plain base-minus-income amount, on the dependant's income adjusted by F185.
class LIBBEDROCK_EXPORT CWSDepAmtData : public CWSDepBaseData
{
public:
    CWSDepAmtData();
    explicit CWSDepAmtData(unsigned int version);

    // A maximum below 0.009 means no maximum.
    void SetParameter(double baseAmount, double maxAmount);
    int Calculate() override;

    CFloatField BaseAmount;
    CBoolField bOverWriteDepNetInc_notused;
    CFloatField DepNetInc;
    CFloatField AmountClaim;

    double m_maxAmount = 0.0;
};

// "Provincial Amount for Infirm Dependant Aged 18+ (58200)".
class LIBBEDROCK_EXPORT CWSInfirmDepAmtData : public CWSDepBaseData
{
public:
    // DepIdx value for a person who is not on the dependant list: DepNetInc
    // is then what was typed in, and the field 58160 amount always comes off.
    static constexpr int NotOnListDepIdx = 303;

    CWSInfirmDepAmtData();
    explicit CWSInfirmDepAmtData(unsigned int version);

    // f5816DepIdx and f5816Amount: the dependant claimed at field 58160 and
    // that claim, which is taken off here for the same person.
    void SetParameterAndF5816Info(double baseAmount, double maxAmount, int f5816DepIdx,
                                  double f5816Amount);
    int Calculate() override;

    CFloatField BaseAmount;
    CFloatField DepNetInc;
    CFloatField fld_3;
    CBoolField fld_bClaim5816_notused;
    CFloatField fld_4;
    CFloatField AmountClaim;

    double m_maxAmount = 0.0;
    double m_f5816Amount = 0.0;
    int m_f5816DepIdx = 0;
};

// "Caregiver Amount (58400)". With bOverwrite set, a typed AmountClaim stands
// as long as it is not above the computed amount.
class LIBBEDROCK_EXPORT CWSCaregiverAmtData : public CWSDepBaseData
{
public:
    CWSCaregiverAmtData();
    explicit CWSCaregiverAmtData(unsigned int version);

    void SetParameter(double baseAmount, double maxAmount, int f5816DepIdx, double f5816Amount);
    int Calculate() override;

    CFloatField BaseAmount;
    CFloatField DepNetInc;
    CFloatField fld_3;
    CBoolField fld_bClaim5816_notused;
    CFloatField fld_4;
    CFloatField AmountClaim;
    CBoolField bOverwrite;

    double m_maxAmount = 0.0;
    double m_f5816Amount = 0.0;
    int m_f5816DepIdx = 0;
};

// "Provincial Dependant Disability Transfer Amount (58480)". DepTaxInc is
// typed in from the dependant's own return, never looked up.
class LIBBEDROCK_EXPORT CWSDisabilityTransferAmtData : public CWSDepBaseData
{
public:
    CWSDisabilityTransferAmtData();

    void SetF5848Parameter(double baseAmount, double line2Max, double line4ExpBase);
    int Calculate() override;

    CFloatField fld_BaseAmount;
    CFloatField fld_Line2Max;
    CFloatField fld_Line3ChldCareExp;
    CFloatField fld_Line4ExpBase;
    CFloatField fld_Line5CareExpAfter;
    CFloatField fld_Line6AmtUnder18;
    CFloatField fld_2;
    CFloatField fld_Line8;
    CFloatField fld_4;
    CFloatField fld_5;
    CFloatField DepTaxInc;
    CFloatField fld_7;
    CBoolField fld_overwrite;
    CFloatField fld_claim;
};
