// `korvane compile` on the example project gives the same bytes on every
// system the program is built for. The expected output was written by the
// program (KORVANE_WRITE_GOLDEN=1) and read line by line before it was kept.
#include <gtest/gtest.h>

#include <cstdlib>
#include <fstream>

#include "base/fs.h"
#include "base/messages.h"
#include "support/cli.h"

namespace korvane::test {
namespace {

using ExampleCompile = ExampleProject;

TEST_F(ExampleCompile, TheExampleProjectCompilesToTheSameBytesEverywhere) {
  // The example reads its models while it compiles: the survey is loaded first.
  ASSERT_EQ(run("models import survey/ground.genio GROUND"), 0) << err();
  ASSERT_EQ(run("compile 'inputs/road.ipf [main]' 'inputs/road.ipf [trim]'"), 0) << err();
  // The query files lie in the project folder, whose name differs from run to run.
  const std::string got =
      replaceAll(out(), fs::withTrailingSeparator(project.folder()), "<project>/");
  const std::string expectedFile = sourceDir() + "/tests/example_road.compiled";
  if (std::getenv("KORVANE_WRITE_GOLDEN")) std::ofstream(expectedFile, std::ios::binary) << got;
  std::ifstream in(expectedFile, std::ios::binary);
  const std::string expected((std::istreambuf_iterator<char>(in)),
                             std::istreambuf_iterator<char>());
  ASSERT_FALSE(expected.empty()) << expectedFile;
  EXPECT_EQ(got, expected);
  EXPECT_EQ(got.find("\r\r"), std::string::npos);  // CR LF, never CR CR LF
}

}  // namespace
}  // namespace korvane::test
