// The catalogue of forms and slips: which exist, their titles, data classes,
// PDFs and layouts, which a jurisdiction requires, and the predicates over them.
#pragma once

#include "libbedrock_export.h"
#include "provinces.h"

// Row numbers of Global_Forms_Info. Names follow the data class of the row; rows 201 to 203
// carry their own enumerator name as data class.
enum ENUMTYPE_FORM : int {
    ENUM_FORM_NONE = 0,
    ENUM_FORM_T1 = 1,
    ENUM_FORM_S1 = 2,
    ENUM_FORM_S2 = 3,
    ENUM_FORM_S3 = 4,
    ENUM_FORM_S4 = 5,
    ENUM_FORM_S5 = 6,
    ENUM_FORM_S7 = 7,
    ENUM_FORM_S8 = 8,
    ENUM_FORM_S9 = 9,
    ENUM_FORM_S10 = 10,
    ENUM_FORM_S11 = 11,
    ENUM_FORM_T776 = 12,
    ENUM_FORM_T778 = 13,
    ENUM_FORM_T929 = 14,
    ENUM_FORM_T1163 = 15,
    ENUM_FORM_T1165 = 16,
    ENUM_FORM_T1172 = 17,
    ENUM_FORM_T1212 = 18,
    ENUM_FORM_T2032 = 19,
    ENUM_FORM_T2038 = 20,
    ENUM_FORM_T2042 = 21,
    ENUM_FORM_T2124 = 22,
    ENUM_FORM_T2204 = 23,
    ENUM_FORM_ON_Tax = 24,
    ENUM_FORM_ON_Credit = 25,
    ENUM_FORM_ON_S2 = 26,
    ENUM_FORM_ON_S11 = 27,
    ENUM_FORM_GST370 = 28,
    ENUM_FORM_T1206 = 29,
    ENUM_FORM_T626 = 30,
    ENUM_FORM_T691 = 31,
    ENUM_FORM_T936 = 32,
    ENUM_FORM_Commission = 33,
    ENUM_FORM_T2036 = 34,
    ENUM_FORM_T2209 = 35,
    ENUM_FORM_T1139 = 36,
    ENUM_FORM_T2017 = 37,
    ENUM_FORM_T5013 = 38,
    ENUM_FORM_T1A = 39,
    ENUM_FORM_T657 = 40,
    ENUM_FORM_BC_Tax = 41,
    ENUM_FORM_BC_Credit = 42,
    ENUM_FORM_BC_S2 = 43,
    ENUM_FORM_BC_S11 = 44,
    ENUM_FORM_AB_Tax = 45,
    ENUM_FORM_AB_Credit = 46,
    ENUM_FORM_AB_S2 = 47,
    ENUM_FORM_AB_S11 = 48,
    ENUM_FORM_T2222 = 49,
    ENUM_FORM_T1231 = 50,
    ENUM_FORM_T2121 = 51,
    ENUM_FORM_T1DD = 52,
    ENUM_FORM_RC71 = 53,
    ENUM_FORM_T1238 = 54,
    ENUM_FORM_T5004 = 55,
    ENUM_FORM_BCFIN_542 = 56,
    ENUM_FORM_CPT20 = 57,
    ENUM_FORM_T1219ON = 58,
    ENUM_FORM_T777 = 59,
    ENUM_FORM_MB_Tax = 60,
    ENUM_FORM_MB_Credit = 61,
    ENUM_FORM_NB_Tax = 62,
    ENUM_FORM_NL_Tax = 63,
    ENUM_FORM_NL_S2 = 64,
    ENUM_FORM_NL_S11 = 65,
    ENUM_FORM_NT_Tax = 66,
    ENUM_FORM_NT_Credit = 67,
    ENUM_FORM_NT_S2 = 68,
    ENUM_FORM_NT_S11 = 69,
    ENUM_FORM_NS_Tax = 70,
    ENUM_FORM_NS_Credit = 71,
    ENUM_FORM_NS_S2 = 72,
    ENUM_FORM_NS_S11 = 73,
    ENUM_FORM_NU_Tax = 74,
    ENUM_FORM_NU_Credit = 75,
    ENUM_FORM_NU_S2 = 76,
    ENUM_FORM_NU_S11 = 77,
    ENUM_FORM_PE_Tax = 78,
    ENUM_FORM_PE_S2 = 79,
    ENUM_FORM_PE_S11 = 80,
    ENUM_FORM_SK_Tax = 81,
    ENUM_FORM_SK_S2 = 82,
    ENUM_FORM_SK_S11 = 83,
    ENUM_FORM_YT_Tax = 84,
    ENUM_FORM_YT_C1 = 85,
    ENUM_FORM_YT_Credit = 86,
    ENUM_FORM_T1241 = 87,
    ENUM_FORM_T1237 = 88,
    ENUM_FORM_T1219 = 89,
    ENUM_FORM_MB_S2 = 90,
    ENUM_FORM_MB_S11 = 91,
    ENUM_FORM_TL2 = 92,
    ENUM_FORM_T1KS_PlaceHolder = 93,
    ENUM_FORM_NB_S2 = 94,
    ENUM_FORM_NB_S11 = 95,
    ENUM_FORM_T183 = 96,
    ENUM_FORM_T1153 = 97,
    ENUM_FORM_T1256 = 98,
    ENUM_FORM_T1258 = 99,
    ENUM_FORM_T79 = 100,
    ENUM_FORM_T1135 = 101,
    ENUM_FORM_T1M = 102,
    ENUM_FORM_T1223 = 103,
    ENUM_FORM_RC66 = 104,
    ENUM_FORM_T746 = 105,
    ENUM_FORM_T1221 = 106,
    ENUM_FORM_T1229 = 107,
    ENUM_FORM_T1272 = 108,
    ENUM_FORM_T1273 = 109,
    ENUM_FORM_YT_S2 = 110,
    ENUM_FORM_YT_S11 = 111,
    ENUM_FORM_T1285 = 112,
    ENUM_FORM_T1170 = 113,
    ENUM_FORM_T4164 = 114,
    ENUM_FORM_T1284 = 115,
    ENUM_FORM_T1ADJ = 116,
    ENUM_FORM_T1013 = 117,
    ENUM_FORM_T1032 = 118,
    ENUM_FORM_S6 = 119,
    ENUM_FORM_T1005 = 120,
    ENUM_FORM_T1014 = 121,
    ENUM_FORM_T1014_1 = 122,
    ENUM_FORM_T1199 = 123,
    ENUM_FORM_T2205 = 124,
    ENUM_FORM_T2125 = 125,
    ENUM_FORM_MB428_A = 126,
    ENUM_FORM_SK_Credit = 127,
    ENUM_FORM_T1129 = 128,
    ENUM_FORM_T1297 = 129,
    ENUM_FORM_T1256_1 = 130,
    ENUM_FORM_Commission_2008 = 131,
    ENUM_FORM_T1299 = 132,
    ENUM_FORM_S12_MultigHRTC = 133,
    ENUM_FORM_T1317 = 134,
    ENUM_FORM_T1232 = 135,
    ENUM_FORM_RC267 = 136,
    ENUM_FORM_RC268 = 137,
    ENUM_FORM_RC269 = 138,
    ENUM_FORM_S13 = 139,
    ENUM_FORM_ON_BEN = 140,
    ENUM_FORM_RC310 = 141,
    ENUM_FORM_ON_Sch12 = 142,
    ENUM_FORM_BC_Sch12 = 143,
    ENUM_FORM_SK_RC360 = 144,
    ENUM_FORM_RC359 = 145,
    ENUM_FORM_T1014_2 = 146,
    ENUM_FORM_T2091 = 147,
    ENUM_FORM_RC381 = 148,
    ENUM_FORM_RC383 = 149,
    ENUM_FORM_S8_2014 = 150,
    ENUM_FORM_Sch1A = 151,
    ENUM_FORM_T1256_2 = 152,
    ENUM_FORM_NB_Sch12 = 153,
    ENUM_FORM_ON_CoopEduTC = 154,
    ENUM_FORM_ON_ApprenticeTC = 155,
    ENUM_FORM_T2203 = 156,
    ENUM_FORM_Sch12_2016 = 157,
    ENUM_FORM_T1161 = 158,
    ENUM_FORM_T1KS_Old = 159,
    ENUM_FORM_T1255 = 160,
    ENUM_FORM_T1159 = 161,
    ENUM_FORM_T5013_SchA = 162,
    ENUM_FORM_T5013_SchB = 163,
    ENUM_FORM_T5013_SchC = 164,
    ENUM_FORM_T1KS_LastYear = 165,
    ENUM_FORM_S14 = 166,
    ENUM_FORM_SchA_SchB = 167,
    ENUM_FORM_SchC = 168,
    ENUM_FORM_ON_428A = 169,
    ENUM_FORM_ON_479A = 170,
    ENUM_FORM_T90 = 171,
    ENUM_FORM_YT_Sch14 = 172,
    ENUM_FORM_T224 = 173,
    ENUM_FORM_T225 = 174,
    ENUM_FORM_T1013Offline = 175,
    ENUM_FORM_RC59Online = 176,
    ENUM_FORM_T1134 = 177,
    ENUM_FORM_T1134_Supplement = 178,
    ENUM_FORM_T777_Covid19 = 179,
    ENUM_FORM_T2200_Covid19 = 180,
    ENUM_FORM_T185 = 181,
    ENUM_FORM_T106_Summary = 182,
    ENUM_FORM_T106_Slip = 183,
    ENUM_FORM_RC59E = 184,
    ENUM_FORM_RC59XE = 185,
    ENUM_FORM_T1044 = 186,
    ENUM_FORM_T3010 = 187,
    ENUM_FORM_NL_Credit = 188,
    ENUM_FORM_SK_Sch12 = 189,
    ENUM_FORM_T183Corp = 190,
    ENUM_FORM_T183Trust = 191,
    ENUM_FORM_T183Partnership = 192,
    ENUM_FORM_T2043 = 193,
    ENUM_FORM_NR5 = 194,
    ENUM_FORM_T2Sch89 = 195,
    ENUM_FORM_T2054 = 196,
    ENUM_FORM_T2T217 = 197,
    ENUM_FORM_T1B = 198,
    ENUM_FORM_T2039 = 199,
    ENUM_FORM_UnusedForm = 200,
    ENUM_FORM_T2T2057 = 201,
    ENUM_FORM_T2T2058 = 202,
    ENUM_FORM_T2T2059 = 203,
    ENUM_FORM_UHT2900 = 204,
    ENUM_FORM_S15 = 205,
    ENUM_FORM_T1279 = 206,
    ENUM_FORM_T1248SchD = 207,
    ENUM_FORM_T1356 = 208,
    ENUM_FORM_InstalmentCalc = 209,
    ENUM_FORM_WS_D1 = 210,
    ENUM_FORM_T1294 = 211,
    ENUM_FORM_T2048 = 212,
    ENUM_FORM_T1198 = 213,
    ENUM_FORM_COUNT = 214
};

