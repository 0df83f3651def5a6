// CString: the text type of fields, forms, messages and validators.
#pragma once

#include "libbedrock_export.h"

#include <QString>
#include <QStringBuilder>

#include <string>

/*
 * A QString with the member functions of an older string class kept as the
 * calling convention. It adds no data and no virtual function, so it converts
 * to and from QString without copying text.
 *
 * The encoding of a `const char*` argument is fixed per operation and part of
 * the contract: the constructor, operator= and the char forms of Replace and
 * Remove read Latin-1; LoadString, the const char* forms of Replace, Compare,
 * CompareNoCase, Find and ReverseFind read UTF-8. A null `const char*` is
 * always text of length zero.
 */
class LIBBEDROCK_EXPORT CString : public QString
{
public:
    CString()
        : QString(QLatin1String(""))
    { }
    CString(const char* latin1);
    CString(const QString& other)
        : QString(other)
    { }
    CString(QString&& other) noexcept
        : QString(std::move(other))
    { }
    CString(const CString&) = default;
    CString(CString&&) noexcept = default;
    CString& operator=(const CString&) = default;
    CString& operator=(CString&&) noexcept = default;

    CString& operator=(const QString& other);
    CString& operator=(const char* latin1);
    void LoadString(const char* utf8);

    bool IsEmpty() const { return isEmpty(); }
    // Makes the text null and releases its storage.
    void Empty();
    int GetLength() const { return int(size()); }
    // The code unit at i as a signed char; units of 256 and above give 0.
    char GetAt(int i) const;

    void TrimLeft();
    void TrimRight();
    void Trim();
    int Replace(char from, char to);
    int Replace(const char* from, const char* to);
    int Remove(char c);
    void MakeUpper();
    void MakeLower();

    // A count of 0 or below means "to the end".
    CString Mid(int start, int count) const;
    CString Left(int n) const;
    CString Right(int n) const;

    int Compare(const char* utf8) const;
    int Compare(const CString& other) const;
    int CompareNoCase(const char* utf8) const;
    int CompareNoCase(const CString& other) const;
    int Find(const char* utf8) const;
    int ReverseFind(const char* utf8) const;

    CString toXmlString() const;
    // n above 0 first cuts the text to n characters (not bytes).
    std::string toStdStringLatin1(int n = 0) const;
    std::string toStdStringUTF8(int n = 0) const;

    static CString sprintf2023(const char* format, ...)
#if defined(__GNUC__)
        __attribute__((format(printf, 1, 2)))
#endif
        ;
};

// Lets CString take part in QStringBuilder concatenations (QT_USE_QSTRINGBUILDER).
template<> struct QConcatenable<CString> : QConcatenable<QString> {
    using type = CString;
};

// Byte-wise case-insensitive comparison; the difference of the first differing pair.
LIBBEDROCK_EXPORT int stricmp(char const* a, char const* b);
// One pass of replacing two blanks by one: four blanks become two.
LIBBEDROCK_EXPORT void removeContinuousSpace(CString& s);

/*
 * The one escaping rule of all XML output. With flag 4 or 8 set, the first
 * maxLen characters (0 meaning all, negative meaning none) are kept and the
 * five characters " ' & < > become numeric entities; with neither flag the
 * text is returned as it is.
 */
LIBBEDROCK_EXPORT CString convertToXMLString(CString const& s, int maxLen, int flags);
LIBBEDROCK_EXPORT CString convertToXMLString(CString const& s, int maxLen);
LIBBEDROCK_EXPORT CString convertToXMLString(CString const& s);
