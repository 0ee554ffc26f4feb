// A .xlsx or .xlsm workbook read and changed as a file: its worksheets by
// name, cell values as Excel shows them through `Value`, and one cell
// written as Excel stores what is typed into it. Writing replaces only the
// worksheet (and the shared strings when a text is added to them); every
// other part stays as it was.
#pragma once

#include <cstdint>
#include <map>
#include <memory>
#include <pugixml.hpp>
#include <string>
#include <vector>

#include "hosts/excel/workbook/cell_reference.h"
#include "hosts/excel/workbook/typed_entry.h"
#include "hosts/excel/workbook/zip_package.h"

namespace korvane::hosts::workbook {

class XlsxWorkbook {
 public:
  // Throws WorkbookError (Unreadable) when the file is no such workbook.
  explicit XlsxWorkbook(const std::string& path);

  // The sheet of that name (any letter case, as Excel compares them; texts in
  // the users' code page); "" is the first. Throws WorkbookError (NoSheet).
  std::size_t sheet(const std::string& name) const;
  // The value of a cell, in the users' code page: texts as they stand,
  // numbers in the input language's general form, TRUE and FALSE as "True"
  // and "False"; a formula gives the value Excel stored with it last.
  std::string value(std::size_t sheet, CellAddress cell);
  std::int32_t lastRow(std::size_t sheet);
  // The formula of a cell without its "=" ("" when it holds none); a cell
  // that shares the formula of a range gets the range's formula moved to it.
  std::string formula(std::size_t sheet, CellAddress cell);
  // Writes the entry into the cell and saves the workbook.
  void put(std::size_t sheet, CellAddress cell, const TypedEntry& entry);

 private:
  struct Sheet {
    std::string name;  // users' code page
    std::string part;
    unsigned id = 0;  // the workbook's sheetId, by which the calculation chain names it
    std::unique_ptr<pugi::xml_document> doc;  // read when first used
  };
  pugi::xml_node sheetData(std::size_t sheet);
  pugi::xml_node findCell(pugi::xml_node data, CellAddress cell, bool create);
  pugi::xml_node sharedFormulaFirst(pugi::xml_node data, const char* index, CellAddress& where);
  void unshare(pugi::xml_node data, pugi::xml_node first, CellAddress where);
  const std::vector<std::string>& sharedStrings();
  std::uint32_t addSharedString(const std::string& utf8);
  bool dropFromChain(unsigned sheetId, CellAddress cell,
                     std::map<std::string, std::string>& changed);

  ZipPackage zip_;
  std::vector<Sheet> sheets_;
  std::string sharedPart_;  // "" when the workbook keeps no shared strings
  std::string chainPart_;   // Excel's calculation chain, "" when there is none
  std::unique_ptr<pugi::xml_document> sharedDoc_;
  std::vector<std::string> shared_;  // UTF-8, as stored
};

}  // namespace korvane::hosts::workbook
