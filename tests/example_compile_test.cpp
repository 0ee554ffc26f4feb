// `korvane compile` on the example project gives the same bytes on every
// system the program is built for. The expected output was written by the
// program (KORVANE_WRITE_GOLDEN=1) and read line by line before it was kept.
#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>

#include "base/fs.h"
#include "base/messages.h"
#include "support/project.h"

using namespace korvane;

namespace {

TEST(ExampleCompile, TheExampleProjectCompilesToTheSameBytesEverywhere) {
  test::TempProject project;
  std::filesystem::copy(test::sourceDir() + "/examples/road", project.folder(),
                        std::filesystem::copy_options::recursive);
  // The example reads its models while it compiles: the survey is loaded first.
  ASSERT_EQ(test::runKorvane(project.folder(), "models import survey/ground.genio GROUND",
                             "KORVANE_HOME='" + test::sourceDir() + "/data'"),
            0)
      << project.read("err.txt");
  ASSERT_EQ(test::runKorvane(project.folder(),
                             "compile 'inputs/road.ipf [main]' 'inputs/road.ipf [trim]'",
                             "KORVANE_HOME='" + test::sourceDir() + "/data'"),
            0)
      << project.read("err.txt");
  // The query files lie in the project folder, whose name differs from run to run.
  const std::string out = replaceAll(project.read("out.txt"),
                                     fs::withTrailingSeparator(project.folder()), "<project>/");
  const std::string expectedFile = test::sourceDir() + "/tests/example_road.compiled";
  if (std::getenv("KORVANE_WRITE_GOLDEN")) std::ofstream(expectedFile, std::ios::binary) << out;
  std::ifstream in(expectedFile, std::ios::binary);
  const std::string expected((std::istreambuf_iterator<char>(in)),
                             std::istreambuf_iterator<char>());
  ASSERT_FALSE(expected.empty()) << expectedFile;
  EXPECT_EQ(out, expected);
  EXPECT_EQ(out.find("\r\r"), std::string::npos);  // CR LF, never CR CR LF
}

}  // namespace
