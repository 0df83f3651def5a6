// NETFILE emitters: one XML line record per filed line of a return.
#pragma once

#include "cstring.h"
#include "libbedrock_export.h"

#include <QtGlobal>
#include <map>

class CFloatField;

/*
 * A value filed so far, kept for cross-checks between lines. The text member
 * is zero-filled, so it always holds a terminated string of at most 31 bytes.
 */
struct LIBBEDROCK_EXPORT NetfileValueRecord {
    enum Kind { Dollar = 1, DollarCent = 2, Number = 3, Text = 4 };

    NetfileValueRecord();

    int m_kind;
    union {
        double m_dValue;
        int m_nValue;
        char m_szValue[32];
    } m_value;
};

/*
 * The emission context. The caller fills it and owns everything it points to;
 * the emitters append to *m_pOutput, count each record in *m_pCount and keep
 * the first value of each field code in *m_pValues. A null pointer leaves that
 * part out.
 */
struct LIBBEDROCK_EXPORT NetfileGenObjParamStru {
    qint64 m_userData = 0;
    CString* m_pOutput = nullptr;
    int* m_pCount = nullptr;
    std::map<int, NetfileValueRecord>* m_pValues = nullptr;
};

// Each function files one line, or nothing when its value is not worth filing.
// Amounts at or below a function's lower bound, in absolute value, are left out.
// The field functions round half away from zero; the double functions truncate.

// Bound 0.009; rounded and never filed as 0. Code 0 files the field's own id.
// Returns 1 when a record was written.
LIBBEDROCK_EXPORT int NETFILE_DOLLAR_FIELD_Func(int code, CFloatField& f,
                                                NetfileGenObjParamStru& p);
// Always files: rounded when above 0.99999999, otherwise 1.
LIBBEDROCK_EXPORT int NETFILE_DOLLAR_FIELD_IFZEROTHENONE_Func(int code, CFloatField& f,
                                                              NetfileGenObjParamStru& p);
// Bound 0.99999999; truncated.
LIBBEDROCK_EXPORT int NETFILE_DOLLAR_VALUE_Func(int code, double v, NetfileGenObjParamStru& p);
// Always files: truncated when above 0.99999999, otherwise 1.
LIBBEDROCK_EXPORT int NETFILE_DOLLAR_VALUE_IFZEROTHENONE_Func(int code, double v,
                                                              NetfileGenObjParamStru& p);
// Bound 0.009; whole cents with no decimal point.
LIBBEDROCK_EXPORT int NETFILE_DOLLARCENT_VALUE_Func(int code, double v, NetfileGenObjParamStru& p);
// Bound 0.009; truncated.
LIBBEDROCK_EXPORT int NETFILE_NUMERIC_VALUE_Func(int code, double v, NetfileGenObjParamStru& p);
// Blank text files nothing. The text is cut to maxLen characters (0: no limit),
// then escaped; the kept value holds up to min(maxLen, 31) bytes of UTF-8, and
// nothing when maxLen exceeds 31.
LIBBEDROCK_EXPORT int NETFILE_STRING_Func(int code, int maxLen, CString& s,
                                          NetfileGenObjParamStru& p);
// The text is read as Latin-1; a null pointer files nothing.
LIBBEDROCK_EXPORT int NETFILE_STRING_VALUE_Func(int code, int maxLen, char const* s,
                                                NetfileGenObjParamStru& p);
// Bound 0.99999999; rounded; keeps the unrounded value. Returns 1 when written.
LIBBEDROCK_EXPORT int NETFILE_COMMODITY_TOTAL_FIELD_Func(int code, CFloatField& f,
                                                         NetfileGenObjParamStru& p);
// Bound 0.009; one commodity line with the amount truncated; keeps no value.
// Returns 1 when written.
LIBBEDROCK_EXPORT int NETFILE_DOLLAR_CCMMODITY_FIELD_Func(CString& commodity, CFloatField& f,
                                                          NetfileGenObjParamStru& p);
