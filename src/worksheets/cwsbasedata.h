// CWSBaseData: the base of every worksheet, the small calculation behind one form line.
#pragma once

#include "cfield.h"
#include "cintfield.h"

#include <cstdio>
#include <list>
#include <map>
#include <string>
#include <vector>

struct DependantInfoStruct;

/*
 * A worksheet lists its fields (members of the derived class) in m_fields and
 * writes Calculate; this base gives it archive, text record, rollover, copying
 * and code generation over that list. In the text record every field is keyed
 * by its full name, m_prefix + "_" + m_name.
 */
class LIBBEDROCK_EXPORT CWSBaseData
{
public:
    CWSBaseData();
    virtual ~CWSBaseData();

    virtual int Calculate();
    // Copies values pairwise over the common head; names and prefix stay.
    virtual CWSBaseData& copyFrom(const CWSBaseData& other);
    virtual void Serialize(unsigned int version, MyDataStream& stream);
    virtual void ChangeToNewYearData(bool keep);
    // Appends one "<f n=\"full name\">text</f>" per field.
    virtual int writeToString(CString& out);
    // Full name first, then its old names, then the bare name.
    virtual int readFromStringMap(std::map<std::string, CString> values);
    virtual void WriteJavaFileDeclaration(FILE* file);
    virtual void WriteJavaFileContruction(FILE* file);

    void addFieldOldName(const char* fullName, const char* oldName);
    void getFldFullName(std::string name, std::string& out) const;

    std::vector<CField*> m_fields;
    std::map<std::string, std::list<std::string>> m_oldNames;
    std::string m_prefix;

    // A worksheet's list points at its own members, so it is never copied:
    // assignment moves the values (copyFrom), and there is no copy constructor.
    CWSBaseData(const CWSBaseData&) = delete;
    CWSBaseData& operator=(const CWSBaseData& other) { return copyFrom(other); }
};

// A worksheet that computes an amount for one chosen dependant.
class LIBBEDROCK_EXPORT CWSDepBaseData : public CWSBaseData
{
public:
    CWSDepBaseData();

    DependantInfoStruct* m_pDepInfo;
    // One-based row of the chosen dependant; 0 or below is none. Always first in m_fields.
    CIntField DepIdx;
};
