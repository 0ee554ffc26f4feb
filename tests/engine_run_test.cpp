// Runs of Linemode input: the cases of tests/vectors/engine_runs.txt (what
// each record does to a model, and the message a bad one stops the run
// with), an import, and damaged input. What a failing run leaves and the
// listings: tests/engine_cases.
#include "engine/genio_records.h"
#include "support/engine.h"
#include "support/vectors.h"

using namespace korvane::engine;
using korvane::testing::EngineTest;

namespace {

const std::string kModelM = korvane::test::engineCase("strings_a_and_b");

class Runs : public EngineTest {
 protected:
  // The strings of M as "A 1 2/ 3; B 4": labels with the x of their points.
  std::string stringsOfM() {
    if (!engine_->modelExists("M")) return "no model M";
    std::string out;
    for (const StringRow& row : engine_->strings("M")) {
      out += (out.empty() ? "" : "; ") + row.header.label;
      for (const ModelPoint& p : load("M", row.header.label).points)
        out += " " + shortNumber(p.dims[0].num) + (p.gapAfter ? "/" : "");
    }
    return out;
  }
};

}  // namespace

TEST_F(Runs, GiveTheirVectors) {
  const std::string before = "A 1 2 3 4 5 6; B 1 2 3 4 5 6";
  for (const auto& v : korvane::test::readVectors("engine_runs.txt", 2)) {
    for (const ModelSummary& m : engine_->models()) ASSERT_EQ(run("dele," + m.name), "");
    ASSERT_EQ(run(kModelM), "");
    const std::string error = run(v.fields[0]);
    const std::string& expected = v.fields[1];
    if (expected.rfind("line ", 0) != 0) {
      EXPECT_EQ(error, "") << v.where;
      EXPECT_EQ(stringsOfM(), expected) << v.where;
      continue;
    }
    EXPECT_EQ(error, project_.path("input.txt") + ", " + expected) << v.where;
    const std::string at = "**** error at " + expected.substr(0, expected.find(':'));
    EXPECT_NE(listing().find(at), std::string::npos) << v.where;
    EXPECT_EQ(stringsOfM(), before) << v.where << ": not rolled back";
  }
}

// An import's lines are the body of a GENIO block for its model: a GENIO
// record names that model, FINISH and the end of the input end the block,
// other major options are refused.
TEST_F(Runs, AnImportReadsGenioRecordsIntoItsModel) {
  const std::string format = "001FORMAT(3F12.3)\n";
  const std::string point =
      "       1.000       2.000       3.000\n       0.000       0.000       0.000\n";
  const std::string in = project_.write("in.txt", "GENIO OTHER\n" + format + "080,A\n" + point +
                                                      "999\nMOSS\ngeni,X\n" + format + "080,B\n" +
                                                      point + "FINISH\ncrea,NEVER\n");
  ASSERT_EQ(engine_->importGenio(in, "M").error, "");
  EXPECT_EQ(labels("M"), (std::vector<std::string>{"A", "B"}));
  for (const char* model : {"OTHER", "X", "NEVER"}) EXPECT_FALSE(engine_->modelExists(model));
  const std::string bad = project_.write("bad.txt", format + "080,C\n" + point + "999\ncrea,N\n");
  EXPECT_EQ(engine_->importGenio(bad, "M").error,
            bad + ", line 6: an import reads GENIO records only; crea is not one: \"crea,N\"");
  EXPECT_EQ(labels("M"), (std::vector<std::string>{"A", "B", "C"}));  // the block before stays
}

TEST_F(Runs, DamagedInputEndsWithSuccessOrALocatedError) {
  // Deterministic byte damage to a valid input; the store stays usable.
  const std::string good = "crea,F\n" + std::string(kModelM) +
                           "geni,M\n001FORMAT(2(F12.3),A4)\n003,ORDR,4=1,1,2,3\n019,A,4=1\n"
                           "081\n999\nedit,M\n006,3=A,6=1,9=3\n005,3=B,9=2\n999\ndele,F\n";
  const std::string junk =
      ",=()/.-+0DdE \t\x01\xFF\xE1"
      "9";
  unsigned seed = 12345;
  auto next = [&seed] { return seed = seed * 1103515245u + 12345u; };
  for (int i = 0; i < 150; ++i) {
    std::string text = good;
    for (int k = 0; k < 3; ++k) {
      std::size_t at = next() % text.size();
      char c = junk[next() % junk.size()];
      switch (next() % 3) {
        case 0:
          text[at] = c;
          break;
        case 1:
          text.insert(at, 1, c);
          break;
        default:
          text.erase(at, 1);
      }
    }
    const std::string error = run(text);
    EXPECT_TRUE(error.empty() || error.find(", line ") != std::string::npos) << error;
  }
  EXPECT_EQ(run("crea,STILL\n"), "");
  EXPECT_TRUE(engine_->modelExists("STILL"));
}
