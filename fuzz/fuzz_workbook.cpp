// The workbook file reader: the input is a worksheet's XML, put into an
// otherwise well-formed .xlsx. The first line names a cell (as a user writes
// it) and the second a text; the rest is the sheet. The cell is read (value,
// formula, last row), then the text written into it, which must read back as
// written. Only the workbook's own refusals may leave.
#include <zip.h>

#include <cctype>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "fuzz_lines.h"
#include "hosts/excel.h"
#include "hosts/excel/workbook/xlsx_workbook.h"
#include "support/project.h"

using namespace korvane;
using korvane::fuzz::nextLine;
using namespace korvane::hosts::workbook;

namespace {

constexpr const char* kXml = "<?xml version=\"1.0\" encoding=\"UTF-8\" standalone=\"yes\"?>";

bool add(zip_t* z, const char* name, const std::string& content) {
  zip_source_t* src = zip_source_buffer(z, content.data(), content.size(), 0);
  if (!src) return false;
  const zip_int64_t i = zip_file_add(z, name, src, ZIP_FL_OVERWRITE);
  if (i < 0) {
    zip_source_free(src);
    return false;
  }
  return zip_set_file_compression(z, static_cast<zip_uint64_t>(i), ZIP_CM_STORE, 0) == 0;
}

// A workbook of one sheet "Data" whose XML is `sheet`.
bool writeBook(const std::string& path, const std::string& sheet) {
  int error = 0;
  zip_t* z = zip_open(path.c_str(), ZIP_CREATE | ZIP_TRUNCATE, &error);
  if (!z) return false;
  const std::string main = "http://schemas.openxmlformats.org/spreadsheetml/2006/main";
  const std::string rel = "http://schemas.openxmlformats.org/officeDocument/2006/relationships";
  const std::string pkg = "http://schemas.openxmlformats.org/package/2006/relationships";
  // The buffers must live until zip_close writes them.
  const std::string types =
      std::string(kXml) +
      "<Types xmlns=\"http://schemas.openxmlformats.org/package/2006/content-types\">"
      "<Default Extension=\"rels\" "
      "ContentType=\"application/vnd.openxmlformats-package.relationships+xml\"/>"
      "<Default Extension=\"xml\" ContentType=\"application/xml\"/></Types>";
  const std::string rootRels = std::string(kXml) + "<Relationships xmlns=\"" + pkg +
                               "\"><Relationship Id=\"rId1\" Type=\"" + rel +
                               "/officeDocument\" Target=\"xl/workbook.xml\"/></Relationships>";
  const std::string book = std::string(kXml) + "<workbook xmlns=\"" + main + "\" xmlns:r=\"" + rel +
                           "\"><sheets><sheet name=\"Data\" sheetId=\"1\" r:id=\"rId1\"/>" +
                           "</sheets></workbook>";
  const std::string bookRels = std::string(kXml) + "<Relationships xmlns=\"" + pkg +
                               "\"><Relationship Id=\"rId1\" Type=\"" + rel +
                               "/worksheet\" Target=\"worksheets/sheet1.xml\"/></Relationships>";
  const bool ok = add(z, "[Content_Types].xml", types) && add(z, "_rels/.rels", rootRels) &&
                  add(z, "xl/workbook.xml", book) &&
                  add(z, "xl/_rels/workbook.xml.rels", bookRels) &&
                  add(z, "xl/worksheets/sheet1.xml", sheet);
  if (!ok) {
    zip_discard(z);
    return false;
  }
  return zip_close(z) == 0;
}

bool letters(std::string_view s) {
  if (s.empty() || s.size() > 40) return false;
  for (char c : s)
    if (!std::isalpha(static_cast<unsigned char>(c))) return false;
  return true;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static test::TempProject project;
  std::string_view text(reinterpret_cast<const char*>(data), size);
  const std::string_view reference = nextLine(text), written = nextLine(text);
  const auto ref = parseReference(reference);
  const std::string path = project.path("book.xlsx");
  if (!ref || !writeBook(path, std::string(text))) return 0;
  try {
    XlsxWorkbook book(path);
    const std::size_t sheet = book.sheet("");
    book.value(sheet, ref->cell);
    book.formula(sheet, ref->cell);
    book.lastRow(sheet);
    if (!letters(written)) return 0;
    book.put(sheet, ref->cell, typedEntry(std::string(written)));
  } catch (const hosts::WorkbookError&) {
    return 0;  // a sheet it cannot read or write: said so
  }
  // A text put into a cell of a sheet it could write reads back as written.
  XlsxWorkbook again(path);
  if (again.value(again.sheet(""), ref->cell) != written) __builtin_trap();
  return 0;
}
