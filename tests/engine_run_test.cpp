// Runs of Linemode input: model housekeeping, EDIT options, the error stop
// with rollback, and what bad input gets.
#include "support/engine.h"

using namespace korvane::engine;
using korvane::testing::EngineTest;
using namespace std::string_literals;

namespace {

// One 3D string of n points along x (x = 1..n, y = 1, z = x / 10), F format.
std::string line3(double x, double y, double z) {
  char buf[64];
  std::snprintf(buf, sizeof buf, "%12.3f%12.3f%12.3f", x, y, z);
  return buf;
}

std::string stringOf(const std::string& label, int n) {
  std::string s = "080," + label + "\n";
  for (int i = 1; i <= n; ++i) s += line3(i, 1, i / 10.0) + "\n";
  return s + line3(0, 0, 0) + "\n";
}

std::string modelWith(const std::string& model, const std::vector<std::string>& labels, int n) {
  std::string s = "geni," + model + "\n001FORMAT(3F12.3)\n";
  for (const auto& l : labels) s += stringOf(l, n);
  return s + "999\n";
}

std::vector<double> xs(const ModelString& s) {
  std::vector<double> out;
  for (const auto& p : s.points) out.push_back(p.dims[0].num);
  return out;
}

}  // namespace

TEST_F(EngineTest, RunCreatesAndDeletesModels) {
  ASSERT_EQ(run("MOSS\ncrea,it is just a flag model\nCREATE,Road Design\n"
                "dele,no such model\n   a comment line\n\ndele,it is just a flag model\n"),
            "");
  EXPECT_FALSE(engine_->modelExists("it is just a flag model"));
  EXPECT_TRUE(engine_->modelExists("ROAD DESIGN"));  // names compare without case
  ASSERT_EQ(run(modelWith("Road Design", {"A"}, 2) + "crea,road design\n"), "");
  EXPECT_EQ(labels("Road Design").size(), 1u);  // CREATE keeps an existing model
  // FINISH ends the input: nothing after it is read.
  ASSERT_EQ(run("FINISH\ndele,Road Design\nthis is not linemode\n"), "");
  EXPECT_TRUE(engine_->modelExists("Road Design"));
}

TEST_F(EngineTest, RunListingNamesEveryRecordWithItsLine) {
  ASSERT_EQ(
      run("crea,M\n   comment\ngeni,M\n001FORMAT(3F12.3)\n" + stringOf("AB", 3) + "999\ndele,M\n"),
      "");
  std::string l = listing();
  EXPECT_NE(l.find("     1  crea,M"), std::string::npos);
  EXPECT_NE(l.find("     2     comment"), std::string::npos);
  EXPECT_NE(l.find("     3  geni,M"), std::string::npos);
  EXPECT_NE(l.find("     5  080,AB"), std::string::npos);
  EXPECT_NE(l.find("string AB: 3 points"), std::string::npos);
  EXPECT_NE(l.find("    10  999"), std::string::npos);
  EXPECT_NE(l.find("    11  dele,M"), std::string::npos);
  EXPECT_NE(l.find("no errors"), std::string::npos);
}

TEST_F(EngineTest, RunErrorStopsAtLineAndRollsBackOnlyTheFailingMajor) {
  ASSERT_EQ(run(modelWith("OLD", {"A001"}, 3)), "");
  std::string error = run("crea,it is just a flag model\n" + modelWith("NEW", {"X1"}, 2) +
                          "geni,OLD\n001FORMAT(3F12.3)\n" + stringOf("A002", 2) +
                          "080,A001\n     1.000     oops\n999\n"
                          "dele,it is just a flag model\n");
  // The failing record is line 16; the message names the file, the line, the reason and the record.
  EXPECT_NE(error.find(path("input.txt") + ", line 16: "), std::string::npos) << error;
  EXPECT_NE(error.find("is not a number"), std::string::npos) << error;
  EXPECT_NE(error.find("\"     1.000     oops\""), std::string::npos) << error;
  // Earlier major options stay; the failing GENIO loaded nothing; later lines never ran.
  EXPECT_TRUE(engine_->modelExists("it is just a flag model"));
  EXPECT_EQ(labels("NEW"), (std::vector<std::string>{"X1"}));
  EXPECT_EQ(labels("OLD"), (std::vector<std::string>{"A001"}));
  EXPECT_EQ(load("OLD", "A001").points.size(), 3u);
  std::string l = listing();
  EXPECT_NE(l.find("**** error at line 16"), std::string::npos);
  EXPECT_NE(l.find("GENIO at line 9 rolled back"), std::string::npos) << l;
}

