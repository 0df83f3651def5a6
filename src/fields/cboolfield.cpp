#include "cboolfield.h"

#include "mydatastream.h"

CBoolField::CBoolField(int value)
    : CField(0, false, ARCHIVE_VERSION_FIRST, ARCHIVE_VERSION_NO_END, FIELD_ATTR_NONE, 0)
    , m_value(value)
{
}

CBoolField::CBoolField(int id, int value)
    : CField(id, false, ARCHIVE_VERSION_FIRST, ARCHIVE_VERSION_NO_END, FIELD_ATTR_NONE, 0)
    , m_value(value)
{
}

CBoolField::CBoolField(int id, int value, ENUMTYPE_FIELD_ATTR attr, int tag, unsigned int version)
    : CField(id, false, version, ARCHIVE_VERSION_NO_END, attr, tag)
    , m_value(value)
{
}

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
    if (!isInVersion(version))
        return;
    if (stream.IsStoring()) {
        stream << qint32(m_value);
    } else {
        qint32 value = 0;
        stream >> value;
        // A cut archive leaves the field as it was.
        if (stream.status() == QDataStream::Ok)
            m_value = value;
    }
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
