// Hungarian engineers name project folders "Útépítés főút". On Windows the
// embedded engine gets that name in the ANSI code page (1250 with a Hungarian
// locale); its model store, its listing and the GENIO files it writes must
// land in that very folder, as Windows spells it, and nowhere beside it.
// "ő" is the letter that tells code page 1250 from Latin-1.
#include <gtest/gtest.h>
#include <windows.h>

#include <filesystem>
#include <fstream>

#include "engine/embedded_engine.h"
#include "support/project.h"

namespace korvane::test {

namespace stdfs = std::filesystem;

namespace {

TEST(AccentedStore, TheEngineKeepsItsFilesInAnAccentedProjectFolder) {
  ASSERT_EQ(GetACP(), 1250u) << "needs the Hungarian ANSI code page (scripts/test-windows sets it)";
  TempProject project;
  const stdfs::path parent = stdfs::path(project.folder());
  const stdfs::path root = parent / L"\u00DAt\u00E9p\u00EDt\u00E9s f\u0151\u00FAt";
  ASSERT_TRUE(stdfs::create_directory(root));
  const std::string folder = project.folder() + "\\\xDAt\xE9p\xEDt\xE9s f\xF5\xFAt";

  std::ofstream(root / L"in.txt", std::ios::binary)
      << "crea,F\r\ngeni,M\r\n001FORMAT(3F12.3)\r\n080,A,,,,,3,,,1\r\n"
         "       1.000       2.000       3.000\r\n       4.000       6.000       3.000\r\n"
         "       0.000       0.000       0.000\r\n999\r\n"
         "over,f\xF5\xFAt.txt,genio\r\ngeni,M\r\n081\r\n999\r\nover,,genio\r\ndele,F\r\n";
  engine::EngineOptions options;
  options.projectFolder = folder;
  std::string error;
  {
    auto engine = engine::EmbeddedEngine::create(options, error);
    ASSERT_TRUE(engine) << error;
    const hosts::MxRunResult r = engine->configuration().run("input", folder + "\\in.txt");
    EXPECT_TRUE(r.ok()) << r.error;
    EXPECT_TRUE(engine->modelExists("M"));
  }
  EXPECT_TRUE(stdfs::exists(root / L"korvane-models.db"));
  EXPECT_TRUE(stdfs::exists(root / L"f\u0151\u00FAt.txt"));
  EXPECT_GT(stdfs::file_size(root / L"f\u0151\u00FAt.txt"), 0u);
  // Nothing was made under a mangled name beside the folder.
  int entries = 0;
  for (const auto& e : stdfs::directory_iterator(parent)) entries += e.path() != root;
  EXPECT_EQ(entries, 0);

  // A new engine on the same folder finds the store again.
  auto again = engine::EmbeddedEngine::create(options, error);
  ASSERT_TRUE(again) << error;
  EXPECT_TRUE(again->modelExists("M"));
  EXPECT_FALSE(again->modelExists("F"));
}

}  // namespace
}  // namespace korvane::test
