// Arbitrary bytes through every identifier, name, address, postal, phone and
// e-mail check, and through both address-block validators with fields cut
// from the same bytes. None may crash, hang or read past its input.
#include "cintfield.h"
#include "contactdetails.h"
#include "cstringfield.h"
#include "identitynumbers.h"

#include <QStringList>

#include <cstdint>
#include <string>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    if (size < 1)
        return 0;
    const int selector = data[0];
    const std::string bytes(reinterpret_cast<const char*>(data + 1), size - 1);
    const char* s = bytes.c_str();
    CString utf8;
    utf8.LoadString(s);
    // The Latin-1 route keeps embedded NULs and every byte value as a unit.
    CString latin1(QString::fromLatin1(bytes.data(), qsizetype(bytes.size())));

    const char* exceptions[] = { "n/a", s, nullptr };
    CheckMod10(s);
    CheckSIN(s);
    CheckSIN(s, exceptions);
    CheckNISAPIN(s);
    CheckCRAProgNum(s, s, selector & 1);
    CheckBusiNum(s);
    CheckBusiNum2(s);
    CheckPartnershipID(s);
    CheckTrustNumber(s, selector & 2 ? exceptions : nullptr);
    CheckSREDFieldCode(s);
    isStrPartOfArrayOfStrs(s, exceptions);
    for (const CString& c : { utf8, latin1 }) {
        CheckGSTAccountNumber(c);
        CheckPartnershipIDOrFileID(c);
        CheckPartnershipNumber(c);
        CheckTaxShelterNumber(c);
        CheckBusiName(c);
        CheckCityName(c);
        CheckT2ValidChar(c);
        StringHasChars(c, s);
        CString a(c), b(c), d(c);
        CheckAddress_common(a);
        CheckAddress(b);
        CheckAddrCO(d);
        GetPurifiedAddr(c);
        GetUSRawPostcode(c);
        if (GetRawPostcode(c).GetLength() > 6)
            __builtin_trap();
        GetRawPhoneStr(c, true);
        CheckPhoneNumber(c);
        CheckPhoneNumber(c, true);
        CheckPhoneFlatEditNumber(c, selector & 4);
        ChkPhoneStrHasSomething(c);
        QString e(c);
        is_email_valid(e);
        GetRawDate(c);
        CheckIsDigitStr(c, 0);
        CheckIsAlphaOrSpace(c);
        IsAllZeroString(c);
        GetNumStr(c, false, 0);
        CString out;
        GetPureDigitStr(c, out);
    }
    CheckName(s);
    CheckSpouseName(s);
    CheckCAPostCode(s);
    CheckUSPostCode(s);
    CheckCountryCode(s);
    checkEmail(s);
    CheckDate(s);
    CheckIsAllNumber(s);
    for (int i = 0; i < 256; ++i)
        IsT2AllowedChar(static_cast<unsigned char>(i));

    // Fields from the lines of the input; country and province from the first byte.
    const QStringList parts = QString(utf8).split(QLatin1Char('\n'));
    auto part = [&](int i) { return CString(i < parts.size() ? parts.at(i) : QString()); };
    CStringField number, street, city, postal;
    number = part(0);
    street = part(1);
    city = part(2);
    postal = part(3);
    const CIntField prov(selector >> 4), country((selector >> 2) & 3);
    std::list<CString> messages;
    long count = 0;
    const long a
        = validateAddr(count, messages, number, street, city, prov, country, postal, "%s%s", "!");
    const long b = validateAddr2(count, messages, number, street, city, prov, country, postal, "%s",
                                 nullptr);
    if (a < 0 || a > 4 || b < 0 || b > 4 || count != a + b || long(messages.size()) != count)
        __builtin_trap();
    std::list<CString> list(parts.begin(), parts.end());
    CheckIfAllSomeStringsAreSame(list, list);
    std::list<CString> none;
    CheckIfAllSomeStringsAreSame(list, none);
    return 0;
}
