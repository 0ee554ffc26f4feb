// Where the Excel functions and commands find a workbook named in an input:
// a name without a folder lies in the "excel" folder of the MX project, a
// name without an extension is an ".xls" workbook.
#pragma once

#include <string>

#include "compiler/extension/call_context.h"

namespace korvane {

// The workbook's full path; empty text when there is no such file, after
// telling the user which path was looked for.
std::string resolveWorkbook(CallContext& ctx, const std::string& name);

}  // namespace korvane
