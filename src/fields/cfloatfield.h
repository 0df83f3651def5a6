// The amount fields and the rounding rules that calculation code relies on.
#pragma once

#include "cfield.h"

#include <QDebug>

/*
 * An amount. Assignment from a double rounds (to cents, or to whole dollars
 * when p_for_t2wave is set); assignment from another field copies the value
 * as it is. Two amounts are equal when they differ by less than 0.009.
 */
class LIBBEDROCK_EXPORT CFloatField : public CField
{
public:
    // Leaves m_value unset: assign before use.
    CFloatField(int version, int versionEnd);
    CFloatField(double value = 0.0, int id = 0);
    CFloatField(double value, int id, bool allowNegative,
                unsigned int version = ARCHIVE_VERSION_FIRST,
                ENUMTYPE_FIELD_ATTR attr = FIELD_ATTR_NONE);
    CFloatField(bool clampNegative, double value, int id, bool allowNegative,
                ENUMTYPE_FIELD_ATTR attr, int tag, unsigned int version);

    // Copies m_value only, without rounding.
    CFloatField& operator=(const CFloatField& other);
    // Rounded assignment; each class of the family rounds its own way.
    virtual CFloatField& operator=(double value);
    // Tolerance comparison: false for two NaNs, true for a NaN against a number.
    bool operator!=(const CFloatField& other) const;

    // Plain arithmetic on m_value: no rounding and no guard against division by 0.
    double operator*(const CFloatField& other) const { return m_value * other.m_value; }
    double operator/(const CFloatField& other) const { return m_value / other.m_value; }
    double operator+(const CFloatField& other) const { return m_value + other.m_value; }
    double operator-(const CFloatField& other) const { return m_value - other.m_value; }
    double operator*(double v) const { return m_value * v; }
    double operator/(double v) const { return m_value / v; }
    double operator+(double v) const { return m_value + v; }
    double operator-(double v) const { return m_value - v; }

    int getFieldType() override { return FIELD_TYPE_FLOAT; }
    int ValidateAndCorrect() override;
    // Versions up to 65713 were written as single precision.
    void Serialize(unsigned int version, MyDataStream& stream) override;
    // Commas are dropped; no rounding or clamping.
    int readFromString(const CString& text) override;
    // Fixed notation with m_nDecimalsToSave decimals.
    int toString(CString& out) override;

    void setNDecimalsToSave(int decimals) { m_nDecimalsToSave = decimals; }
    int getIntVal(bool round) const;

    static bool p_for_t2wave;

    double m_value;
    bool m_bClampNegative;
    bool m_bInversePrint;
    int m_nDecimalsToSave;
};

class LIBBEDROCK_EXPORT CFloatFieldNotused : public CFloatField
{
public:
    CFloatFieldNotused(unsigned int version, unsigned int versionEnd);
    using CFloatField::operator=;
};

// A value that print code shows with its sign reversed.
class LIBBEDROCK_EXPORT CFloatFieldInversePrint : public CFloatField
{
public:
    CFloatFieldInversePrint(bool clampNegative, double value, int id);
    CFloatFieldInversePrint(bool clampNegative, double value, int id, bool allowNegative,
                            ENUMTYPE_FIELD_ATTR attr, int tag, unsigned int version);
    using CFloatField::operator=;
};

// Prints m_nDecimalsToSave decimals but rounds like CFloatField.
class LIBBEDROCK_EXPORT CDecimalFloatField : public CFloatField
{
public:
    CDecimalFloatField(int decimals, double value, int id);
    CDecimalFloatField(int decimals, double value, int id, bool allowNegative, unsigned int version,
                       ENUMTYPE_FIELD_ATTR attr = FIELD_ATTR_NONE);
    CDecimalFloatField(int decimals, bool clampNegative, double value, int id, bool allowNegative,
                       ENUMTYPE_FIELD_ATTR attr, int tag, unsigned int version);
    using CFloatField::operator=;
    CDecimalFloatField& operator=(double value) override;
};

// Always rounds to a whole number and prints no decimals.
class LIBBEDROCK_EXPORT CIntFloatField : public CFloatField
{
public:
    CIntFloatField(double value = 0.0, int id = 0);
    CIntFloatField(double value, int id, bool allowNegative,
                   unsigned int version = ARCHIVE_VERSION_FIRST,
                   ENUMTYPE_FIELD_ATTR attr = FIELD_ATTR_NONE);
    CIntFloatField(bool clampNegative, double value, int id, bool allowNegative,
                   ENUMTYPE_FIELD_ATTR attr, int tag, unsigned int version);
    using CFloatField::operator=;
    CIntFloatField& operator=(double value) override;
};

// Rounds to four decimals and keeps to 0..100.
class LIBBEDROCK_EXPORT CPercentField : public CFloatField
{
public:
    // The version argument is ignored: the field exists from the first version.
    CPercentField(double value = 0.0, int id = 0, bool allowNegative = false,
                  unsigned int ignoredVersion = ARCHIVE_VERSION_FIRST);
    CPercentField(bool clampNegative, double value, int id, bool allowNegative,
                  ENUMTYPE_FIELD_ATTR attr, int tag, unsigned int version);
    using CFloatField::operator=;
    CPercentField& operator=(double value) override;
    int ValidateAndCorrect() override;
};

LIBBEDROCK_EXPORT bool isIndeterminate(double x);
LIBBEDROCK_EXPORT QDebug operator<<(QDebug debug, CFloatField& field);

// fallback when |b| is below 0.009, else a / b.
LIBBEDROCK_EXPORT double div(double a, double b, double fallback);
LIBBEDROCK_EXPORT double GetOneIfZero(double v);
// Truncates toward zero to a multiple of unit; a unit of 0 leaves v alone.
LIBBEDROCK_EXPORT void truncateToNearest(double& v, int unit);
/*
 * Rounds to 2, 5 or 6 decimals, to a whole number for 0, and to four decimals
 * for any other count. Millions are split off first so scaling loses nothing.
 * A positive value just under half a unit rounds up, a negative one does not.
 */
LIBBEDROCK_EXPORT double RoundFloatAtDecision(double v, int decimals);
