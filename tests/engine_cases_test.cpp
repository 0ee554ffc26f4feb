// Linemode runs kept as files: each tests/engine_cases/NAME.txt runs on a
// fresh project, and the listing it leaves, with the project folder written
// "<project>/", must equal NAME.lst. The listing shows every record, what it
// did, and the GENIO that 081 wrote, so a case shows both what was read and
// how it is written back. KORVANE_WRITE_GOLDEN=1 writes the .lst of every case
// from what the engine gives now: read each one before keeping it.
#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>

#include "base/fs.h"
#include "base/messages.h"
#include "support/engine.h"

namespace {

namespace stdfs = std::filesystem;

stdfs::path casesFolder() {
  return stdfs::path(korvane::test::sourceDir()) / "tests" / "engine_cases";
}

std::vector<std::string> caseNames() {
  std::vector<std::string> names;
  for (const auto& e : stdfs::directory_iterator(casesFolder()))
    if (e.path().extension() == ".txt") names.push_back(e.path().stem().string());
  std::sort(names.begin(), names.end());
  return names;
}

class EngineCase : public korvane::testing::EngineTest,
                   public ::testing::WithParamInterface<std::string> {};

TEST_P(EngineCase, ListsWhatItsInputDid) {
  const stdfs::path file = casesFolder() / GetParam();
  run(korvane::fs::readFile(file.string() + ".txt").value_or(""));
  const std::string got = korvane::replaceAll(
      listing(), korvane::fs::withTrailingSeparator(project_.folder()), "<project>/");
  if (std::getenv("KORVANE_WRITE_GOLDEN")) {
    std::ofstream(file.string() + ".lst", std::ios::binary) << got;
    return;
  }
  EXPECT_EQ(got, korvane::fs::readFile(file.string() + ".lst").value_or("(no .lst file)"));
}

INSTANTIATE_TEST_SUITE_P(Cases, EngineCase, ::testing::ValuesIn(caseNames()),
                         [](const auto& info) { return info.param; });

}  // namespace
