#include "ctaxdata_form.h"

#include "cdatefield.h"
#include "cmemoryblock.h"
#include "cstringfield.h"
#include "cwsbasedata.h"
#include "fields_p.h"
#include "logging_p.h"
#include "mydatastream.h"
#include "recordreader_p.h"
#include "xmlguard.h"
#include "xmlreaders.h"

#include <cmath>
#include <iterator>

namespace {

// The refile comparison has its own idea of a difference: letter case alone
// is none, and amounts use the tolerance even for NaN.
bool refileValuesDiffer(CField* mine, CField* other)
{
    switch (mine->getFieldType()) {
    case FIELD_TYPE_INT:
        return static_cast<CIntField*>(mine)->m_value != static_cast<CIntField*>(other)->m_value;
    case FIELD_TYPE_BOOL:
        return static_cast<CBoolField*>(mine)->m_value != static_cast<CBoolField*>(other)->m_value;
    case FIELD_TYPE_STRING:
        return static_cast<CStringField*>(mine)->m_text.CompareNoCase(
                   static_cast<CStringField*>(other)->m_text)
            != 0;
    case FIELD_TYPE_FLOAT:
        return !(0.009 > std::fabs(static_cast<CFloatField*>(mine)->m_value
                                   - static_cast<CFloatField*>(other)->m_value));
    case FIELD_TYPE_DATE:
        return static_cast<CDateField*>(mine)->m_value != static_cast<CDateField*>(other)->m_value;
    default:
        return false;
    }
}

void appendUtf8(CMemoryBlock& block, const QString& text)
{
    const QByteArray bytes = text.toUtf8();
    block.Append(bytes.constData(), int(bytes.size()));
}

void writeUtf8(MyDataStream& stream, const QString& text)
{
    const QByteArray bytes = text.toUtf8();
    stream.Write(bytes.constData(), int(bytes.size()));
}

} // namespace

CTaxData_Form::CTaxData_Form(int kind, short type)
    : QObject(nullptr)
    , m_DataFlag1(0, 0, FIELD_ATTR_NONE, 0, FlagsVersion)
    , m_DataFlag2(0, 0, FIELD_ATTR_NONE, 0, FlagsVersion)
    , m_DataFlag3(0, 0, FIELD_ATTR_NONE, 0, FlagsVersion)
    , m_DataFlag4(0, 0, FIELD_ATTR_NONE, 0, FlagsVersion)
    , m_bReservedFlag(false)
    , m_pDepInfo(nullptr)
    , m_mainTaxProvince(ENUM_PROV_NONE)
    , m_bCoupledReturn(false)
    , m_kind(kind)
    , m_formType(type)
    , m_delimiter(Delimiter)
{
    m_DataFlag1.m_name = "m_DataFlag1";
    m_DataFlag2.m_name = "m_DataFlag2";
    m_DataFlag3.m_name = "m_DataFlag3";
    m_DataFlag4.m_name = "m_DataFlag4";
}

CTaxData_Form::CTaxData_Form(ENUMTYPE_FORM form)
    : CTaxData_Form(0, short(form))
{ }

CTaxData_Form::CTaxData_Form(ENUMTYPE_SLIP slip)
    : CTaxData_Form(1, short(slip))
{ }

CTaxData_Form::CTaxData_Form(ENUMTYPE_TAXWIZARD wizard)
    : CTaxData_Form(2, short(wizard))
{ }

CTaxData_Form::~CTaxData_Form()
{
    // Fields and worksheets belong to the concrete form; the old-name lists are ours.
    for (auto& entry : m_oldNames)
        delete entry.second;
}

int CTaxData_Form::getUIPages(std::list<BaseTaxPage*>&, QWidget*)
{
    return 0;
}

CTaxData_Form& CTaxData_Form::operator=(CTaxData_Form& other)
{
    if (&other == this)
        return *this;
    m_delimiter = other.m_delimiter;
    m_formType = other.m_formType;
    const size_t n = std::min(m_fields.size(), other.m_fields.size());
    for (size_t i = 0; i < n; ++i) {
        CField* from = other.m_fields[i];
        CField* to = m_fields[i];
        // A pair of different types is passed over: only values of one class move.
        if (from && to && from->getFieldType() == to->getFieldType())
            Bedrock::assignFieldValue(from, to, true);
    }
    if (m_worksheets.empty() || other.m_worksheets.empty())
        return *this;
    auto mine = m_worksheets.begin();
    auto theirs = other.m_worksheets.begin();
    for (; mine != m_worksheets.end() && theirs != other.m_worksheets.end(); ++mine, ++theirs) {
        if (*mine && *theirs)
            (*mine)->copyFrom(**theirs);
    }
    return *this;
}

