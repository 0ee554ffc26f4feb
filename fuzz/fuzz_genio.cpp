// The embedded engine's GENIO reader and its FORMAT parser, on a fresh
// project each time. The first line is also parsed as a FORMAT on its own;
// a format that parses must lay out any number of items and read back from
// its own text. The whole input then runs: as an input file when the first
// byte is even, else as GENIO records imported into a model.
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "engine/embedded_engine.h"
#include "engine/engine_error.h"
#include "engine/fortran_format.h"
#include "support/project.h"

using namespace korvane;
using namespace korvane::engine;

namespace {

void checkFormat(std::string_view descriptors, int items) {
  std::optional<FortranFormat> format;
  try {
    format = FortranFormat::parse(descriptors);
  } catch (const EngineError&) {
    return;  // refused: nothing more to check
  }
  try {
    format->layout(items);
  } catch (const EngineError&) {
    // a format may be unable to place many items; it must say so, not crash
  }
  if (!(FortranFormat::parse(format->text()) == *format)) __builtin_trap();  // reads back
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size == 0) return 0;
  std::string_view text(reinterpret_cast<const char*>(data), size);
  std::string_view first = text.substr(0, text.find('\n'));
  if (first.substr(0, 9) == "001FORMAT") checkFormat(first.substr(9), data[size - 1] % 64);

  test::TempProject project;
  engine::EngineOptions options;
  options.projectFolder = project.folder();
  std::string error;
  auto engine = EmbeddedEngine::create(options, error);
  if (!engine) __builtin_trap();  // an empty folder always takes an engine
  std::string input = project.write("input.txt", std::string(text));
  if (data[0] % 2 == 0)
    engine->configuration().run("input", input);
  else
    engine->importGenio(input, "M");
  return 0;
}
