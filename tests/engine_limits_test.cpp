// The engine's stated limits and the outputs it refuses: input that a fuzzer
// found to overflow the stack, loop for ages, overwrite the model store or
// fill messages with megabytes all ends with a short message at its line.
// The deepest FORMAT read and refused: tests/vectors/fortran_format.txt.
#include "engine/engine_limits.h"

#include <chrono>

#include "support/engine.h"

#ifndef _WIN32
#include <unistd.h>
#endif

using namespace korvane::engine;
using korvane::testing::EngineTest;
namespace fs = std::filesystem;

namespace {

const char* const kOneString =
    "geni,M\n001FORMAT(3F12.3)\n080,A\n"
    "       1.000       2.000       3.000\n       0.000       0.000       0.000\n999\n";

std::size_t occurrences(const std::string& text, const std::string& what) {
  std::size_t n = 0;
  for (std::size_t p = text.find(what); p != std::string::npos; p = text.find(what, p + 1)) ++n;
  return n;
}

}  // namespace

TEST_F(EngineTest, LimitsFormatNestingAndExpansionAreBounded) {
  // 40 000 unclosed parentheses; 30 000 closed ones (within the line limit).
  const std::string deep(40000, '(');
  const std::string closing(30000, ')');
  struct Case {
    const char* name;
    std::string record;
    const char* reason;
  };
  const std::vector<Case> cases = {
      {"unclosed", "001FORMAT(" + deep, "missing ')'"},
      {"deep and closed", "001FORMAT" + deep.substr(0, 30000) + "F5.1" + closing, "nested"},
      // Repeated groups of skips and record ends: 999^4 steps for one point.
      {"expanding", "001FORMAT(999(999(999(999(1X)))),3F5.1)", "expands"},
      {"many records", "001FORMAT(999(999(/)),3F5.1)", "expands"},
  };
  for (const Case& c : cases) {
    auto started = std::chrono::steady_clock::now();
    std::string error = run("geni,M\n" + c.record + "\n999\n");
    double seconds =
        std::chrono::duration<double>(std::chrono::steady_clock::now() - started).count();
    EXPECT_LT(seconds, 2.0) << c.name;
    EXPECT_NE(error.find(", line 2: malformed FORMAT"), std::string::npos)
        << c.name << ": " << error.substr(0, 300);
    EXPECT_NE(error.find(c.reason), std::string::npos) << c.name << ": " << error.substr(0, 300);
    EXPECT_LT(error.size(), 400u) << c.name;  // the record is not quoted whole
  }
}

TEST_F(EngineTest, LimitsOutputNeverOverwritesTheStoreOrTheListing) {
  ASSERT_EQ(run(kOneString), "");
  std::vector<std::string> targets = {
      "korvane-models.db",          project_.path("korvane-models.db"),
      "./sub/../korvane-models.db", "korvane-models.db-journal",
      "korvane-models.db-wal",      "korvane-models.db-shm",
      "korvane-engine.lst",
  };
#ifndef _WIN32
  const std::string db = project_.path("korvane-models.db");
  ASSERT_EQ(symlink(db.c_str(), project_.path("link.txt").c_str()), 0);
  ASSERT_EQ(link(db.c_str(), project_.path("hard.txt").c_str()), 0);
  targets.push_back("link.txt");
  targets.push_back("hard.txt");
#endif
  for (const std::string& target : targets) {
    std::string store = project_.read("korvane-models.db");
    fs::path file = fs::path(target).is_absolute() ? target : project_.path(target);
    bool existed = fs::exists(file);
    std::string before = existed ? project_.read(file.filename().string()) : "";
    std::string error = run("over," + target + ",genio\ngeni,M\n081\n999\n");
    EXPECT_NE(error.find(", line 1: OVER: "), std::string::npos) << target << ": " << error;
    EXPECT_NE(error.find("cannot go to the model store"), std::string::npos) << target;
    EXPECT_NE(listing().find("**** error at line 1"), std::string::npos) << target;
    EXPECT_TRUE(project_.read("korvane-models.db") == store) << target;  // left as it was
    if (target.find(".lst") != std::string::npos) continue;              // the run's own listing
    EXPECT_EQ(fs::exists(file), existed) << target;
    if (existed) {
      EXPECT_TRUE(project_.read(file.filename().string()) == before) << target;
    }
  }
  // The line before the refused one ran.
  EXPECT_NE(run("crea,B\nover,korvane-models.db,genio\n"), "");
  EXPECT_TRUE(engine_->modelExists("B"));
  EXPECT_EQ(load("M", "A").points.size(), 1u);
  // Any other file of the project is written as before.
  ASSERT_EQ(run("over,korvane-models.txt,genio\ngeni,M\n081\n999\n"), "");
  EXPECT_NE(project_.read("korvane-models.txt").find("080,A"), std::string::npos);
}

TEST_F(EngineTest, LimitsLineLengthIsStatedAndLongRecordsAreQuotedShort) {
  // A line beyond the limit is refused wherever it stands.
  std::string huge(100000, '7');
  for (const std::string& text :
       {"crea,A\n" + huge + "\n", "geni,M\n001FORMAT(3F12.3)\n080,A\n" + huge + "\n",
        "   " + huge + "\n"}) {
    std::string error = run(text);
    EXPECT_NE(error.find("longer than " + std::to_string(kMaxLineLength)), std::string::npos)
        << error.substr(0, 300);
    EXPECT_LT(error.size(), 400u);
    EXPECT_LT(listing().size(), 2000u);
  }
  // A bad data record within the limit: quoted once in the listing, short in the message.
  std::string record = std::string(50000, ' ') + "1.0";
  std::string error = run("geni,M\n001FORMAT(3F12.3)\n080,A\n" + record + "\n");
  EXPECT_NE(error.find("line 4: string A: data record longer than its FORMAT"), std::string::npos)
      << error.substr(0, 300);
  EXPECT_LT(error.size(), 400u);
  EXPECT_NE(error.find("...\""), std::string::npos);
  EXPECT_EQ(occurrences(listing(), std::string(1000, ' ') + "1.0"), 1u);
}

// Names and masks beyond their limits (labels: tests/vectors/engine_runs.txt;
// the longest name: the engine case utf8_model_names).
TEST_F(EngineTest, LimitsModelNamesAndMasks) {
  // A name of 10 MB given to an import: refused, and not quoted whole.
  const std::string name(10 << 20, 'N');
  korvane::hosts::MxRunResult r = engine_->importGenio(
      project_.write("points.txt", "080,A\n       1.000       2.000       3.000\n"), name);
  EXPECT_EQ(r.error, project_.path("points.txt") + ": model names have at most 64 characters; \"" +
                         std::string(kExcerptLength, 'N') + "...\" has 10485760");
  EXPECT_EQ(r.errorLine, 0);
  EXPECT_LT(listing().size(), 2000u);
  EXPECT_FALSE(engine_->modelExists(name));
  // Masks: at most MX's 1000 in one GENIO.
  std::string masks = "geni,M\n";
  for (int i = 0; i <= kMaxMasks; ++i) masks += "019,A,4=1\n";
  EXPECT_EQ(run(masks + "999\n"), project_.path("input.txt") +
                                      ", line 1002: 019: at most 1000 masks in one GENIO: "
                                      "\"019,A,4=1\"");
}
