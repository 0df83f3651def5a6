#include "cfloatfield.h"

#include "mydatastream_p.h"

#include <charconv>
#include <climits>
#include <cmath>
#include <cstdint>

bool CFloatField::p_for_t2wave = false;

namespace {

// The tolerance of every amount comparison, and the smallest usable divisor.
constexpr double AmountEpsilon = 0.009;

// Archives up to this version kept amounts as single precision.
constexpr unsigned int LastSinglePrecisionVersion = 65713;

// 2^63: the first double that no longer fits in a signed 64-bit integer.
constexpr double Int64Limit = 9223372036854775808.0;

// Truncation to int that cannot overflow: NaN gives 0, the rest saturates.
int truncToInt(double v)
{
    if (std::isnan(v))
        return 0;
    if (v >= double(INT_MAX))
        return INT_MAX;
    if (v <= double(INT_MIN))
        return INT_MIN;
    return static_cast<int>(v);
}

} // namespace

CFloatField::CFloatField(int version, int versionEnd)
    : CField(0, true, static_cast<unsigned int>(version), static_cast<unsigned int>(versionEnd),
             FIELD_ATTR_NONE, 0)
    // Callers assign before use; 0 only keeps a forgetful one away from garbage.
    , m_value(0.0)
    , m_bClampNegative(true)
    , m_bInversePrint(false)
    , m_nDecimalsToSave(2)
{ }

CFloatField::CFloatField(double value, int id)
    : CFloatField(true, value, id, false, FIELD_ATTR_NONE, 0, ARCHIVE_VERSION_FIRST)
{ }

CFloatField::CFloatField(double value, int id, bool allowNegative, unsigned int version,
                         ENUMTYPE_FIELD_ATTR attr)
    : CFloatField(true, value, id, allowNegative, attr, 0, version)
{ }

CFloatField::CFloatField(bool clampNegative, double value, int id, bool allowNegative,
                         ENUMTYPE_FIELD_ATTR attr, int tag, unsigned int version)
    : CField(id, allowNegative, version, ARCHIVE_VERSION_NO_END, attr, tag)
    , m_value(value)
    , m_bClampNegative(clampNegative)
    , m_bInversePrint(false)
    , m_nDecimalsToSave(2)
{ }

CFloatField& CFloatField::operator=(const CFloatField& other)
{
    m_value = other.m_value;
    return *this;
}

CFloatField& CFloatField::operator=(double value)
{
    m_value = RoundFloatAtDecision(value, p_for_t2wave ? 0 : 2);
    return *this;
}

bool CFloatField::operator!=(const CFloatField& other) const
{
    if (std::isnan(m_value) && std::isnan(other.m_value))
        return false;
    // Written so that a NaN on one side compares as different.
    return !(AmountEpsilon > std::fabs(m_value - other.m_value));
}

int CFloatField::ValidateAndCorrect()
{
    if (m_bClampNegative && !m_bAllowNegative && m_value < 0)
        m_value = 0.0;
    return 0;
}

void CFloatField::Serialize(unsigned int version, MyDataStream& stream)
{
    if (!isInVersion(version))
        return;
    if (stream.IsStoring()) {
        stream << m_value;
        return;
    }
    if (version > LastSinglePrecisionVersion) {
        Bedrock::readKeeping(stream, m_value);
        return;
    }
    // The stream keeps double precision, so this still takes 8 bytes and
    // narrows them to single precision, as these archives were read.
    float narrow = 0.0f;
    if (Bedrock::readKeeping(stream, narrow))
        m_value = narrow;
}

int CFloatField::readFromString(const CString& text)
{
    // Plain decimal text, as records hold it, is read without the framework's
    // locale machinery; from_chars rounds the same way. Anything else (signs,
    // blanks, words, out-of-range values) goes to the framework as before.
    char digits[64];
    size_t n = 0;
    bool plain = !text.isEmpty() && text.size() < qsizetype(sizeof digits);
    for (qsizetype i = 0; plain && i < text.size(); ++i) {
        const char16_t c = text.at(i).unicode();
        if (c == ',')
            continue;
        plain = (c >= '0' && c <= '9') || c == '.' || c == '-' || c == 'e' || c == 'E';
        digits[n++] = char(c);
    }
    if (plain && n > 0) {
        double value = 0.0;
        const auto result = std::from_chars(digits, digits + n, value);
        if (result.ec == std::errc() && result.ptr == digits + n) {
            m_value = value;
            return 0;
        }
    }
    QString number = text;
    number.remove(QLatin1Char(','));
    m_value = number.toDouble();
    return 0;
}

int CFloatField::toString(CString& out)
{
    // The framework's fixed notation rounds an exact binary tie away from zero
    // (60486059.625 prints as 60486059.63); to_chars would round it to even.
    out = QString::number(m_value, 'f', m_nDecimalsToSave < 0 ? 0 : m_nDecimalsToSave);
    return 0;
}

int CFloatField::getIntVal(bool round) const
{
    if (!round)
        return truncToInt(m_value);
    return truncToInt(m_value >= 0 ? m_value + 0.5 : m_value - 0.5);
}

CFloatFieldNotused::CFloatFieldNotused(unsigned int version, unsigned int versionEnd)
    : CFloatField(true, 0.0, 0, true, FIELD_ATTR_NONE, 0, version)
{
    m_versionEnd = versionEnd;
}

CFloatFieldInversePrint::CFloatFieldInversePrint(bool clampNegative, double value, int id)
    : CFloatField(clampNegative, value, id, false, FIELD_ATTR_NONE, 0, ARCHIVE_VERSION_FIRST)
{
    m_bInversePrint = true;
}

