// Checks of Canadian tax identifiers: SIN, Business Number and its program
// accounts, GST, partnership, trust and tax shelter numbers, NISA PIN and
// SR&ED field code.
#pragma once

#include "cstring.h"
#include "libbedrock_export.h"

/*
 * Pure predicates: true means the text is acceptable. They report nothing and
 * keep no state; the wording of any error is the caller's.
 *
 * `char const*` inputs are judged byte by byte and a null pointer counts as the
 * empty string. An exception list is an array of strings ended by a null
 * pointer; the list itself may be null. A value found in it (ignoring letter
 * case) is accepted whatever its form.
 */

// Odd-length digit string whose last digit is the Luhn check digit of the rest.
LIBBEDROCK_EXPORT bool CheckMod10(char const* s);
LIBBEDROCK_EXPORT bool CheckSIN(char const* s, char const** exceptions);
LIBBEDROCK_EXPORT bool CheckSIN(char const* s);
LIBBEDROCK_EXPORT bool CheckNISAPIN(char const* s);
// Nine digits, the two-letter program `prog` (any letter case), four digits.
LIBBEDROCK_EXPORT bool CheckCRAProgNum(char const* s, char const* prog, bool checkMod10);
LIBBEDROCK_EXPORT bool CheckBusiNum(char const* s);
// "NR" (not registered) in any letter case, or a Business Number.
LIBBEDROCK_EXPORT bool CheckBusiNum2(char const* s);
LIBBEDROCK_EXPORT bool CheckGSTAccountNumber(CString const& s);
// Program "RZ"; unlike CheckBusiNum an all-zero root is accepted.
LIBBEDROCK_EXPORT bool CheckPartnershipID(char const* s);
LIBBEDROCK_EXPORT bool CheckPartnershipIDOrFileID(CString const& s);
LIBBEDROCK_EXPORT bool CheckPartnershipNumber(CString const& s);
LIBBEDROCK_EXPORT bool CheckTaxShelterNumber(CString const& s);
LIBBEDROCK_EXPORT bool CheckTrustNumber(char const* s, char const** exceptions);
LIBBEDROCK_EXPORT bool CheckSREDFieldCode(char const* s);
// True when `s` equals an entry of the null-ended `list`, ignoring letter case.
LIBBEDROCK_EXPORT bool isStrPartOfArrayOfStrs(char const* s, char const* const* list);
