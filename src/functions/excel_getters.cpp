// xlget and getname: values read from a workbook while the input compiles.
#include "base/codepage.h"
#include "base/conversions.h"
#include "base/text.h"
#include "compiler/compile_failure.h"
#include "compiler/workbook_path.h"
#include "functions/functions.h"

namespace korvane {
namespace {

// The data columns of a getname table are B to IV; column 1 is B.
constexpr std::int32_t kDataColumns = 255;

}  // namespace

// xlget(workbook, cell or range[, worksheet]): the worksheet is the first
// when none is named.
std::string fnXlget(CallContext& ctx) {
  const std::string book = arg(ctx, 1), reference = arg(ctx, 2), sheet = arg(ctx, 3);
  const std::string path = resolveWorkbook(ctx, book);
  if (path.empty()) return {};
  return ctx.excel("xlget").worksheet(path, sheet)->value(reference);
}

// getname(workbook, key, column[, worksheet]) or getname(workbook, column,
// key[, worksheet]): the row whose key column (A) holds the key, trimmed and
// in any letter case, gives the value of its data column (1 = B).
std::string fnGetname(CallContext& ctx) {
  const std::string book = arg(ctx, 1), a2 = arg(ctx, 2), a3 = arg(ctx, 3), sheet = arg(ctx, 4);
  const bool columnLast = conv::IsNumeric(a3);
  if (!columnLast && !conv::IsNumeric(a2)) throw RuntimeFailure("badarg", "getname");
  const std::string& key = columnLast ? a2 : a3;
  const std::int32_t column = conv::CLng(columnLast ? a3 : a2);
  if (column < 1 || column > kDataColumns) throw RuntimeFailure("badarg", "getname");
  const std::string path = resolveWorkbook(ctx, book);
  if (path.empty()) return {};
  auto ws = ctx.excel("getname").worksheet(path, sheet);
  const std::string wanted = cp::lower(key);
  const std::int32_t last = ws->lastRow();
  for (std::int32_t row = 1; row <= last; ++row)
    if (cp::lower(text::trim(ws->cellValue(row, 1))) == wanted)
      return ws->cellValue(row, column + 1);
  return {};
}

}  // namespace korvane
