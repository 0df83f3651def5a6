// The sample's household: dependants, their medical expenses, and one
// worksheet of each dependant kind computed for a chosen dependant.
#pragma once

#include <LibBedrock.h>

#include <cstring>

class HouseholdForm : public CTaxData_Form
{
public:
    HouseholdForm()
        : CTaxData_Form(ENUM_FORM_T1)
    {
        dependantAmount.m_prefix = "WS30400";
        caregiver.m_prefix = "WS58400";
        disabilityTransfer.m_prefix = "WS58480";
        medical.m_prefix = "WS33199";
        m_worksheets = { &dependantAmount, &caregiver, &disabilityTransfer, &medical };
    }

    // Rates and limits come from the application and are not saved: set them
    // again after every load, before Calculate.
    void setRates()
    {
        dependantAmount.SetParameter(16129.00, 0.0);
        caregiver.SetParameter(8601.00, 8601.00, 0, 0.0);
        disabilityTransfer.SetF5848Parameter(10138.00, 5914.00, 3464.00);
    }

    void calculateAll()
    {
        for (CWSBaseData* worksheet : m_worksheets)
            worksheet->Calculate();
    }

    CWSDepAmtData dependantAmount;
    CWSCaregiverAmtData caregiver;
    CWSDisabilityTransferAmtData disabilityTransfer;
    CWSMedicalExpAdjustmentData medical { 2834.00, 0.03, 1000000.00 };
};

// Names are kept as Latin-1 bytes, as the dependant archive holds them.
inline void setDependant(_OneDependantInfoStru& row, const char* first, const char* last,
                         QDate birth, int relation, double netIncome, int infirm)
{
    std::strncpy(row.m_FirstName, first, sizeof row.m_FirstName - 1);
    std::strncpy(row.m_LastName, last, sizeof row.m_LastName - 1);
    row.m_BirthDate = birth;
    row.m_Relation = relation;
    row.m_NetIncome = netIncome;
    row.fld_Infirm = infirm;
}
