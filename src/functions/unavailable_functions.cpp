// Functions whose implementations are not part of this build (the
// superelevation query) end the run with a clear message.
#include "base/texts/runtime_texts.h"
#include "compiler/extension/compile_failure.h"
#include "functions/function_rows.h"

namespace korvane {
namespace {

std::string fnPls(CallContext&) { throw RuntimeFailure(texts::runtime::kNotAvailable, "pls"); }

constexpr FunctionRow kUnavailableFunctionsRows[] = {{"pls", fnPls}};

}  // namespace

extern const FunctionRows kUnavailableFunctions = kUnavailableFunctionsRows;

}  // namespace korvane
