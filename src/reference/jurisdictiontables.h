// Fixed reference data: jurisdictions, countries, currencies, First Nations and the
// small code tables of the forms, with their lookups and XML tag writers.
#pragma once

#include "cstring.h"
#include "libbedrock_export.h"
#include "provinces.h"

#include <QString>

/*
 * Forms store a jurisdiction, country, currency or code as a small integer; these
 * tables give each integer its display name and filing code. Row order is the order
 * a list shows. Texts are kept exactly as stored and filed, misspellings included.
 * All `char const*` texts are Latin-1; a null library name means no such library.
 */

// One jurisdiction of a personal return, addressed by ENUMTYPE_PROVINCE.
struct STRUCT_PROVINCE_INFO {
    int id;
    const char* name;
    const char* shortName;
    const char* libName; // base name of the province's library
    const char* nonResiLibName; // base name of its non-resident library
};

// One row of the combined Canadian and American list.
struct STRUCT_PROVINCE2_INFO {
    int id;
    const char* name;
    const char* shortName;
    const char* trustLibName;
};

struct STRUCT_USSTATE_INFO {
    int id;
    const char* name;
    const char* shortName;
    const char* reserved; // always null
};

struct STRUCT_COUNTRY_INFO {
    int id;
    const char* name;
    const char* code2;
    const char* code3;
};

struct STRUCT_CURRENCY_INFO {
    int code;
    const char* name;
    const char* isoCode;
};

// The factor is held for the applications; this library gives it no meaning.
struct STRUCT_FIRSTNATION_INFO {
    const char* name;
    const char* code; // five characters
    double factor;
};

// A code table row: the code a form stores, its text, and a second text that is
// empty except where a filing code goes with the choice.
struct STRUCT_CODE_INFO {
    int code;
    const char* text;
    const char* text2;
};

constexpr int Global_Provs_Num = 18;
constexpr int Global2_Provs_Num = 77;
constexpr int Global_USStates_Num = 60;
constexpr int Global_Countries_Num = 118;
constexpr int Global_Currency_Num = 6;

LIBBEDROCK_EXPORT extern const STRUCT_PROVINCE_INFO Global_Provs_Info[Global_Provs_Num];
// Codes 1 to 13 are Canada, 18 to 76 the United States.
LIBBEDROCK_EXPORT extern const STRUCT_PROVINCE2_INFO Global2_Provs_Info[Global2_Provs_Num];
LIBBEDROCK_EXPORT extern const STRUCT_USSTATE_INFO Global_USStates_Info[Global_USStates_Num];
// Codes equal rows except the last row, code 999 "Other Country".
LIBBEDROCK_EXPORT extern const STRUCT_COUNTRY_INFO Global_Countries_Info[Global_Countries_Num];
LIBBEDROCK_EXPORT extern const STRUCT_CURRENCY_INFO Global_Currency_Info[Global_Currency_Num];
LIBBEDROCK_EXPORT extern const STRUCT_FIRSTNATION_INFO g_FirstNationInfo[];
LIBBEDROCK_EXPORT extern const int g_FirstNationTotal;

// Row 0 is the empty choice, except in Global_S97_NONRESI_CODE_Info where code 0 is "01".
LIBBEDROCK_EXPORT extern const STRUCT_CODE_INFO Global_AB_3RDPartyTypes_Info[4];
LIBBEDROCK_EXPORT extern const STRUCT_CODE_INFO Global_S8_ASSET43_CODE_Info[25];
LIBBEDROCK_EXPORT extern const STRUCT_CODE_INFO Global_S9_RELATIONCODE_Info[5];
LIBBEDROCK_EXPORT extern const STRUCT_CODE_INFO Global_S11_RELATIONCODE_Info[4];
LIBBEDROCK_EXPORT extern const STRUCT_CODE_INFO Global_S15_TypeOfPlan_Info[6];
LIBBEDROCK_EXPORT extern const STRUCT_CODE_INFO Global_S15_T4PSFiledBy_Info[3];
LIBBEDROCK_EXPORT extern const STRUCT_CODE_INFO Global_S23_ASSCCODE_Info[6];
LIBBEDROCK_EXPORT extern const STRUCT_CODE_INFO Global_S29_PAYMENT_CODE_Info[10];
LIBBEDROCK_EXPORT extern const STRUCT_CODE_INFO Global_S97_NONRESI_CODE_Info[11];
LIBBEDROCK_EXPORT extern const STRUCT_CODE_INFO Global_MB_S389_Book_Format_Info[4];
LIBBEDROCK_EXPORT extern const STRUCT_CODE_INFO Global_MB_S389_Book_Class_Info[7];
LIBBEDROCK_EXPORT extern const STRUCT_CODE_INFO Global_T106_TPM_CODE_Info[8];
LIBBEDROCK_EXPORT extern const STRUCT_CODE_INFO Global_T661_BILLING_CODE_Info[6];
LIBBEDROCK_EXPORT extern const STRUCT_CODE_INFO Global_AB_SCH7_SRC_ADJUSTMENT_Info[3];
LIBBEDROCK_EXPORT extern const STRUCT_CODE_INFO Global_QC_ANNEXE3_Info[13];