// Row numbers of Global_Slips_Info.
enum ENUMTYPE_SLIP : int {
    ENUM_SLIP_NONE = 0,
    ENUM_SLIP_T4 = 1,
    ENUM_SLIP_T4A = 2,
    ENUM_SLIP_T4AP = 3,
    ENUM_SLIP_T4RSP = 4,
    ENUM_SLIP_T4E = 5,
    ENUM_SLIP_T4AOAS = 6,
    ENUM_SLIP_T4RIF = 7,
    ENUM_SLIP_T5 = 8,
    ENUM_SLIP_T3 = 9,
    ENUM_SLIP_T5003 = 10,
    ENUM_SLIP_T5007 = 11,
    ENUM_SLIP_T4F = 12,
    ENUM_SLIP_T5013 = 13,
    ENUM_SLIP_T4PS = 14,
    ENUM_SLIP_T4ARCA = 15,
    ENUM_SLIP_T5006 = 16,
    ENUM_SLIP_RC62 = 17,
    ENUM_SLIP_RC210 = 18,
    ENUM_SLIP_T5008 = 19,
    ENUM_SLIP_RRSPContriubtion = 20,
    ENUM_SLIP_MB_RentalAssist = 21,
    ENUM_SLIP_PRPP = 22,
    ENUM_SLIP_T1204 = 23,
    ENUM_SLIP_NR4 = 24,
    ENUM_SLIP_T2202 = 25,
    ENUM_SLIP_T4FHSA = 26,
    ENUM_SLIP_COUNT = 27
};

