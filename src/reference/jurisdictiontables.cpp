// Lookups over the reference tables, and the XML tag writers that print their codes.
#include "jurisdictiontables.h"

#include "xmlwriters.h"

bool isCanProv(int v)
{
    return v >= ENUM_PROV_AB && v <= ENUM_PROV_YT;
}

bool isCanProvince(int v)
{
    return isCanProv(v);
}

bool isUsaState(int v)
{
    return v >= 18 && v <= 76;
}

ENUMTYPE_PROVINCE getProvince(char const* s)
{
    // Rows 14 to 17 all say "OT", so they are outside the search on purpose.
    for (int i = ENUM_PROV_AB; i <= ENUM_PROV_YT; ++i) {
        if (stricmp(Global_Provs_Info[i].shortName, s) == 0)
            return static_cast<ENUMTYPE_PROVINCE>(Global_Provs_Info[i].id);
    }
    return ENUM_PROV_NONE;
}

void setProvValueToShortName(int country, int prov, CString& out)
{
    if (country == 2 && prov >= 1 && prov < Global_USStates_Num)
        out = Global_USStates_Info[prov].shortName;
    // Older builds took any province code of 1 or more and read past the table;
    // beyond its last row the value is left alone instead.
    else if (country == 1 && prov >= 1 && prov < Global_Provs_Num)
        out = Global_Provs_Info[prov].shortName;
}

int __locateCountryCode(int code)
{
    // The range test excludes 999 as well, so "Other Country" is never located.
    if (code < 1 || code > 116)
        return -1;
    for (int i = 0; i < Global_Countries_Num; ++i) {
        if (Global_Countries_Info[i].id == code)
            return i;
    }
    return -1;
}

int getCountryCode(CString& out, int code, int)
{
    const int row = __locateCountryCode(code);
    if (row >= 0)
        out = Global_Countries_Info[row].code3;
    return row;
}

int __locateCrcyCode(int code)
{
    if (static_cast<unsigned>(code) >= static_cast<unsigned>(Global_Currency_Num))
        return -1;
    return code;
}

int getCurrencyCode(CString& out, int code)
{
    const int row = __locateCrcyCode(code);
    if (row >= 0)
        out = Global_Currency_Info[row].isoCode;
    return row;
}

bool IsProvinceSupported(int province)
{
    if (province < ENUM_PROV_AB || province > ENUM_PROV_YT)
        return false;
    return Global_Provs_Info[province].libName != nullptr;
}

int xmlWriteTagForCountryCode(CString& out, char const* tag, int code)
{
    const int row = __locateCountryCode(code);
    if (row >= 0)
        writeXMLString(out, tag, CString(Global_Countries_Info[row].code3));
    return row;
}

int xmlWriteTagForProvCode(CString& out, char const* tag, int country, int prov)
{
    // Callers pass a stored value unchecked; a code outside the table writes nothing.
    if (country == 2 && prov >= 0 && prov < Global_USStates_Num)
        writeXMLString(out, tag, CString(Global_USStates_Info[prov].shortName));
    else if (country == 1 && prov >= 0 && prov < Global_Provs_Num)
        writeXMLString(out, tag, CString(Global_Provs_Info[prov].shortName));
    return country;
}

EntityEntry::EntityEntry(int id)
    : m_id(id)
{ }

void EntityEntry::update(QString const& first, QString const& last, int type, QString const& govId,
                         QString const& addr1, QString const& a, QString const& b,
                         QString const& postal, QString const& email, QString const& phone)
{
    Q_UNUSED(a)
    m_firstName = first;
    m_lastName = last;
    m_type = type;
    if (!govId.isEmpty())
        m_govId = govId;
    else if (type == 8)
        m_govId = QStringLiteral("T12345678");
    else if (type == 2)
        m_govId = QStringLiteral("123456789");
    else if (type == 1)
        m_govId = QStringLiteral("000000000");
    else
        m_govId = QStringLiteral("987654321");
    m_address1 = addr1;
    m_address3 = b;
    m_postalCode = postal;
    m_email = email;
    m_phone = phone;
}

QString EntityEntry::getEntityTypeName() const
{
    switch (m_type) {
    case 8:
        return QStringLiteral("(trust)");
    case 2:
        return QStringLiteral("(corporation)");
    case 4:
        return QStringLiteral("(partnership)");
    default:
        return QStringLiteral("(person)");
    }
}

QString EntityEntry::getName() const
{
    if (m_firstName.isEmpty())
        return m_lastName;
    return m_firstName + QLatin1Char(' ') + m_lastName;
}
