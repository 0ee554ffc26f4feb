// `korvane models` as a user runs it: output lines and exit statuses.
#include <cstdlib>

#include "base/messages.h"
#include "support/engine.h"
#include "support/process.h"
#include "support/project.h"

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
  korvane::Messages en{korvane::test::sourceDir() + "/data/English.lng"};
  // The headings line of `models show` of a model, and of one of its strings.
  std::string stringsHead() {
    return en.text({"Cli", "col_label"}) + "\t" + en.text({"Cli", "col_dims"}) + "\t" +
           en.text({"Cli", "col_points"}) + "\n";
  }
  std::string pointsHead(int dimensions = 3) {
    std::string h = en.text({"Cli", "col_point"});
    for (int d = 1; d <= dimensions; ++d)
      h += "\t" + en.format({"Cli", "col_dim"}, std::to_string(d));
    return h + "\n";
  }
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
  write("in.txt", kGenio);
  ASSERT_EQ(korvane("models import " + path("in.txt") + " \"Site Plan\"" + project()), 0) << err_;
  ASSERT_EQ(korvane("models show \"site plan\" --lang en" + project()), 0) << err_;
  EXPECT_EQ(out_, stringsHead() + "E001\t3\t2\nE002\t3\t3\n");
  ASSERT_EQ(korvane("models show \"Site Plan\" e002 --lang en" + project()), 0) << err_;
  EXPECT_EQ(out_, pointsHead() + "1\t7\t8\t9\tbreak\n2\t10\t11\t12\n3\t13\t14\t15\n");

  ASSERT_EQ(korvane("models export \"Site Plan\" -o " + path("out.txt") + project()), 0) << err_;
  ASSERT_EQ(korvane("models import " + path("out.txt") + " COPY" + project()), 0) << err_;
  ASSERT_EQ(korvane("models show COPY E002 --lang en" + project()), 0) << err_;
  EXPECT_EQ(out_, pointsHead() + "1\t7\t8\t9\tbreak\n2\t10\t11\t12\n3\t13\t14\t15\n");
  ASSERT_EQ(korvane("models export COPY" + project()), 0) << err_;
  EXPECT_NE(out_.find("0.13000000000000000D+020.14000000000000000D+020.15000000000000000D+02\n"),
            std::string::npos);

  ASSERT_EQ(korvane("models delete COPY --lang en" + project()), 0) << err_;
  EXPECT_EQ(
      out_,
      en.format({"Cli", "deleted"}, "COPY", en.format({"Cli", "model_counts"}, "2", "5")) + "\n");
  EXPECT_EQ(korvane("models delete COPY" + project()), 1);
  EXPECT_NE(err_.find("COPY"), std::string::npos) << err_;  // the language file says there is none
  EXPECT_EQ(korvane("models show COPY" + project()), 1);
}

// Headings in the chosen language over columns as wide as their widest cell:
// names to the left, counts to the right.
TEST_F(EngineCli, ListHasHeadingsOverAlignedColumns) {
  ASSERT_EQ(korvane("models list --lang en" + project()), 0) << err_;
  EXPECT_EQ(out_, "Model  Strings  Points\n");  // an empty store: the headings alone
  write("in.txt", kGenio);
  ASSERT_EQ(korvane("models import " + path("in.txt") + " \"Site Plan\"" + project()), 0) << err_;
  // A: one string of twelve points along x.
  std::string twelve = "001FORMAT(3F12.3)\n003,ORDR,4=1,1,2,3\n080,E003\n";
  for (int x = 1; x <= 12; ++x)
    twelve += "     " + std::to_string(100 + x) + ".000       0.000       0.000\n";
  write("twelve.txt", twelve + "       0.000       0.000       0.000\n999\n");
  ASSERT_EQ(korvane("models import " + path("twelve.txt") + " A" + project()), 0) << err_;
  ASSERT_EQ(korvane("models list --lang en" + project()), 0) << err_;
  EXPECT_EQ(out_,
            "Model      Strings  Points\n"
            "A                1      12\n"
            "Site Plan        2       5\n");
  ASSERT_EQ(korvane("models list --lang hu" + project()), 0) << err_;
  EXPECT_EQ(out_.substr(0, 11), "Modell     ") << out_;
}

TEST_F(EngineCli, AFailedImportLeavesNoModelBehind) {
  // The records begin well and go wrong on the fourth line.
  write("bad.txt", "001FORMAT(3F12.3)\n003,ORDR,4=1,1,2,3\n080,E001\ngarbage\n");
  EXPECT_EQ(korvane("models import " + path("bad.txt") + " BAD" + project()), 1);
  EXPECT_NE(err_.find("garbage"), std::string::npos) << err_;
  ASSERT_EQ(korvane("models list --lang en" + project()), 0) << err_;
  EXPECT_EQ(out_, "Model  Strings  Points\n");
  // A model that was there before a failed import into it stays.
  write("in.txt", kGenio);
  ASSERT_EQ(korvane("models import " + path("in.txt") + " KEEP" + project()), 0) << err_;
  EXPECT_EQ(korvane("models import " + path("bad.txt") + " KEEP" + project()), 1);
  ASSERT_EQ(korvane("models list --lang en" + project()), 0) << err_;
  EXPECT_EQ(out_, "Model  Strings  Points\nKEEP         2       5\n");
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
  write(korvane::engine::ModelStore::kFileName, "junk");
  EXPECT_EQ(korvane("models list" + project()), 1);  // a foreign store is an engine error
}

TEST_F(EngineCli, SectionsAlongAMasterGoIntoAnotherModel) {
  // A master 20 long along x with one string 3 to its left.
  write("road.txt",
        "001FORMAT(3F12.3)\n080,MAST\n     100.000     100.000       0.000\n"
        "     120.000     100.000       0.000\n       0.000       0.000       0.000\n"
        "080,E001\n     100.000     103.000       0.000\n     120.000     103.000       0.000\n"
        "       0.000       0.000       0.000\n999\n");
  ASSERT_EQ(korvane("models import " + path("road.txt") + " ROAD" + project()), 0) << err_;
  ASSERT_EQ(korvane("models sections ROAD mast SECT --interval 5 --width 4 --prefix s" + project()),
            0)
      << err_;
  ASSERT_EQ(korvane("models show SECT --lang en" + project()), 0) << err_;
  EXPECT_EQ(out_, stringsHead() + "S001\t5\t2\nS002\t5\t2\nS003\t5\t2\nS004\t5\t2\nS005\t5\t2\n");
  ASSERT_EQ(korvane("models show SECT S002 --lang en" + project()), 0) << err_;
  EXPECT_EQ(out_, pointsHead(5) + "1\t105\t103\t0\t1\t'E001'\n2\t105\t100\t0\t4\t'MAST'\n");
  EXPECT_EQ(korvane("models sections ROAD MAST road" + project()), 1);
  EXPECT_NE(err_.find("another model"), std::string::npos) << err_;
}