struct BadInput {
  const char* name;
  std::string text;
  int line;
  const char* reason;
};

TEST_F(EngineTest, RunBadInputStopsWithLineAndReason) {
  const std::string genio = "geni,M\n001FORMAT(3F12.3)\n";
  const std::vector<BadInput> cases = {
      {"malformed FORMAT", "geni,M\n001FORMAT(3D23.17\n999\n", 2, "missing ')'"},
      {"FORMAT without list", "geni,M\n001 FORMAT\n999\n", 2, "parenthesised list"},
      {"record wider than FORMAT", genio + "080,A\n" + line3(1, 2, 3) + "   4.0\n", 4,
       "longer than its FORMAT"},
      {"terminator missing before 999", genio + "080,A\n" + line3(1, 2, 3) + "\n999\n", 5,
       "no terminator"},
      {"terminator missing before 080", genio + "080,A\n" + line3(1, 2, 3) + "\n080,B\n", 5,
       "no terminator"},
      {"terminator missing at end", genio + "080,A\n" + line3(1, 2, 3) + "\n", 5, "no terminator"},
      {"empty record in points", genio + "080,A\n" + line3(1, 2, 3) + "\n\n", 5,
       "empty data record"},
      {"string without points", genio + "080,A\n" + line3(0, 0, 0) + "\n999\n", 4, "no points"},
      {"unknown major", "MOSS\nOUTPUT,report.txt\n", 2, "unknown major option 'OUTPUT'"},
      {"unknown minor in GENIO", "geni,M\n042,AB\n999\n", 2, "unknown minor option 042 in GENIO"},
      {"unknown minor in EDIT", modelWith("M", {"A"}, 3) + "edit,M\n007,3=A\n999\n", 10,
       "unknown minor option 007 in EDIT"},
      {"text for a number", modelWith("M", {"A"}, 3) + "edit,M\n005,3=A,6=two\n999\n", 10,
       "field 6 ('two') is not a number"},
      {"text in a data field", genio + "080,A\n     100.000        ABC     1.0\n", 4,
       "is not a number"},
      {"minor outside a major", "080,A\n", 1, "outside a major option"},
      {"GENIO never closed", genio + "017,NORM\n", 4, "not closed by 999"},
      {"major inside GENIO", genio + "dele,M\n", 3, "not closed by 999 before this major"},
      {"EDIT of a missing model", "edit,NOPE\n999\n", 1, "there is no model \"NOPE\""},
      {"EDIT of a missing string", "crea,M\nedit,M\n031,3=ZZ\n999\n", 3, "no string ZZ"},
      {"dimension out of range", "geni,M\n080,A,,,,,13\n", 2, "dimension 13 is not supported"},
      {"ORDR without x", "geni,M\n003,ORDR,4=1,2,3\n", 2, "dimensions 1 and 2"},
      {"bad mask mode", "geni,M\n019,AB,4=2\n", 2, "1 (include) or -1 (exclude)"},
      {"label too long", "geni,M\n080,ABCDE\n", 2, "at most 4 characters"},
      {"origin shift", "geni,M\n080,A,,5=10.0,0.0,3\n", 2, "origin shift"},
      {"redirect to another channel", "over,x.txt,draw\n", 1, "unknown channel 'draw'"},
      {"GENIO without model", "geni\n", 1, "needs a model name"},
      {"UTF-16 text", "\xFF\xFEm\0o\0s\0s\0\n"s, 1, "UTF-16"},
      {"NUL byte", "MOSS\ncrea,A\ncr\0a,B\n"s, 3, "NUL byte in column 3"},
  };
  for (const BadInput& c : cases) {
    std::string error = run(c.text);
    EXPECT_NE(error.find(", line " + std::to_string(c.line) + ": "), std::string::npos)
        << c.name << ": " << error;
    EXPECT_NE(error.find(c.reason), std::string::npos) << c.name << ": " << error;
    EXPECT_NE(listing().find("**** error at line " + std::to_string(c.line)), std::string::npos)
        << c.name;
    run("dele,M\n");
  }
}

