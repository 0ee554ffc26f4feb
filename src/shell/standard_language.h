// The input language as Korvane ships it: the compiler's directives, the
// extended commands and every function, put together once.
#pragma once

#include "compiler/language.h"

namespace korvane {

const LanguageTables& standardLanguage();

}  // namespace korvane
