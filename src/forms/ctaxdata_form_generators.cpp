// The generators of form definitions, print layouts and Java print modules.
#include "ctaxdata_form.h"

#include "cboolfield.h"
#include "cdatefield.h"
#include "cfloatfield.h"
#include "cintfield.h"
#include "cstring.h"
#include "cstringfield.h"
#include "cwsbasedata.h"
#include "xmlguard.h"

#include <QByteArray>
#include <QFile>

#include <tinyxml.h>

#include <algorithm>
#include <charconv>
#include <climits>
#include <cmath>
#include <cstdlib>
#include <memory>

namespace {

struct FileCloser {
    void operator()(FILE* f) const { std::fclose(f); }
};
using FilePtr = std::unique_ptr<FILE, FileCloser>;

std::string orEmpty(const char* s)
{
    return s ? std::string(s) : std::string();
}

// Every occurrence in one left-to-right pass; what the removal joins is not searched again.
std::string removeAll(const std::string& in, const std::string& what)
{
    std::string out;
    std::size_t from = 0;
    for (std::size_t at = in.find(what); at != std::string::npos; at = in.find(what, from)) {
        out.append(in, from, at - from);
        from = at + what.size();
    }
    out.append(in, from, std::string::npos);
    return out;
}

std::string printedName(const CField* field)
{
    std::string name;
    DotChangeToUnderscore(field->m_name, name);
    return name;
}

// The layout is read back on the next run, so a hand-written "&" or "<" must not make it
// unparsable.
std::string xmlText(const std::string& s)
{
    return convertToXMLString(CString(s.c_str()), 0, 4).toStdStringLatin1();
}

// Like a "%d" scan (leading blanks, trailing text ignored) but saturating instead of overflowing.
int readInt(const char* text, int fallback)
{
    if (!text)
        return fallback;
    char* end = nullptr;
    const long v = std::strtol(text, &end, 10);
    if (end == text)
        return fallback;
    return int(std::clamp<long>(v, INT_MIN, INT_MAX));
}

// Locale-independent both ways, so a layout means the same whatever the user's locale.
double readDouble(const char* text, double fallback)
{
    if (!text)
        return fallback;
    bool ok = false;
    const double v = QByteArray(text).trimmed().toDouble(&ok);
    return ok && std::isfinite(v) ? v : fallback;
}

bool readBool(const char* text, bool fallback)
{
    if (!text)
        return fallback;
    const QByteArray t = QByteArray(text).trimmed().toLower();
    if (t == "true" || t == "1")
        return true;
    if (t == "false" || t == "0")
        return false;
    return fallback;
}

const char* childText(const TiXmlElement* parent, const char* name)
{
    const TiXmlElement* e = parent->FirstChildElement(name);
    return e ? e->GetText() : nullptr;
}

const char* const kGroupKeys[] = { "x", "y", "r", "rx", "ry" };
constexpr int kGroups = 20;
constexpr int kGroupSize = 5;

using Placements = std::map<std::string, std::unique_ptr<XMLFieldInfoStruct>>;

void readOldLayout(const std::string& path, int (&groups)[kGroups][kGroupSize],
                   Placements& placements)
{
    TiXmlDocument doc;
    if (!loadXmlFileSafely(doc, QFile::decodeName(QByteArray::fromStdString(path))))
        return;
    const TiXmlElement* root = doc.RootElement();
    if (!root)
        return;
    char key[16];
    for (int i = 0; i < kGroups; ++i) {
        for (int k = 0; k < kGroupSize; ++k) {
            std::snprintf(key, sizeof key, "%s%d", kGroupKeys[k], i + 1);
            groups[i][k] = readInt(root->Attribute(key), 0);
        }
    }
    for (const TiXmlElement* f = root->FirstChildElement("field"); f;
         f = f->NextSiblingElement("field")) {
        const char* name = childText(f, "name");
        if (!name || !*name)
            continue;
        auto info = std::make_unique<XMLFieldInfoStruct>();
        info->x = readDouble(childText(f, "x"), 100.0);
        info->y = readDouble(childText(f, "y"), 100.0);
        info->fs = readInt(childText(f, "fs"), 10);
        info->page = readInt(childText(f, "page"), 1);
        info->v = readBool(childText(f, "v"), false);
        info->type = readInt(childText(f, "type"), 0);
        info->para1 = orEmpty(childText(f, "para1"));
        info->para2 = orEmpty(childText(f, "para2"));
        info->xoff = readBool(childText(f, "xoff"), true);
        info->yoff = readBool(childText(f, "yoff"), true);
        // A name entered twice: the later entry wins.
        placements[name] = std::move(info);
    }
}

const char* const kUnprintedParts[] = { "_notused", "_overwrite", "_t1con", "_ws",       "fld_ws",
                                        "_LYA",     "DataFlag",   "_t2203", "_condensed" };

bool isPrinted(const std::string& name)
{
    for (const char* part : kUnprintedParts) {
        if (name.find(part) != std::string::npos)
            return false;
    }
    return true;
}

} // namespace

