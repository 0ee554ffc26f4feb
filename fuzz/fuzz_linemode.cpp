// The Linemode lexer: every line of the input classified, keyed as the record
// table looks records up, and read as a minor option record with its comma
// fields.
#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "engine/engine_error.h"
#include "engine/input_file.h"
#include "engine/linemode_lexer.h"

using namespace korvane::engine;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  std::vector<std::string> lines;
  splitLines(std::string_view(reinterpret_cast<const char*>(data), size), lines);
  for (const std::string& line : lines) {
    if (classifyLine(line) != LineKind::Record) continue;
    recordKey(line);
    startsWithLetter(line);
    if (minorNumber(line) < 0) continue;
    try {
      Fields fields(line);
      // Field numbers come from the text ("N="); look at the first ones and the last.
      for (int n : {1, 2, 3, 4, 5, 6, 7, 8, 9, 10, fields.last() - 1, fields.last()}) {
        fields.has(n);
        fields.raw(n);
        try {
          fields.number(n);
          fields.integer(n);
        } catch (const EngineError& e) {
          if (*e.what() == '\0') __builtin_trap();  // a refusal always says why
        }
      }
    } catch (const EngineError& e) {
      if (*e.what() == '\0') __builtin_trap();
    }
  }
  return 0;
}
