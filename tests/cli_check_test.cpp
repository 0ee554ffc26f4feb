// korvane check, and --warnings on compile and run: the warnings in the
// chosen language on standard error, the MX lines unchanged, and nothing
// said unless asked for.
#include <gtest/gtest.h>

#include "base/messages.h"
#include "support/cli.h"

using namespace korvane;

namespace {

struct Check : test::CliProject {
  Messages en{home + "/English.lng"};
  const std::string typo = "crea,A\ninsrt,axis\ncrea,|modl|\n";
  std::string file() { return project.path("inputs/typo.ipf"); }
  std::string insrtLine() {
    return en.format({"Check", "place"}, file(), "2") + ", " + en.format({"Check", "column"}, "1") +
           ": " + en.format({"Check", "directive"}, "insrt") + " " +
           en.format({"Check", "suggest"}, "insert");
  }
};

TEST_F(Check, ReportsEachWarningAndHowMany) {
  project.write("inputs/typo.ipf", typo);
  EXPECT_EQ(run("check inputs/typo.ipf --engine none --lang en"), 1);
  const std::string modl = en.format({"Check", "place"}, file(), "3") + ", " +
                           en.format({"Check", "column"}, "7") + ": " +
                           en.format({"Check", "variable"}, "modl");
  EXPECT_EQ(err(), insrtLine() + "\n" + modl + "\n" + en.format({"Check", "count"}, "2") + "\n");
  // Told to run no engine, no model store appears.
  EXPECT_FALSE(project.exists("korvane-models.db"));

  project.write("inputs/clean.ipf", "crea,A\n#m=1\ncrea,|m|\n");
  EXPECT_EQ(run("check inputs/clean.ipf --lang en"), 0);
  EXPECT_EQ(err(), en.text({"Check", "none"}) + "\n");
}

TEST_F(Check, WarningsOnCompileOnlyWhenAskedAndTheLinesStayTheSame) {
  project.write("inputs/typo.ipf", typo);
  ASSERT_EQ(run("compile inputs/typo.ipf --engine none --lang en"), 0) << err();
  const std::string plain = project.read("out.txt");
  EXPECT_EQ(plain, "crea,A\r\ninsrt,axis\r\ncrea,modl\r\n");
  EXPECT_EQ(err(), "");
  ASSERT_EQ(run("compile inputs/typo.ipf --engine none --warnings --lang en"), 0) << err();
  EXPECT_EQ(project.read("out.txt"), plain);
  EXPECT_EQ(err().substr(0, insrtLine().size() + 1), insrtLine() + "\n");
}

TEST_F(Check, WarningsOnRunAfterTheEntry) {
  project.write("inputs/rows.ipf", "insert,row\nrepeat=single\n   1\n");
  project.write("inputs/row.ipm", "repeat\ncrea,R|f1|\nendrepeat\n");
  ASSERT_EQ(run("run inputs/rows.ipf --lang en"), 0) << err();
  EXPECT_EQ(err(), "");
  ASSERT_EQ(run("run inputs/rows.ipf --warnings --lang en"), 0) << err();
  EXPECT_EQ(err(), en.format({"Check", "place"}, project.path("inputs/rows.ipf"), "1") + ": " +
                       en.text({"Check", "rows"}) + "\n");
}

}  // namespace
