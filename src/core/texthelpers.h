// Free functions for numbers and text: filing texts, loose input, line breaking,
// T2 address blocks, HTML fragments, small file readers and CSV.
#pragma once

#include "cstring.h"

#include <set>
#include <string>
#include <vector>

// Numbers to text.
LIBBEDROCK_EXPORT void myDoubleToString(double v, int decimals, CString& out);
LIBBEDROCK_EXPORT void GetPercentStringForNetfile(double v, int precision, CString& out);
// A percentage as a fraction with a leading point: 12.5 with 4 digits is ".125".
LIBBEDROCK_EXPORT void GetPercentStringForAT1(double v, int digits, CString& out);

// Text to numbers and checks.
LIBBEDROCK_EXPORT double myStringToDouble(std::string const& s);
LIBBEDROCK_EXPORT bool isNumericStr(CString const& s, bool digitsOnly);
LIBBEDROCK_EXPORT bool IsDigits(char* s);
LIBBEDROCK_EXPORT int myStringTimeHourValidate(CString& s);
LIBBEDROCK_EXPORT int myStringTimeMinsValidate(CString& s);
// `s` is read as Latin-1.
LIBBEDROCK_EXPORT void myStringToPhone(char const* s, CString& out);

// Strings. `char const*` arguments are read as Latin-1 unless said otherwise.
LIBBEDROCK_EXPORT CString getLeadingString(CString const& s, int n);
LIBBEDROCK_EXPORT bool makeValidFilename(CString& s);
LIBBEDROCK_EXPORT void trimSpaces(std::string& s);
// keyword is UTF-8.
LIBBEDROCK_EXPORT void removeBeforeKeywordFromKeyChar(CString& s, char const* keyword,
                                                      char keyChar);
// suffix is UTF-8.
LIBBEDROCK_EXPORT bool stringEndwith(CString const& s, char const* suffix, bool caseSensitive);
// Returns (unsigned long)-1 when the needle is absent.
LIBBEDROCK_EXPORT unsigned long findCaseInsensitive(std::string hay, std::string needle,
                                                    unsigned long pos);
LIBBEDROCK_EXPORT void makeStringToFixLengthStringByTrailingSpaces(CString& out, char const* s,
                                                                   int n);
LIBBEDROCK_EXPORT void formatStringToMaxCharsPerLine(CString const& s, int maxChars, CString& out);
// Always 104 characters: 30 + 30 + 30 + 2 + 2 + 10.
LIBBEDROCK_EXPORT void formatStringToT2AddrIn104Letters(CString& out, char const* country,
                                                        char const* prov, char const* city,
                                                        char const* addr1, char const* addr2,
                                                        char const* postal);
LIBBEDROCK_EXPORT void formatStringToT2AddrForPrint(CString& out, char const* country,
                                                    char const* prov, char const* city,
                                                    char const* addr1, char const* addr2,
                                                    char const* postal);
// A null or empty format means "yyyy-MM-dd HH:mm:ss".
LIBBEDROCK_EXPORT void getCurTimeStr(CString& out, char const* format);

// HTML fragments, appended to `out`. Nothing is escaped. An item whose value is
// empty or equals skipValue (case-insensitively) writes nothing.
LIBBEDROCK_EXPORT void toHtmlNewLine(CString& out);
LIBBEDROCK_EXPORT void toHtmlTableStart(CString& out);
LIBBEDROCK_EXPORT void toHtmlTableEnd(CString& out);
LIBBEDROCK_EXPORT void toHtmlOneLineItem(CString& out, std::string const& value, char const* label,
                                         char const* skipValue);
LIBBEDROCK_EXPORT void toHtmlOneTableRow(CString& out, std::string const& value, char const* label,
                                         char const* skipValue);

// Files. Paths given as `char const*` are UTF-8.
LIBBEDROCK_EXPORT void loadFileToQString(char const* path, QString& out, int = 0);
// 107 when the file will not open, else 0. Bit 64 of flags reads UTF-8.
LIBBEDROCK_EXPORT int loadFileToString(CString const& path, std::string& out, int flags, int = 0);
LIBBEDROCK_EXPORT void ReadNumberFromLineEndIntoAList(CString& path, std::set<std::string>& out);
LIBBEDROCK_EXPORT void ReadNumberFromLineBeginIntoAList(CString& path, std::set<std::string>& out);

// CSV: quotes group, a doubled quote gives none, dollar signs are dropped and
// blank lines make no rows.
LIBBEDROCK_EXPORT void ParseCSV(std::string const& text,
                                std::vector<std::vector<std::string>>& rows);
