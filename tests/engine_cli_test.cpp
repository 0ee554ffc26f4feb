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
    run.out = project_.path("cli.out");
    run.err = project_.path("cli.err");
    int rc = korvane::test::runProgram(run);
    out_ = project_.read("cli.out");
    err_ = project_.read("cli.err");
    std::erase(err_, '\r');  // Windows ends the lines of stderr with CR-LF
    return rc;
  }
  std::string project() const { return " --project " + project_.folder(); }
  std::string out_, err_;
};

// The headings of `models show` (English) over a model's strings, and over a string's points.
const std::string kStringsHead = "String\tDimension\tPoints\n";
const std::string kPointsHead = "Point\tDim 1\tDim 2\tDim 3\n";

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
  project_.write("in.txt", kGenio);
  ASSERT_EQ(korvane("models import " + project_.path("in.txt") + " \"Site Plan\"" + project()), 0)
      << err_;
  ASSERT_EQ(korvane("models show \"site plan\" --lang en" + project()), 0) << err_;
  EXPECT_EQ(out_, kStringsHead + "E001\t3\t2\nE002\t3\t3\n");
  ASSERT_EQ(korvane("models show \"Site Plan\" e002 --lang en" + project()), 0) << err_;
  EXPECT_EQ(out_, kPointsHead + "1\t7\t8\t9\tbreak\n2\t10\t11\t12\n3\t13\t14\t15\n");

  ASSERT_EQ(korvane("models export \"Site Plan\" -o " + project_.path("out.txt") + project()), 0)
      << err_;
  ASSERT_EQ(korvane("models import " + project_.path("out.txt") + " COPY" + project()), 0) << err_;
  ASSERT_EQ(korvane("models show COPY E002 --lang en" + project()), 0) << err_;
  EXPECT_EQ(out_, kPointsHead + "1\t7\t8\t9\tbreak\n2\t10\t11\t12\n3\t13\t14\t15\n");
  ASSERT_EQ(korvane("models export COPY" + project()), 0) << err_;
  EXPECT_NE(out_.find("0.13000000000000000D+020.14000000000000000D+020.15000000000000000D+02\n"),
            std::string::npos);

  ASSERT_EQ(korvane("models delete COPY --lang en" + project()), 0) << err_;
  EXPECT_EQ(out_, "Deleted the model COPY (2 strings, 5 points)\n");
  EXPECT_EQ(korvane("models delete COPY --lang en" + project()), 1);
  EXPECT_EQ(err_, "korvane models: There is no model \"COPY\"\n");
  EXPECT_EQ(korvane("models show COPY" + project()), 1);
  EXPECT_EQ(err_, "korvane models: there is no model \"COPY\"\n");
}

// Headings in the chosen language over columns as wide as their widest cell:
// names to the left, counts to the right. A failed import leaves no model
// behind, and a model that was there before it stays.
TEST_F(EngineCli, ListShowsWhatImportsLeft) {
  // The records begin well and go wrong on the fourth line.
  project_.write("bad.txt", "001FORMAT(3F12.3)\n003,ORDR,4=1,1,2,3\n080,E001\ngarbage\n");
  EXPECT_EQ(korvane("models import " + project_.path("bad.txt") + " BAD" + project()), 1);
  EXPECT_NE(err_.find("line 4: string E001: 'garbage     ' in columns 1-12 is not a number"),
            std::string::npos)
      << err_;
  ASSERT_EQ(korvane("models list --lang en" + project()), 0) << err_;
  EXPECT_EQ(out_, "Model  Strings  Points\n");  // an empty store: the headings alone
  project_.write("in.txt", kGenio);
  ASSERT_EQ(korvane("models import " + project_.path("in.txt") + " \"Site Plan\"" + project()), 0)
      << err_;
  // A: one string of twelve points along x.
  std::string twelve = "001FORMAT(3F12.3)\n003,ORDR,4=1,1,2,3\n080,E003\n";
  for (int x = 1; x <= 12; ++x)
    twelve += "     " + std::to_string(100 + x) + ".000       0.000       0.000\n";
  project_.write("twelve.txt", twelve + "       0.000       0.000       0.000\n999\n");
  ASSERT_EQ(korvane("models import " + project_.path("twelve.txt") + " A" + project()), 0) << err_;
  EXPECT_EQ(korvane("models import " + project_.path("bad.txt") + " A" + project()), 1);
  ASSERT_EQ(korvane("models list --lang en" + project()), 0) << err_;
  EXPECT_EQ(out_,
            "Model      Strings  Points\n"
            "A                1      12\n"
            "Site Plan        2       5\n");
  ASSERT_EQ(korvane("models list --lang hu" + project()), 0) << err_;
  EXPECT_EQ(out_.substr(0, 11), "Modell     ") << out_;
}

