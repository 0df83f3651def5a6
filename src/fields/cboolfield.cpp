#include "cboolfield.h"

#include "fields_p.h"

CBoolField::CBoolField(int value)
    : CBoolField(0, value, FIELD_ATTR_NONE, 0, ARCHIVE_VERSION_FIRST)
{ }

CBoolField::CBoolField(int id, int value)
    : CBoolField(id, value, FIELD_ATTR_NONE, 0, ARCHIVE_VERSION_FIRST)
{ }

CBoolField::CBoolField(int id, int value, ENUMTYPE_FIELD_ATTR attr, int tag, unsigned int version)
    : CField(id, false, version, ARCHIVE_VERSION_NO_END, attr, tag)
    , m_value(value)
{ }

CBoolField& CBoolField::operator=(const CBoolField& other)
{
    m_value = other.m_value;
    return *this;
}

CBoolField& CBoolField::operator=(int value)
{
    m_value = value;
    return *this;
}

void CBoolField::Serialize(unsigned int version, MyDataStream& stream)
{
    if (isInVersion(version))
        Bedrock::serializeInt32(stream, m_value);
}

int CBoolField::readFromString(const CString& text)
{
    const bool no = text.compare(QLatin1String("false"), Qt::CaseInsensitive) == 0
        || text.compare(QLatin1String("0"), Qt::CaseInsensitive) == 0
        || text.compare(QLatin1String("no"), Qt::CaseInsensitive) == 0;
    m_value = no ? 0 : 1;
    return 0;
}

int CBoolField::toString(CString& out)
{
    out = m_value ? "1" : "0";
    return 0;
}

CBoolFieldNotused::CBoolFieldNotused(unsigned int version, unsigned int versionEnd)
    : CBoolField(0, 0, FIELD_ATTR_NONE, 0, version)
{
    m_versionEnd = versionEnd;
}