bool CTaxData_Form::operator!=(CTaxData_Form& other)
{
    const size_t n = std::min(m_fields.size(), other.m_fields.size());
    for (size_t i = 0; i < n; ++i) {
        CField* theirs = other.m_fields[i];
        CField* mine = m_fields[i];
        if (theirs && mine && theirs->getFieldType() == mine->getFieldType()
            && Bedrock::fieldValuesDiffer(mine, theirs, true))
            return true;
    }
    return false;
}

bool CTaxData_Form::ShouldBeImported(unsigned char mode, ENUMTYPE_PROVINCE province)
{
    const auto form = static_cast<ENUMTYPE_FORM>(m_formType);
    if (IsFormMandatory(mode, province, form))
        return true;
    // Looked up by number whatever the kind; a number outside the table imports nothing.
    return m_formType >= 0 && m_formType < ENUM_FORM_COUNT
        && Global_Forms_Info[m_formType].alwaysImport;
}

void CTaxData_Form::ChangeToNewYearData(bool keepValues)
{
    for (CField* field : m_fields) {
        if (field)
            Bedrock::rollFieldToNewYear(field, keepValues);
    }
    for (CWSBaseData* worksheet : m_worksheets) {
        if (worksheet)
            worksheet->ChangeToNewYearData(keepValues);
    }
}

int CTaxData_Form::SyncSharedData(CTaxData_Form*)
{
    return 0;
}

int CTaxData_Form::ExtensionHook()
{
    return 0;
}

void CTaxData_Form::Serialize(unsigned int version, const CString& key, MyDataStream& stream)
{
    if (stream.IsStoring()) {
        m_delimiter = Delimiter;
        stream << qint32(m_delimiter);
    } else {
        qint32 delimiter = 0;
        stream >> delimiter;
        m_delimiter = delimiter;
        // A wrong delimiter stops nothing: the block after it may still be good.
        if (m_delimiter != Delimiter)
            qCInfo(lcBedrockForms, "delimeter error");
    }

    const bool loading = stream.IsLoading();
    CT1EncryptedMemoryBlock block(key);
    std::map<std::string, CString> values;

    if (loading) {
        block.ReadFromReturnArchive(stream);
        const char* content = block.GetData();
        const size_t size = size_t(block.GetContentSize());
        // Records as this library writes them are read directly; anything else
        // goes through the guarded XML parse, with the same result. An
        // unparsable or hostile record leaves every value as it was.
        if (size > 0 && !Bedrock::readFieldRecord(content, size, values)) {
            TiXmlDocument document;
            if (parseXmlSafely(document, content, size))
                readXMLFieldsToStringMap(document.RootElement(), values);
        }
    } else {
        block.Append("<m>");
    }

    if (version >= FlagsVersion) {
        for (CIntField* flag : { &m_DataFlag1, &m_DataFlag2, &m_DataFlag3, &m_DataFlag4 }) {
            if (loading) {
                const auto found = values.find(flag->m_name);
                if (found != values.end())
                    flag->readFromString(found->second);
            } else {
                CString element;
                flag->writeToString(element);
                appendUtf8(block, element);
            }
        }
    }

    for (CField* field : m_fields) {
        if (!field)
            continue;
        if (stream.IsStoring()) {
            CString element;
            if (field->writeToString(element) >= 0)
                appendUtf8(block, element);
            continue;
        }
        auto found = values.find(field->m_name);
        if (found == values.end()) {
            const auto old = m_oldNames.find(field->m_name);
            if (old != m_oldNames.end() && old->second) {
                for (const std::string& name : *old->second) {
                    found = values.find(name);
                    if (found != values.end())
                        break;
                }
            }
        }
        if (found != values.end())
            field->readFromString(found->second);
    }

    for (auto it = m_worksheets.begin(); it != m_worksheets.end(); ++it) {
        CWSBaseData* worksheet = *it;
        if (!worksheet)
            continue;
        if (stream.IsStoring()) {
            CString text;
            worksheet->writeToString(text);
            appendUtf8(block, text);
        } else if (std::next(it) == m_worksheets.end()) {
            // Each worksheet gets its own copy of the map; the last may have ours.
            worksheet->readFromStringMap(std::move(values));
        } else {
            worksheet->readFromStringMap(values);
        }
    }

    if (stream.IsStoring()) {
        block.Append("</m>");
        block.WriteToReturnArchive(stream);
    }
}

