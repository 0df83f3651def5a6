// CBoolField: a check box or yes/no answer kept as an int.
#pragma once

#include "cfield.h"

// 0 is false and anything else is true; no operation normalises the stored value.
class LIBBEDROCK_EXPORT CBoolField : public CField
{
public:
    CBoolField(int value = 0);
    CBoolField(int id, int value);
    CBoolField(int id, int value, ENUMTYPE_FIELD_ATTR attr, int tag, unsigned int version);

    CBoolField& operator=(const CBoolField& other);
    CBoolField& operator=(int value);
    // Compares the stored integers, so 1 and 2 differ.
    bool operator!=(const CBoolField& other) const { return m_value != other.m_value; }

    int getFieldType() override { return FIELD_TYPE_BOOL; }
    void Serialize(unsigned int version, MyDataStream& stream) override;
    // "false", "0" and "no" in any case give 0; anything else, empty text too, gives 1.
    int readFromString(const CString& text) override;
    int toString(CString& out) override;

    int m_value;
};

class LIBBEDROCK_EXPORT CBoolFieldNotused : public CBoolField
{
public:
    CBoolFieldNotused(unsigned int version, unsigned int versionEnd);
    using CBoolField::operator=;
};