LIBBEDROCK_EXPORT bool isCanProv(int v);
LIBBEDROCK_EXPORT bool isCanProvince(int v);
// In the code space of Global2_Provs_Info.
LIBBEDROCK_EXPORT bool isUsaState(int v);
// The province of a two-letter short name, any letter case; 0 when none. Rows 14 to
// 17 share "OT" and are never found.
LIBBEDROCK_EXPORT ENUMTYPE_PROVINCE getProvince(char const* s);
// Country 1 (Canada) takes a province code, country 2 (USA) a state row; anything
// else, or a code outside the table, leaves `out` as it was.
LIBBEDROCK_EXPORT void setProvValueToShortName(int country, int prov, CString& out);
// The row of a country code in 1..116, or -1; 999 is never located.
LIBBEDROCK_EXPORT int __locateCountryCode(int code);
// On success sets `out` to the three-letter code and returns the row; else -1 and
// `out` stays. The last argument is unused.
LIBBEDROCK_EXPORT int getCountryCode(CString& out, int code, int);
LIBBEDROCK_EXPORT int __locateCrcyCode(int code);
LIBBEDROCK_EXPORT int getCurrencyCode(CString& out, int code);
// Whether the province has a provincial library: all but Quebec, none outside 1..13.
LIBBEDROCK_EXPORT bool IsProvinceSupported(int province);

// Appended through writeXMLString. Returns the country's row, or -1 writing nothing.
LIBBEDROCK_EXPORT int xmlWriteTagForCountryCode(CString& out, char const* tag, int code);
// The short name of `prov` for country 1 (province) or 2 (state); nothing for any
// other country or a code outside the table. Returns `country`.
LIBBEDROCK_EXPORT int xmlWriteTagForProvCode(CString& out, char const* tag, int country, int prov);

// One taxpayer entity of a list. Types: 2 corporation, 4 partnership, 8 trust;
// anything below 2 is a person.
class LIBBEDROCK_EXPORT EntityEntry
{
public:
    explicit EntityEntry(int id);

    // An empty govId stores a placeholder by type. `a` is not stored: the member
    // after the address line keeps its value, as old lists expect.
    void update(QString const& first, QString const& last, int type, QString const& govId,
                QString const& addr1, QString const& a, QString const& b, QString const& postal,
                QString const& email, QString const& phone);

    QString getEntityTypeName() const;
    QString getName() const;

    int getId() const { return m_id; }
    QString getFirstName() const { return m_firstName; }
    QString getLastName() const { return m_lastName; }
    int getEntityType() const { return m_type; }
    QString getGovId() const { return m_govId; }
    QString getAddress1() const { return m_address1; }
    QString getAddress2() const { return m_address2; }
    QString getAddress3() const { return m_address3; }
    QString getPostalCode() const { return m_postalCode; }
    QString getEmail() const { return m_email; }
    QString getPhone() const { return m_phone; }

    bool isPerson() const { return m_type < 2; }
    bool isCorp() const { return m_type == 2; }
    bool isPartnership() const { return m_type == 4; }
    bool isTrust() const { return m_type == 8; }

private:
    int m_id;
    QString m_firstName;
    QString m_lastName;
    int m_type = 0;
    QString m_govId;
    QString m_address1;
    QString m_address2;
    QString m_address3;
    QString m_postalCode;
    QString m_email;
    QString m_phone;
};
