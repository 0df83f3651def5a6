// CReservedArea: two short strings kept enciphered in an archive.
#pragma once

#include "cstring.h"

class MyDataStream;

/*
 * Holds two strings of at most 19 characters each, stored with the same
 * authenticated cipher as CT1EncryptedMemoryBlock. What they hold is the
 * application's business. Without a key text the library's own is used, which
 * keeps the strings from the casual eye and detects damage.
 */
class LIBBEDROCK_EXPORT CReservedArea
{
public:
    static constexpr int StringCount = 2;
    static constexpr int MaxLength = 19;

    CReservedArea();
    explicit CReservedArea(CString const& key);

    // Index 0 or 1; the text is cut to 19 characters. Other indexes are ignored.
    void setString(int index, CString const& text);
    // An index out of range gives empty text.
    void getString(int index, CString& out) const;
    // A damaged or foreign record leaves both strings empty; returns false then.
    bool readFromArchive(MyDataStream& s);
    void writeToArchive(MyDataStream& s) const;

private:
    CString m_key;
    CString m_strings[StringCount];
};
