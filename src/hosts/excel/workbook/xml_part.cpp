#include "hosts/excel/workbook/xml_part.h"

#include <sstream>
#include <vector>

#include "hosts/excel.h"
#include "hosts/excel/workbook/escaped_text.h"
#include "hosts/excel/workbook/zip_package.h"

namespace korvane::hosts::workbook {
namespace {

// Whitespace-only text is kept: a cell may hold a single blank.
constexpr unsigned kParse = pugi::parse_default | pugi::parse_declaration | pugi::parse_ws_pcdata |
                            pugi::parse_comments | pugi::parse_pi;

std::string_view prefixOf(pugi::xml_node node) {
  std::string_view name = node.name();
  const std::size_t colon = name.find(':');
  return colon == std::string_view::npos ? std::string_view() : name.substr(0, colon + 1);
}

std::string folderOf(const std::string& part) {
  const std::size_t slash = part.rfind('/');
  return slash == std::string::npos ? std::string() : part.substr(0, slash + 1);
}

// "xl/" + "../docProps/app.xml" -> "docProps/app.xml"; "/xl/a.xml" -> "xl/a.xml".
std::string resolveTarget(const std::string& base, const std::string& target) {
  std::string joined = !target.empty() && target.front() == '/' ? target.substr(1) : base + target;
  std::vector<std::string> parts;
  std::size_t at = 0;
  while (at <= joined.size()) {
    std::size_t slash = joined.find('/', at);
    if (slash == std::string::npos) slash = joined.size();
    const std::string seg = joined.substr(at, slash - at);
    if (seg == "..") {
      if (!parts.empty()) parts.pop_back();
    } else if (!seg.empty() && seg != ".") {
      parts.push_back(seg);
    }
    at = slash + 1;
  }
  std::string out;
  for (const std::string& p : parts) out += (out.empty() ? "" : "/") + p;
  return out;
}

void collectText(pugi::xml_node node, std::string& out) {
  for (pugi::xml_node c : node.children()) {
    const std::string_view n = localName(c);
    if (n == "t")
      out += unescapeCellText(c.text().get());
    else if (n == "r")
      collectText(c, out);
  }
}

}  // namespace

void loadPart(pugi::xml_document& doc, const ZipPackage& zip, const std::string& part) {
  const std::string data = zip.read(part);
  const pugi::xml_parse_result r = doc.load_buffer(data.data(), data.size(), kParse);
  if (!r) throw WorkbookError(WorkbookError::Reason::Unreadable, zip.path(), part);
}

std::string savePart(const pugi::xml_document& doc) {
  std::ostringstream out;
  doc.save(out, "", pugi::format_raw, pugi::encoding_utf8);
  return out.str();
}

std::string_view localName(pugi::xml_node node) {
  std::string_view name = node.name();
  const std::size_t colon = name.find(':');
  return colon == std::string_view::npos ? name : name.substr(colon + 1);
}

pugi::xml_node child(pugi::xml_node node, std::string_view local) {
  for (pugi::xml_node c : node.children())
    if (c.type() == pugi::node_element && localName(c) == local) return c;
  return {};
}

pugi::xml_node appendElement(pugi::xml_node parent, std::string_view local) {
  return parent.append_child((std::string(prefixOf(parent)) + std::string(local)).c_str());
}

pugi::xml_node insertElementBefore(pugi::xml_node parent, std::string_view local,
                                   pugi::xml_node before) {
  return parent.insert_child_before((std::string(prefixOf(parent)) + std::string(local)).c_str(),
                                    before);
}

Relationships relationshipsOf(const ZipPackage& zip, const std::string& part) {
  Relationships rels;
  const std::string folder = folderOf(part);
  const std::string name = folder + "_rels/" + part.substr(folder.size()) + ".rels";
  if (!zip.has(name)) return rels;
  pugi::xml_document doc;
  loadPart(doc, zip, name);
  for (pugi::xml_node r : doc.document_element().children()) {
    if (localName(r) != "Relationship") continue;
    if (std::string_view(r.attribute("TargetMode").value()) == "External") continue;
    const std::string target = resolveTarget(folder, r.attribute("Target").value());
    std::string type = r.attribute("Type").value();
    type = type.substr(type.rfind('/') + 1);
    rels.byId[r.attribute("Id").value()] = target;
    rels.byType.emplace(type, target);
    rels.typeById[r.attribute("Id").value()] = type;
  }
  return rels;
}

std::string stringItemText(pugi::xml_node item) {
  std::string out;
  collectText(item, out);
  return out;
}

}  // namespace korvane::hosts::workbook
