// The two validators that collect messages for a whole address block.
#include "contactdetails.h"

#include "cintfield.h"
#include "cstringfield.h"

#include <QCoreApplication>

#include <string>

namespace {

const char kContext[] = "validateAddr";

void addMessage(std::list<CString>& messages, const char* format, const char* suffix,
                const char* label)
{
    const QByteArray text = QCoreApplication::translate(kContext, label).toUtf8();
    // The format is the caller's; a missing one gives an empty message rather
    // than a null pointer handed to the formatter.
    messages.push_back(
        format ? CString(QString::asprintf(format, text.constData(), suffix ? suffix : ""))
               : CString());
}

// Country, province or state and postal code; the street and city steps come
// first. Country 1 is Canada, 2 the United States.
void checkRegion(std::list<CString>& messages, CIntField const& provOrState,
                 CIntField const& country, const char* postal, bool postalEmpty, const char* format,
                 const char* suffix)
{
    switch (country.m_value) {
    case 2:
        if (provOrState.m_value == 0)
            addMessage(messages, format, suffix, QT_TRANSLATE_NOOP("validateAddr", "State"));
        if (postalEmpty || !CheckUSPostCode(postal))
            addMessage(messages, format, suffix, QT_TRANSLATE_NOOP("validateAddr", "Postal code"));
        break;
    case 1:
        if (provOrState.m_value == 0)
            addMessage(messages, format, suffix, QT_TRANSLATE_NOOP("validateAddr", "Province"));
        if (postalEmpty || !CheckCAPostCode(postal))
            addMessage(messages, format, suffix, QT_TRANSLATE_NOOP("validateAddr", "Postal code"));
        break;
    case 0:
        addMessage(messages, format, suffix, QT_TRANSLATE_NOOP("validateAddr", "Country"));
        break;
    default:
        break;
    }
}

} // namespace

long validateAddr(long& count, std::list<CString>& messages, CStringField& streetNumber,
                  CStringField& streetName, CStringField& city, CIntField const& provOrState,
                  CIntField const& country, CStringField& postal, char const* format,
                  char const* suffix)
{
    const size_t before = messages.size();
    // A street number longer than the form's eight places counts as missing.
    const bool streetOk = !streetNumber.IsEmptyIfRemoveBlank()
        && streetNumber.m_text.GetLength() <= 8 && !streetName.IsEmptyIfRemoveBlank();
    if (!streetOk)
        addMessage(messages, format, suffix,
                   QT_TRANSLATE_NOOP("validateAddr", "Street number/name"));
    if (city.IsEmptyIfRemoveBlank())
        addMessage(messages, format, suffix, QT_TRANSLATE_NOOP("validateAddr", "City"));
    const std::string code = postal.m_text.toStdStringLatin1();
    checkRegion(messages, provOrState, country, code.c_str(), postal.IsEmptyIfRemoveBlank(), format,
                suffix);
    const long added = long(messages.size() - before);
    count += added;
    return added;
}

long validateAddr2(long& count, std::list<CString>& messages, CStringField& streetAddress,
                   CStringField&, CStringField& city, CIntField const& provOrState,
                   CIntField const& country, CStringField& postal, char const* format,
                   char const* suffix)
{
    const size_t before = messages.size();
    if (streetAddress.IsEmptyIfRemoveBlank())
        addMessage(messages, format, suffix, QT_TRANSLATE_NOOP("validateAddr", "Street address"));
    if (city.IsEmptyIfRemoveBlank())
        addMessage(messages, format, suffix, QT_TRANSLATE_NOOP("validateAddr", "City"));
    const QByteArray code = postal.m_text.toUtf8();
    checkRegion(messages, provOrState, country, code.constData(), postal.IsEmptyIfRemoveBlank(),
                format, suffix);
    const long added = long(messages.size() - before);
    count += added;
    return added;
}
