#include "netfile.h"

#include "cfloatfield.h"
#include "xmlwriters.h"

#include <QByteArray>
#include <algorithm>
#include <climits>
#include <cmath>
#include <cstring>

namespace {

constexpr double CentBound = 0.009;
constexpr double DollarBound = 0.99999999;
// Absorbs representation error before truncation: 12.9999999 files as 13.
constexpr double Nudge = 0.000001;
// Beyond this many dollars the cents no longer fit in 32 bits.
constexpr double Long64Cents = 2.1e7;

// Amounts come from user input and old files: NaN files as 0, and values
// beyond 64 bits saturate rather than reach an undefined conversion.
qint64 toInt64(double x)
{
    if (std::isnan(x))
        return 0;
    if (x >= 9223372036854775808.0)
        return LLONG_MAX;
    if (x <= -9223372036854775808.0)
        return LLONG_MIN;
    return qint64(x);
}

int toInt(double x)
{
    if (std::isnan(x))
        return 0;
    if (x >= 2147483647.0)
        return INT_MAX;
    if (x <= -2147483648.0)
        return INT_MIN;
    return int(x);
}

qint64 rounded(double v)
{
    return toInt64(v >= 0 ? v + 0.5 : v - 0.5);
}

double nudged(double v)
{
    return v >= 0 ? v + Nudge : v - Nudge;
}

qint64 truncated(double v)
{
    return toInt64(nudged(v));
}

class Emitter
{
public:
    explicit Emitter(NetfileGenObjParamStru& p)
        : m_p(p)
    { }

    CString& out() { return m_p.m_pOutput ? *m_p.m_pOutput : m_scratch; }

    void count()
    {
        if (m_p.m_pCount)
            ++*m_p.m_pCount;
    }

    // The first value of a code stays; later lines are still written and counted.
    void keep(int code, const NetfileValueRecord& record)
    {
        if (m_p.m_pValues)
            m_p.m_pValues->emplace(code, record);
    }

    void keepDouble(int code, double value)
    {
        NetfileValueRecord record;
        record.m_kind = NetfileValueRecord::Dollar;
        record.m_value.m_dValue = value;
        keep(code, record);
    }

    void openLine(int code)
    {
        writeXMLOpenTagString(out(), "comm:ReturnLine");
        writeXMLInteger(out(), "comm:FieldCode", code);
    }

    void closeLine() { writeXMLCloseTagString(out(), "comm:ReturnLine"); }

    void line(int code, qint64 value)
    {
        openLine(code);
        writeXMLForLong64(out(), "comm:FieldValue", value, false);
        closeLine();
    }

private:
    NetfileGenObjParamStru& m_p;
    CString m_scratch;
};

} // namespace

NetfileValueRecord::NetfileValueRecord()
    : m_kind(0)
{
    std::memset(&m_value, 0, sizeof m_value);
}

int NETFILE_DOLLAR_FIELD_Func(int code, CFloatField& f, NetfileGenObjParamStru& p)
{
    const double v = f.m_value;
    if (!(std::fabs(v) > CentBound))
        return 0;
    const qint64 whole = rounded(v);
    Emitter e(p);
    // An amount that passes the bound is never filed as zero.
    e.line(code == 0 ? f.m_id : code, whole != 0 ? whole : (v < 0 ? -1 : 1));
    e.keepDouble(code, double(whole));
    e.count();
    return 1;
}

int NETFILE_DOLLAR_FIELD_IFZEROTHENONE_Func(int code, CFloatField& f, NetfileGenObjParamStru& p)
{
    const double v = f.m_value;
    const bool real = std::fabs(v) > DollarBound;
    Emitter e(p);
    e.line(code, real ? rounded(v) : 1);
    e.keepDouble(code, real ? v : 1.0);
    e.count();
    return 0;
}

int NETFILE_DOLLAR_VALUE_Func(int code, double v, NetfileGenObjParamStru& p)
{
    if (!(std::fabs(v) > DollarBound))
        return 0;
    Emitter e(p);
    e.line(code, truncated(v));
    e.keepDouble(code, v);
    e.count();
    return 0;
}

