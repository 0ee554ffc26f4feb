// The model-query functions against the embedded engine: every query reads
// the model as the lines compiled just above it left it. Geometry is chosen
// so that distances and lengths are exact: 3-4-5 and 6-8-10 triangles, and a
// 3-4-12 one whose slope length is 13.
#include "compiler/model_queries.h"

#include <gtest/gtest.h>

#include <cstdio>

#include "compiler/call_context.h"
#include "engine/embedded_engine.h"
#include "support/project.h"

using namespace korvane;
using Lines = std::vector<std::string>;

namespace {

// One point under FORMAT(3F12.3), zero-padded so that no line begins with blanks.
std::string pt(double x, double y, double z) {
  char line[64];
  std::snprintf(line, sizeof line, "%012.3f%012.3f%012.3f", x, y, z);
  return line;
}

std::string end(double z) { return pt(0, 0, z); }

// Model T:
//  S1  (10,10,100) (13,14,112) (19,22,112): plan 5 + 10, slope 13 + 10
//  S2  (1,-2,0) (4,2,0) | break | (100,100,0) (106,108,0): 5 + 10, the gap not counted
//  LV  levels -999 5 3 9 3 9 (a null first level)
//  A1, AB12: labels for the wildcard list
std::string buildT() {
  Lines l = {"geni,T",
             "001format(3f12.3)",
             "003,ordr,4=1,1,2,3",
             "080,S1,,7=3",
             pt(10, 10, 100),
             pt(13, 14, 112),
             pt(19, 22, 112),
             end(112),
             "080,S2,,7=3,10=2",
             pt(1, -2, 0),
             pt(4, 2, 0),
             pt(100, 100, 0),
             pt(106, 108, 0),
             end(0),
             "080,LV,,7=3"};
  const double levels[] = {-999, 5, 3, 9, 3, 9};
  for (int i = 0; i < 6; ++i) l.push_back(pt(1 + i, 1, levels[i]));
  l.push_back(end(9));
  for (const char* label : {"A1", "AB12"}) {
    l.push_back(std::string("080,") + label + ",,7=3");
    l.push_back(pt(1, 1, 1));
    l.push_back(end(1));
  }
  l.push_back("999");
  std::string text;
  for (const auto& s : l) text += s + "\r\n";
  return text;
}

struct Queries : ::testing::Test {
  test::TempProject project;
  test::Compiler c{project, {}, test::EngineChoice::Embedded};

  // Compiles the lines that build model T followed by `rest`.
  bool compile(const std::string& rest) {
    project.write("q.ipf", buildT() + rest);
    return c.compile("q.ipf");
  }
  std::string failure() const { return c.ctx.failure ? c.ctx.failure->description : "<none>"; }
};

// What the queries give is the golden case model_queries_values; here the
// status word and point count they leave behind, and the query file removed.
TEST_F(Queries, TheStatusWordOfTheLastCallAndNoQueryFileLeft) {
  ASSERT_TRUE(compile("#v=getpoint(T,S1,1,num,1)\r\n"));
  EXPECT_EQ(c.ctx.query.status, 0);
  ASSERT_TRUE(compile("#v=getchain(T,NO,1)\r\n"));
  EXPECT_EQ(c.ctx.query.status, -2);
  ASSERT_TRUE(compile("#v=getdata(999,num,1)\r\n"));
  EXPECT_EQ(c.ctx.query.status, -3);
  ASSERT_TRUE(compile("#w=getminmax(T,LV)\r\n#x=getminmax(T,NO)\r\n#v=getlength(T,A1)\r\n"));
  EXPECT_EQ(c.ctx.query.pointCount, 1);
  EXPECT_FALSE(project.exists("tmpminmax.txt"));
}

TEST_F(Queries, AFieldNumberOutside1To16FailsWithFileAndLine) {
  for (const std::string call : {"getdata(1,num,17)", "getdata(1,txt,0)", "getpoint(T,S1,1,num,17)",
                                 "getpoint(T,S1,1,txt,-1)"}) {
    SCOPED_TRACE(call);
    EXPECT_FALSE(compile("#ok=1\r\n#v=" + call + "\r\n"));
    EXPECT_NE(failure().find("is not between 1 and 16"), std::string::npos) << failure();
    ASSERT_TRUE(c.ctx.failure);
    EXPECT_EQ(c.ctx.failure->file, project.path("q.ipf"));
    EXPECT_EQ(c.ctx.failure->lineText, "#v=" + call);
  }
}

TEST_F(Queries, GetlengthAndEachFailWithoutTheirModelOrString) {
  EXPECT_FALSE(compile("#v=getlength(NOPE,S1)\r\n"));
  EXPECT_EQ(failure(), "There is no model \"NOPE\"");
  EXPECT_FALSE(compile("#v=getlength(T,NO)\r\n"));
  EXPECT_EQ(failure(), "The model \"T\" has no string NO");
  EXPECT_FALSE(compile("#v=each(NOPE,S)\r\n"));
  EXPECT_EQ(failure(), "There is no model \"NOPE\"");
  EXPECT_TRUE(c.ctx.selection.empty());
}

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
  EXPECT_EQ(failure(), "getlength: the string L8 has more than 32767 points");
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
