// Warnings about inputs that compile but probably not as meant: each kind
// found at its file, line and column, with the close word when there is one.
// That watching never changes a byte of what is compiled is checked with
// every golden case (golden_cases_test).
#include "shell/diagnostics.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "base/messages.h"
#include "shell/input_sections.h"
#include "support/project.h"

namespace korvane::test {
namespace {

using Kind = Finding::Kind;

struct Watched {
  TempProject project;
  Compiler c{project};
  Diagnostics diagnostics{c.ctx.language, c.ctx.vars, c.ctx.settingsPath, [](const std::string& f) {
                            return readSections(f).value_or(std::vector<std::string>{});
                          }};
  Watched() { c.ctx.observers.add(&diagnostics); }

  const std::vector<Finding>& check(const std::string& name, const std::string& text) {
    project.write(name, text);
    c.compile(name);
    return diagnostics.findings();
  }
};

TEST(Diagnostics, EachKindAtItsPlaceWithTheCloseWord) {
  Watched w;
  const auto& found = w.check("typo.ipf",
                              "crea,A\n"
                              "insrt,axis\n"
                              "endrepaet\n"
                              "#iff a>3 then b=1\n"
                              "#x=fromat(1)\n"
                              "#total=5\n"
                              "crea,|totl|,|unset|\n");
  const std::string file = w.project.path("typo.ipf");
  ASSERT_EQ(found.size(), 6u) << describeFinding(w.c.ctx.messages, found.back());
  auto expect = [&](std::size_t i, Kind kind, long line, long column, const std::string& subject,
                    const std::string& suggestion) {
    SCOPED_TRACE(describeFinding(w.c.ctx.messages, found[i]));
    EXPECT_EQ(found[i].kind, kind);
    EXPECT_EQ(found[i].file, file);
    EXPECT_EQ(found[i].line, line);
    EXPECT_EQ(found[i].column, column);
    EXPECT_EQ(found[i].subject, subject);
    EXPECT_EQ(found[i].suggestion, suggestion);
  };
  expect(0, Kind::Directive, 2, 1, "insrt", "insert");
  expect(1, Kind::Directive, 3, 1, "endrepaet", "endrepeat");
  expect(2, Kind::Assignment, 4, 1, "#iff", "#if");
  expect(3, Kind::Function, 5, 4, "fromat", "format");
  expect(4, Kind::Variable, 7, 7, "totl", "total");
  expect(5, Kind::Variable, 7, 14, "unset", "");
  // MX's own lines, a known function, numbers and words outside bars say nothing.
  EXPECT_EQ(w.check("clean.ipf",
                    "crea,ROAD\n"
                    "   1.5 2.5\n"
                    "#n=len(\"abc\")+2\n"
                    "if mode=left then side=1\n"
                    "#f1=2\n"
                    "#y=K1\n"             // a label, though close to f1
                    "crea,|len(MAST)|\n"  // an argument is often a plain word
                    "crea,|n|\n")
                .size(),
            6u);
}

TEST(Diagnostics, ARepeatedLineIsReportedOnce) {
  Watched w;
  w.project.write("part.ipm", "repeat\ncrea,|cout|\nendrepeat\n");
  const auto& found = w.check("many.ipf", "insert,part\nrepeat=3\n");
  ASSERT_EQ(found.size(), 1u);
  EXPECT_EQ(found[0].subject, "cout");
  EXPECT_EQ(found[0].file, w.project.path("part.ipm"));
  EXPECT_EQ(found[0].line, 2);
  EXPECT_EQ(found[0].suggestion, "count");
}

TEST(Diagnostics, DataRowsWithoutEndAndMissingSections) {
  Watched w;
  w.project.write("row.ipm", "repeat\ncrea,R|f1|\nendrepeat\n");
  w.project.write("parts.ipm", "[main]\ncrea,M\n[other]\ncrea,O\n");
  const auto& found = w.check("rows.ipf",
                              "#station=1\n"
                              "insert,row\n"
                              "repeat=single\n"
                              "   1\n"
                              "stations\n"  // a word in a row is text, however close to a name
                              "999\n");
  ASSERT_EQ(found.size(), 1u);
  EXPECT_EQ(found[0].kind, Kind::Rows);
  EXPECT_EQ(found[0].line, 2);  // the insert line that read the rows
  // With "end" the rows say nothing.
  EXPECT_EQ(w.check("ended.ipf", "insert,row\nrepeat=single\n   1\nend\n999\n").size(), 1u);

  const auto& after = w.check("sect.ipf", "crea,A\ninsert,parts [mian].\n");
  ASSERT_EQ(after.size(), 2u);
  EXPECT_EQ(after[1].kind, Kind::Section);
  EXPECT_EQ(after[1].file, w.project.path("sect.ipf"));
  EXPECT_EQ(after[1].line, 2);
  EXPECT_EQ(after[1].subject, "[mian]");
  EXPECT_EQ(after[1].suggestion, "[main]");
  EXPECT_TRUE(w.c.stopped);  // the missing section still ends the run
}

TEST(Diagnostics, SettingsThatTheDefaultBlockDoesNotKnow) {
  Watched w;
  // labelmove's block knows "order"; the place is the command's line, not
  // the settings file that holds the block.
  const auto& found = w.check("move.ipf", "crea,A\nlabelmove,M,S\nordr=4321,\norder=1\n");
  ASSERT_GE(found.size(), 1u);
  EXPECT_EQ(found[0].kind, Kind::Setting);
  EXPECT_EQ(found[0].owner, "labelmove");
  EXPECT_EQ(found[0].subject, "ordr");
  EXPECT_EQ(found[0].suggestion, "order");
  EXPECT_EQ(found[0].file, w.project.path("move.ipf"));
  EXPECT_EQ(found[0].line, 2);
}

}  // namespace
}  // namespace korvane::test
