// Hungarian engineers name folders "Útépítés": a project folder and input
// files with accented names work on every path that touches the disk.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "base/codepage.h"
#include "base/fs.h"
#include "support/cli.h"

using namespace korvane;

namespace {

struct AccentedPaths : test::CliProject {};

TEST_F(AccentedPaths, RunAndModelsWorkInAnAccentedProjectFolder) {
  namespace stdfs = std::filesystem;
  // "Útépítés" and "főút.ipf" in the users' code page; "ő" is not in Latin-1.
  const std::string folder = project.path("\xDAt\xE9p\xEDt\xE9s");
  const std::string entry = fs::join(fs::join(folder, "inputs"), "f\xF5\xFAt.ipf");
  const stdfs::path root = fs::native(folder);
  stdfs::create_directories(root / "inputs");
  std::ofstream(fs::native(entry), std::ios::binary) << "crea,ROAD\r\n";
  const std::string where = " --project '" + test::asShown(folder) + "'";

  EXPECT_EQ(run("run '" + test::asShown(entry) + "'" + where), 0) << err();
  EXPECT_TRUE(stdfs::exists(root / "korvane-models.db"));
  EXPECT_TRUE(stdfs::exists(root / "tmpinput.txt"));
  EXPECT_EQ(run("models list" + where), 0) << err();
  EXPECT_NE(project.read("out.txt").find("ROAD"), std::string::npos);
  // Nothing was made under a mangled name beside it.
  int entries = 0;
  for (const auto& e : stdfs::directory_iterator(fs::native(project.folder())))
    entries += e.is_directory();
  EXPECT_EQ(entries, 2);  // the accented folder and the fixture's inputs folder
}

}  // namespace
