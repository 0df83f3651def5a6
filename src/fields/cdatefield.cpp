#include "cdatefield.h"

#include "calendar.h"
#include "mydatastream_p.h"

// QDate() is the same null date as QDate(0, 0, 0), and being constexpr it is
// ready before any other static initialiser can look at it.
const QDate g_nullDate = QDate();

CDateField::CDateField(ENUMTYPE_FIELD_ATTR attr)
    : CField(0, false, ARCHIVE_VERSION_FIRST, ARCHIVE_VERSION_NO_END, attr, 0)
{ }

CDateField::CDateField(int id, ENUMTYPE_FIELD_ATTR attr)
    : CField(id, false, ARCHIVE_VERSION_FIRST, ARCHIVE_VERSION_NO_END, attr, 0)
{ }

CDateField::CDateField(QDate value, bool allowNegative, ENUMTYPE_FIELD_ATTR attr, int tag,
                       unsigned int version)
    : CField(0, allowNegative, version, ARCHIVE_VERSION_NO_END, attr, tag)
    , m_value(value)
{ }

CDateField& CDateField::operator=(const CDateField& other)
{
    m_value = other.m_value;
    return *this;
}

CDateField& CDateField::operator=(const QDate& value)
{
    m_value = value;
    return *this;
}

QDate CDateField::minimumEditDate()
{
    // QDateTimeEdit's default minimum; held here so that no application
    // object is needed to ask a widget for it. A test keeps the two in step.
    return QDate(1752, 9, 14);
}

bool CDateField::IsValid() const
{
    // An untouched date edit shows its minimum, so that date means "never entered".
    return m_value.isValid() && m_value != minimumEditDate() && m_value != g_nullDate;
}

bool CDateField::IsAfter(int year, int month, int day) const
{
    return IsValid() && m_value > QDate(year, month, day);
}

bool CDateField::IsNotAfter(int year, int month, int day) const
{
    return IsValid() && m_value <= QDate(year, month, day);
}

bool CDateField::IsBefore(int year, int month, int day) const
{
    return IsValid() && m_value < QDate(year, month, day);
}

bool CDateField::IsNotBefore(int year, int month, int day) const
{
    return IsValid() && m_value >= QDate(year, month, day);
}

void CDateField::setNull()
{
    m_value = g_nullDate;
}

void CDateField::setZero()
{
    setNull();
}

void CDateField::setCurTime()
{
    m_value = QDate::currentDate();
}

void CDateField::set1YLater()
{
    // The framework rejects an impossible target (29 February into a common
    // year, or a null date) and leaves the date null.
    m_value.setDate(m_value.year() + 1, m_value.month(), m_value.day());
}

void CDateField::Serialize(unsigned int version, MyDataStream& stream)
{
    if (!isInVersion(version))
        return;
    if (stream.IsStoring()) {
        if (!m_value.isValid())
            m_value.setDate(0, 0, 0);
        stream << m_value;
    } else {
        QDate value;
        // A cut archive leaves the field as it was; its zeros would otherwise
        // read as a real day thousands of years ago.
        if (!Bedrock::readKeeping(stream, value))
            return;
        if (!value.isValid())
            value.setDate(0, 0, 0);
        m_value = value;
    }
}

int CDateField::readFromString(const CString& text)
{
    ReadQDate2(text, DATE_FORMAT_YYYYMMDD, m_value);
    return 0;
}

int CDateField::toString(CString& out)
{
    FormatQDate(out, m_value, DATE_FORMAT_YYYYMMDD);
    return 0;
}

CDateTimeField::CDateTimeField(ENUMTYPE_FIELD_ATTR attr)
    : CField(0, false, ARCHIVE_VERSION_FIRST, ARCHIVE_VERSION_NO_END, attr, 0)
    , m_value(QDateTime::currentDateTime())
{ }

int CDateTimeField::readFromString(const CString& text)
{
    ReadQDateTime(text, DATE_FORMAT_DATETIME, m_value);
    return 0;
}

int CDateTimeField::toString(CString& out)
{
    FormatQDateTime(out, m_value, DATE_FORMAT_DATETIME);
    return 0;
}
