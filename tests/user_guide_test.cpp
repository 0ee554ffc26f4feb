// The user's guide says what the program does: every function and command
// that a table of docs/language.md names is in the language's tables, and the
// guide's one list of what is not available ("Not available in this
// version: ...") is exactly what stops the run as not available.
#include <gtest/gtest.h>

#include <fstream>
#include <regex>
#include <set>
#include <sstream>

#include "hosts/automation.h"
#include "hosts/excel.h"
#include "shell/standard_language.h"
#include "support/project.h"

namespace korvane::test {
namespace {

struct Guide {
  std::set<std::string> functions, commands, unavailable;
};

// The backticked names of the first cell of each table row: "name(" a
// function, "name," or "name" alone a directive.
Guide readGuide() {
  std::ifstream in(sourceDir() + "/docs/language.md");
  Guide g;
  const std::regex ticked("`([^`]*)`");
  const std::regex function("^([a-z_>-]+)\\(");
  const std::regex command("^([a-z_>-]+)(,.*)?$");
  const std::string kUnavailable = "Not available in this version:";
  std::string line;
  while (std::getline(in, line)) {
    std::string cell;
    if (line.rfind(kUnavailable, 0) == 0) {
      cell = line;
    } else if (line.rfind("|", 0) == 0 && line.rfind("|---", 0) != 0) {
      cell = line.substr(1, line.find('|', 1) - 1);
    } else {
      continue;
    }
    for (std::sregex_iterator t(cell.begin(), cell.end(), ticked), end; t != end; ++t) {
      const std::string name = (*t)[1];
      std::smatch m;
      if (line.rfind(kUnavailable, 0) == 0)
        g.unavailable.insert(name);
      else if (std::regex_search(name, m, function))
        g.functions.insert(m[1]);
      else if (std::regex_match(name, m, command))
        g.commands.insert(m[1]);
    }
  }
  return g;
}

TEST(UserGuide, NamesOnlyFunctionsAndCommandsTheLanguageHas) {
  const Guide g = readGuide();
  ASSERT_GT(g.functions.size(), 20u);
  ASSERT_GT(g.commands.size(), 10u);
  const LanguageTables& language = standardLanguage();
  for (const std::string& f : g.functions)
    EXPECT_TRUE(language.functions.find(f)) << f << " is in the guide but not in the language";
  // "repeat" and "endrepeat" mark the parts of an inserted file; they are no directives.
  for (const std::string& c : g.commands) {
    if (c == "repeat" || c == "endrepeat") continue;
    EXPECT_TRUE(language.directives.find(c)) << c << " is in the guide but not in the language";
  }
}

TEST(UserGuide, SaysWhatIsNotAvailableAndNothingElse) {
  const Guide g = readGuide();
  ASSERT_FALSE(g.unavailable.empty());
  TempProject project;
  Compiler c(project, {}, EngineChoice::Embedded);
  const auto system = hosts::makeAutomationSystem();
  const auto excel = hosts::makeExcelHost(*system);
  c.ctx.excel = excel.get();
  std::set<std::string> names = g.unavailable;
  names.insert(g.functions.begin(), g.functions.end());
  names.insert(g.commands.begin(), g.commands.end());
  for (const std::string& name : names) {
    if (name == "input" || (!excel && name.rfind("xl", 0) == 0)) continue;
    const bool isFunction = g.functions.count(name) > 0 || name == "pls";
    project.write("q.ipf", isFunction ? "crea,|" + name + "(M,S,1)|\n" : name + ",M\n");
    c.compile("q.ipf");
    const std::string notAvailable = "Not available in this version of Korvane: \"" + name + "\"";
    EXPECT_EQ(c.failure() == notAvailable, g.unavailable.count(name) > 0)
        << name << ": " << c.stopMessage();
  }
}

}  // namespace
}  // namespace korvane::test
