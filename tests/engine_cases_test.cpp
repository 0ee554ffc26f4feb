// Linemode runs kept as files: each tests/engine_cases/NAME.txt runs on a
// fresh project, and the listing it leaves, with the project folder written
// "<project>/", must equal NAME.lst. The listing shows every record, what it
// did, and the GENIO that 081 wrote, so a case shows both what was read and
// how it is written back. A case whose first line is "*** show: models" has
// the models the run left after its listing, each with its strings' labels
// and point counts. KORVANE_WRITE_GOLDEN=1 writes the .lst of every case from
// what the engine gives now: read each one before keeping it.
#include "base/fs.h"
#include "base/messages.h"
#include "support/engine.h"
#include "support/vectors.h"

namespace {

class EngineCase : public korvane::testing::EngineTest,
                   public ::testing::WithParamInterface<std::string> {};

TEST_P(EngineCase, ListsWhatItsInputDid) {
  const std::string input = korvane::test::engineCase(GetParam());
  run(input);
  std::string got = listing();
  if (input.find("*** show: models") <= 3)  // the first line, after a byte-order mark
    for (const korvane::engine::ModelSummary& m : engine_->models()) {
      got += "model " + m.name + ":";
      for (const korvane::engine::StringRow& s : engine_->strings(m.name))
        got += " " + s.header.label + " (" + std::to_string(s.pointCount) + ")";
      got += "\n";
    }
  korvane::test::expectFileHolds(
      korvane::test::sourceDir() + "/tests/engine_cases/" + GetParam() + ".lst",
      korvane::replaceAll(got, korvane::fs::withTrailingSeparator(project_.folder()),
                          "<project>/"));
}

INSTANTIATE_TEST_SUITE_P(Cases, EngineCase,
                         ::testing::ValuesIn(korvane::test::caseNames("engine_cases", ".txt")),
                         [](const auto& info) { return korvane::test::testName(info.param); });

}  // namespace
