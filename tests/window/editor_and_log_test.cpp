// Edit input's command line, and the run log that the engine's failures reach.
#include <gtest/gtest.h>

#include "shell/editor_command.h"
#include "shell/run_log.h"
#include "support/project.h"

using namespace korvane;

TEST(EditInput, RegisteredCommandOrNotepad) {
  const std::string path = "C:\\proj\\road 1.ipf";
  EXPECT_EQ(editorCommandLine("%SystemRoot%\\system32\\notepad.exe %1 %1 %SystemRoot%",
                              "C:\\Windows", path),
            "C:\\Windows\\system32\\notepad.exe C:\\proj\\road 1.ipf %1 %SystemRoot%");
  EXPECT_EQ(editorCommandLine("\"C:\\ed\\ed.exe\" \"%1\"", "C:\\Windows", path),
            "\"C:\\ed\\ed.exe\" \"C:\\proj\\road 1.ipf\"");
  EXPECT_EQ(editorCommandLine("ed.exe", "C:\\Windows", path), "ed.exe");  // as it stands
  EXPECT_EQ(editorCommandLine("", "C:\\Windows", path), "notepad.exe C:\\proj\\road 1.ipf");
#ifndef _WIN32
  EXPECT_EQ(registeredEditorCommand(), "");  // no registry here
  EXPECT_FALSE(startMinimised("notepad.exe x"));
#endif
}

TEST(RunLog, EngineFailuresAreLoggedAndSuccessIsNot) {
  test::TempProject p;
  test::RecordingEngine engine(p.folder(), {{"ProjectMacros", "pm"}});
  engine.models.insert("ground");
  RunLog log;
  const Messages messages(test::sourceDir() + "/data/English.lng");
  LoggingEngine logging(engine, log, messages);

  EXPECT_EQ(logging.configuration().setting("ProjectMacros"), "pm");
  EXPECT_TRUE(logging.configuration().modelExists("ground"));
  EXPECT_EQ(&logging.project(), &engine.project());

  const std::string input = p.write("tmpinput.txt", "crea,a\r\n");
  EXPECT_TRUE(logging.configuration().run("input", input).ok());
  EXPECT_TRUE(log.lines().empty());

  engine.failWith = "unknown command";
  EXPECT_FALSE(logging.configuration().run("input", input).ok());
  ASSERT_EQ(log.lines().size(), 1u);
  EXPECT_EQ(log.lines()[0], messages.format({"Runtime", "engine"}, "unknown command"));
  EXPECT_NE(log.lines()[0].find("unknown command"), std::string::npos);
  EXPECT_EQ(engine.runs.size(), 2u);

  log.add("second");
  EXPECT_EQ(log.text("\r\n"), log.lines()[0] + "\r\nsecond");
  log.clear();
  EXPECT_EQ(log.text(), "");
}