CFloatFieldInversePrint::CFloatFieldInversePrint(bool clampNegative, double value, int id,
                                                 bool allowNegative, ENUMTYPE_FIELD_ATTR attr,
                                                 int tag, unsigned int version)
    : CFloatField(clampNegative, value, id, allowNegative, attr, tag, version)
{
    m_bInversePrint = true;
}

CDecimalFloatField::CDecimalFloatField(int decimals, double value, int id)
    : CFloatField(value, id)
{
    m_nDecimalsToSave = decimals;
}

CDecimalFloatField::CDecimalFloatField(int decimals, double value, int id, bool allowNegative,
                                       unsigned int version, ENUMTYPE_FIELD_ATTR attr)
    : CFloatField(value, id, allowNegative, version, attr)
{
    m_nDecimalsToSave = decimals;
}

CDecimalFloatField::CDecimalFloatField(int decimals, bool clampNegative, double value, int id,
                                       bool allowNegative, ENUMTYPE_FIELD_ATTR attr, int tag,
                                       unsigned int version)
    : CFloatField(clampNegative, value, id, allowNegative, attr, tag, version)
{
    m_nDecimalsToSave = decimals;
}

// The decimals govern the text only; the value is rounded like any amount.
CDecimalFloatField& CDecimalFloatField::operator=(double value)
{
    CFloatField::operator=(value);
    return *this;
}

CIntFloatField::CIntFloatField(double value, int id)
    : CFloatField(value, id)
{
    m_nDecimalsToSave = 0;
}

CIntFloatField::CIntFloatField(double value, int id, bool allowNegative, unsigned int version,
                               ENUMTYPE_FIELD_ATTR attr)
    : CFloatField(value, id, allowNegative, version, attr)
{
    m_nDecimalsToSave = 0;
}

CIntFloatField::CIntFloatField(bool clampNegative, double value, int id, bool allowNegative,
                               ENUMTYPE_FIELD_ATTR attr, int tag, unsigned int version)
    : CFloatField(clampNegative, value, id, allowNegative, attr, tag, version)
{
    m_nDecimalsToSave = 0;
}

CIntFloatField& CIntFloatField::operator=(double value)
{
    m_value = RoundFloatAtDecision(value, 0);
    return *this;
}

CPercentField::CPercentField(double value, int id, bool allowNegative, unsigned int)
    : CFloatField(false, value, id, allowNegative, FIELD_ATTR_KEEP_ON_ROLLOVER, 0,
                  ARCHIVE_VERSION_FIRST)
{
    m_nDecimalsToSave = 4;
}

CPercentField::CPercentField(bool clampNegative, double value, int id, bool allowNegative,
                             ENUMTYPE_FIELD_ATTR attr, int tag, unsigned int version)
    : CFloatField(clampNegative, value, id, allowNegative, attr, tag, version)
{
    m_nDecimalsToSave = 4;
}

CPercentField& CPercentField::operator=(double value)
{
    m_value = RoundFloatAtDecision(value, 4);
    return *this;
}

// A percentage keeps to 0..100 whatever the flags say.
int CPercentField::ValidateAndCorrect()
{
    if (m_value < 0)
        m_value = 0.0;
    else if (m_value > 100)
        m_value = 100.0;
    return 0;
}

bool isIndeterminate(double x)
{
    return std::isnan(x);
}

QDebug operator<<(QDebug debug, CFloatField& field)
{
    CString text;
    field.toString(text);
    debug.nospace() << "FF(id: " << field.m_id << ", value: " << static_cast<const QString&>(text)
                    << ")";
    debug.space();
    return debug;
}

double div(double a, double b, double fallback)
{
    return std::fabs(b) < AmountEpsilon ? fallback : a / b;
}

double GetOneIfZero(double v)
{
    return std::fabs(v) < AmountEpsilon ? 1.0 : v;
}

void truncateToNearest(double& v, int unit)
{
    // A unit of 0 would divide by zero; NaN, infinities and values beyond
    // 64 bits have no integer to truncate to. All leave v alone.
    if (unit == 0 || !(std::fabs(v) < Int64Limit))
        return;
    const std::int64_t t = static_cast<std::int64_t>(v);
    v = static_cast<double>(t - t % unit);
}

double RoundFloatAtDecision(double v, int decimals)
{
    // NaN and infinities round to themselves; so does any value beyond 64
    // bits, which is a whole number already and would not survive the cast.
    if (!std::isfinite(v))
        return v;
    if (decimals == 0) {
        const double shifted = v > 0 ? v + 0.5 : v - 0.5;
        if (!(std::fabs(shifted) < Int64Limit))
            return v;
        return static_cast<double>(static_cast<std::int64_t>(shifted));
    }

    double scale = 10000.0;
    double nudgeUp = 0.00005001;
    double nudgeDown = -0.00005;
    switch (decimals) {
    case 2:
        scale = 100.0;
        nudgeUp = 0.005001;
        nudgeDown = -0.005;
        break;
    case 5:
        scale = 100000.0;
        nudgeUp = 0.000005001;
        nudgeDown = -0.000005;
        break;
    case 6:
        scale = 1000000.0;
        nudgeUp = 0.0000005001;
        nudgeDown = -0.0000005;
        break;
    default:
        break;
    }
    // Millions are split off so the scaled fraction keeps every digit.
    const double whole = std::trunc(v / 1000000.0) * 1000000.0;
    const double frac = v - whole;
    // The upward nudge lies just above half a unit and the downward one on it:
    // a positive value just short of a half rounds up, a negative one does not.
    return std::trunc((frac + (frac > 0 ? nudgeUp : nudgeDown)) * scale) / scale + whole;
}
