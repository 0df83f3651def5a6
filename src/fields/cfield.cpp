#include "cfield.h"

#include "cboolfield.h"
#include "cdatefield.h"
#include "cfloatfield.h"
#include "cintfield.h"
#include "cstringfield.h"
#include "fields_p.h"

#include <algorithm>

CField::CField(int id, bool allowNegative, unsigned int version, unsigned int versionEnd,
               ENUMTYPE_FIELD_ATTR attr, int tag)
    : m_bAllowNegative(allowNegative)
    , m_id(id)
    , m_version(version)
    , m_versionEnd(versionEnd)
    , m_attr(attr)
    , m_tag(tag)
{ }

CField::~CField() = default;

void CField::Serialize(unsigned int, MyDataStream&)
{ }

int CField::ValidateAndCorrect()
{
    return 0;
}

bool CField::canFieldSavedInXML()
{
    // Case matters: "NotUsed" only marks a field for the form definition generator.
    return m_name.find("notused") == std::string::npos;
}

int CField::writeToString(CString& out)
{
    return writeTemplate("<f n=\"%1\">%2</f>", out);
}

int CField::toString(CString&)
{
    return 0;
}

int CField::writeToXmlForPdf(CString& out)
{
    return writeTemplate("<f><c>%1</c><v>%2</v></f>", out);
}

int CField::writeTemplate(const char* pattern, CString& out)
{
    if (!canFieldSavedInXML())
        return -1;
    CString value;
    toString(value);
    // Two passes, the name first: the value is never scanned for placeholders,
    // the name is (names hold no '%').
    out = Bedrock::fillTemplate(QLatin1String(pattern), { QString::fromStdString(m_name), value });
    return 0;
}

QString Bedrock::fillTemplate(QLatin1String pattern, std::initializer_list<QString> args)
{
    bool direct = true;
    for (auto it = args.begin(); direct && it + 1 < args.end(); ++it)
        direct = !it->contains(QLatin1Char('%'));
    if (!direct) {
        QString text = pattern;
        for (const QString& arg : args)
            text = text.arg(arg);
        return text;
    }
    QString text;
    qsizetype size = pattern.size();
    for (const QString& arg : args)
        size += arg.size();
    text.reserve(size);
    const char* p = pattern.data();
    const char* const end = p + pattern.size();
    const QString* const first = args.begin();
    while (p < end) {
        // A marker is '%' and the digit of one of the arguments.
        if (*p == '%' && p + 1 < end && p[1] >= '1' && p[1] < char('1' + args.size())) {
            text += first[p[1] - '1'];
            p += 2;
        } else {
            text += QLatin1Char(*p++);
        }
    }
    return text;
}

void Common_ClearData_Func(std::vector<CField*>* fields)
{
    if (!fields)
        return;
    for (CField* field : *fields) {
        if (!field)
            continue;
        // Integer, date and date-time fields keep their value on purpose:
        // callers clear a record without losing its codes and dates.
        switch (field->getFieldType()) {
        case FIELD_TYPE_BOOL:
            static_cast<CBoolField*>(field)->m_value = 0;
            break;
        case FIELD_TYPE_FLOAT:
            static_cast<CFloatField*>(field)->m_value = 0.0;
            break;
        case FIELD_TYPE_STRING:
            static_cast<CStringField*>(field)->m_text.Empty();
            break;
        default:
            break;
        }
    }
}

void Common_Serialize_Func(int version, MyDataStream& stream, std::vector<CField*>& fields)
{
    for (CField* field : fields) {
        if (!field)
            continue;
        const int type = field->getFieldType();
        if (type >= FIELD_TYPE_INT && type <= FIELD_TYPE_DATE)
            field->Serialize(static_cast<unsigned int>(version), stream);
    }
}

