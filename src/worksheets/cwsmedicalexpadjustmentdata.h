// Medical expense adjustment for one dependant, adoption expenses and the
// provincial tuition transfer.
#pragma once

#include "cfloatfield.h"
#include "cwsbasedata.h"

/*
 * Limits a medical expense claim for one dependant by that dependant's own net
 * income (without the F185 adjustment). The cap, rate and limit come from the
 * constructor and are not archived. BaseAmount, fld_3 and Rate are carried and
 * archived; Calculate does not touch them. An index that names no row of the
 * dependant list counts as none.
 */
class LIBBEDROCK_EXPORT CWSMedicalExpAdjustmentData : public CWSDepBaseData
{
public:
    CWSMedicalExpAdjustmentData(double incomeCap, double incomeRate, double claimLimit);
    // `version` is the first archive version of every field but DepIdx.
    CWSMedicalExpAdjustmentData(double incomeCap, double incomeRate, double claimLimit,
                                unsigned int version);

    int Calculate() override;

    CFloatField DepNetInc;
    CFloatField BaseAmount;
    CFloatField fld_3;
    CFloatField Rate;
    CFloatField fld_exp;
    CFloatField fld_line2;
    CFloatField AmountClaim;

    double m_incomeCap;
    double m_incomeRate;
    double m_claimLimit;
};

// "Details of adoption expenses": one amount for each of up to six children.
class LIBBEDROCK_EXPORT DataWSAdoptionExpense : public CWSBaseData
{
public:
    DataWSAdoptionExpense();

    // Turns negative amounts into 0, nothing else.
    int Calculate() override;
    // The total, with the maximum applied to each child separately; changes nothing.
    double CalcResult(double limit);

    CFloatField fld_Adopt_ExpAmt_1;
    CFloatField fld_Adopt_ExpAmt_2;
    CFloatField fld_Adopt_ExpAmt_3;
    CFloatField fld_Adopt_ExpAmt_4;
    CFloatField fld_Adopt_ExpAmt_5;
    CFloatField fld_Adopt_ExpAmt_6;
};

// "Provincial Tuition Transfer Amounts".
class LIBBEDROCK_EXPORT DataWS58600 : public CWSBaseData
{
public:
    DataWS58600();

    // The virtual Calculate() stays the base's, which does nothing.
    using CWSBaseData::Calculate;
    // Pro-rates the total by `factor` into fld_claim, unrounded; returns 0.
    int Calculate(double factor);

    CFloatField fld_5860; // "Total amounts transferred"
    CFloatField fld_claim;

    double m_factor = 1.0;
};
