// `korvane models` as a user runs it: output lines and exit statuses.
#include <cstdlib>

#include "support/engine.h"
#include "support/process.h"

namespace {

class EngineCli : public korvane::testing::EngineTest {
 protected:
  // Runs korvane with arguments; stdout and stderr land in out_ and err_.
  int korvane(const std::string& arguments) {
    korvane::test::ProgramRun run;
    run.argv = korvane::test::shellWords(arguments);
    run.argv.insert(run.argv.begin(), korvane::test::builtProgram("korvane"));
    run.out = path("cli.out");
    run.err = path("cli.err");
    int rc = korvane::test::runProgram(run);
    out_ = read("cli.out");
    err_ = read("cli.err");
    return rc;
  }
  std::string project() const { return " --project " + folder_.string(); }

  std::string out_, err_;
};

const char* const kGenio =
    "   banner line of some exporter\n"
    "001FORMAT(3F12.3)\n"
    "003,ORDR,4=1,1,2,3\n"
    "080,E001\n"
    "       1.000       2.000       3.000\n"
    "       4.000       5.000       6.000\n"
    "       0.000       0.000       6.000\n"
    "080,E002,,,,,3,,,1\n"
    "       7.000       8.000       9.000\n"
    "      10.000      11.000      12.000\n"
    "      13.000      14.000      15.000\n"
    "       0.000       0.000      15.000\n"
    "999\n";

}  // namespace

TEST_F(EngineCli, ImportListShowExportDelete) {
  ASSERT_EQ(korvane("models list" + project()), 0) << err_;
  EXPECT_EQ(out_, "");
  write("in.txt", kGenio);
  ASSERT_EQ(korvane("models import " + path("in.txt") + " \"Site Plan\"" + project()), 0) << err_;
  ASSERT_EQ(korvane("models list" + project()), 0) << err_;
  EXPECT_EQ(out_, "Site Plan\t2\t5\n");
  ASSERT_EQ(korvane("models show \"site plan\"" + project()), 0) << err_;
  EXPECT_EQ(out_, "E001\t3\t2\nE002\t3\t3\n");
  ASSERT_EQ(korvane("models show \"Site Plan\" e002" + project()), 0) << err_;
  EXPECT_EQ(out_, "1\t7\t8\t9\tbreak\n2\t10\t11\t12\n3\t13\t14\t15\n");

  ASSERT_EQ(korvane("models export \"Site Plan\" -o " + path("out.txt") + project()), 0) << err_;
  ASSERT_EQ(korvane("models import " + path("out.txt") + " COPY" + project()), 0) << err_;
  ASSERT_EQ(korvane("models show COPY E002" + project()), 0) << err_;
  EXPECT_EQ(out_, "1\t7\t8\t9\tbreak\n2\t10\t11\t12\n3\t13\t14\t15\n");
  ASSERT_EQ(korvane("models export COPY" + project()), 0) << err_;
  EXPECT_NE(out_.find("0.13000000000000000D+020.14000000000000000D+020.15000000000000000D+02\n"),
            std::string::npos);

  ASSERT_EQ(korvane("models delete COPY" + project()), 0) << err_;
  EXPECT_EQ(korvane("models delete COPY" + project()), 1);
  EXPECT_NE(err_.find("COPY"), std::string::npos) << err_;  // the language file says there is none
  EXPECT_EQ(korvane("models show COPY" + project()), 1);
}

TEST_F(EngineCli, ExecPrintsListingAndReportsEngineErrors) {
  write("run.txt", "crea,A\ngeni,A\n042,XX\n999\n");
  EXPECT_EQ(korvane("models exec " + path("run.txt") + project()), 1);
  EXPECT_NE(out_.find("     3  042,XX"), std::string::npos) << out_;
  EXPECT_NE(err_.find("run.txt, line 3: unknown minor option 042 in GENIO"), std::string::npos)
      << err_;
  write("run.txt", "crea,A\ndele,A\n");
  EXPECT_EQ(korvane("models exec " + path("run.txt") + project()), 0) << err_;
  EXPECT_NE(out_.find("no errors"), std::string::npos);
}

TEST_F(EngineCli, UsageErrorsExitWithTwo) {
  EXPECT_EQ(korvane("models"), 2);
  EXPECT_EQ(korvane("models show" + project()), 2);
  EXPECT_EQ(korvane("models frobnicate" + project()), 2);
  EXPECT_EQ(korvane("models list --project " + path("no-such-folder")), 2);
  EXPECT_NE(err_.find("no-such-folder"), std::string::npos) << err_;
  write(korvane::hosts::embedded::ModelStore::kFileName, "junk");
  EXPECT_EQ(korvane("models list" + project()), 1);  // a foreign store is an engine error
}
