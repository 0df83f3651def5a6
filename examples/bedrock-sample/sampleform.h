// The sample application's own forms. The return: a few fields of each kind,
// one renamed field that still reads its old name, one field no longer used, a
// line worksheet, the income and its total, the age amount from the age
// worksheet and the caregiver amount from one worksheet per dependant.
// Schedule 4: the interest that line 12100 of the return takes over.
#pragma once

#include <LibBedrock.h>

#include <QDate>

#include <string>

// Line 5000 worksheet: two amounts and their total.
class SampleWorksheet : public CWSBaseData
{
public:
    SampleWorksheet()
    {
        m_prefix = "WS5000";
        add(fld_1, "fld_1");
        add(fld_2, "fld_2");
        add(fld_total, "fld_total");
    }
    int Calculate() override
    {
        fld_total = fld_1.m_value + fld_2.m_value;
        return 0;
    }
    CFloatField fld_1 { 0.0, 0 };
    CFloatField fld_2 { 0.0, 0 };
    CFloatField fld_total { 0.0, 0 };

private:
    void add(CField& field, const char* name)
    {
        m_fields.push_back(&field);
        field.m_name = name;
    }
};

// Amounts of the tax year that the worksheets take from the application.
namespace SampleRates {
constexpr double AgeBase = 9028.00;
constexpr double AgeThreshold = 45522.00;
constexpr double AgeReductionRate = 0.15;
constexpr int AgeFrom = 65; // at the end of the tax year
constexpr double CaregiverBase = 8601.00;
constexpr double CaregiverMaximum = 8601.00;
} // namespace SampleRates

class SampleForm : public CTaxData_Form
{
public:
    // One caregiver worksheet per dependant, for the first ones of the list.
    static constexpr int MaxCaregivers = 4;

    SampleForm()
        : CTaxData_Form(ENUM_FORM_T1)
    {
        add(fld_TaxYear, "fld_TaxYear", 0);
        add(fld_Name, "fld_Name", 100);
        add(fld_10100, "fld_10100", 10100);
        add(fld_MyPercent, "fld_MyPercent", 200);
        add(fld_Resident, "fld_Resident", 300);
        add(fld_BirthDate, "fld_BirthDate", 400);
        add(fld_EntryDate, "fld_EntryDate", 500);
        add(fld_Employer, "fld_Employer", 600);
        add(fld_notused_OldCredit, "fld_notused_OldCredit", 0);
        add(fld_SIN, "fld_SIN", 0);
        add(fld_Province, "fld_Province", 0);
        add(fld_Marital, "fld_Marital", 0);
        add(fld_Notes, "fld_Notes", 0);
        add(fld_12100, "fld_12100", 12100);
        add(fld_13000, "fld_13000", 13000);
        add(fld_15000, "fld_15000", 15000);
        add(fld_30100, "fld_30100", 30100);
        add(fld_58400, "fld_58400", 58400);
        add(fld_Credits, "fld_Credits", 0);
        // The employer's name was saved as "fld_Company" in earlier years.
        addFieldOldName("fld_Employer", "fld_Company");
        m_worksheets.push_back(&ws5000);
        for (int i = 0; i < MaxCaregivers; ++i) {
            caregivers[i].m_prefix = "WS58400_" + std::to_string(i + 1);
            m_worksheets.push_back(&caregivers[i]);
        }
    }
    void GetDisplayName(CString& out) override { out = "Sample T1"; }

    // Line 12100 is set by the return from Schedule 4 before this runs.
    int Calculate() override
    {
        fld_15000 = fld_10100.m_value + fld_12100.m_value + fld_13000.m_value;

        const QDate yearEnd(LIBBEDROCK_TAX_YEAR, 12, 31);
        const bool ageEligible = fld_BirthDate.m_value.isValid()
            && fld_BirthDate.m_value.addYears(SampleRates::AgeFrom) <= yearEnd;
        const double days = GetDaysInYear(LIBBEDROCK_TAX_YEAR);
        ageWS.SetAgeParameter(SampleRates::AgeBase, SampleRates::AgeThreshold,
                              SampleRates::AgeReductionRate, days, days, ageEligible,
                              fld_15000.m_value);
        ageWS.Calculate();
        fld_30100.m_value = ageWS.AgeLine7.m_value;

        double caregiverTotal = 0.0;
        for (CWSCaregiverAmtData& sheet : caregivers) {
            sheet.SetParameter(SampleRates::CaregiverBase, SampleRates::CaregiverMaximum, 0, 0.0);
            sheet.Calculate();
            caregiverTotal += sheet.AmountClaim.m_value;
        }
        fld_58400 = caregiverTotal;
        fld_Credits = fld_30100.m_value + fld_58400.m_value;
        return 0;
    }

