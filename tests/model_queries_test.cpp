// The model-query functions against the embedded engine: every query reads
// the model as the lines compiled just above it left it. Geometry is chosen
// so that distances and lengths are exact: 3-4-5 and 6-8-10 triangles, and a
// 3-4-12 one whose slope length is 13.
#include "compiler/model_queries.h"

#include <gtest/gtest.h>

#include <cstdio>

#include "compiler/call_context.h"
#include "hosts/embedded/embedded_engine.h"
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

TEST_F(Queries, PointsAndChainagesOfTheModelBuiltJustAbove) {
  ASSERT_TRUE(
      compile("#x1=getpoint(T,S1,1,num,1)\r\n"
              "#z2=getpoint(T,S1,2,num,3)\r\n"
              "#ch2=getpoint(T,S1,2,num,5)\r\n"
              "#chLast=getpoint(T,S1,-1,num,5)\r\n"
              "#yBeforeLast=getpoint(T,s1,-2,num,2)\r\n"
              "#count=getpoint(T,S1,0,num,1)\r\n"
              "#countEmpty=getpoint(T,S1,,txt,13)\r\n"
              "#label=getpoint(T,S1,2,TXT,13)\r\n"
              "#model=getpoint(t,S1,2,txt,15)\r\n"
              "#other=getpoint(T,S1,2,xyz,1)\r\n"
              "#c2=getchain(T,S1,2)\r\n"
              "#c0=getchain(T,S1,0)\r\n"
              "#cGap=getchain(T,S2,3)\r\n"));
  EXPECT_EQ(c.var("x1"), "10");
  EXPECT_EQ(c.var("z2"), "112");
  EXPECT_EQ(c.var("ch2"), "5");
  EXPECT_EQ(c.var("chLast"), "15");
  EXPECT_EQ(c.var("yBeforeLast"), "14");
  EXPECT_EQ(c.var("count"), "3");  // point 0: the count, not field 1
  EXPECT_EQ(c.var("countEmpty"), "3");
  EXPECT_EQ(c.var("label"), "S1");
  EXPECT_EQ(c.var("model"), "T");
  EXPECT_EQ(c.var("other"), "");  // neither "txt" nor "num"
  EXPECT_EQ(c.var("c2"), "5");
  EXPECT_EQ(c.var("c0"), "15");   // 0 is the last point
  EXPECT_EQ(c.var("cGap"), "5");  // the gap after point 2 adds nothing
  EXPECT_EQ(c.ctx.query.status, 0);
}

TEST_F(Queries, AQueryAfterAChangeSeesTheChange) {
  ASSERT_TRUE(
      compile("#before=getpoint(T,S1,0,num,1)\r\n"
              "edit,T\r\n005,3=S1,6=2\r\n999\r\n"
              "#after=getpoint(T,S1,0,num,1)\r\n"
              "#last=getchain(T,S1,-1)\r\n"));
  EXPECT_EQ(c.var("before"), "3");
  EXPECT_EQ(c.var("after"), "2");
  EXPECT_EQ(c.var("last"), "5");
}

TEST_F(Queries, AFailedGetpointGivesZeroAndAnOutputsLine) {
  ASSERT_TRUE(
      compile("#m=\"T \"\r\n"
              "#noString=getpoint(m,NO,1,num,1)\r\n"
              "#noPoint=getpoint(T,S1,4,num,1)\r\n"
              "#noModel=getpoint(NOPE,S1,1,num,1)\r\n"
              "#noStringCount=getpoint(T,NO,0,num,1)\r\n"));
  EXPECT_EQ(c.var("noString"), "0");
  EXPECT_EQ(c.var("noPoint"), "0");
  EXPECT_EQ(c.var("noModel"), "0");
  EXPECT_EQ(c.var("noStringCount"), "0");
  const std::string s7 = "   " + c.ctx.text("Outputs", "s7");
  const Lines tail(c.lines.end() - 4, c.lines.end());
  EXPECT_EQ(tail, (Lines{s7 + "(T,NO)", s7 + "(T,S1)", s7 + "(NOPE,S1)", s7 + "(T,NO)"}));
  EXPECT_EQ(c.ctx.query.status, -2);
}

