// The functions of the input language, one array of rows per file: each file
// ends with its rows (name, handler). A new function is a handler and its row
// in the file it belongs with, or a new file and its line here and in
// shell/standard_language.cpp.
#pragma once

#include "compiler/extension/language_rows.h"

namespace korvane {

extern const FunctionRows kMathFunctions;         // math_functions.cpp
extern const FunctionRows kStringFunctions;       // string_functions.cpp
extern const FunctionRows kModelQueryFunctions;   // model_query_functions.cpp
extern const FunctionRows kMinmaxFunction;        // minmax_function.cpp
extern const FunctionRows kLabelFunctions;        // label_functions.cpp
extern const FunctionRows kProjectGetters;        // project_getters.cpp
extern const FunctionRows kExcelGetters;          // excel_getters.cpp
extern const FunctionRows kOtherFunctions;        // other_functions.cpp
extern const FunctionRows kUnavailableFunctions;  // unavailable_functions.cpp

}  // namespace korvane
