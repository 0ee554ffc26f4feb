// korvane check, and --warnings on compile and run: the warnings in the
// chosen language on standard error, the MX lines unchanged, and nothing
// said unless asked for.
#include <gtest/gtest.h>

#include "support/cli.h"

namespace korvane::test {
namespace {

struct Check : CliProject {
  const std::string typo = "crea,A\ninsrt,axis\ncrea,|modl|\n";
  std::string insrtLine() {
    return project.path("inputs/typo.ipf") +
           ", line 2, column 1: insrt is no directive: the line goes to MX as it stands. "
           "Did you mean insert?\n";
  }
};

TEST_F(Check, ReportsEachWarningAndHowMany) {
  project.write("inputs/typo.ipf", typo);
  EXPECT_EQ(run("check inputs/typo.ipf --engine none --lang en"), 1);
  EXPECT_EQ(err(), insrtLine() + project.path("inputs/typo.ipf") +
                       ", line 3, column 7: modl has no value yet: it stands for its own name.\n"
                       "Warnings: 2\n");
  // Told to run no engine, no model store appears.
  EXPECT_FALSE(project.exists("korvane-models.db"));

  project.write("inputs/clean.ipf", "crea,A\n#m=1\ncrea,|m|\n");
  EXPECT_EQ(run("check inputs/clean.ipf --lang en"), 0);
  EXPECT_EQ(err(), "No problems found.\n");
}

TEST_F(Check, WarningsOnCompileOnlyWhenAskedAndTheLinesStayTheSame) {
  project.write("inputs/typo.ipf", typo);
  ASSERT_EQ(run("compile inputs/typo.ipf --engine none --lang en"), 0) << err();
  EXPECT_EQ(project.read("out.txt"), "crea,A\r\ninsrt,axis\r\ncrea,modl\r\n");
  EXPECT_EQ(err(), "");
  ASSERT_EQ(run("compile inputs/typo.ipf --engine none --warnings --lang en"), 0) << err();
  EXPECT_EQ(project.read("out.txt"), "crea,A\r\ninsrt,axis\r\ncrea,modl\r\n");
  EXPECT_EQ(err().substr(0, insrtLine().size()), insrtLine());
}

TEST_F(Check, WarningsOnRunAfterTheEntry) {
  project.write("inputs/rows.ipf", "insert,row\nrepeat=single\n   1\n");
  project.write("inputs/row.ipm", "repeat\ncrea,R|f1|\nendrepeat\n");
  ASSERT_EQ(run("run inputs/rows.ipf --lang en"), 0) << err();
  EXPECT_EQ(err(), "");
  ASSERT_EQ(run("run inputs/rows.ipf --warnings --lang en"), 0) << err();
  EXPECT_EQ(err(), project.path("inputs/rows.ipf") +
                       ", line 1: The data rows have no end line: the rest of the file was read "
                       "as data rows.\n");
}

}  // namespace
}  // namespace korvane::test
