// Label arithmetic, getnextlabel and getfreelabel against the embedded
// engine, and getparam.
#include <gtest/gtest.h>

#include "engine/embedded_engine.h"
#include "functions/label_arithmetic.h"
#include "support/project.h"

using namespace korvane;

namespace {

TEST(LabelArithmetic, LabelsAreBase36NumbersInLowerCase) {
  EXPECT_EQ(labels::value("0"), 0);
  EXPECT_EQ(labels::value("z"), 35);
  EXPECT_EQ(labels::value("10"), 36);
  EXPECT_EQ(labels::value("A9"), 10 * 36 + 9);
  EXPECT_EQ(labels::value("zzzz"), 36 * 36 * 36 * 36 - 1);
  EXPECT_EQ(labels::value("a-"), 10 * 36 - 1);  // a character outside the digits counts -1
  EXPECT_EQ(labels::text(0), "0000");
  EXPECT_EQ(labels::text(36 * 36 + 35), "010z");
  EXPECT_EQ(labels::text(36 * 36 * 36 * 36 - 1), "zzzz");
  EXPECT_EQ(labels::text(36 * 36 * 36 * 36), "000");  // no valid first digit: shorter
  for (const char* l : {"0000", "ab12", "zz0a"}) EXPECT_EQ(labels::text(labels::value(l)), l);
}

TEST(LabelArithmetic, TheNextLabelKeepsTheLabelsLengthAndWraps) {
  const std::pair<const char*, const char*> cases[] = {
      {"a9", "aa"},   {"0z", "10"},     {"zz", "00"},     {"z", "0"}, {"AB0Z", "ab10"},
      {"abz", "ac0"}, {"zzzz", "0000"}, {"zzzy", "zzzz"}, {"0", "1"}, {"", ""}};
  for (const auto& [label, next] : cases) EXPECT_EQ(labels::next(label), next) << label;
}

// A project whose model M has the labels of `labels` (one point each).
struct Labels : ::testing::Test {
  test::TempProject project;
  test::Compiler c{project, {}, test::EngineChoice::Embedded};