TEST_F(EngineTest, RunReadsUtf8WithByteOrderMarkAsWindows1250) {
  // "Útterv" in UTF-8 after a byte-order mark; the model is named in Windows-1250.
  ASSERT_EQ(run("\xEF\xBB\xBF"
                "crea,\xC3\x9Atterv\r\n"),
            "");
  EXPECT_TRUE(engine_->modelExists("\xDAtterv"));
  EXPECT_TRUE(engine_->modelExists("\xFAtterv"));  // lower-case Windows-1250 letter
}

TEST_F(EngineTest, EditKeepsFirstPointsDeletesLeadingPointsAndStrings) {
  ASSERT_EQ(run(modelWith("M", {"A", "B", "C", "D"}, 6)), "");
  ASSERT_EQ(run("edit,M\n   trimming\n005,3=A,6=4\n005,3=B,9=3\n005,3=C,6=5,9=2\n031,3=D\n"
                "005,3=a,6=99\n999\n"),
            "");
  EXPECT_EQ(xs(load("M", "A")), (std::vector<double>{1, 2, 3, 4}));
  EXPECT_EQ(xs(load("M", "B")), (std::vector<double>{3, 4, 5, 6}));
  EXPECT_EQ(xs(load("M", "C")), (std::vector<double>{2, 3, 4, 5}));
  EXPECT_EQ(labels("M"), (std::vector<std::string>{"A", "B", "C"}));
  // Chainage is measured again on the cut string: B now starts at 0.
  korvane::hosts::PointRecord r;
  ASSERT_EQ(engine_->point("M", "B", 4, r), 0);
  EXPECT_DOUBLE_EQ(r.num[4], 3.0);
}

TEST_F(EngineTest, EditCutBetweenLeavesADiscontinuity) {
  ASSERT_EQ(run(modelWith("M", {"S"}, 8)), "");
  // As trimming emits them: from the end of the string backwards.
  ASSERT_EQ(run("edit,M\n006,3=S,6=5,9=8\n006,3=S,6=2,9=4\n006,3=S,6=1,9=2\n999\n"), "");
  ModelString s = load("M", "S");
  EXPECT_EQ(xs(s), (std::vector<double>{1, 2, 4, 5, 8}));
  std::vector<bool> gaps;
  for (const auto& p : s.points) gaps.push_back(p.gapAfter);
  EXPECT_EQ(gaps, (std::vector<bool>{true, true, false, true, false}));
  auto str = engine_->library().model("M")->string("S");
  auto pts = str->points();
  EXPECT_EQ(pts[3].Discontinuity, 1);
  EXPECT_EQ(pts[4].Discontinuity, 0);
}

TEST_F(EngineTest, EditRefusesImpossibleCutsAndRollsBack) {
  ASSERT_EQ(run(modelWith("M", {"S"}, 5)), "");
  for (const char* bad : {"006,3=S,6=4,9=2", "006,3=S,6=1,9=9", "005,3=S,6=0", "005,3=S,9=6",
                          "005,3=S", "006,3=S,6=2"}) {
    std::string error = run(std::string("edit,M\n005,3=S,6=3\n") + bad + "\n999\n");
    EXPECT_NE(error.find("line 3: "), std::string::npos) << bad << ": " << error;
    EXPECT_EQ(load("M", "S").points.size(), 5u) << bad;  // the first cut was rolled back too
  }
}

TEST_F(EngineTest, RunSurvivesDamagedInput) {
  // Deterministic byte damage to a valid input: every run ends with success or
  // a located error, and the store stays usable.
  const std::string good = "crea,F\n" + modelWith("M", {"A", "B"}, 4) +
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
    std::string error = run(text);
    if (!error.empty()) {
      EXPECT_NE(error.find(", line "), std::string::npos) << error;
    }
  }
  EXPECT_EQ(run("crea,STILL\n"), "");
  EXPECT_TRUE(engine_->modelExists("STILL"));
}
