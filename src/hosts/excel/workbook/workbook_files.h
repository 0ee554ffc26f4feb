// Excel's part done on the workbook files themselves, where no Excel runs:
// .xlsx and .xlsm read and written, .xls read; macros are not available.
#pragma once

#include <memory>

#include "hosts/excel.h"

namespace korvane::hosts {

std::unique_ptr<ExcelHost> makeWorkbookFiles();

}  // namespace korvane::hosts
