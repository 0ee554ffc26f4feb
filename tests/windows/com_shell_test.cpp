// The Windows side of the shell's small services: the editor's registered
// open command for ".ipf" files read from the registry, starting a program
// minimised without waiting, and the help viewer.

#include <gtest/gtest.h>
#include <windows.h>

#include <chrono>

#include "shell/editor_command.h"
#include "shell/help_viewer.h"
#include "support/project.h"

namespace korvane::test {

namespace {

void setClassesKey(const char* key, const char* value) {
  HKEY k;
  ASSERT_EQ(RegCreateKeyExA(HKEY_CLASSES_ROOT, key, 0, nullptr, 0, KEY_WRITE, nullptr, &k, nullptr),
            ERROR_SUCCESS);
  RegSetValueExA(k, nullptr, 0, REG_SZ, reinterpret_cast<const BYTE*>(value),
                 static_cast<DWORD>(strlen(value) + 1));
  RegCloseKey(k);
}

TEST(ComShell, TheEditorIsTheRegisteredOpenCommandOfIpfFiles) {
  RegDeleteTreeA(HKEY_CLASSES_ROOT, ".ipf");
  EXPECT_EQ(registeredEditorCommand(), "");  // then Notepad
  EXPECT_EQ(editorCommandLine(registeredEditorCommand(), "C:\\windows", "C:\\p\\a.ipf"),
            "notepad.exe C:\\p\\a.ipf");
  setClassesKey(".ipf", "Korvane.InputFile");
  setClassesKey("Korvane.InputFile\\shell\\open\\command",
                "%SystemRoot%\\system32\\notepad.exe \"%1\"");
  EXPECT_EQ(editorCommandLine(registeredEditorCommand(), "C:\\windows", "C:\\p\\a.ipf"),
            "C:\\windows\\system32\\notepad.exe \"C:\\p\\a.ipf\"");
  RegDeleteTreeA(HKEY_CLASSES_ROOT, ".ipf");
  RegDeleteTreeA(HKEY_CLASSES_ROOT, "Korvane.InputFile");
}

TEST(ComShell, AProgramStartedMinimisedIsNotWaitedFor) {
  TempProject project;
  const std::string marker = project.path("started.txt");
  const auto start = std::chrono::steady_clock::now();
  // The started program waits two seconds before it writes its mark.
  ASSERT_TRUE(startMinimised("cmd.exe /c ping -n 3 127.0.0.1 >nul & echo x > \"" + marker + "\""));
  EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(1));
  EXPECT_FALSE(project.exists("started.txt"));
  EXPECT_FALSE(startMinimised("no-such-program-korvane.exe"));
}

TEST(ComShell, HelpIsShownOnlyWhenItsFileIsThere) {
  TempProject project;
  EXPECT_FALSE(showHelpFile(project.path("KorvaneHU.chm")));
  EXPECT_EQ(helpViewerCommandLine("C:\\Program Files\\Korvane\\KorvaneHU.chm"),
            "hh.exe \"C:\\Program Files\\Korvane\\KorvaneHU.chm\"");
}

}  // namespace
}  // namespace korvane::test