// The tax wizards' own number space; its values belong to the applications.
enum ENUMTYPE_TAXWIZARD : int { ENUM_TAXWIZARD_NONE = 0 };

struct STRUCT_SLIP_INFO {
    ENUMTYPE_SLIP type;
    const char* shortName;
    const char* title;
    const char* dataClass;
};

struct STRUCT_FORM_INFO {
    ENUMTYPE_FORM type;
    const char* title;
    const char* shortName;
    const char* dataClass;
    const char* pdfName;
    const char* layoutFile;
    bool rowFlag; // for applications; the library does not read it
    bool alwaysImport; // makes CTaxData_Form::ShouldBeImported true
};

// A form of a jurisdiction's return; modeMask says in which filing modes the row applies.
struct STRUCT_FORM_REQUIRED {
    ENUMTYPE_FORM type;
    unsigned char modeMask;
    bool mandatory;
};

// One jurisdiction's table and its row count.
struct STRUCT_PROVINCE_FORMS {
    const STRUCT_FORM_REQUIRED* forms;
    int count;
};

LIBBEDROCK_EXPORT extern const STRUCT_SLIP_INFO Global_Slips_Info[ENUM_SLIP_COUNT];
LIBBEDROCK_EXPORT extern const STRUCT_FORM_INFO Global_Forms_Info[ENUM_FORM_COUNT];

