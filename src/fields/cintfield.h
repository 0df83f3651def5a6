// CIntField: whole codes and counts.
#pragma once

#include "cfield.h"

class LIBBEDROCK_EXPORT CIntField : public CField
{
public:
    CIntField(int value = 0, ENUMTYPE_FIELD_ATTR attr = FIELD_ATTR_NONE);
    CIntField(int id, int value, ENUMTYPE_FIELD_ATTR attr = FIELD_ATTR_NONE);
    CIntField(int id, int value, ENUMTYPE_FIELD_ATTR attr, int tag, unsigned int version);

    // Copies the value only.
    CIntField& operator=(const CIntField& other);
    CIntField& operator=(int value);
    bool operator!=(const CIntField& other) const { return m_value != other.m_value; }

    int getFieldType() override { return FIELD_TYPE_INT; }
    void Serialize(unsigned int version, MyDataStream& stream) override;
    // Text that is no integer, or lies outside int, gives 0.
    int readFromString(const CString& text) override;
    int toString(CString& out) override;
    // With a print name: "<f n=\"name\" p=\"printName\">text</f>".
    int writeToString(CString& out) override;

    int m_value;
};

// A field no longer used that still occupies space in archives of its versions.
class LIBBEDROCK_EXPORT CIntFieldNotused : public CIntField
{
public:
    CIntFieldNotused(unsigned int version, unsigned int versionEnd);
    using CIntField::operator=;
};
