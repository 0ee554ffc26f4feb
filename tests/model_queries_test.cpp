// The model-query functions against the embedded engine where the golden
// cases model_queries, model_queries_values and model_query_failures cannot
// reach: long strings and the chainage arguments of the extended commands.
#include "compiler/extension/model_queries.h"

#include <gtest/gtest.h>

#include <cstdio>

#include "engine/embedded_engine.h"
#include "support/project.h"

using namespace korvane;

namespace {

// One point under FORMAT(3F12.3), zero-padded so that no line begins with blanks.
std::string pt(double x, double y, double z) {
  char line[64];
  std::snprintf(line, sizeof line, "%012.3f%012.3f%012.3f", x, y, z);
  return line;
}

std::string end(double z) { return pt(0, 0, z); }

// Model T: S1 (10,10) (13,14) (19,22), chainages 0, 5 and 15; S2 (1,-2)
// (4,2) | break | (100,100) (106,108): the gap adds nothing, it ends at 15.
std::string buildT() {
  std::string text = "geni,T\r\n001format(3f12.3)\r\n080,S1,,7=3\r\n";
  for (const std::string& p : {pt(10, 10, 100), pt(13, 14, 112), pt(19, 22, 112), end(112)})
    text += p + "\r\n";
  text += "080,S2,,7=3,10=2\r\n";
  for (const std::string& p : {pt(1, -2, 0), pt(4, 2, 0), pt(100, 100, 0), pt(106, 108, 0), end(0)})
    text += p + "\r\n";
  return text + "999\r\n";
}

struct Queries : ::testing::Test {
  test::TempProject project;
  test::Compiler c{project, {}, test::EngineChoice::Embedded};

  // Compiles the lines that build model T followed by `rest`.
  bool compile(const std::string& rest) {
    project.write("q.ipf", buildT() + rest);
    return c.compile("q.ipf");
  }
};

TEST_F(Queries, GetlengthRefusesStringsOfMoreThan32767Points) {
  // Two long strings loaded straight into the engine: 32767 points are
  // measured, 32768 are refused.
  std::string genio = "001format(3f12.3)\r\n";
  for (int n : {32767, 32768}) {
    genio += "080,L" + std::to_string(n % 10) + ",,7=3\r\n";
    for (int i = 0; i < n; ++i) genio += pt(1 + 3 * i, 1 + 4 * i, 0) + "\r\n";
    genio += end(0) + "\r\n";
  }
  project.write("long.genio", genio);
  auto* engine = dynamic_cast<engine::EmbeddedEngine*>(c.embedded.get());
  ASSERT_TRUE(engine->importGenio(project.path("long.genio"), "LONG").ok());

  ASSERT_TRUE(compile("#v=getlength(LONG,L7,plan)\r\n"));
  EXPECT_EQ(c.var("v"), "163830");  // 32766 segments of 5
  EXPECT_FALSE(compile("#v=getlength(LONG,L8)\r\n"));
  EXPECT_EQ(c.failure(), "getlength: the string L8 has more than 32767 points");
}

TEST_F(Queries, ChainageArgumentsOfTheExtendedCommands) {
  ASSERT_TRUE(compile(""));
  CallContext call(c.ctx);
  EXPECT_EQ(chainageArgument(call, "e", "T", "S1"), 0);
  EXPECT_EQ(chainageArgument(call, "Ende", "T", "S1"), 0);
  EXPECT_EQ(chainageArgument(call, "u", "T", "S1"), 15);
  EXPECT_EQ(chainageArgument(call, "Ultimo", "T", "S2"), 15);
  EXPECT_EQ(chainageArgument(call, "12.5abc", "T", "S1"), 12.5);
  EXPECT_EQ(chainageArgument(call, "x", "T", "S1"), 0);
  EXPECT_EQ(chainageArgument(call, "", "T", "S1"), 0);
}

}  // namespace
