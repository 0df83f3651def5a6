// Checks and clean-up of what a taxpayer types: names, cities, address lines,
// postal and ZIP codes, country codes, telephone numbers, e-mail addresses and
// the character set of T2 text; and the two address-block validators.
#pragma once

#include "cstring.h"
#include "libbedrock_export.h"

#include <QChar>
#include <QString>

#include <list>

class CIntField;
class CStringField;

/*
 * The predicates are pure and report nothing; the wording of an error is the
 * caller's. Exceptions: CheckAddress_common, CheckAddress and CheckAddrCO trim
 * their argument in place (also when they answer false), and validateAddr and
 * validateAddr2 append messages.
 *
 * Byte and character forms differ on purpose and old data depends on it:
 * CheckName judges bytes; CheckBusiName, CheckAddress and CheckAddrCO judge the
 * UTF-8 bytes of the text as if each were a Latin-1 code unit, and the last two
 * take their length from the character count while indexing bytes;
 * CheckCityName alone judges UTF-16 code units. A null `const char*` is empty.
 */

// Character classes.
extern LIBBEDROCK_EXPORT const char _LowerCaseAlpha[27];
extern LIBBEDROCK_EXPORT const char _UpperCaseAlpha[27];
extern LIBBEDROCK_EXPORT const char _OtherAlpahChars[8];
LIBBEDROCK_EXPORT bool IsDigitChar(char c);
LIBBEDROCK_EXPORT bool isNumeric(char c);
LIBBEDROCK_EXPORT bool isAlphabetic(char c);
LIBBEDROCK_EXPORT bool Is26NormalChar(char c);
// ASCII letters and "-_+$%<>".
LIBBEDROCK_EXPORT bool IsAlphaChar(char c);
// U+00C0 to U+00FF less U+00C5, U+00D5, U+00E5 and U+00F5 (60 units).
LIBBEDROCK_EXPORT bool isCharDiacritic(QChar c);
// Printable ASCII and the Latin-1 characters of French (154 byte values).
LIBBEDROCK_EXPORT bool IsT2AllowedChar(unsigned char c);

// Names.
LIBBEDROCK_EXPORT bool CheckName(char const* s);
LIBBEDROCK_EXPORT bool CheckSpouseName(char const* s);
LIBBEDROCK_EXPORT bool CheckBusiName(CString const& s);
LIBBEDROCK_EXPORT bool CheckCityName(CString const& s);
LIBBEDROCK_EXPORT bool CheckT2ValidChar(CString const& s);
// Leaves `s` as it is.
LIBBEDROCK_EXPORT void PurifyT2String(CString& s);

// Address lines. `set` is read as Latin-1.
LIBBEDROCK_EXPORT bool StringHasChars(CString const& s, char const* set);
LIBBEDROCK_EXPORT bool CheckAddress_common(CString& s);
LIBBEDROCK_EXPORT bool CheckAddress(CString& s);
LIBBEDROCK_EXPORT bool CheckAddrCO(CString& s);
// Removes every "c/o " and "C/O "; other letter cases stay.
LIBBEDROCK_EXPORT CString GetPurifiedAddr(CString const& s);

// Postal codes and countries.
LIBBEDROCK_EXPORT bool CheckCAPostCode(char const* s);
LIBBEDROCK_EXPORT bool CheckUSPostCode(char const* s);
LIBBEDROCK_EXPORT bool CheckCountryCode(char const* s);
LIBBEDROCK_EXPORT CString GetUSRawPostcode(CString const& s);
// Letters and digits taken in turn, at most six, upper case: "k1a 0b1" gives "K1A0B1".
LIBBEDROCK_EXPORT CString GetCARawPostcode(CString const& s);
LIBBEDROCK_EXPORT CString GetRawPostcode(CString const& s);

// Telephone numbers.
LIBBEDROCK_EXPORT CString GetRawPhoneStr(CString const& s, bool padTo10);
LIBBEDROCK_EXPORT bool CheckPhoneNumber(CString const& s, bool allowAllZero);
LIBBEDROCK_EXPORT bool CheckPhoneNumber(CString const& s);
LIBBEDROCK_EXPORT bool CheckPhoneFlatEditNumber(CString const& s, bool allowAllZero);
// False for a blank masked entry, true once any digit was typed.
LIBBEDROCK_EXPORT bool ChkPhoneStrHasSomething(CString const& s);

// E-mail: true when the trimmed text contains an address anywhere.
LIBBEDROCK_EXPORT bool is_email_valid(QString& s);
// `s` is UTF-8.
LIBBEDROCK_EXPORT bool checkEmail(char const* s);

// Small string checks and conversions.
LIBBEDROCK_EXPORT bool CheckDate(char const* s);
// "dd/mm/yyyy" (fields at 0, 3 and 6) becomes "yyyymmdd".
LIBBEDROCK_EXPORT CString GetRawDate(CString const& s);
LIBBEDROCK_EXPORT bool CheckIsAllNumber(char const* s);
LIBBEDROCK_EXPORT bool CheckIsDigitStr(CString const& s, int = 0);
LIBBEDROCK_EXPORT bool CheckIsAlphaOrSpace(CString const& s);
LIBBEDROCK_EXPORT bool IsAllZeroString(CString s);
LIBBEDROCK_EXPORT CString GetNumStr(CString const& s, bool = false, int = 0);
// Appends; `out` is not cleared first.
LIBBEDROCK_EXPORT void GetPureDigitStr(CString const& s, CString& out);
LIBBEDROCK_EXPORT bool CheckIfAmongListOfString(CString s, std::list<CString>& l);
// A duplicate test: false when a non-empty element of `a` that is not in `b`
// occurs again later in `a`, ignoring letter case.
LIBBEDROCK_EXPORT bool CheckIfAllSomeStringsAreSame(std::list<CString>& a, std::list<CString>& b);

/*
 * Address blocks. Each missing or bad part appends one message,
 * QString::asprintf(format, label, suffix), with the label translated; the
 * number of messages added is added to `count` and returned. Country 1 is
 * Canada, 2 the United States, 0 no choice; other countries are not checked
 * beyond street and city.
 */
LIBBEDROCK_EXPORT long validateAddr(long& count, std::list<CString>& messages,
                                    CStringField& streetNumber, CStringField& streetName,
                                    CStringField& city, CIntField const& provOrState,
                                    CIntField const& country, CStringField& postal,
                                    char const* format, char const* suffix);
// The street address comes third; the fourth argument is ignored.
LIBBEDROCK_EXPORT long validateAddr2(long& count, std::list<CString>& messages,
                                     CStringField& streetAddress, CStringField& unused,
                                     CStringField& city, CIntField const& provOrState,
                                     CIntField const& country, CStringField& postal,
                                     char const* format, char const* suffix);
