// The layers of the source tree depend only on the ones below them: every
// #include "folder/..." of a file under src/ must name its own folder or a
// lower layer. Peers on one level (functions, commands, longsection) do not
// include each other.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <map>
#include <regex>
#include <string>

#include "support/project.h"

namespace korvane::test {
namespace {

const std::map<std::string, int> kLayer = {
    {"base", 0},        {"hosts", 1}, {"compiler", 2}, {"functions", 3}, {"commands", 3},
    {"longsection", 3}, {"shell", 4}, {"cli", 5},      {"window", 5},
};

// Include lines of a file that break the order, as "file:line: include".
std::vector<std::string> wrongIncludes(const std::filesystem::path& file, const std::string& own) {
  static const std::regex include(R"re(^\s*#\s*include\s*"([a-z_]+)/)re");
  std::vector<std::string> wrong;
  std::ifstream in(file);
  std::string line;
  for (int n = 1; std::getline(in, line); ++n) {
    std::smatch m;
    if (!std::regex_search(line, m, include)) continue;
    const std::string target = m[1];
    auto t = kLayer.find(target);
    const bool ok = target == own || (t != kLayer.end() && t->second < kLayer.at(own));
    if (!ok) wrong.push_back(file.string() + ":" + std::to_string(n) + ": " + line);
  }
  return wrong;
}

std::vector<std::string> wrongIncludesUnder(const std::filesystem::path& src) {
  std::vector<std::string> wrong;
  for (const auto& entry : std::filesystem::recursive_directory_iterator(src)) {
    if (!entry.is_regular_file()) continue;
    const std::string own = entry.path().lexically_relative(src).begin()->string();
    if (!kLayer.count(own)) {
      wrong.push_back(entry.path().string() + ": a folder that is no layer");
      continue;
    }
    auto w = wrongIncludes(entry.path(), own);
    wrong.insert(wrong.end(), w.begin(), w.end());
  }
  return wrong;
}

TEST(Layering, NoFileIncludesALayerAboveItsOwn) {
  const auto wrong = wrongIncludesUnder(std::filesystem::path(sourceDir()) / "src");
  std::string all;
  for (const auto& w : wrong) all += w + "\n";
  EXPECT_TRUE(wrong.empty()) << all;
}

TEST(Layering, APlantedUpwardIncludeIsFound) {
  TempProject p;
  p.write("src/base/a.h", "#include \"base/b.h\"\n");
  p.write("src/compiler/c.cpp", "#include \"hosts/mx.h\"\n\n  #include \"shell/driver.h\"\n");
  p.write("src/functions/f.cpp", "#include \"commands/commands.h\"\n");
  const auto wrong = wrongIncludesUnder(p.path("src"));
  ASSERT_EQ(wrong.size(), 2u);
  std::string all = wrong[0] + wrong[1];
  EXPECT_NE(all.find("c.cpp:3:"), std::string::npos);
  EXPECT_NE(all.find("commands/commands.h"), std::string::npos);
}

}  // namespace
}  // namespace korvane::test
