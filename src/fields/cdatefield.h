// CDateField and CDateTimeField: dates that tell "never entered" from any real date.
#pragma once

#include "cfield.h"

#include <QDate>
#include <QDateTime>

// The process-wide null date, QDate(0, 0, 0).
LIBBEDROCK_EXPORT extern const QDate g_nullDate;

/*
 * A date. The null date and the date edit widget's minimum date (1752-09-14)
 * both count as "no date" for IsValid; the minimum is held as a constant so no
 * application object is needed.
 */
class LIBBEDROCK_EXPORT CDateField : public CField
{
public:
    CDateField(ENUMTYPE_FIELD_ATTR attr = FIELD_ATTR_NONE);
    CDateField(int id, ENUMTYPE_FIELD_ATTR attr);
    // allowNegative is stored and has no effect on a date.
    CDateField(QDate value, bool allowNegative, ENUMTYPE_FIELD_ATTR attr, int tag,
               unsigned int version);

    CDateField& operator=(const CDateField& other);
    CDateField& operator=(const QDate& value);
    bool operator!=(const CDateField& other) const { return m_value != other.m_value; }

    // The default minimum date of the framework's date edit widget.
    static QDate minimumEditDate();

    bool IsValid() const;
    bool IsZero() const { return !IsValid(); }
    // All four are false when the field is not valid.
    bool IsAfter(int year, int month, int day) const;
    bool IsNotAfter(int year, int month, int day) const;
    bool IsBefore(int year, int month, int day) const;
    bool IsNotBefore(int year, int month, int day) const;
    void setNull();
    void setZero();
    void setCurTime();
    // Same month and day next year; 29 February becomes the null date.
    void set1YLater();
    int getYear() const { return m_value.year(); }
    int getMonth() const { return m_value.month(); }
    int getDay() const { return m_value.day(); }

    int getFieldType() override { return FIELD_TYPE_DATE; }
    // Storing replaces an invalid date by the null date first, in the field too.
    void Serialize(unsigned int version, MyDataStream& stream) override;
    // "yyyyMMdd"; four or six digits give the first of the year or month.
    int readFromString(const CString& text) override;
    // "yyyyMMdd", "00000000" for a null or invalid date.
    int toString(CString& out) override;

    QDate m_value;
};

// A date and time, "yyyy-MM-dd HH:mm:ssAP" as text; not in the binary archive.
class LIBBEDROCK_EXPORT CDateTimeField : public CField
{
public:
    // Holds the moment of construction.
    CDateTimeField(ENUMTYPE_FIELD_ATTR attr = FIELD_ATTR_NONE);

    int getFieldType() override { return FIELD_TYPE_DATETIME; }
    int readFromString(const CString& text) override;
    int toString(CString& out) override;

    QDateTime m_value;
};