void DotChangeToUnderscore(const std::string& in, std::string& out)
{
    out = in;
    const std::size_t dot = out.find('.');
    if (dot != std::string::npos)
        out[dot] = '_';
}

void CTaxData_Form::WriteRadiantFormXmlFile(const char* directory, const char* className,
                                            const char* fileName, unsigned int version)
{
    Q_UNUSED(version)
    const std::string file = orEmpty(fileName);
    if (file.empty())
        return;
    const std::string path = orEmpty(directory) + "/xml/" + file;
    FilePtr out(std::fopen(path.c_str(), "wt"));
    if (!out)
        return;
    FILE* fp = out.get();

    std::fprintf(fp, "<form classname=\"%s\"", removeAll(orEmpty(className), "TaxData_").c_str());
    std::fputs(">\n", fp);
    std::fputs("<tab title=\"page 1\">\n", fp);
    std::fputs("<section maxindent=\"6\">\n", fp);

    for (CField* field : m_fields) {
        if (!field)
            continue;
        const std::string name = printedName(field);
        const std::string label = removeAll(name, "fld_");
        std::fputs("<row>\n", fp);
        switch (field->getFieldType()) {
        case FIELD_TYPE_INT:
            std::fprintf(fp, "\t<radio name=\"%s\" ", label.c_str());
            break;
        case FIELD_TYPE_BOOL:
            std::fprintf(fp, "\t<check name=\"%s\" ", label.c_str());
            break;
        case FIELD_TYPE_STRING:
            if (auto* s = dynamic_cast<CStringField*>(field))
                std::fprintf(fp, "\t<string name=\"%s\" size=\"%d\" ", label.c_str(), s->m_nMaxLen);
            break;
        case FIELD_TYPE_FLOAT:
            std::fprintf(fp, "\t<float name=\"%s\" ", label.c_str());
            break;
        case FIELD_TYPE_DATE:
            std::fprintf(fp, "\t<date name=\"%s\" ", label.c_str());
            break;
        default:
            // Date-time fields have no control in a form definition.
            break;
        }
        if (name.find("notused") != std::string::npos || name.find("NotUsed") != std::string::npos)
            std::fputs("notused=\"1\"", fp);
        if (field->m_version >= 65537)
            std::fprintf(fp, " version=\"0x%08x\"", field->m_version);
        if (field->m_versionEnd <= 0xffffffe)
            std::fprintf(fp, " versionend=\"0x%08x\"", field->m_versionEnd);
        std::fputs("/>\n", fp);
        std::fputs("</row>\n", fp);
        std::fflush(fp);
    }

    std::fputs("</section>\n", fp);
    std::fputs("</tab>\n", fp);
    std::fputs("</form>\n", fp);
}

void CTaxData_Form::WriteXMLFile(const char* directory, const char* className, const char* fileName,
                                 unsigned int version)
{
    Q_UNUSED(className)
    const std::string file = orEmpty(fileName);
    if (file.empty())
        return;
    const std::string path = orEmpty(directory) + "/" + file;

    int groups[kGroups][kGroupSize] = {};
    Placements owned;
    readOldLayout(path, groups, owned);
    std::map<std::string, XMLFieldInfoStruct*> placements;
    for (const auto& entry : owned)
        placements.emplace(entry.first, entry.second.get());

    FilePtr out(std::fopen(path.c_str(), "wt"));
    if (!out)
        return;
    FILE* fp = out.get();

    std::fputs("<form", fp);
    for (int i = 0; i < kGroups; ++i) {
        for (int k = 0; k < kGroupSize; ++k) {
            if (groups[i][k] != 0)
                std::fprintf(fp, " %s%d=\"%d\"", kGroupKeys[k], i + 1, groups[i][k]);
        }
    }
    std::fputs(">\n", fp);

    for (CField* field : m_fields) {
        if (!field || field->m_versionEnd < version)
            continue;
        const std::string name = printedName(field);
        if (isPrinted(name))
            WriteFieldInXMLFile(fp, name, placements);
    }

    std::list<std::string> extra;
    GetXtraPrintFields(extra);
    for (const std::string& name : extra)
        WriteFieldInXMLFile(fp, name, placements);

    std::fputs("</form>\n", fp);
}

