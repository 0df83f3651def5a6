// The sample application's own form: a few fields of each kind, one renamed
// field that still reads its old name, one field no longer used, one worksheet.
#pragma once

#include <LibBedrock.h>

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

class SampleForm : public CTaxData_Form
{
public:
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
        // The employer's name was saved as "fld_Company" in earlier years.
        addFieldOldName("fld_Employer", "fld_Company");
        m_worksheets.push_back(&ws5000);
    }
    void GetDisplayName(CString& out) override { out = "Sample T1"; }

    CIntField fld_TaxYear { 0, 0, FIELD_ATTR_INCREMENT_ON_ROLLOVER, 0, 0x10000 };
    CStringField fld_Name { 0, "", 60, FIELD_ATTR_NONE, 0, 0x10000 };
    CFloatField fld_10100 { 0.0, 10100 };
    CPercentField fld_MyPercent { 0.0, 0, false, 0 };
    CBoolField fld_Resident { 0, 0 };
    CDateField fld_BirthDate { 0, FIELD_ATTR_NONE };
    CDateField fld_EntryDate { 0, FIELD_ATTR_CLEAR_DATE_ON_ROLLOVER };
    CStringField fld_Employer { 0, "", 60, FIELD_ATTR_CLEAR_TEXT_ON_ROLLOVER, 0, 0x10000 };
    CFloatFieldNotused fld_notused_OldCredit { 0x10000, 0x10100 };
    SampleWorksheet ws5000;

private:
    void add(CField& field, const char* name, int id)
    {
        m_fields.push_back(&field);
        field.m_name = name;
        field.m_id = id;
    }
};