bool Bedrock::fieldValuesDiffer(CField* a, CField* b, bool withDateTime)
{
    switch (a->getFieldType()) {
    case FIELD_TYPE_INT:
        return *static_cast<CIntField*>(a) != *static_cast<CIntField*>(b);
    case FIELD_TYPE_BOOL:
        return *static_cast<CBoolField*>(a) != *static_cast<CBoolField*>(b);
    case FIELD_TYPE_STRING:
        return *static_cast<CStringField*>(a) != *static_cast<CStringField*>(b);
    case FIELD_TYPE_FLOAT:
        return *static_cast<CFloatField*>(a) != *static_cast<CFloatField*>(b);
    case FIELD_TYPE_DATE:
        return static_cast<CDateField*>(a)->m_value != static_cast<CDateField*>(b)->m_value;
    case FIELD_TYPE_DATETIME:
        return withDateTime
            && static_cast<CDateTimeField*>(a)->m_value != static_cast<CDateTimeField*>(b)->m_value;
    default:
        return false;
    }
}

void Bedrock::assignFieldValue(CField* from, CField* to, bool withDateTime)
{
    switch (from->getFieldType()) {
    case FIELD_TYPE_INT:
        *static_cast<CIntField*>(to) = *static_cast<CIntField*>(from);
        break;
    case FIELD_TYPE_BOOL:
        *static_cast<CBoolField*>(to) = *static_cast<CBoolField*>(from);
        break;
    case FIELD_TYPE_STRING:
        *static_cast<CStringField*>(to) = *static_cast<CStringField*>(from);
        break;
    case FIELD_TYPE_FLOAT:
        // A field-to-field copy takes the value as it is, without rounding.
        *static_cast<CFloatField*>(to) = *static_cast<CFloatField*>(from);
        break;
    case FIELD_TYPE_DATE:
        *static_cast<CDateField*>(to) = *static_cast<CDateField*>(from);
        break;
    case FIELD_TYPE_DATETIME:
        if (withDateTime)
            static_cast<CDateTimeField*>(to)->m_value = static_cast<CDateTimeField*>(from)->m_value;
        break;
    default:
        break;
    }
}

void Bedrock::rollFieldToNewYear(CField* field, bool keepValues)
{
    const ENUMTYPE_FIELD_ATTR attr = field->m_attr;
    switch (field->getFieldType()) {
    case FIELD_TYPE_INT:
        if (!keepValues && attr == FIELD_ATTR_INCREMENT_ON_ROLLOVER)
            ++static_cast<CIntField*>(field)->m_value;
        break;
    case FIELD_TYPE_STRING:
        // The one rule that keepValues does not stop.
        if (attr == FIELD_ATTR_CLEAR_TEXT_ON_ROLLOVER)
            static_cast<CStringField*>(field)->m_text.Empty();
        break;
    case FIELD_TYPE_FLOAT:
        if (!keepValues && attr != FIELD_ATTR_KEEP_ON_ROLLOVER)
            static_cast<CFloatField*>(field)->m_value = 0.0;
        break;
    case FIELD_TYPE_DATE:
        if (keepValues)
            break;
        if (attr == FIELD_ATTR_ADVANCE_DATE_ON_ROLLOVER)
            static_cast<CDateField*>(field)->set1YLater();
        else if (attr == FIELD_ATTR_CLEAR_DATE_ON_ROLLOVER)
            static_cast<CDateField*>(field)->setNull();
        break;
    default:
        break;
    }
}

bool Common_Func_OperatorNotEqual(std::vector<CField*>& a, std::vector<CField*>& b)
{
    const size_t n = std::min(a.size(), b.size());
    for (size_t i = 0; i < n; ++i) {
        CField* fa = a[i];
        CField* fb = b[i];
        if (!fa || !fb)
            continue;
        // Vectors built by different code: a different type is a difference,
        // and casting across it would be undefined.
        if (fa->getFieldType() != fb->getFieldType())
            return true;
        if (Bedrock::fieldValuesDiffer(fa, fb, false))
            return true;
    }
    return false;
}

void Common_Func_OperatorAssign(std::vector<CField*>& from, std::vector<CField*>& to)
{
    const size_t n = std::min(from.size(), to.size());
    for (size_t i = 0; i < n; ++i) {
        CField* src = from[i];
        CField* dst = to[i];
        if (!src || !dst || src->getFieldType() != dst->getFieldType())
            continue;
        Bedrock::assignFieldValue(src, dst, false);
    }
}