    // The line records of the return, each at its own line code.
    void WriteNetfile(unsigned char, NetfileGenObjParamStru& params) override
    {
        for (CFloatField* line :
             { &fld_10100, &fld_12100, &fld_13000, &fld_15000, &fld_30100, &fld_58400 })
            NETFILE_DOLLAR_FIELD_Func(0, *line, params);
    }

    CIntField fld_TaxYear { 0, 0, FIELD_ATTR_INCREMENT_ON_ROLLOVER, 0, 0x10000 };
    CStringField fld_Name { 0, "", 60, FIELD_ATTR_NONE, 0, 0x10000 };
    CFloatField fld_10100 { 0.0, 10100 };
    CPercentField fld_MyPercent { 0.0, 0, false, 0 };
    CBoolField fld_Resident { 0, 0 };
    CDateField fld_BirthDate { 0, FIELD_ATTR_NONE };
    CDateField fld_EntryDate { 0, FIELD_ATTR_CLEAR_DATE_ON_ROLLOVER };
    CStringField fld_Employer { 0, "", 60, FIELD_ATTR_CLEAR_TEXT_ON_ROLLOVER, 0, 0x10000 };
    CFloatFieldNotused fld_notused_OldCredit { 0x10000, 0x10100 };
    CStringField fld_SIN { 0, "", 9, FIELD_ATTR_NONE, 0, 0x10000 };
    CIntField fld_Province { 0, 0 };
    CIntField fld_Marital { 0, 0 }; // 1 married ... 6 single, as the radio buttons number them
    CStringField fld_Notes { 0, "", 400, FIELD_ATTR_KEEP_SPACES, 0, 0x10000 };
    CFloatField fld_12100 { 0.0, 12100 };
    CFloatField fld_13000 { 0.0, 13000 };
    CFloatField fld_15000 { 0.0, 15000 };
    CFloatField fld_30100 { 0.0, 30100 };
    CFloatField fld_58400 { 0.0, 58400 };
    CFloatField fld_Credits { 0.0, 0 };
    SampleWorksheet ws5000;
    // Worked out from the form on every Calculate; never saved.
    CWSAgeAmtData ageWS;
    // Caregiver worksheet i is for dependant row i (DepIdx i + 1, or 0 for
    // none); saved with the form.
    CWSCaregiverAmtData caregivers[MaxCaregivers];

private:
    void add(CField& field, const char* name, int id)
    {
        m_fields.push_back(&field);
        field.m_name = name;
        field.m_id = id;
    }
};

// Schedule 4, interest and other investment income: two payers and the total
// that line 12100 of the return shows.
class SampleSchedule4 : public CTaxData_Form
{
public:
    SampleSchedule4()
        : CTaxData_Form(ENUM_FORM_S4)
    {
        add(fld_Payer1, "fld_Payer1");
        add(fld_Interest1, "fld_Interest1");
        add(fld_Payer2, "fld_Payer2");
        add(fld_Interest2, "fld_Interest2");
        add(fld_Total, "fld_Total");
    }
    void GetDisplayName(CString& out) override { out = "Schedule 4"; }
    int Calculate() override
    {
        fld_Total = fld_Interest1.m_value + fld_Interest2.m_value;
        return 0;
    }

    CStringField fld_Payer1 { 0, "", 60, FIELD_ATTR_NONE, 0, 0x10000 };
    CFloatField fld_Interest1 { 0.0, 0 };
    CStringField fld_Payer2 { 0, "", 60, FIELD_ATTR_NONE, 0, 0x10000 };
    CFloatField fld_Interest2 { 0.0, 0 };
    CFloatField fld_Total { 0.0, 0 };

private:
    void add(CField& field, const char* name)
    {
        m_fields.push_back(&field);
        field.m_name = name;
    }
};
