#include "xmlreaders.h"

#include <cmath>
#include <cstdlib>
#include <limits>

namespace {

CString fromUtf8(const char* text)
{
    CString s;
    s.LoadString(text);
    return s;
}

const char* childText(TiXmlElement* e, char const* name)
{
    const TiXmlElement* child = getElementSubElement(e, name);
    return child ? child->GetText() : nullptr;
}

} // namespace

MyTiXmlHandle::~MyTiXmlHandle() = default;

MyTiXmlHandle MyTiXmlHandle::FirstChildElement() const
{
    return MyTiXmlHandle(TiXmlHandle::FirstChildElement());
}

MyTiXmlHandle MyTiXmlHandle::FirstChildElement(const char* name) const
{
    TiXmlNode* node = ToNode();
    if (!node)
        return MyTiXmlHandle(nullptr);
    // The suffix is measured in characters of the name, so a prefix such as
    // "sfd:" is ignored whatever the encoding of the rest.
    const CString wanted = fromUtf8(name);
    for (TiXmlElement* child = node->FirstChildElement(); child;
         child = child->NextSiblingElement()) {
        if (fromUtf8(child->Value()).Right(wanted.GetLength()).CompareNoCase(wanted) == 0)
            return MyTiXmlHandle(child);
    }
    return MyTiXmlHandle(nullptr);
}

MyTiXmlHandle MyTiXmlHandle::FirstChildElement(const char* name, const char*) const
{
    return FirstChildElement(name);
}

TiXmlElement* getElementSubElement(TiXmlElement* e, char const* name)
{
    if (!e)
        return nullptr;
    return MyTiXmlHandle(e).FirstChildElement(name).ToElement();
}

char const* getElementSubEleStringText(TiXmlElement* e, char const* name)
{
    const char* text = childText(e, name);
    return text ? text : "";
}

int getElementSubEleStringAsInt(TiXmlElement* e, char const* name, int def)
{
    const char* text = childText(e, name);
    if (!text || !*text)
        return def;
    // A malformed number is 0, not the default: callers tell the two apart.
    return QString::fromUtf8(text).toInt(nullptr, 10);
}

bool getElementSubEleStringAsBool(TiXmlElement* e, char const* name, bool def)
{
    const char* text = childText(e, name);
    if (!text)
        return def;
    const CString value = fromUtf8(text);
    if (value.CompareNoCase("true") == 0 || value.Compare("1") == 0)
        return true;
    if (value.CompareNoCase("false") == 0 || value.Compare("0") == 0)
        return false;
    return def;
}

float getElementSubEleAsFloat(TiXmlElement* e, char const* name, float def)
{
    const char* text = childText(e, name);
    if (!text)
        return def;
    const double value = std::atof(text);
    // Narrowing a double outside float's range is undefined; give the
    // infinity that IEEE arithmetic would.
    constexpr float Max = std::numeric_limits<float>::max();
    if (std::isnan(value))
        return std::numeric_limits<float>::quiet_NaN();
    if (value > double(Max))
        return std::numeric_limits<float>::infinity();
    if (value < -double(Max))
        return -std::numeric_limits<float>::infinity();
    return float(value);
}

char const* getElementSubEleStringAttribute(TiXmlElement* e, char const* name, char const* attr)
{
    if (!e || !name || !attr)
        return "";
    const TiXmlElement* child = TiXmlHandle(e).FirstChildElement(name).ToElement();
    const char* value = child ? child->Attribute(attr) : nullptr;
    return value ? value : "";
}

void readXMLFieldsToStringMap(TiXmlElement* e, std::map<std::string, CString>& out)
{
    if (!e)
        return;
    // Everything after the first "f" counts, whatever its element name.
    for (TiXmlElement* field = e->FirstChildElement("f"); field;
         field = field->NextSiblingElement()) {
        const char* key = field->Attribute("n");
        if (!key)
            continue;
        const char* text = field->GetText();
        out[key] = text ? fromUtf8(text) : CString();
    }
}
