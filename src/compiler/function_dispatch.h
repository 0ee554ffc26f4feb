// The function dispatcher: every call met inside an expression comes here and
// goes to the language's function table.
#pragma once

#include <string>

#include "compiler/run_context.h"

namespace korvane {

// `open` and `close` are the positions of a "(" and its matching ")" in
// `expr`. Returns the call's value; `open` moves back to the first character
// of the function's name (it stays when there is no name, and the text
// between the parentheses is evaluated as a whole). An unknown name gives
// empty text.
std::string FunctionDispatch(RunContext& ctx, const std::string& expr, std::size_t& open,
                             std::size_t close);

// Whether a character may stand in a function name: digits, Latin letters,
// the Hungarian accented vowels and "_" (upper case counts after lowering).
bool isNameCharacter(char c);

}  // namespace korvane
