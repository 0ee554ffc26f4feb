// The extended commands: each expands into MX input computed from the model,
// or drives Excel. registerCommands adds their rows, with the preparation the
// compile pass runs before each (flush, keyword text, default block,
// assignments), to the language's directive table.
#pragma once

#include <cstdint>
#include <string>

#include "compiler/directive_call.h"

namespace korvane {
class DirectiveTable;
}

namespace korvane::commands {

void registerCommands(DirectiveTable& table);

// The operations, called after their preparation with the directive line's
// arguments; `d` gives the file being compiled for those that read on in it.
void labelmove(DirectiveCall& d, const std::string& source, const std::string& target);
void trimsection(CallContext& ctx, const std::string& model);
void superelevation(DirectiveCall& d, const std::string& model);
void earthworkToExcel(CallContext& ctx);
void ditchList(CallContext& ctx, const std::string& model);
void ditchPips(CallContext& ctx, const std::string& model);

// Excel: a macro of the running Excel, and one cell put.
void xlmacro(CallContext& ctx, const std::string& macro, const std::string* args, int count);
void xlput(CallContext& ctx, const std::string& workbook, const std::string& sheet,
           std::int32_t row, std::int32_t column, const std::string& value);

}  // namespace korvane::commands
