// XML parts of a workbook package, read and written with pugixml. Element
// names are matched by their local name, so that parts written with a
// namespace prefix ("x:row") read as well as those without.
#pragma once

#include <map>
#include <pugixml.hpp>
#include <string>
#include <string_view>

namespace korvane::hosts::workbook {

class ZipPackage;

// Parses a part; throws WorkbookError (Unreadable) when it is no XML.
void loadPart(pugi::xml_document& doc, const ZipPackage& zip, const std::string& part);
// The part as it is written back, with its own declaration.
std::string savePart(const pugi::xml_document& doc);

std::string_view localName(pugi::xml_node node);
// The first child element of that local name.
pugi::xml_node child(pugi::xml_node node, std::string_view local);
// A new element of that local name, with the prefix of `like` ("x:" + name).
pugi::xml_node appendElement(pugi::xml_node parent, std::string_view local);
pugi::xml_node insertElementBefore(pugi::xml_node parent, std::string_view local,
                                   pugi::xml_node before);

// The relationships of a part: id -> target part name, and type -> target.
struct Relationships {
  std::map<std::string, std::string> byId;
  std::map<std::string, std::string> byType;  // the type's last path segment
  std::map<std::string, std::string> typeById;
};
// Reads the relationships of `part` ("" for the package's own); none when the
// part has no relationships part.
Relationships relationshipsOf(const ZipPackage& zip, const std::string& part);

// All the text of an <si> or <is> element (rich text runs joined, phonetic
// guides left out).
std::string stringItemText(pugi::xml_node item);

}  // namespace korvane::hosts::workbook
