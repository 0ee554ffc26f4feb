// xlget and getname: values read from a workbook while the input compiles.
#include "base/codepage.h"
#include "base/conversions.h"
#include "base/text.h"
#include "base/texts/runtime_texts.h"
#include "compiler/extension/compile_failure.h"
#include "compiler/extension/workbook_path.h"
#include "functions/function_rows.h"

namespace korvane {
namespace {

// The data columns of a getname table are B to IV; column 1 is B.
constexpr std::int32_t kDataColumns = 255;

// xlget(workbook, cell or range[, worksheet]): the worksheet is the first
// when none is named.
std::string fnXlget(CallContext& ctx) {
  const std::string book = ctx.arg(1), reference = ctx.arg(2), sheet = ctx.arg(3);
  const std::string path = resolveWorkbook(ctx, book);
  if (path.empty()) return {};
  return ctx.excel("xlget").worksheet(path, sheet)->value(reference);
}

// getname(workbook, key, column[, worksheet]) or getname(workbook, column,
// key[, worksheet]): the row whose key column (A) holds the key, trimmed and
// in any letter case, gives the value of its data column (1 = B).
std::string fnGetname(CallContext& ctx) {
  const std::string book = ctx.arg(1), a2 = ctx.arg(2), a3 = ctx.arg(3), sheet = ctx.arg(4);
  const bool columnLast = conv::IsNumeric(a3);
  if (!columnLast && !conv::IsNumeric(a2))
    throw RuntimeFailure(texts::runtime::kBadArgument, "getname");
  const std::string& key = columnLast ? a2 : a3;
  const std::int32_t column = conv::CLng(columnLast ? a3 : a2);
  if (column < 1 || column > kDataColumns)
    throw RuntimeFailure(texts::runtime::kBadArgument, "getname");
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

constexpr FunctionRow kExcelGettersRows[] = {{"xlget", fnXlget}, {"getname", fnGetname}};

}  // namespace

extern const FunctionRows kExcelGetters = kExcelGettersRows;

}  // namespace korvane
