// CField: the abstract base of every typed field of a form.
#pragma once

#include "cstring.h"

#include <string>
#include <vector>

class MyDataStream;

/*
 * Field behaviour. Values 1 to 5 steer year rollover and are compared for
 * equality; FIELD_ATTR_KEEP_SPACES is a single bit tested on string fields.
 * Each value means something only for the field type it names.
 */
enum ENUMTYPE_FIELD_ATTR : unsigned int {
    FIELD_ATTR_NONE = 0,
    FIELD_ATTR_KEEP_ON_ROLLOVER = 1, // float fields
    FIELD_ATTR_INCREMENT_ON_ROLLOVER = 2, // integer fields
    FIELD_ATTR_ADVANCE_DATE_ON_ROLLOVER = 3, // date fields
    FIELD_ATTR_CLEAR_DATE_ON_ROLLOVER = 4, // date fields
    FIELD_ATTR_CLEAR_TEXT_ON_ROLLOVER = 5, // string fields
    FIELD_ATTR_KEEP_SPACES = 0x10000 // string fields: ValidateAndCorrect leaves them alone
};

// The type tags that getFieldType returns.
enum ENUMTYPE_FIELD_TYPE {
    FIELD_TYPE_INT = 0,
    FIELD_TYPE_BOOL = 1,
    FIELD_TYPE_STRING = 2,
    FIELD_TYPE_FLOAT = 3, // CFloatField and everything derived from it
    FIELD_TYPE_DATE = 4,
    FIELD_TYPE_DATETIME = 5
};

// Archive versions: 0x10000 is the first that ever existed, 0xfffffff means no end.
constexpr unsigned int ARCHIVE_VERSION_FIRST = 0x10000;
constexpr unsigned int ARCHIVE_VERSION_NO_END = 0xfffffff;

/*
 * A field has a name (its key in the XML record, set by the owning form), a
 * line code m_id, the range of archive versions in which it exists and an
 * attribute. A name containing "notused" keeps the field out of every XML
 * record; the binary Serialize of a concrete field works only for versions
 * inside [m_version, m_versionEnd].
 */
class LIBBEDROCK_EXPORT CField
{
public:
    CField(int id = 0, bool allowNegative = false, unsigned int version = ARCHIVE_VERSION_FIRST,
           unsigned int versionEnd = ARCHIVE_VERSION_NO_END,
           ENUMTYPE_FIELD_ATTR attr = FIELD_ATTR_NONE, int tag = 0);
    virtual ~CField();

    virtual int getFieldType() = 0;
    virtual void Serialize(unsigned int version, MyDataStream& stream);
    virtual int ValidateAndCorrect();
    virtual bool canFieldSavedInXML();
    // "<f n=\"name\">text</f>"; 0 when written, -1 when the field is not saved.
    virtual int writeToString(CString& out);
    virtual int readFromString(const CString& text) = 0;
    virtual int toString(CString& out);
    // "<f><c>name</c><v>text</v></f>", the form that feeds printing.
    virtual int writeToXmlForPdf(CString& out);

    // True when version lies inside the field's range, bounds included.
    bool isInVersion(unsigned int version) const
    {
        return m_version <= version && version <= m_versionEnd;
    }

    std::string m_name;
    std::string m_printName;
    bool m_bAllowNegative;
    int m_id;
    unsigned int m_version;
    unsigned int m_versionEnd;
    ENUMTYPE_FIELD_ATTR m_attr;
    int m_tag;

protected:
    CField(const CField&) = default;
    CField& operator=(const CField&) = default;

    // Fills "<...%1...%2...>" with the name and then the value, in that order.
    int writeTemplate(const char* pattern, CString& out);
};

// Clears bool, float and string fields; integer and date fields keep their value.
LIBBEDROCK_EXPORT void Common_ClearData_Func(std::vector<CField*>* fields);
// Serialize on every field but the date-time ones, in order.
LIBBEDROCK_EXPORT void Common_Serialize_Func(int version, MyDataStream& stream,
                                             std::vector<CField*>& fields);
// Pairs by position over the common length; true at the first difference.
LIBBEDROCK_EXPORT bool Common_Func_OperatorNotEqual(std::vector<CField*>& a,
                                                    std::vector<CField*>& b);
// Copies values pairwise from the first vector into the second.
LIBBEDROCK_EXPORT void Common_Func_OperatorAssign(std::vector<CField*>& from,
                                                  std::vector<CField*>& to);
