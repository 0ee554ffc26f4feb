// Label arithmetic and getfreelabel on a full prefix; the rest of
// getfreelabel, getnextlabel and getparam are the golden cases
// getfreelabel_depth_first, getparam_names, getparam_currentdpf_quirks and
// label_queries_see_new_strings.
#include <gtest/gtest.h>

#include "engine/embedded_engine.h"
#include "functions/label_arithmetic.h"
#include "support/project.h"
#include "support/vectors.h"

using namespace korvane;

namespace {

TEST(LabelArithmetic, Vectors) {
  for (const auto& v : test::readVectors("labels.txt", 3)) {
    const std::string &operation = v.fields[0], &given = v.fields[1];
    const std::string got = operation == "value"  ? std::to_string(labels::value(given))
                            : operation == "text" ? labels::text(std::stoll(given))
                                                  : labels::next(given);
    EXPECT_EQ(got, v.fields[2]) << v.where;
  }
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
    EXPECT_TRUE(c.compile("q.ipf")) << c.stopMessage();
    return c.var("v");
  }
};

TEST_F(Labels, GetfreelabelIsEmptyWhenThePrefixIsFull) {
  std::vector<std::string> used;
  for (int v = 0; v < 36 * 36; ++v) used.push_back("AB" + labels::text(v).substr(2));
  model(used);
  EXPECT_EQ(eval("getfreelabel(M,ab)"), "");
  EXPECT_EQ(eval("getfreelabel(M,a)"), "a000");
}

}  // namespace
