// Readers over TinyXML elements: fetch a named child and convert its text,
// with a default for whatever is missing.
#pragma once

#include "cstring.h"
#include "libbedrock_export.h"

#include <tinyxml.h>

#include <map>
#include <string>

/*
 * A TiXmlHandle whose named FirstChildElement ignores a namespace prefix: a
 * child matches when the last characters of its name equal `name` without
 * regard to letter case, so "sfd:Commodity" is found as "Commodity" (and so is
 * any name merely ending in those letters). Names are UTF-8.
 */
class LIBBEDROCK_EXPORT MyTiXmlHandle : public TiXmlHandle
{
public:
    MyTiXmlHandle(TiXmlNode* node)
        : TiXmlHandle(node)
    { }
    MyTiXmlHandle(const TiXmlHandle& other)
        : TiXmlHandle(other)
    { }
    MyTiXmlHandle(const MyTiXmlHandle&) = default;
    MyTiXmlHandle& operator=(const MyTiXmlHandle&) = default;
    virtual ~MyTiXmlHandle();

    MyTiXmlHandle FirstChildElement() const;
    // An empty handle when no child matches; a null name matches the first child.
    MyTiXmlHandle FirstChildElement(const char* name) const;
    // The second text is ignored.
    MyTiXmlHandle FirstChildElement(const char* name, const char*) const;
};

/*
 * Each takes an element that may be null and looks up its first child through
 * MyTiXmlHandle. A missing element, child or text gives the function's default.
 */
LIBBEDROCK_EXPORT TiXmlElement* getElementSubElement(TiXmlElement* e, char const* name);
// The child's text, owned by the document, or "" when missing.
LIBBEDROCK_EXPORT char const* getElementSubEleStringText(TiXmlElement* e, char const* name);
// `def` for missing or empty text; 0 for text that is no base-10 int.
LIBBEDROCK_EXPORT int getElementSubEleStringAsInt(TiXmlElement* e, char const* name, int def);
// "true"/"1" and "false"/"0" in any letter case; `def` for anything else.
LIBBEDROCK_EXPORT bool getElementSubEleStringAsBool(TiXmlElement* e, char const* name, bool def);
// `def` when missing; otherwise atof of the text, so unparsable text gives 0.
LIBBEDROCK_EXPORT float getElementSubEleAsFloat(TiXmlElement* e, char const* name, float def);
// The attribute of the first child named exactly `name` (no suffix matching), or "".
LIBBEDROCK_EXPORT char const* getElementSubEleStringAttribute(TiXmlElement* e, char const* name,
                                                              char const* attr);

/*
 * From the first child named exactly "f", that element and every following
 * sibling of any name: out[n] = its text read as UTF-8 (empty when none), where
 * n is its attribute "n". Elements without "n" are skipped; a later duplicate
 * replaces an earlier value. A null element or no "f" child adds nothing.
 */
LIBBEDROCK_EXPORT void readXMLFieldsToStringMap(TiXmlElement* e,
                                                std::map<std::string, CString>& out);
