#include "hosts/excel/workbook/xlsx_workbook.h"

#include <algorithm>
#include <charconv>
#include <cstring>

#include "base/codepage.h"
#include "base/conversions.h"
#include "hosts/excel.h"
#include "hosts/excel/workbook/escaped_text.h"
#include "hosts/excel/workbook/formula_shift.h"
#include "hosts/excel/workbook/xml_part.h"

namespace korvane::hosts::workbook {
namespace {

using Reason = WorkbookError::Reason;

// The relationship id of a <sheet>: its attribute "r:id", whatever the prefix.
std::string relationshipId(pugi::xml_node sheet) {
  for (pugi::xml_attribute a : sheet.attributes()) {
    const std::string_view n = a.name();
    if (n.size() > 3 && n.substr(n.size() - 3) == ":id") return a.value();
  }
  return {};
}

// Gives every row of the sheet data, and every cell of `row`, its explicit
// position, so that a row or cell inserted among them cannot shift the
// implicit numbering of the ones after it.
void numberRows(pugi::xml_node data) {
  std::int32_t index = 0;
  for (pugi::xml_node r : data.children()) {
    if (localName(r) != "row") continue;
    pugi::xml_attribute a = r.attribute("r");
    index = a ? a.as_int() : index + 1;
    if (!a) r.append_attribute("r") = index;
  }
}

void numberCells(pugi::xml_node row) {
  const std::int32_t rowIndex = row.attribute("r").as_int();
  std::int32_t column = 0;
  for (pugi::xml_node c : row.children()) {
    if (localName(c) != "c") continue;
    pugi::xml_attribute a = c.attribute("r");
    column = a ? columnOf(a.value()) : column + 1;
    if (!a) c.append_attribute("r") = addressText({rowIndex, column}).c_str();
  }
}

// Calls `f` with every cell of the sheet data and its position.
template <typename F>
void forEachCell(pugi::xml_node data, F f) {
  std::int32_t rowIndex = 0;
  for (pugi::xml_node r : data.children()) {
    if (localName(r) != "row") continue;
    pugi::xml_attribute a = r.attribute("r");
    rowIndex = a ? a.as_int() : rowIndex + 1;
    std::int32_t column = 0;
    for (pugi::xml_node c : r.children()) {
      if (localName(c) != "c") continue;
      pugi::xml_attribute ca = c.attribute("r");
      column = ca ? columnOf(ca.value()) : column + 1;
      f(c, CellAddress{rowIndex, column});
    }
  }
}

// Row numbers and cell references inside the sheet's limits: everything that
// finds a cell by its position relies on them, so a corrupt or hostile sheet
// is refused here rather than answering from the wrong cell.
void checkPositions(pugi::xml_node data, const std::string& where) {
  for (pugi::xml_node r : data.children()) {
    if (localName(r) != "row") continue;
    if (pugi::xml_attribute a = r.attribute("r")) {
      const long long index = a.as_llong();
      if (index < 1 || index > kExcelRows)
        throw WorkbookError(Reason::Unreadable, where + " <row r=\"" + a.value() + "\">");
    }
    for (pugi::xml_node c : r.children()) {
      if (localName(c) != "c") continue;
      pugi::xml_attribute a = c.attribute("r");
      if (a && !parseReference(a.value()))
        throw WorkbookError(Reason::Unreadable, where + " <c r=\"" + a.value() + "\">");
    }
  }
}

bool sharesFormula(pugi::xml_node f) {
  return std::string_view(f.attribute("t").value()) == "shared";
}

// A child element of a cell, placed before its extension list if it has one.
pugi::xml_node cellChild(pugi::xml_node cell, std::string_view local) {
  pugi::xml_node ext = child(cell, "extLst");
  return ext ? insertElementBefore(cell, local, ext) : appendElement(cell, local);
}

void setText(pugi::xml_node t, const std::string& utf8) {
  if (!utf8.empty() && (utf8.front() == ' ' || utf8.back() == ' ' || utf8.front() == '\t' ||
                        utf8.back() == '\t' || utf8.find('\n') != std::string::npos))
    t.append_attribute("xml:space") = "preserve";
  t.text().set(utf8.c_str());
}

std::string numberText(double d) {
  char buf[32];
  const auto r = std::to_chars(buf, buf + sizeof buf, d);
  return std::string(buf, r.ptr);
}

// The used area of the sheet grows to take in the cell.
void widenDimension(pugi::xml_node worksheet, CellAddress cell) {
  pugi::xml_node dim = child(worksheet, "dimension");
  if (!dim) return;
  const std::string ref = dim.attribute("ref").value();
  const std::size_t colon = ref.find(':');
  auto first = parseReference(ref.substr(0, colon));
  auto last = colon == std::string::npos ? first : parseReference(ref.substr(colon + 1));
  if (!first || !last) return;
  CellAddress lo{std::min({first->cell.row, last->cell.row, cell.row}),
                 std::min({first->cell.column, last->cell.column, cell.column})};
  CellAddress hi{std::max({first->cell.row, last->cell.row, cell.row}),
                 std::max({first->cell.column, last->cell.column, cell.column})};
  const std::string text = lo.row == hi.row && lo.column == hi.column
                               ? addressText(lo)
                               : addressText(lo) + ":" + addressText(hi);
  dim.attribute("ref").set_value(text.c_str());
}

}  // namespace

XlsxWorkbook::XlsxWorkbook(const std::string& path) : zip_(path) {
  const Relationships package = relationshipsOf(zip_, "");
  const auto main = package.byType.find("officeDocument");
  if (main == package.byType.end()) throw WorkbookError(Reason::Unreadable, path, "workbook");
  pugi::xml_document book;
  loadPart(book, zip_, main->second);
  const Relationships rels = relationshipsOf(zip_, main->second);
  for (pugi::xml_node s : child(book.document_element(), "sheets").children()) {
    if (localName(s) != "sheet") continue;
    const std::string id = relationshipId(s);
    const auto target = rels.byId.find(id);
    const auto type = rels.typeById.find(id);
    if (target == rels.byId.end() || type == rels.typeById.end() || type->second != "worksheet")
      continue;  // chart and dialog sheets are no worksheets
    sheets_.push_back({cp::fromUtf8(s.attribute("name").value()), target->second,
                       s.attribute("sheetId").as_uint(), nullptr});
  }
  if (sheets_.empty()) throw WorkbookError(Reason::Unreadable, path, "no worksheet");
  const auto shared = rels.byType.find("sharedStrings");
  if (shared != rels.byType.end() && zip_.has(shared->second)) sharedPart_ = shared->second;
  const auto chain = rels.byType.find("calcChain");
  if (chain != rels.byType.end() && zip_.has(chain->second)) chainPart_ = chain->second;
}

std::size_t XlsxWorkbook::sheet(const std::string& name) const {
  if (name.empty()) return 0;
  for (std::size_t i = 0; i < sheets_.size(); ++i)
    if (cp::equalsIgnoreCase(sheets_[i].name, name)) return i;
  throw WorkbookError(Reason::NoSheet, name);
}

pugi::xml_node XlsxWorkbook::sheetData(std::size_t s) {
  Sheet& sheet = sheets_.at(s);
  if (!sheet.doc) {
    auto doc = std::make_unique<pugi::xml_document>();
    loadPart(*doc, zip_, sheet.part);
    const pugi::xml_node data = child(doc->document_element(), "sheetData");
    if (!data) throw WorkbookError(Reason::Unreadable, zip_.path(), sheet.part);
    checkPositions(data, zip_.path() + ": " + sheet.part);
    sheet.doc = std::move(doc);
  }
  return child(sheet.doc->document_element(), "sheetData");
}

pugi::xml_node XlsxWorkbook::findCell(pugi::xml_node data, CellAddress cell, bool create) {
  if (create) numberRows(data);
  pugi::xml_node row;
  std::int32_t index = 0;
  for (pugi::xml_node r : data.children()) {
    if (localName(r) != "row") continue;
    pugi::xml_attribute a = r.attribute("r");
    index = a ? a.as_int() : index + 1;
    if (index == cell.row) {
      row = r;
      break;
    }
    if (index > cell.row) {
      if (!create) return {};
      row = insertElementBefore(data, "row", r);
      row.append_attribute("r") = cell.row;
      break;
    }
  }
  if (!row) {
    if (!create) return {};
    row = appendElement(data, "row");
    row.append_attribute("r") = cell.row;
  }
  if (create) numberCells(row);
  std::int32_t column = 0;
  for (pugi::xml_node c : row.children()) {
    if (localName(c) != "c") continue;
    pugi::xml_attribute a = c.attribute("r");
    column = a ? columnOf(a.value()) : column + 1;
    if (column == cell.column) return c;
    if (column > cell.column) {
      if (!create) return {};
      pugi::xml_node n = insertElementBefore(row, "c", c);
      n.append_attribute("r") = addressText(cell).c_str();
      return n;
    }
  }
  if (!create) return {};
  pugi::xml_node ext = child(row, "extLst");
  pugi::xml_node n = ext ? insertElementBefore(row, "c", ext) : appendElement(row, "c");
  n.append_attribute("r") = addressText(cell).c_str();
  return n;
}

const std::vector<std::string>& XlsxWorkbook::sharedStrings() {
  if (!sharedDoc_ && !sharedPart_.empty()) {
    sharedDoc_ = std::make_unique<pugi::xml_document>();
    loadPart(*sharedDoc_, zip_, sharedPart_);
    for (pugi::xml_node si : sharedDoc_->document_element().children())
      if (localName(si) == "si") shared_.push_back(stringItemText(si));
  }
  return shared_;
}

std::uint32_t XlsxWorkbook::addSharedString(const std::string& utf8) {
  sharedStrings();
  pugi::xml_node sst = sharedDoc_->document_element();
  pugi::xml_attribute count = sst.attribute("count");
  if (count) count.set_value(count.as_uint() + 1);
  std::uint32_t index = 0;
  for (pugi::xml_node si : sst.children()) {
    if (localName(si) != "si") continue;
    // A plain entry of the same text is used again, as Excel does.
    if (shared_[index] == utf8 && !child(si, "r")) return index;
    ++index;
  }
  pugi::xml_node ext = child(sst, "extLst");
  pugi::xml_node si = ext ? insertElementBefore(sst, "si", ext) : appendElement(sst, "si");
  setText(appendElement(si, "t"), escapeCellText(utf8));
  shared_.push_back(utf8);
  pugi::xml_attribute unique = sst.attribute("uniqueCount");
  if (unique) unique.set_value(static_cast<unsigned>(shared_.size()));
  return index;
}

// Excel repairs a workbook whose calculation chain names a cell without a
// formula: a cell whose formula is overwritten leaves the chain.
bool XlsxWorkbook::dropFromChain(unsigned sheetId, CellAddress cell,
                                 std::map<std::string, std::string>& changed) {
  if (chainPart_.empty()) return false;
  pugi::xml_document doc;
  loadPart(doc, zip_, chainPart_);
  const std::string address = addressText(cell);
  unsigned current = 0;  // an entry without "i" is on the sheet of the entry before it
  for (pugi::xml_node e = doc.document_element().first_child(); e; e = e.next_sibling()) {
    if (localName(e) != "c") continue;
    if (pugi::xml_attribute i = e.attribute("i")) current = i.as_uint();
    if (current != sheetId || std::string_view(e.attribute("r").value()) != address) continue;
    pugi::xml_node next = e.next_sibling();
    while (next && localName(next) != "c") next = next.next_sibling();
    if (next && !next.attribute("i")) next.append_attribute("i") = current;
    doc.document_element().remove_child(e);
    changed[chainPart_] = savePart(doc);
    return true;
  }
  return false;
}

std::string XlsxWorkbook::value(std::size_t s, CellAddress cell) {
  const pugi::xml_node c = findCell(sheetData(s), cell, false);
  if (!c) return {};
  const std::string_view type = c.attribute("t").value();
  if (type == "inlineStr") return cp::fromUtf8(stringItemText(child(c, "is")));
  const pugi::xml_node v = child(c, "v");
  if (!v) return {};
  const std::string raw = v.text().get();
  if (type == "s") {
    const auto& strings = sharedStrings();
    const unsigned long i = std::strtoul(raw.c_str(), nullptr, 10);
    return i < strings.size() ? cp::fromUtf8(strings[i]) : std::string();
  }
  if (type == "b") return raw == "1" ? "True" : "False";
  if (type == "str") return cp::fromUtf8(unescapeCellText(raw));
  if (type == "e" || type == "d") return cp::fromUtf8(raw);
  double d = 0;
  const auto r = std::from_chars(raw.data(), raw.data() + raw.size(), d);
  if (r.ec != std::errc() || r.ptr != raw.data() + raw.size()) return cp::fromUtf8(raw);
  return conv::CStr(d);
}

pugi::xml_node XlsxWorkbook::sharedFormulaFirst(pugi::xml_node data, const char* index,
                                                CellAddress& where) {
  pugi::xml_node found;
  forEachCell(data, [&](pugi::xml_node c, CellAddress at) {
    pugi::xml_node f = child(c, "f");
    if (found || !f || !sharesFormula(f) || !*f.text().get()) return;
    if (std::string_view(f.attribute("si").value()) != index) return;
    found = f;
    where = at;
  });
  return found;
}

void XlsxWorkbook::unshare(pugi::xml_node data, pugi::xml_node first, CellAddress where) {
  const std::string index = first.attribute("si").value();
  const std::string text = first.text().get();
  forEachCell(data, [&](pugi::xml_node c, CellAddress at) {
    pugi::xml_node f = child(c, "f");
    if (!f || f == first || !sharesFormula(f) || *f.text().get()) return;
    if (std::string_view(f.attribute("si").value()) != index) return;
    for (const char* attr : {"t", "si", "ref"}) f.remove_attribute(attr);
    f.text().set(shiftFormula(text, at.row - where.row, at.column - where.column).c_str());
  });
}

std::string XlsxWorkbook::formula(std::size_t s, CellAddress cell) {
  pugi::xml_node data = sheetData(s);
  const pugi::xml_node f = child(findCell(data, cell, false), "f");
  if (!f) return {};
  if (!sharesFormula(f) || *f.text().get()) return cp::fromUtf8(f.text().get());
  CellAddress where;
  const pugi::xml_node first = sharedFormulaFirst(data, f.attribute("si").value(), where);
  if (!first) return {};
  return cp::fromUtf8(
      shiftFormula(first.text().get(), cell.row - where.row, cell.column - where.column));
}

std::int32_t XlsxWorkbook::lastRow(std::size_t s) {
  std::int32_t index = 0, last = 0;
  for (pugi::xml_node r : sheetData(s).children()) {
    if (localName(r) != "row") continue;
    pugi::xml_attribute a = r.attribute("r");
    index = a ? a.as_int() : index + 1;
    if (child(r, "c")) last = std::max(last, index);
  }
  return last;
}

void XlsxWorkbook::put(std::size_t s, CellAddress cell, const TypedEntry& entry) {
  pugi::xml_node data = sheetData(s);
  pugi::xml_node c = findCell(data, cell, true);
  const bool hadFormula = child(c, "f");
  // The others of a shared formula lose their first cell: each gets its own.
  if (pugi::xml_node f = child(c, "f"); f && sharesFormula(f) && *f.text().get())
    unshare(data, f, cell);
  for (const char* local : {"f", "v", "is"})
    while (pugi::xml_node old = child(c, local)) c.remove_child(old);
  for (const char* attr : {"t", "cm", "vm"}) c.remove_attribute(attr);
  bool sharedChanged = false;
  switch (entry.kind) {
    case TypedEntry::Kind::Empty:
      break;
    case TypedEntry::Kind::Formula:
      cellChild(c, "f").text().set(cp::toUtf8(entry.text).c_str());
      break;
    case TypedEntry::Kind::Number:
      cellChild(c, "v").text().set(numberText(entry.number).c_str());
      break;
    case TypedEntry::Kind::Text:
      if (!sharedPart_.empty()) {
        c.append_attribute("t") = "s";
        cellChild(c, "v").text().set(addSharedString(cp::toUtf8(entry.text)));
        sharedChanged = true;
      } else {
        c.append_attribute("t") = "inlineStr";
        setText(appendElement(cellChild(c, "is"), "t"), escapeCellText(cp::toUtf8(entry.text)));
      }
      break;
  }
  Sheet& sheet = sheets_[s];
  widenDimension(sheet.doc->document_element(), cell);
  std::map<std::string, std::string> changed{{sheet.part, savePart(*sheet.doc)}};
  if (sharedChanged) changed[sharedPart_] = savePart(*sharedDoc_);
  if (hadFormula && entry.kind != TypedEntry::Kind::Formula) dropFromChain(sheet.id, cell, changed);
  zip_.save(changed);
}

}  // namespace korvane::hosts::workbook
