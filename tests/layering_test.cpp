// The layers of the source tree depend only on the ones below them: every
// #include "folder/..." of a file under src/ must name its own layer or one it
// is built on. Peers (functions, commands, longsection; the engine and the
// compiler) do not include each other, and no two folders at any depth
// include each other. Functions and commands see the compiler through its
// extension interface alone, and the compiler's own state is its own.
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <map>
#include <regex>
#include <set>
#include <string>

#include "support/project.h"

namespace korvane::test {
namespace {

// Each layer and the layers it may include besides its own.
const std::map<std::string, std::set<std::string>> kBuiltOn = {
    {"base", {}},
    {"hosts", {"base"}},
    {"engine", {"base", "hosts"}},
    {"compiler", {"base", "hosts"}},
    {"functions", {"base", "hosts", "compiler"}},
    {"commands", {"base", "hosts", "compiler"}},
    {"longsection", {"base", "hosts"}},
    {"shell", {"base", "hosts", "engine", "compiler", "functions", "commands", "longsection"}},
    {"cli",
     {"base", "hosts", "engine", "compiler", "functions", "commands", "longsection", "shell"}},
    {"window",
     {"base", "hosts", "engine", "compiler", "functions", "commands", "longsection", "shell"}},
};

struct Include {
  std::string place;   // "file:line: text"
  std::string from;    // the including file's folder, relative to src
  bool fromHeader;     // whether the including file is a header
  std::string header;  // the included file, as the line names it
  std::string target;  // the included file's folder
};

std::vector<Include> includesUnder(const std::filesystem::path& src) {
  static const std::regex include(R"re(^\s*#\s*include\s*"(([a-z_]+(/[a-z_]+)*)/[^/"]+)")re");
  std::vector<Include> all;
  for (const auto& entry : std::filesystem::recursive_directory_iterator(src)) {
    if (!entry.is_regular_file()) continue;
    const std::string from = entry.path().parent_path().lexically_relative(src).generic_string();
    std::ifstream in(entry.path());
    std::string line;
    for (int n = 1; std::getline(in, line); ++n) {
      std::smatch m;
      if (std::regex_search(line, m, include))
        all.push_back({entry.path().string() + ":" + std::to_string(n) + ": " + line, from,
                       entry.path().extension() == ".h", m[1], m[2]});
    }
  }
  return all;
}

std::string layerOf(const std::string& folder) { return folder.substr(0, folder.find('/')); }

// Include lines that break the order, and files in a folder that is no layer.
std::vector<std::string> wrongIncludesUnder(const std::filesystem::path& src) {
  std::vector<std::string> wrong;
  for (const Include& i : includesUnder(src)) {
    auto own = kBuiltOn.find(layerOf(i.from));
    if (own == kBuiltOn.end()) {
      wrong.push_back(i.place + " (in a folder that is no layer)");
      continue;
    }
    const std::string target = layerOf(i.target);
    if (target != own->first && !own->second.count(target)) wrong.push_back(i.place);
  }
  return wrong;
}

// Includes that reach past the compiler's extension interface: a file of
// functions/ or commands/, or a header of compiler/extension/, that includes
// any other part of the compiler; and a file outside the compiler that
// includes its own state.
std::vector<std::string> pastTheExtensionInterface(const std::filesystem::path& src) {
  std::vector<std::string> wrong;
  for (const Include& i : includesUnder(src)) {
    const std::string layer = layerOf(i.from);
    const bool extension = layer == "functions" || layer == "commands" ||
                           (i.from == "compiler/extension" && i.fromHeader);
    if (extension && layerOf(i.target) == "compiler" && i.target != "compiler/extension")
      wrong.push_back(i.place);
    if (layer != "compiler" && i.header == "compiler/compile_internals.h") wrong.push_back(i.place);
  }
  return wrong;
}

// Pairs of folders (at any depth) that include each other.
std::vector<std::string> foldersIncludingEachOther(const std::filesystem::path& src) {
  std::map<std::string, std::map<std::string, std::string>> edges;  // from -> target -> place
  for (const Include& i : includesUnder(src))
    if (i.from != i.target) edges[i.from].emplace(i.target, i.place);
  std::vector<std::string> pairs;
  for (const auto& [from, targets] : edges)
    for (const auto& [target, place] : targets) {
      auto back = edges.find(target);
      if (from < target && back != edges.end() && back->second.count(from))
        pairs.push_back(place + "\n  and " + back->second.at(from));
    }
  return pairs;
}

std::string lines(const std::vector<std::string>& v) {
  std::string all;
  for (const auto& w : v) all += w + "\n";
  return all;
}

TEST(Layering, NoFileIncludesALayerAboveItsOwnAndNoFoldersIncludeEachOther) {
  const std::filesystem::path src = std::filesystem::path(sourceDir()) / "src";
  const auto wrong = wrongIncludesUnder(src);
  EXPECT_TRUE(wrong.empty()) << lines(wrong);
  const auto pairs = foldersIncludingEachOther(src);
  EXPECT_TRUE(pairs.empty()) << lines(pairs);
  const auto past = pastTheExtensionInterface(src);
  EXPECT_TRUE(past.empty()) << lines(past);
}

TEST(Layering, PlantedIncludesAreFound) {
  TempProject p;
  p.write("src/base/a.h", "#include \"base/b.h\"\n");
  p.write("src/compiler/c.cpp", "#include \"hosts/mx.h\"\n\n  #include \"shell/driver.h\"\n");
  p.write("src/functions/f.cpp", "#include \"commands/commands.h\"\n");
  p.write("src/engine/e.cpp", "#include \"hosts/mx.h\"\n#include \"compiler/run_context.h\"\n");
  p.write("src/hosts/excel/x.cpp", "#include \"hosts/excel/workbook/w.h\"\n");
  p.write("src/hosts/excel/workbook/w.cpp", "#include \"hosts/excel/x.h\"\n");
  const auto wrong = wrongIncludesUnder(p.path("src"));
  const std::string all = lines(wrong);
  ASSERT_EQ(wrong.size(), 3u) << all;
  EXPECT_NE(all.find("c.cpp:3:"), std::string::npos);
  EXPECT_NE(all.find("commands/commands.h"), std::string::npos);
  EXPECT_NE(all.find("e.cpp:2:"), std::string::npos);
  const auto pairs = foldersIncludingEachOther(p.path("src"));
  ASSERT_EQ(pairs.size(), 1u) << lines(pairs);
  EXPECT_NE(pairs[0].find("x.cpp:1:"), std::string::npos);

  p.write("src/commands/k.cpp",
          "#include \"compiler/extension/call_context.h\"\n#include \"compiler/expression.h\"\n");
  p.write("src/compiler/extension/e.h", "#include \"compiler/run_context.h\"\n");
  p.write("src/compiler/extension/e.cpp", "#include \"compiler/run_context.h\"\n");
  p.write("src/shell/s.cpp", "#include \"compiler/compile_internals.h\"\n");
  const std::string past = lines(pastTheExtensionInterface(p.path("src")));
  EXPECT_EQ(std::count(past.begin(), past.end(), '\n'), 3) << past;
  for (const char* place : {"k.cpp:2:", "e.h:1:", "s.cpp:1:"})
    EXPECT_NE(past.find(place), std::string::npos) << place << "\n" << past;
}

}  // namespace
}  // namespace korvane::test
