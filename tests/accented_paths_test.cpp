// Hungarian engineers name folders "Útépítés": a project folder and input
// files with accented names work on every path that touches the disk.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "support/cli.h"

using namespace korvane;

namespace {

struct AccentedPaths : test::CliProject {};

TEST_F(AccentedPaths, RunAndModelsWorkInAnAccentedProjectFolder) {
  namespace stdfs = std::filesystem;
  // "Útépítés" and "főút.ipf" as the file system spells them (UTF-8).
  const std::string folder = "\xC3\x9At\xC3\xA9p\xC3\xADt\xC3\xA9s";
  const stdfs::path root = stdfs::path(project.folder()) / folder;
  stdfs::create_directories(root / "inputs");
  std::ofstream(root / "inputs" / "f\xC5\x91\xC3\xBAt.ipf", std::ios::binary) << "crea,ROAD\r\n";
  const std::string where = " --project '" + root.string() + "'";

  const std::string entry = (root / "inputs" / "f\xC5\x91\xC3\xBAt.ipf").string();
  EXPECT_EQ(run("run '" + entry + "'" + where), 0) << err();
  EXPECT_TRUE(stdfs::exists(root / "korvane-models.db"));
  EXPECT_TRUE(stdfs::exists(root / "tmpinput.txt"));
  EXPECT_EQ(run("models list" + where), 0) << err();
  EXPECT_NE(project.read("out.txt").find("ROAD"), std::string::npos);
  // Nothing was made under a mangled name beside it.
  int entries = 0;
  for (const auto& e : stdfs::directory_iterator(project.folder())) entries += e.is_directory();
  EXPECT_EQ(entries, 2);  // the accented folder and the fixture's inputs folder
}

}  // namespace
