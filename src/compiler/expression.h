// The expression evaluator and the texts built on it: assignment lists, line
// substitution of |expr| stretches, the field split and the argument array.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "compiler/extension/text_length.h"
#include "compiler/run_context.h"

namespace korvane {

// How deeply operators and parentheses may nest in one expression.
constexpr int kMaxExpressionDepth = 500;

// The value of an expression. Texts in quotes come back unquoted, function
// calls are replaced by temporaries, then the expression is split at the last
// occurrence of the loosest operator ("&+-*/^"); a name that is no variable
// evaluates to itself. `expr` is trimmed and rewritten in place.
std::string Evaluate(RunContext& ctx, std::string& expr);
std::string Evaluate(RunContext& ctx, std::string_view expr);

// Applies "name=expr,name=expr," to the variable table.
void applyAssignments(RunContext& ctx, std::string_view list);
// One assignment of such a list: `name` gets the value of the expression `value`.
void assignVariable(RunContext& ctx, const std::string& name, std::string_view value);

// The names that an assignment list assigns, in order, without evaluating it.
std::vector<std::string> assignmentNames(std::string_view list);

// Replaces every |expr| of the line by its value, searching again from the
// start after each replacement.
void substituteLine(RunContext& ctx, std::string& line);

// Splits a line into the compile's fields (15 at most; a field between bars
// is evaluated; splitting stops after a field "if").
void splitFields(RunContext& ctx, std::string_view line);

// Evaluates the comma-separated arguments into the argument array of the
// function call being dispatched.
void evaluateArguments(RunContext& ctx, std::string_view argumentText);

// A new temporary name: "zTMP" and the run's counter as five digits.
std::string newTemporaryName(RunContext& ctx);

// The value of a variable by name, or the name itself when it is not defined.
std::string variableOrName(const RunContext& ctx, std::string_view name);

}  // namespace korvane