int NETFILE_DOLLAR_VALUE_IFZEROTHENONE_Func(int code, double v, NetfileGenObjParamStru& p)
{
    const bool real = std::fabs(v) > DollarBound;
    Emitter e(p);
    e.line(code, real ? truncated(v) : 1);
    e.keepDouble(code, real ? v : 1.0);
    e.count();
    return 0;
}

int NETFILE_DOLLARCENT_VALUE_Func(int code, double v, NetfileGenObjParamStru& p)
{
    if (!(std::fabs(v) > CentBound))
        return 0;
    const double w = nudged(v);
    const qint64 cents = toInt64(w * 100);
    Emitter e(p);
    e.openLine(code);
    if (std::fabs(w) >= Long64Cents)
        writeXMLForLong64(e.out(), "comm:FieldValue", cents, false);
    else
        writeXMLForLong(e.out(), "comm:FieldValue", long(cents), false);
    e.closeLine();
    NetfileValueRecord record;
    record.m_kind = NetfileValueRecord::DollarCent;
    record.m_value.m_dValue = v;
    e.keep(code, record);
    e.count();
    return 0;
}

int NETFILE_NUMERIC_VALUE_Func(int code, double v, NetfileGenObjParamStru& p)
{
    if (!(std::fabs(v) > CentBound))
        return 0;
    Emitter e(p);
    e.line(code, truncated(v));
    NetfileValueRecord record;
    record.m_kind = NetfileValueRecord::Number;
    record.m_value.m_nValue = toInt(v);
    e.keep(code, record);
    e.count();
    return 0;
}

int NETFILE_STRING_Func(int code, int maxLen, CString& s, NetfileGenObjParamStru& p)
{
    CString trimmed(s);
    trimmed.Trim();
    if (trimmed.IsEmpty())
        return 0;
    Emitter e(p);
    e.openLine(code);
    writeXMLString(e.out(), "comm:FieldValue", s, maxLen);
    e.closeLine();

    NetfileValueRecord record;
    record.m_kind = NetfileValueRecord::Text;
    // A limit beyond the record's 31 bytes keeps no text at all; old files
    // were read that way. A negative limit lies outside the contract and is
    // kept empty too.
    const int room = int(sizeof record.m_value.m_szValue) - 1;
    const int limit = maxLen == 0 ? room : (maxLen > 0 && maxLen <= room ? maxLen : 0);
    const QByteArray bytes = s.toUtf8();
    std::memcpy(record.m_value.m_szValue, bytes.constData(),
                size_t(std::min<qsizetype>(limit, bytes.size())));
    e.keep(code, record);
    e.count();
    return 0;
}

int NETFILE_STRING_VALUE_Func(int code, int maxLen, char const* s, NetfileGenObjParamStru& p)
{
    if (!s)
        return 0;
    CString text(s);
    return NETFILE_STRING_Func(code, maxLen, text, p);
}

int NETFILE_COMMODITY_TOTAL_FIELD_Func(int code, CFloatField& f, NetfileGenObjParamStru& p)
{
    const double v = f.m_value;
    if (!(std::fabs(v) > DollarBound))
        return 0;
    Emitter e(p);
    writeXMLInteger(e.out(), "sfd:CommodityTotalFieldCode", code);
    writeXMLForLong64(e.out(), "sfd:FieldAmount", rounded(v), false);
    e.keepDouble(code, v);
    e.count();
    return 1;
}

int NETFILE_DOLLAR_CCMMODITY_FIELD_Func(CString& commodity, CFloatField& f,
                                        NetfileGenObjParamStru& p)
{
    const double v = f.m_value;
    if (!(std::fabs(v) > CentBound))
        return 0;
    Emitter e(p);
    writeXMLOpenTagString(e.out(), "sfd:Commodity");
    writeXMLString(e.out(), "sfd:CommodityCode", commodity);
    writeXMLForLong64(e.out(), "sfd:CommodityAmount", truncated(v), false);
    writeXMLCloseTagString(e.out(), "sfd:Commodity");
    e.count();
    return 1;
}
