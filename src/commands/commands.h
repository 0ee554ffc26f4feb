// The extended commands: each expands into MX input computed from the model,
// or drives Excel. The compile pass has run the flush-and-run step and set the
// command's variables before calling them.
#pragma once

#include <cstdint>
#include <string>

#include "compiler/line_reader.h"
#include "compiler/run_context.h"

namespace korvane::commands {

void labelmove(RunContext& ctx, const std::string& source, const std::string& target,
               LineReader& input);
void trimsection(RunContext& ctx, const std::string& model);
void superelevation(RunContext& ctx, const std::string& model, LineReader& input,
                    const std::string& compiledFile);
void earthworkToExcel(RunContext& ctx);
void ditchList(RunContext& ctx, const std::string& model);
void ditchPips(RunContext& ctx, const std::string& model);
// Reserved word: consumes its keyword text and does nothing.
void drawxsection(RunContext& ctx, const std::string& a1, const std::string& a2, LineReader& input);

// Excel: a macro of the running Excel, and one cell put.
void xlmacro(RunContext& ctx, const std::string& macro, const std::string* args, int count);
void xlput(RunContext& ctx, const std::string& workbook, const std::string& sheet, std::int32_t row,
           std::int32_t column, const std::string& value);
// Whether a process of that executable name runs.
bool processRunning(const std::string& exeName);

}  // namespace korvane::commands