TEST_F(Queries, GetchainAndGetdataLeaveTheStatusAndTheLastRecord) {
  ASSERT_TRUE(
      compile("#good=getchain(T,S1,2)\r\n"
              "#stale=getchain(T,NO,1)\r\n"));
  EXPECT_EQ(c.var("good"), "5");
  EXPECT_EQ(c.var("stale"), "5");  // the record of the last query that found its point
  EXPECT_EQ(c.ctx.query.status, -2);
}

TEST_F(Queries, GetdataCountsRecordsThroughTheStringsOfTheCurrentModel) {
  // After the GENIO of T, records run S1 1-3, then S2 1-4.
  ASSERT_TRUE(
      compile("#x1=getdata(1,num,1)\r\n"
              "#label3=getdata(3,txt,13)\r\n"
              "#x4=getdata(4,num,1)\r\n"
              "#number5=getdata(5,num,14)\r\n"
              "#broken5=getdata(5,num,15)\r\n"
              "#missing=getdata(999,num,1)\r\n"));
  EXPECT_EQ(c.var("x1"), "10");
  EXPECT_EQ(c.var("label3"), "S1");
  EXPECT_EQ(c.var("x4"), "1");
  EXPECT_EQ(c.var("number5"), "2");  // point 2 of S2
  EXPECT_EQ(c.var("broken5"), "1");  // S2 is broken after its point 2
  EXPECT_EQ(c.var("missing"), "4");  // the record before (point 2 of S2) stays
  EXPECT_EQ(c.ctx.query.status, -3);
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

TEST_F(Queries, GetdistPlanAndSlopeDistancesAndEveryErrorCode) {
  ASSERT_TRUE(
      compile("#plan=getdist(T,S1,1,T,S1,2)\r\n"
              "#slope=getdistance(T,S1,1,T,S1,2,slope)\r\n"
              "#slop=getdist(T,S1,1,T,S1,2,slop)\r\n"
              "#sloped=getdist(T,S1,1,T,S1,2,sl)\r\n"
              "#ends=getdist(T,S1,1,T,S1,-1)\r\n"
              "#across=getdist(T,S2,2,T,S1,1)\r\n"
              "#e11=getdist(NOPE,S1,1,T,S1,1)\r\n"
              "#e12=getdist(T,NO,1,T,S1,1)\r\n"
              "#e13zero=getdist(T,S1,0,T,S1,1)\r\n"
              "#e13high=getdist(T,S1,4,T,S1,1)\r\n"
              "#e13low=getdist(T,S1,-4,T,S1,1)\r\n"
              "#e21=getdist(T,S1,1,NOPE,S1,1)\r\n"
              "#e22=getdist(T,S1,1,T,NO,1)\r\n"
              "#e23=getdist(T,S1,1,T,S1,0)\r\n"
              "#first=getdist(NOPE,S1,1,NOPE,S1,1)\r\n"));
  EXPECT_EQ(c.var("plan"), "5");
  EXPECT_EQ(c.var("slope"), "13");
  EXPECT_EQ(c.var("slop"), "13");
  EXPECT_EQ(c.var("sloped"), "5");   // "slop" is needed
  EXPECT_EQ(c.var("ends"), "15");    // (10,10) to (19,22)
  EXPECT_EQ(c.var("across"), "10");  // (4,2) to (10,10)
  EXPECT_EQ(c.var("e11"), "-11");
  EXPECT_EQ(c.var("e12"), "-12");
  EXPECT_EQ(c.var("e13zero"), "-13");
  EXPECT_EQ(c.var("e13high"), "-13");
  EXPECT_EQ(c.var("e13low"), "-13");
  EXPECT_EQ(c.var("e21"), "-21");
  EXPECT_EQ(c.var("e22"), "-22");
  EXPECT_EQ(c.var("e23"), "-23");
  EXPECT_EQ(c.var("first"), "-11");  // the first point is checked first
}

TEST_F(Queries, GetlengthSkipsGapsAndIgnoresLevelsInPlan) {
  ASSERT_TRUE(
      compile("#slope=getlength(T,S1)\r\n"
              "#plan=getlength(T,S1,Plan)\r\n"
              "#gap=getlength(T,S2)\r\n"
              "#single=getlength(T,A1)\r\n"));
  EXPECT_EQ(c.var("slope"), "23");
  EXPECT_EQ(c.var("plan"), "15");
  EXPECT_EQ(c.var("gap"), "15");
  EXPECT_EQ(c.var("single"), "0");
  EXPECT_EQ(c.ctx.query.pointCount, 1);
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
  auto* engine = dynamic_cast<hosts::embedded::EmbeddedEngine*>(c.embedded.get());
  ASSERT_TRUE(engine->importGenio(project.path("long.genio"), "LONG").ok());

  ASSERT_TRUE(compile("#v=getlength(LONG,L7,plan)\r\n"));
  EXPECT_EQ(c.var("v"), "163830");  // 32766 segments of 5
  EXPECT_FALSE(compile("#v=getlength(LONG,L8)\r\n"));
  EXPECT_EQ(failure(), "getlength: the string L8 has more than 32767 points");
}

TEST_F(Queries, GetminmaxKeepsANullFirstLevelAndDeletesItsFile) {
  ASSERT_TRUE(compile("#v=getminmax(T,LV)\r\n"));
  // The null first level stays the minimum; the later 9 ties and keeps the earlier position.
  EXPECT_EQ(c.var("v"), "Pmin:     1,Pmax:     4");
  EXPECT_FALSE(project.exists("tmpminmax.txt"));
  const std::string file = project.path("tmpminmax.txt");
  const Lines asked = {
      "over," + file + ",genio", "geni,T", "001format(8f12.3,4a4)", "081,LV", "999", "over,,genio"};
  ASSERT_GE(c.lines.size(), asked.size());
  EXPECT_EQ(Lines(c.lines.end() - 6, c.lines.end()), asked);
}

TEST_F(Queries, GetminmaxSkipsNullLevelsAndComparesInSinglePrecision) {
  // Levels 7, 3, -999, -998, 2, 2, 123456.788, 123456.789: the nulls are never
  // the minimum, the two 2s tie, and the two highest levels are one single-
  // precision number, so the first of them stays the maximum.
  std::string rest = "geni,T\r\n001format(3f12.3)\r\n080,LW,,7=3\r\n";
  const double levels[] = {7, 3, -999, -998, 2, 2, 123456.788, 123456.789};
  for (int i = 0; i < 8; ++i) rest += pt(1 + i, 2, levels[i]) + "\r\n";
  rest += end(0) + "\r\n999\r\n#v=getminmax(T,LW)\r\n";
  ASSERT_TRUE(compile(rest));
  EXPECT_EQ(c.var("v"), "Pmin:     5,Pmax:     7");
}

TEST_F(Queries, GetminmaxOfAStringThatIsNotThereGivesOneAndOne) {
  ASSERT_TRUE(compile("#v=getminmax(T,NO)\r\n#w=getminmax(NOPE,S1)\r\n"));
  EXPECT_EQ(c.var("v"), "Pmin:     1,Pmax:     1");
  EXPECT_EQ(c.var("w"), "Pmin:     1,Pmax:     1");
  EXPECT_FALSE(project.exists("tmpminmax.txt"));
}

TEST_F(Queries, EachFillsTheListThatRepeatIterates) {
  project.write("one.ipm", "repeat\r\n   |count| |each|\r\nendrepeat\r\n");
  ASSERT_TRUE(
      compile("#s=each(T,S)\r\n"
              "#a=each(T,a)\r\n"
              "#digit=each(T,\"S#\")\r\n"
              "#star=each(T,\"L*\")\r\n"
              "#none=each(T,Q)\r\n"
              "insert,one\r\nrepeat=each(T,\"A\")\r\n"));
  EXPECT_EQ(c.var("s"), "each0000002");
  EXPECT_EQ(c.var("a"), "each0000002");  // A1 (a short label ends in blanks) and AB12
  EXPECT_EQ(c.var("digit"), "each0000002");
  EXPECT_EQ(c.var("star"), "each0000001");
  EXPECT_EQ(c.var("none"), "each0000000");
  EXPECT_EQ(c.ctx.selection, (Lines{"A1", "AB12"}));
  EXPECT_EQ(Lines(c.lines.end() - 2, c.lines.end()), (Lines{"   1 A1", "   2 AB12"}));
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
