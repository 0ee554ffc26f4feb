// The profile (ini) reader and writer. The first three lines are a section,
// a key and a value; the rest is the file. The key is read, written and read
// again: a plain key written into any file must read back as written (whole,
// and cut where the settings reader cuts).
#include <cctype>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "base/profile.h"
#include "fuzz_lines.h"
#include "support/project.h"

using namespace korvane;
using korvane::fuzz::nextLine;

namespace {

bool plain(std::string_view s) {
  if (s.empty()) return false;
  for (char c : s)
    if (!std::isalnum(static_cast<unsigned char>(c))) return false;
  return true;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static test::TempProject project;
  std::string_view text(reinterpret_cast<const char*>(data), size);
  std::string_view section = nextLine(text), key = nextLine(text), value = nextLine(text);
  std::string file = project.write("p.ini", std::string(text));

  std::int32_t status = 0;
  ReadProfileString(section, key, file, &status);
  std::string written = WriteProfileString(section, key, value, file, &status);
  std::string back = ReadProfileString(section, key, file, &status);
  // Read whole, or as the language reads settings: cut at 127 characters.
  if (plain(section) && plain(key) && plain(value) &&
      (written != "1" || back != value.substr(0, kProfileValueMax) ||
       ReadProfileValue(section, key, file) != value))
    __builtin_trap();
  return 0;
}