TEST_F(EngineCli, ExecPrintsListingAndReportsEngineErrors) {
  project_.write("run.txt", "crea,A\ngeni,A\n042,XX\n999\n");
  EXPECT_EQ(korvane("models exec " + project_.path("run.txt") + project()), 1);
  EXPECT_NE(out_.find("     3  042,XX"), std::string::npos) << out_;
  EXPECT_NE(err_.find("run.txt, line 3: unknown minor option 042 in GENIO"), std::string::npos)
      << err_;
  project_.write("run.txt", "crea,A\ndele,A\n");
  EXPECT_EQ(korvane("models exec " + project_.path("run.txt") + project()), 0) << err_;
  EXPECT_NE(out_.find("no errors"), std::string::npos);
}

TEST_F(EngineCli, UsageErrorsExitWithTwo) {
  EXPECT_EQ(korvane("models"), 2);
  EXPECT_EQ(korvane("models show" + project()), 2);
  EXPECT_EQ(korvane("models frobnicate" + project()), 2);
  EXPECT_EQ(korvane("models list --project " + project_.path("no-such-folder")), 2);
  EXPECT_NE(err_.find("no-such-folder"), std::string::npos) << err_;
  project_.write(korvane::engine::ModelStore::kFileName, "junk");
  EXPECT_EQ(korvane("models list" + project()), 1);  // a foreign store is an engine error
}

TEST_F(EngineCli, SectionsAlongAMasterGoIntoAnotherModel) {
  // A master 20 long along x with one string 3 to its left.
  project_.write(
      "road.txt",
      "001FORMAT(3F12.3)\n080,MAST\n     100.000     100.000       0.000\n"
      "     120.000     100.000       0.000\n       0.000       0.000       0.000\n"
      "080,E001\n     100.000     103.000       0.000\n     120.000     103.000       0.000\n"
      "       0.000       0.000       0.000\n999\n");
  ASSERT_EQ(korvane("models import " + project_.path("road.txt") + " ROAD" + project()), 0) << err_;
  ASSERT_EQ(korvane("models sections ROAD mast SECT --interval 5 --width 4 --prefix s" + project()),
            0)
      << err_;
  ASSERT_EQ(korvane("models show SECT --lang en" + project()), 0) << err_;
  EXPECT_EQ(out_, kStringsHead + "S001\t5\t2\nS002\t5\t2\nS003\t5\t2\nS004\t5\t2\nS005\t5\t2\n");
  ASSERT_EQ(korvane("models show SECT S002 --lang en" + project()), 0) << err_;
  EXPECT_EQ(out_,
            "Point\tDim 1\tDim 2\tDim 3\tDim 4\tDim 5\n"
            "1\t105\t103\t0\t1\t'E001'\n2\t105\t100\t0\t4\t'MAST'\n");
  EXPECT_EQ(korvane("models sections ROAD MAST road" + project()), 1);
  EXPECT_NE(err_.find("another model"), std::string::npos) << err_;
}
