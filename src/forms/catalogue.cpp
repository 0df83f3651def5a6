// Predicates over the catalogue. Form, slip and province numbers reach these from files and
// applications unchecked, so every lookup is a bounded search or a range-checked index.
#include "catalogue.h"

namespace {

bool listHolds(const ENUMTYPE_FORM* list, int count, ENUMTYPE_FORM form)
{
    for (int i = 0; i < count; ++i) {
        if (list[i] == form)
            return true;
    }
    return false;
}

bool listHolds(const ENUMTYPE_PROVINCE* list, int count, ENUMTYPE_PROVINCE province)
{
    for (int i = 0; i < count; ++i) {
        if (list[i] == province)
            return true;
    }
    return false;
}

const STRUCT_FORM_REQUIRED* findRow(const STRUCT_FORM_REQUIRED* table, int count,
                                    ENUMTYPE_FORM form)
{
    if (!table)
        return nullptr;
    for (int i = 0; i < count; ++i) {
        if (table[i].type == form)
            return &table[i];
    }
    return nullptr;
}

const int provinceRows = int(sizeof(Province_Forms_Info) / sizeof(Province_Forms_Info[0]));

} // namespace

bool IsSlipSharable(ENUMTYPE_SLIP slip)
{
    return slip == ENUM_SLIP_T5 || slip == ENUM_SLIP_T3 || slip == ENUM_SLIP_T5013;
}

bool IsSFDForm(ENUMTYPE_FORM form)
{
    return listHolds(SFD_Forms_Info, SFD_Forms_Num, form);
}

bool IsFormSharable(ENUMTYPE_FORM form)
{
    return form == ENUM_FORM_S3 || IsSFDForm(form);
}

bool IsMultipleForm(ENUMTYPE_FORM form)
{
    return IsSFDForm(form) || form == ENUM_FORM_T2209 || form == ENUM_FORM_T1M
        || form == ENUM_FORM_T1134_Supplement;
}

ENUMTYPE_PROVINCE getFormProv(ENUMTYPE_FORM form)
{
    for (int row = 0; row < provinceRows; ++row) {
        const STRUCT_PROVINCE_FORMS& prov = Province_Forms_Info[row];
        if (findRow(prov.forms, prov.count, form))
            return ENUMTYPE_PROVINCE(row);
    }
    return ENUM_PROV_NONE;
}

bool IsFormMandatory(unsigned char mode, ENUMTYPE_PROVINCE province, ENUMTYPE_FORM form)
{
    if (getFormProv(form) != ENUM_PROV_NONE) {
        // The return's own table decides, not the one that holds the form: another
        // province's form is never required.
        if (province < 1 || province >= provinceRows)
            return false;
        const STRUCT_PROVINCE_FORMS& own = Province_Forms_Info[province];
        const STRUCT_FORM_REQUIRED* row = findRow(own.forms, own.count, form);
        return row && row->mandatory;
    }
    const STRUCT_FORM_REQUIRED* row = findRow(Federal_Forms_Info, Federal_Forms_Num, form);
    return row && row->mandatory && (row->modeMask & mode) != 0;
}

ENUMTYPE_FORM GetCAISFormTypeFromProv(ENUMTYPE_PROVINCE province)
{
    if (listHolds(s_enum_prov_no_CAIS, s_enum_prov_no_CAIS_num, province))
        return ENUM_FORM_NONE;
    if (listHolds(s_enum_prov_CAIS_T1163, s_enum_prov_CAIS_T1163_num, province))
        return ENUM_FORM_T1163;
    return ENUM_FORM_T1273;
}

bool IsFormExpired(ENUMTYPE_FORM form, ENUMTYPE_PROVINCE /*province*/)
{
    return listHolds(s_expired_forms, s_expired_forms_num, form);
}