void CTaxData_Form::WriteFieldInXMLFile(
    FILE* file, const std::string& name,
    const std::map<std::string, XMLFieldInfoStruct*>& placements)
{
    if (!file)
        return;
    const auto text = [file](const char* tag, const std::string& value) {
        std::fprintf(file, "\t\t<%s>%s</%s>\n", tag, xmlText(value).c_str(), tag);
    };
    const auto number = [file](const char* tag, int value) {
        std::fprintf(file, "\t\t<%s>%d</%s>\n", tag, value, tag);
    };
    const auto flag = [file](const char* tag, bool value) {
        std::fprintf(file, value ? "\t\t<%s>true</%s>\n" : "\t\t<%s>false</%s>\n", tag, tag);
    };
    // "%.1f" as the C locale writes it, whatever the user's locale, as readDouble expects.
    const auto coordinate = [file](const char* tag, double value) {
        char buf[400]; // a finite double in fixed notation needs at most 311 characters
        const auto res
            = std::to_chars(buf, buf + sizeof buf - 1, value, std::chars_format::fixed, 1);
        *(res.ec == std::errc() ? res.ptr : buf) = '\0';
        std::fprintf(file, "\t\t<%s>%s</%s>\n", tag, buf, tag);
    };

    std::fputs("\t<field>\n", file);
    text("name", name);
    const auto found = placements.find(name);
    if (found != placements.end() && found->second) {
        const XMLFieldInfoStruct& p = *found->second;
        coordinate("x", p.x);
        coordinate("y", p.y);
        number("page", p.page);
        number("fs", p.fs);
        flag("v", p.v);
        number("type", p.type);
        text("para1", p.para1);
        if (!p.para2.empty())
            text("para2", p.para2);
        if (!p.xoff)
            flag("xoff", false);
        if (!p.yoff)
            flag("yoff", false);
    } else {
        std::fprintf(file, "\t\t<%s>100.0</%s>\n", "x", "x");
        std::fprintf(file, "\t\t<%s>100.0</%s>\n", "y", "y");
        std::fprintf(file, "\t\t<%s>1</%s>\n", "page", "page");
        std::fprintf(file, "\t\t<%s>10</%s>\n", "fs", "fs");
        std::fprintf(file, "\t\t<%s>false</%s>\n", "v", "v");
        std::fprintf(file, "\t\t<%s>0</%s>\n", "type", "type");
        std::fprintf(file, "\t\t<%s>0</%s>\n", "para1", "para1");
    }
    std::fputs("\t</field>\n", file);
    std::fflush(file);
}

int CTaxData_Form::WriteJavaFile(const char* directory, const char* className, bool forPrintModule)
{
    const std::string name = orEmpty(className);
    if (name.empty())
        return -1;
    const std::string path = orEmpty(directory) + "/" + name + ".java";
    FilePtr out(std::fopen(path.c_str(), "wt"));
    if (!out)
        return -5;
    FILE* fp = out.get();

    if (forPrintModule) {
        std::fputs("package myledgerwave.fmxprint.v2023;\n\n", fp);
        std::fputs("import myledgerwave.makereport.*;\n\n", fp);
    } else {
        std::fputs("package myledgerwave.makereport;\n", fp);
        std::fputs("import java.io.*;\n", fp);
        std::fputs("import java.util.Vector;\n\n", fp);
    }
    std::fprintf(fp, "public class %s extends TaxFormData\n", name.c_str());
    std::fputs("{\n", fp);

    WriteJavaFileDeclaration(fp);
    for (CWSBaseData* ws : m_worksheets) {
        if (ws)
            ws->WriteJavaFileDeclaration(fp);
    }

    std::fputs("\n", fp);
    std::fprintf(fp, "public %s()\n", name.c_str());
    std::fputs("{\n", fp);

    WriteJavaFileContruction(fp);
    for (CWSBaseData* ws : m_worksheets) {
        if (ws)
            ws->WriteJavaFileContruction(fp);
    }

    std::fputs("}\n", fp);
    WriteJavaFileImplementation(fp);
    std::fputs("}\n", fp);
    return 0;
}