LIBBEDROCK_EXPORT extern const int Federal_Forms_Num;
LIBBEDROCK_EXPORT extern const STRUCT_FORM_REQUIRED Federal_Forms_Info[];
LIBBEDROCK_EXPORT extern const int AB_Forms_Num;
LIBBEDROCK_EXPORT extern const STRUCT_FORM_REQUIRED AB_Forms_Info[];
LIBBEDROCK_EXPORT extern const int BC_Forms_Num;
LIBBEDROCK_EXPORT extern const STRUCT_FORM_REQUIRED BC_Forms_Info[];
LIBBEDROCK_EXPORT extern const int MB_Forms_Num;
LIBBEDROCK_EXPORT extern const STRUCT_FORM_REQUIRED MB_Forms_Info[];
LIBBEDROCK_EXPORT extern const int NB_Forms_Num;
LIBBEDROCK_EXPORT extern const STRUCT_FORM_REQUIRED NB_Forms_Info[];
LIBBEDROCK_EXPORT extern const int NL_Forms_Num;
LIBBEDROCK_EXPORT extern const STRUCT_FORM_REQUIRED NL_Forms_Info[];
LIBBEDROCK_EXPORT extern const int NS_Forms_Num;
LIBBEDROCK_EXPORT extern const STRUCT_FORM_REQUIRED NS_Forms_Info[];
LIBBEDROCK_EXPORT extern const int NT_Forms_Num;
LIBBEDROCK_EXPORT extern const STRUCT_FORM_REQUIRED NT_Forms_Info[];
LIBBEDROCK_EXPORT extern const int NU_Forms_Num;
LIBBEDROCK_EXPORT extern const STRUCT_FORM_REQUIRED NU_Forms_Info[];
LIBBEDROCK_EXPORT extern const int ON_Forms_Num;
LIBBEDROCK_EXPORT extern const STRUCT_FORM_REQUIRED ON_Forms_Info[];
LIBBEDROCK_EXPORT extern const int PE_Forms_Num;
LIBBEDROCK_EXPORT extern const STRUCT_FORM_REQUIRED PE_Forms_Info[];
LIBBEDROCK_EXPORT extern const int SK_Forms_Num;
LIBBEDROCK_EXPORT extern const STRUCT_FORM_REQUIRED SK_Forms_Info[];
LIBBEDROCK_EXPORT extern const int YT_Forms_Num;
LIBBEDROCK_EXPORT extern const STRUCT_FORM_REQUIRED YT_Forms_Info[];
// Indexed by ENUMTYPE_PROVINCE, rows 0 to 13; row 0 and Quebec have no table.
LIBBEDROCK_EXPORT extern const STRUCT_PROVINCE_FORMS Province_Forms_Info[14];

// Forms that count as multiple and sharable.
LIBBEDROCK_EXPORT extern const int SFD_Forms_Num;
LIBBEDROCK_EXPORT extern const ENUMTYPE_FORM SFD_Forms_Info[];
// A list of its own, not the rows printed on "expired.pdf"; form 52 stands twice.
LIBBEDROCK_EXPORT extern const int s_expired_forms_num;
LIBBEDROCK_EXPORT extern const ENUMTYPE_FORM s_expired_forms[];
LIBBEDROCK_EXPORT extern const int s_enum_prov_no_CAIS_num;
LIBBEDROCK_EXPORT extern const ENUMTYPE_PROVINCE s_enum_prov_no_CAIS[];
LIBBEDROCK_EXPORT extern const int s_enum_prov_CAIS_T1163_num;
LIBBEDROCK_EXPORT extern const ENUMTYPE_PROVINCE s_enum_prov_CAIS_T1163[];
LIBBEDROCK_EXPORT extern const int s_enum_prov_CAIS_T1273_num;
LIBBEDROCK_EXPORT extern const ENUMTYPE_PROVINCE s_enum_prov_CAIS_T1273[];

LIBBEDROCK_EXPORT bool IsSlipSharable(ENUMTYPE_SLIP slip);
LIBBEDROCK_EXPORT bool IsSFDForm(ENUMTYPE_FORM form);
LIBBEDROCK_EXPORT bool IsFormSharable(ENUMTYPE_FORM form);
LIBBEDROCK_EXPORT bool IsMultipleForm(ENUMTYPE_FORM form);
// The first jurisdiction whose table holds the form; 0 for a federal form.
LIBBEDROCK_EXPORT ENUMTYPE_PROVINCE getFormProv(ENUMTYPE_FORM form);
// A provincial form is never mandatory for a return of another province.
LIBBEDROCK_EXPORT bool IsFormMandatory(unsigned char mode, ENUMTYPE_PROVINCE province,
                                       ENUMTYPE_FORM form);
LIBBEDROCK_EXPORT ENUMTYPE_FORM GetCAISFormTypeFromProv(ENUMTYPE_PROVINCE province);
// The province is not consulted.
LIBBEDROCK_EXPORT bool IsFormExpired(ENUMTYPE_FORM form, ENUMTYPE_PROVINCE province);
