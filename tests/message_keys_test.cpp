// The texts' keys are constants of src/base/texts/, one header a section,
// each written there as {"Section", "key"}: every one is in both language
// files, none is named twice, and no other source file names a section of
// the language files.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <regex>
#include <set>
#include <sstream>
#include <string>
#include <vector>

#include "base/messages.h"
#include "support/project.h"

namespace korvane::test {
namespace {

namespace stdfs = std::filesystem;

std::string readAll(const stdfs::path& p) {
  std::ifstream in(p, std::ios::binary);
  std::ostringstream s;
  s << in.rdbuf();
  return s.str();
}

// The line without its "//" comment (a "//" inside a string literal stays).
std::string code(const std::string& line) {
  bool quoted = false;
  for (std::size_t i = 0; i < line.size(); ++i) {
    if (line[i] == '\\')
      ++i;
    else if (line[i] == '"')
      quoted = !quoted;
    else if (!quoted && line.compare(i, 2, "//") == 0)
      return line.substr(0, i);
  }
  return line;
}

// The places ("name:line") where `text` names one of the sections as a string
// literal, outside comments and the settings file's own lookups (Korvane.ini
// has a section "Longsection" too).
std::vector<std::string> sectionLiterals(const std::string& name, const std::string& text,
                                         const std::set<std::string>& sections) {
  static const std::regex literal(R"re("(\w+)")re");
  std::vector<std::string> found;
  std::istringstream in(text);
  std::string line;
  for (int n = 1; std::getline(in, line); ++n) {
    const std::string c = code(line);
    if (c.find("ProfileString(") != std::string::npos ||
        c.find("ProfileValue(") != std::string::npos)
      continue;
    for (std::sregex_iterator m(c.begin(), c.end(), literal), end; m != end; ++m)
      if (sections.count((*m)[1])) found.push_back(name + ":" + std::to_string(n));
  }
  return found;
}

std::set<std::string> languageSections() {
  std::istringstream in(readAll(sourceDir() + "/data/English.lng"));
  std::set<std::string> sections;
  for (std::string line; std::getline(in, line);)
    if (line.size() > 2 && line[0] == '[') sections.insert(line.substr(1, line.find(']') - 1));
  return sections;
}

TEST(MessageKeys, EveryKeyIsInBothLanguageFilesOnceAndInTheHeaderOfItsSection) {
  static const std::regex pair(R"re(\{"(\w+)", "(\w+)"\})re");
  const Messages languages[] = {Messages(sourceDir() + "/data/English.lng"),
                                Messages(sourceDir() + "/data/Hungarian.lng")};
  std::set<std::pair<std::string, std::string>> seen;
  for (const auto& header : stdfs::directory_iterator(sourceDir() + "/src/base/texts")) {
    const std::string text = readAll(header.path());
    const std::string name = header.path().filename().string();
    std::string section;
    for (std::sregex_iterator m(text.begin(), text.end(), pair), end; m != end; ++m) {
      const std::string s = (*m)[1], k = (*m)[2];
      if (section.empty()) section = s;
      EXPECT_EQ(s, section) << name << " holds keys of two sections";
      EXPECT_TRUE(seen.insert({s, k}).second) << s << "/" << k << " is named twice";
      for (const Messages& m : languages)
        EXPECT_FALSE(m.text({s, k}).empty()) << m.file() << " has no " << s << "/" << k;
    }
    EXPECT_FALSE(section.empty()) << name << " names no key";
  }
  EXPECT_GT(seen.size(), 200u);
}

TEST(MessageKeys, NoSourceFileOutsideTheSectionHeadersNamesASection) {
  const std::set<std::string> sections = languageSections();
  ASSERT_TRUE(sections.count("Runtime") && sections.count("Check"));
  // A planted bare key is found; the settings file's lookups and comments are not.
  EXPECT_EQ(sectionLiterals("planted",
                            "throw RuntimeFailure({\"Runtime\", \"div0\"});  // \"Check\"\n"
                            "ReadProfileString(\"Longsection\", \"LastPanel\", file);\n",
                            sections),
            std::vector<std::string>{"planted:1"});

  const stdfs::path src = sourceDir() + "/src";
  for (const auto& f : stdfs::recursive_directory_iterator(src)) {
    const std::string name = stdfs::relative(f.path(), src).generic_string();
    const std::string ext = f.path().extension().string();
    if (name.rfind("base/texts/", 0) == 0 || (ext != ".cpp" && ext != ".h")) continue;
    for (const std::string& place : sectionLiterals(name, readAll(f.path()), sections))
      ADD_FAILURE() << place << " names a section of the language files: use a constant of "
                    << "base/texts/";
  }
}

}  // namespace
}  // namespace korvane::test
