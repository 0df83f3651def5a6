// CStringField: a text of bounded length, with clean-up for names and addresses.
#pragma once

#include "cfield.h"

#include <string>

/*
 * Until setLargeSizeSerializeOption is called every string field counts as
 * large and none reaches a form's XML record: an application calls it once at
 * start. Constructor texts are read as Latin-1.
 */
class LIBBEDROCK_EXPORT CStringField : public CField
{
public:
    CStringField(const char* text = "", int maxLen = 0);
    CStringField(int id, const char* text, int maxLen,
                 unsigned int version = ARCHIVE_VERSION_FIRST);
    CStringField(int id, const char* text, int maxLen, ENUMTYPE_FIELD_ATTR attr, int tag,
                 unsigned int version);

    static void setLargeSizeSerializeOption(unsigned int version, unsigned int size);

    // Copies the text only.
    CStringField& operator=(const CStringField& other);
    CStringField& operator=(const CString& text);
    // Runs of white space count as one blank and the ends do not count; case does.
    bool operator!=(const CStringField& other) const;
    // The trimmed text as UTF-8.
    operator std::string() const;

    CString GetTrimedString() const;
    bool IsEmptyIfRemoveBlank() const;
    bool IsAllZero() const;
    void RemoveBlanks();
    void removeContinuousSpaces();
    // Removes "A/S", "A/S:", "C/O", "C/O:", "c/o", "C/o", "c/O" in that order.
    void removeCOInAddr();

    int getFieldType() override { return FIELD_TYPE_STRING; }
    // Trims and folds double blanks, unless FIELD_ATTR_KEEP_SPACES is set.
    int ValidateAndCorrect() override;
    bool canFieldSavedInXML() override;
    // Large fields go as a memory block, the rest as exactly m_nMaxLen bytes
    // (stored as UTF-8, loaded as Latin-1, as old archives have it).
    void Serialize(unsigned int version, MyDataStream& stream) override;
    int readFromString(const CString& text) override;
    // Trims the field itself, then escapes its first m_nMaxLen characters.
    int toString(CString& out) override;

    static bool p_for_large_size_serialize;
    static unsigned int p_for_large_size_serialize_version;
    static unsigned int p_for_large_size_serialize_size;

    CString m_text;
    int m_nMaxLen;
};

class LIBBEDROCK_EXPORT CStringFieldNotused : public CStringField
{
public:
    CStringFieldNotused(int maxLen, unsigned int version, unsigned int versionEnd);
    using CStringField::operator=;
};
