#include "cwsbasedata.h"

#include "cstringfield.h"
#include "fields_p.h"

namespace {

// The Java print module's field declarations, by type tag; a bool is declared
// as an integer there.
const char* javaDeclaration(int type)
{
    switch (type) {
    case FIELD_TYPE_INT:
    case FIELD_TYPE_BOOL:
        return "IntField %s = new IntField(\"%s\"";
    case FIELD_TYPE_STRING:
        return "StringField %s = new StringField(\"%s\", %-d";
    case FIELD_TYPE_FLOAT:
        return "FloatField %s = new FloatField(\"%s\"";
    case FIELD_TYPE_DATE:
        return "DateField %s = new DateField(\"%s\"";
    default:
        return nullptr;
    }
}

} // namespace

CWSBaseData::CWSBaseData() = default;

CWSBaseData::~CWSBaseData() = default;

int CWSBaseData::Calculate()
{
    return 0;
}

CWSBaseData& CWSBaseData::copyFrom(const CWSBaseData& other)
{
    const size_t n = std::min(m_fields.size(), other.m_fields.size());
    for (size_t i = 0; i < n; ++i) {
        CField* from = other.m_fields[i];
        CField* to = m_fields[i];
        if (from && to && from->getFieldType() == to->getFieldType())
            Bedrock::assignFieldValue(from, to, false);
    }
    return *this;
}

void CWSBaseData::Serialize(unsigned int version, MyDataStream& stream)
{
    for (CField* field : m_fields) {
        if (field)
            field->Serialize(version, stream);
    }
}

void CWSBaseData::ChangeToNewYearData(bool keep)
{
    for (CField* field : m_fields) {
        if (field)
            Bedrock::rollFieldToNewYear(field, keep);
    }
}

int CWSBaseData::writeToString(CString& out)
{
    for (CField* field : m_fields) {
        if (!field)
            continue;
        std::string fullName;
        getFldFullName(field->m_name, fullName);
        CString text;
        field->toString(text);
        // The name first, the value last, so a value is never read as a placeholder.
        out += QStringLiteral("<f n=\"%1\">%2</f>").arg(QString::fromStdString(fullName), text);
    }
    return 0;
}

int CWSBaseData::readFromStringMap(std::map<std::string, CString> values)
{
    for (CField* field : m_fields) {
        if (!field)
            continue;
        std::string fullName;
        getFldFullName(field->m_name, fullName);
        auto found = values.find(fullName);
        if (found == values.end()) {
            const auto old = m_oldNames.find(fullName);
            if (old != m_oldNames.end()) {
                for (const std::string& name : old->second) {
                    found = values.find(name);
                    if (found != values.end())
                        break;
                }
            }
        }
        if (found == values.end())
            found = values.find(field->m_name);
        if (found != values.end())
            field->readFromString(found->second);
    }
    return 0;
}

void CWSBaseData::WriteJavaFileDeclaration(FILE* file)
{
    if (!file)
        return;
    for (CField* field : m_fields) {
        const char* format = field ? javaDeclaration(field->getFieldType()) : nullptr;
        if (!format)
            continue;
        std::string fullName;
        getFldFullName(field->m_name, fullName);
        if (field->getFieldType() == FIELD_TYPE_STRING)
            std::fprintf(file, format, fullName.c_str(), fullName.c_str(),
                         static_cast<CStringField*>(field)->m_nMaxLen);
        else
            std::fprintf(file, format, fullName.c_str(), fullName.c_str());
        std::fprintf(file, ", %-ld, %-ld);\n", long(field->m_version), long(field->m_versionEnd));
    }
}

void CWSBaseData::WriteJavaFileContruction(FILE* file)
{
    if (!file)
        return;
    for (CField* field : m_fields) {
        if (!field)
            continue;
        std::string fullName;
        getFldFullName(field->m_name, fullName);
        std::fprintf(file, "m_data.add(%s);\n", fullName.c_str());
    }
}

void CWSBaseData::addFieldOldName(const char* fullName, const char* oldName)
{
    m_oldNames[fullName ? fullName : ""].push_back(oldName ? oldName : "");
}

void CWSBaseData::getFldFullName(std::string name, std::string& out) const
{
    out = m_prefix + "_" + name;
}

CWSDepBaseData::CWSDepBaseData()
    : m_pDepInfo(nullptr)
    , DepIdx(0, 0, FIELD_ATTR_NONE, 0, 0x10083)
{
    DepIdx.m_name = "DepIdx";
    m_fields.push_back(&DepIdx);
}
