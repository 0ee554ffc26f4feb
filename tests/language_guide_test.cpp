// docs/language.md cannot drift from the program: every `ipf` example in it
// is compiled (with the `ipm` files shown before it) and must give exactly the
// `mx` lines shown after it.
#include <gtest/gtest.h>

#include <fstream>
#include <sstream>

#include "support/project.h"

namespace korvane::test {
namespace {

struct Block {
  std::string kind;  // "ipf", "ipm" or "mx"
  std::string name;  // an ipm block's file name; "embedded" after ipf
  std::string text;
  int line = 0;  // where it begins in the guide
};

std::vector<Block> fencedBlocks(const std::string& path) {
  std::ifstream in(path);
  std::vector<Block> blocks;
  std::string line;
  Block* open = nullptr;
  int n = 0;
  while (std::getline(in, line)) {
    ++n;
    if (line.rfind("```", 0) == 0) {
      if (open) {
        open = nullptr;
        continue;
      }
      std::istringstream head(line.substr(3));
      Block b;
      head >> b.kind >> b.name;
      b.line = n;
      blocks.push_back(b);
      open = &blocks.back();
      continue;
    }
    if (open) open->text += line + "\n";
  }
  return blocks;
}

TEST(LanguageGuide, EveryExampleGivesTheLinesShown) {
  const auto blocks = fencedBlocks(sourceDir() + "/docs/language.md");
  std::vector<const Block*> macros;
  int compared = 0, withModels = 0;
  for (std::size_t i = 0; i < blocks.size(); ++i) {
    const Block& b = blocks[i];
    if (b.kind == "ipm") macros.push_back(&b);
    if (b.kind != "ipf") continue;
    ASSERT_TRUE(i + 1 < blocks.size() && blocks[i + 1].kind == "mx")
        << "the example at line " << b.line << " has no mx block after it";
    TempProject project;
    for (const Block* m : macros) project.write(m->name, m->text);
    project.write("example.ipf", b.text);
    // "ipf embedded": run through the embedded engine, so that model queries
    // read the models the example itself makes.
    const bool embedded = b.name == "embedded";
    Compiler c{project, {}, embedded ? EngineChoice::Embedded : EngineChoice::Recording};
    withModels += embedded;
    EXPECT_TRUE(c.compile("example.ipf")) << "line " << b.line << ": " << c.stopMessage();
    std::string got;
    for (const std::string& l : c.lines) got += l + "\n";
    EXPECT_EQ(got, blocks[i + 1].text) << "the example at line " << b.line;
    ++compared;
  }
  EXPECT_GE(compared, 12);
  EXPECT_GE(withModels, 1);
}

}  // namespace
}  // namespace korvane::test