void CTaxData_Form::WriteJavaFileDeclaration(FILE* file)
{
    if (!file)
        return;
    for (CField* field : m_fields) {
        if (!field)
            continue;
        const std::string nameText = printedName(field);
        const char* name = nameText.c_str();
        const int id = field->m_id;
        const int tag = field->m_tag;
        switch (field->getFieldType()) {
        case FIELD_TYPE_INT:
            if (id != 0)
                std::fprintf(file, "IntField %s = new IntField(\"%s\", -1, \"%d\", %d", name, name,
                             id, tag);
            else
                std::fprintf(file, "IntField %s = new IntField(\"%s\", -1, null, %d", name, name,
                             tag);
            break;
        case FIELD_TYPE_BOOL:
            if (id != 0)
                std::fprintf(file, "BoolField %s = new BoolField(\"%s\", \"%d\", %d", name, name,
                             id, tag);
            else
                std::fprintf(file, "BoolField %s = new BoolField(\"%s\", null, %d", name, name,
                             tag);
            break;
        case FIELD_TYPE_STRING: {
            auto* s = dynamic_cast<CStringField*>(field);
            if (!s)
                continue;
            if (id != 0)
                std::fprintf(file, "StringField %s = new StringField(\"%s\", %d, \"%d\", %d", name,
                             name, s->m_nMaxLen, id, tag);
            else
                std::fprintf(file, "StringField %s = new StringField(\"%s\", %d, null, %d", name,
                             name, s->m_nMaxLen, tag);
            break;
        }
        case FIELD_TYPE_FLOAT:
            if (id != 0)
                std::fprintf(file, "FloatField %s = new FloatField(\"%s\", \"%d\", %d", name, name,
                             id, tag);
            else
                std::fprintf(file, "FloatField %s = new FloatField(\"%s\", null, %d", name, name,
                             tag);
            break;
        case FIELD_TYPE_DATE:
            std::fprintf(file, "DateField %s = new DateField(\"%s\"", name, name);
            break;
        case FIELD_TYPE_DATETIME:
            std::fprintf(file, "DateTimeField %s = new DateTimeField(\"%s\"", name, name);
            break;
        default:
            continue;
        }
        std::fprintf(file, ", %-ld, %-ld);\n", long(field->m_version), long(field->m_versionEnd));
    }
}

void CTaxData_Form::WriteJavaFileContruction(FILE* file)
{
    if (!file)
        return;
    for (CField* field : m_fields) {
        if (field)
            std::fprintf(file, "m_data.add(%s);\n", printedName(field).c_str());
    }
}

void CTaxData_Form::WriteJavaFileImplementation(FILE* file)
{
    Q_UNUSED(file)
}

void CTaxData_Form::FillTestPrintData()
{
    for (CField* field : m_fields) {
        if (!field)
            continue;
        switch (field->getFieldType()) {
        case FIELD_TYPE_INT:
            if (auto* f = dynamic_cast<CIntField*>(field))
                f->m_value = printedName(field) == "fld_moreentry_num" ? 0 : 1;
            break;
        case FIELD_TYPE_BOOL:
            if (auto* f = dynamic_cast<CBoolField*>(field))
                f->m_value = 1;
            break;
        case FIELD_TYPE_STRING:
            if (auto* f = dynamic_cast<CStringField*>(field)) {
                const int n = std::clamp(f->m_nMaxLen, 0, 10);
                f->m_text.append(QString(n, QLatin1Char('a')));
            }
            break;
        case FIELD_TYPE_FLOAT:
            if (auto* f = dynamic_cast<CFloatField*>(field))
                f->m_value = 12345.67;
            break;
        case FIELD_TYPE_DATE:
            if (auto* f = dynamic_cast<CDateField*>(field))
                f->m_value = QDate::currentDate();
            break;
        case FIELD_TYPE_DATETIME:
            if (auto* f = dynamic_cast<CDateTimeField*>(field))
                f->m_value = QDateTime::currentDateTime();
            break;
        default:
            break;
        }
    }
}

void CTaxData_Form::GetXtraPrintFields(std::list<std::string>& names)
{
    Q_UNUSED(names)
}