void CTaxData_Form::SerializeXml(const std::string& name, int id, MyDataStream& stream)
{
    SerializeXmlStart(name, id, stream);
    SerializeXmlBody(stream);
    SerializeXmlEnd(stream);
}

void CTaxData_Form::SerializeXmlStart(const std::string& name, int id, MyDataStream& stream)
{
    if (stream.IsStoring())
        writeUtf8(stream,
                  QStringLiteral("<item>\n<c>%1</c>\n<d>%2</d>\n")
                      .arg(QString::fromStdString(name))
                      .arg(id));
}

void CTaxData_Form::SerializeXmlBody(MyDataStream& stream)
{
    if (!stream.IsStoring())
        return;
    for (CField* field : m_fields) {
        CString element;
        if (field && field->writeToXmlForPdf(element) >= 0)
            writeUtf8(stream, element + QLatin1Char('\n'));
    }
}

void CTaxData_Form::SerializeXmlEnd(MyDataStream& stream)
{
    if (stream.IsStoring())
        writeUtf8(stream, QStringLiteral("</item>"));
}

int CTaxData_Form::deduceEntity()
{
    return 0;
}

void CTaxData_Form::GetDisplayName(CString& out)
{
    out = "Untitled";
}

int CTaxData_Form::Calculate()
{
    return 0;
}

int CTaxData_Form::Calculate02()
{
    return 0;
}

void CTaxData_Form::ReFileCompareFields(CTaxData_Form* other,
                                        std::map<int, _ReFileFieldCompareStru>& differences)
{
    if (!other)
        return;
    const size_t n = std::min(m_fields.size(), other->m_fields.size());
    for (size_t i = 0; i < n; ++i) {
        CField* mine = m_fields[i];
        CField* theirs = other->m_fields[i];
        if (!mine || mine->m_id < 1 || mine->getFieldType() > FIELD_TYPE_DATE)
            continue;
        if (!theirs || theirs->getFieldType() != mine->getFieldType())
            continue;
        // One line code, one entry: a later differing pair replaces an earlier one.
        if (refileValuesDiffer(mine, theirs))
            differences[mine->m_id] = _ReFileFieldCompareStru { mine, theirs };
    }
}

void CTaxData_Form::Warning(std::list<CString>&)
{ }

int CTaxData_Form::Validate(unsigned char, std::list<CString>&)
{
    return 0;
}

void CTaxData_Form::ValidateAndCorrect()
{
    for (CField* field : m_fields) {
        if (field)
            field->ValidateAndCorrect();
    }
}

void CTaxData_Form::WriteNetfile(unsigned char, NetfileGenObjParamStru&)
{ }

void CTaxData_Form::SetDepInfo(DependantInfoStruct* info)
{
    m_pDepInfo = info;
    for (CWSBaseData* worksheet : m_worksheets) {
        if (auto* dependantSheet = dynamic_cast<CWSDepBaseData*>(worksheet))
            dependantSheet->m_pDepInfo = info;
    }
}

void CTaxData_Form::addFieldOldName(const char* fieldName, const char* oldName)
{
    std::list<std::string>*& names = m_oldNames[fieldName ? fieldName : ""];
    if (!names)
        names = new std::list<std::string>;
    names->push_back(oldName ? oldName : "");
}

CProvinceTaxData_Form::CProvinceTaxData_Form(ENUMTYPE_FORM form)
    : CTaxData_Form(form)
{ }

CSharableTaxData_Form::CSharableTaxData_Form(ENUMTYPE_FORM form)
    : CTaxData_Form(form)
    , m_bOverwritePercentIfShared(0, 0, FIELD_ATTR_NONE, 0, SharingVersion)
    , m_MyPercent(true, 0.0, 0, false, FIELD_ATTR_NONE, 0, SharingVersion)
{
    addSharingFields();
}

CSharableTaxData_Form::CSharableTaxData_Form(ENUMTYPE_SLIP slip)
    : CTaxData_Form(slip)
    , m_bOverwritePercentIfShared(0, 0, FIELD_ATTR_NONE, 0, SharingVersion)
    , m_MyPercent(true, 0.0, 0, false, FIELD_ATTR_NONE, 0, SharingVersion)
{
    addSharingFields();
}

CSharableTaxData_Form::~CSharableTaxData_Form() = default;

void CSharableTaxData_Form::addSharingFields()
{
    m_fields.push_back(&m_bOverwritePercentIfShared);
    m_bOverwritePercentIfShared.m_name = "fld_bOverwritePercentIfShared";
    m_fields.push_back(&m_MyPercent);
    m_MyPercent.m_name = "fld_MyPercent";
}
