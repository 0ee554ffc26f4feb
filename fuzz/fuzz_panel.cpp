// Long-section panel files: the input is a panel file. What is read from it
// is written to a new file and read again; the two readings must agree, and
// writing the second gives the same file byte for byte, however long a value.
#include <cstddef>
#include <cstdint>
#include <string>

#include "base/fs.h"
#include "longsection/panel_file.h"
#include "support/project.h"

using namespace korvane;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static test::TempProject project;
  const std::string given =
      project.write("given.ipd", std::string(reinterpret_cast<const char*>(data), size));
  const longsection::Parameters first = longsection::readPanelFile(given);
  const std::string once = project.path("once.ipd"), twice = project.path("twice.ipd");
  fs::removeFile(once);
  fs::removeFile(twice);
  if (!longsection::writePanelFile(once, first)) return 0;  // refused: said so
  const longsection::Parameters second = longsection::readPanelFile(once);
  if (!longsection::writePanelFile(twice, second)) __builtin_trap();
  if (fs::readFile(once) != fs::readFile(twice)) __builtin_trap();
  return 0;
}