  void model(const std::vector<std::string>& labels) {
    std::string genio = "001format(3f12.3)\r\n";
    for (const auto& l : labels)
      genio += "080," + l + ",,7=3\r\n000001.000000001.000000001.000\r\n" +
               "000000.000000000.000000000.000\r\n";
    project.write("m.genio", genio);
    auto* engine = dynamic_cast<engine::EmbeddedEngine*>(c.embedded.get());
    ASSERT_TRUE(engine->importGenio(project.path("m.genio"), "M").ok());
  }
  std::string eval(const std::string& expr) {
    project.write("q.ipf", "#v=" + expr + "\r\n");
    EXPECT_TRUE(c.compile("q.ipf")) << c.ctx.stop.message;
    return c.var("v");
  }
};

TEST_F(Labels, GetfreelabelSearchesDepthFirstInDigitOrder) {
  std::vector<std::string> used;
  for (const char* d = "0123456789ABCDEFGHIJKLMNOPQRSTUVWXYZ"; *d; ++d)
    used.push_back(std::string("AB0") + *d);  // every AB0?: the search goes on to AB1?
  used.push_back("AB10");
  used.push_back("Q");
  model(used);
  EXPECT_EQ(eval("getfreelabel(M,ab)"), "ab11");
  EXPECT_EQ(eval("getfreelabel(M,AB)"), "ab11");  // built in lower case
  EXPECT_EQ(eval("getfreelabel(M,ab0)"), "");     // all 36 taken
  EXPECT_EQ(eval("getfreelabel(M,cd)"), "cd00");
  EXPECT_EQ(eval("getfreelabel(M,q)"), "q000");  // "Q" itself is no four-character label
  EXPECT_EQ(eval("getfreelabel(M,abcd)"), "");   // the prefix must be 1 to 3 characters
  EXPECT_EQ(eval("getfreelabel(M,)"), "");
  EXPECT_EQ(eval("getfreelabel(NOPE,ab)"), "");
  EXPECT_EQ(eval("getnextlabel(M,AB)"), "AB11");  // after the highest
  EXPECT_EQ(eval("getnextlabel(M,ab0)"), "");     // the engine has none left: status -5
  EXPECT_EQ(c.ctx.query.status, -5);
  EXPECT_EQ(eval("getnextlabel(M,cd)"), "CD00");
  EXPECT_EQ(c.ctx.query.status, 0);
  EXPECT_EQ(eval("getnextlabel(M,)"), "");
  EXPECT_EQ(eval("getnextlabel(M,abcd)"), "");
  EXPECT_EQ(eval("getnextlabel(NOPE,ab)"), "");
}

TEST_F(Labels, GetfreelabelIsEmptyWhenThePrefixIsFull) {
  std::vector<std::string> used;
  for (int v = 0; v < 36 * 36; ++v) used.push_back("AB" + labels::text(v).substr(2));
  model(used);
  EXPECT_EQ(eval("getfreelabel(M,ab)"), "");
  EXPECT_EQ(eval("getfreelabel(M,a)"), "a000");
}

TEST_F(Labels, LabelQueriesSeeStringsCreatedJustAbove) {
  model({"GR00"});
  project.write("q.ipf",
                "#before=getfreelabel(M,gr)\r\n"
                "geni,M\r\n001format(3f12.3)\r\n080,|before|,,7=3\r\n"
                "000001.000000001.000000001.000\r\n000000.000000000.000000000.000\r\n999\r\n"
                "#after=getfreelabel(M,gr)\r\n#next=getnextlabel(M,gr)\r\n");
  ASSERT_TRUE(c.compile("q.ipf")) << c.ctx.stop.message;
  EXPECT_EQ(c.var("before"), "gr01");
  EXPECT_EQ(c.var("after"), "gr02");
  EXPECT_EQ(c.var("next"), "GR02");
}

struct Getparam : Labels {};

TEST_F(Getparam, ProjectFolderAndTheMxProjectFile) {
  EXPECT_EQ(eval("getparam(\"  ProjectDir \")"), project.folder());
  EXPECT_EQ(eval("getparam(mmdname)"), "");  // no project file yet
  EXPECT_EQ(eval("getparam(currentdpf)"), "");
  project.write("notes.mmd.txt", "CurrentDPF=notes");
  project.write("dir.mmd/inside.txt", "");
  EXPECT_EQ(eval("getparam(mmdname)"), "");  // neither is a project file
  project.write("Road.MMD", "[Project]\r\nName=road\r\nCurrentDPF=  long1 ");
  project.write("zz.mmd", "CurrentDPF=other");  // not the first by name
  EXPECT_EQ(eval("getparam(mmdname)"), "Road");
  EXPECT_EQ(eval("getparam(currentdpf)"), "long1");
}

TEST_F(Getparam, CurrentdpfKeepsItsQuirks) {
  // The 256 characters after the key are the value: a line end after it stays.
  project.write("p.mmd", "CurrentDPF=long1\r\nOther=1");
  EXPECT_EQ(eval("getparam(currentdpf)"), "long1\r\nOther=1");
  // Without the key: the text from its 11th character on.
  project.write("p.mmd", "0123456789abcdef   ");
  EXPECT_EQ(eval("getparam(currentdpf)"), "abcdef");
  std::string big(20000, 'x');
  project.write("p.mmd", big + "CurrentDPF=" + std::string(300, 'y'));
  EXPECT_EQ(eval("getparam(currentdpf)"), std::string(256, 'y'));
  project.write("p.mmd", "short");
  EXPECT_EQ(eval("getparam(currentdpf)"), "");
}

TEST_F(Getparam, OtherNamesAskTheParameterGroupsInTurn) {
  EXPECT_EQ(eval("getparam(engine)"), "embedded");  // group 1
  EXPECT_EQ(c.ctx.query.status, hosts::MxStatus::kFound);
  EXPECT_EQ(eval("getparam(CurrentModel)"), "");  // no query has named a model yet
  EXPECT_EQ(eval("getparam(nothing)"), "");
  EXPECT_EQ(c.ctx.query.status, hosts::MxStatus::kNoParameter);
}

TEST(GetparamSettings, TheSecondGroupHoldsTheSettings) {
  test::TempProject project;
  test::Compiler c{project, {{"PrivateMacros", "/m/private"}}, test::EngineChoice::Embedded};
  project.write("q.ipf", "#v=getparam(privatemacros)\r\n");
  ASSERT_TRUE(c.compile("q.ipf"));
  EXPECT_EQ(c.var("v"), "/m/private");
}

}  // namespace
