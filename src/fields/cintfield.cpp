#include "cintfield.h"

#include "fields_p.h"

CIntField::CIntField(int value, ENUMTYPE_FIELD_ATTR attr)
    : CIntField(0, value, attr, 0, ARCHIVE_VERSION_FIRST)
{ }

CIntField::CIntField(int id, int value, ENUMTYPE_FIELD_ATTR attr)
    : CIntField(id, value, attr, 0, ARCHIVE_VERSION_FIRST)
{ }

CIntField::CIntField(int id, int value, ENUMTYPE_FIELD_ATTR attr, int tag, unsigned int version)
    : CField(id, false, version, ARCHIVE_VERSION_NO_END, attr, tag)
    , m_value(value)
{ }

CIntField& CIntField::operator=(const CIntField& other)
{
    m_value = other.m_value;
    return *this;
}

CIntField& CIntField::operator=(int value)
{
    m_value = value;
    return *this;
}

void CIntField::Serialize(unsigned int version, MyDataStream& stream)
{
    if (isInVersion(version))
        Bedrock::serializeInt32(stream, m_value);
}

int CIntField::readFromString(const CString& text)
{
    bool ok = false;
    const int value = text.toInt(&ok);
    m_value = ok ? value : 0;
    return 0;
}

int CIntField::toString(CString& out)
{
    out = QString::number(m_value);
    return 0;
}

int CIntField::writeToString(CString& out)
{
    if (!canFieldSavedInXML())
        return -1;
    if (m_printName.empty())
        return CField::writeToString(out);
    CString value;
    toString(value);
    out = Bedrock::fillTemplate(
        QLatin1String("<f n=\"%1\" p=\"%2\">%3</f>"),
        { QString::fromStdString(m_name), QString::fromStdString(m_printName), value });
    return 0;
}

CIntFieldNotused::CIntFieldNotused(unsigned int version, unsigned int versionEnd)
    : CIntField(0, -1, FIELD_ATTR_NONE, 0, version)
{
    m_versionEnd = versionEnd;
}
