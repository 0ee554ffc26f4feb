// Ini files as Windows reads and writes them.
#include "base/profile.h"

#include <gtest/gtest.h>

#include <chrono>
#include <fstream>
#include <map>
#include <set>
#include <thread>

#include "base/messages.h"
#include "support/project.h"
#include "support/vectors.h"

namespace korvane::test {
namespace {

struct Profile : ::testing::Test {
  TempProject project;
  std::string file =
      project.write("a.ini",
                    "; comment\r\n[section1]\r\nname1=val1\r\nname2=\"val2\"\r\nname3\r\n"
                    "name4 = a \r\n\r\n[ section2 ]\r\nkey='q'\r\n[section1]\r\nlater=x\r\n");
};

TEST_F(Profile, ReadsLikeThePrivateProfileReader) {
  for (const auto& v : readVectors("profile_reads.txt", 3))
    EXPECT_EQ(ReadProfileString(v.fields[0], v.fields[1], file), v.fields[2]) << v.where;
  std::int32_t status = -1;
  EXPECT_EQ(ReadProfileString("section1", "name1", file, &status), "val1");
  EXPECT_EQ(status, 4);
  EXPECT_EQ(ReadProfileString("section1", "name1", project.path("missing.ini"), &status), "");
  EXPECT_EQ(status, 0);
}

std::string utf16le(const std::u16string& text) {
  std::string bytes = "\xFF\xFE";
  for (char16_t u : text) {
    bytes += static_cast<char>(u & 0xFF);
    bytes += static_cast<char>(u >> 8);
  }
  return bytes;
}

TEST_F(Profile, Utf16AndUtf8FilesAreReadInTheUsersCodePage) {
  std::string f16 = project.write("u16.ini", utf16le(u"[s]\r\nk=\u00E1\u0151\r\n"));
  EXPECT_EQ(ReadProfileString("s", "k", f16), "\xE1\xF5");  // "áő"
  std::string f8 = project.write("u8.ini", "\xEF\xBB\xBF[s]\nk=\xC5\x91\n");
  EXPECT_EQ(ReadProfileString("s", "k", f8), "\xF5");
}

TEST_F(Profile, AUtf16FileIsWrittenInUtf16KeepingWhatTheCodePageCannotHold) {
  // U+4E2D and U+1F600 (a surrogate pair) have no place in Windows-1250.
  std::string f = project.write("u16.ini", utf16le(u"[s]\r\nk=\u00E1\r\nx=\u4E2D\U0001F600\r\n"));
  EXPECT_EQ(WriteProfileString("s", "k", "\xF5\xFB", f), "1");  // "őű"
  EXPECT_EQ(WriteProfileString("t", "n", "1", f), "1");
  EXPECT_EQ(project.read("u16.ini"),
            utf16le(u"[s]\r\nk=\u0151\u0171\r\nx=\u4E2D\U0001F600\r\n[t]\r\nn=1\r\n"));
  EXPECT_EQ(ReadProfileString("s", "k", f), "\xF5\xFB");
}

TEST_F(Profile, AFileRewrittenAtOnceWithTheSameSizeIsReadAfresh) {
  std::string f = project.write("same.ini", "[s]\r\nk=aaa\r\n");
  ASSERT_EQ(ReadProfileString("s", "k", f), "aaa");
  // Another program replaces the file within the same second, same size.
  for (const char* v : {"bbb", "ccc", "ddd"}) {
    std::this_thread::sleep_for(std::chrono::milliseconds(20));
    project.write("same.ini", std::string("[s]\r\nk=") + v + "\r\n");
    EXPECT_EQ(ReadProfileString("s", "k", f), v);
  }
}

TEST_F(Profile, AUtf8FileIsWrittenInItsOwnSectionAndEncoding) {
  std::string f8 = project.write("u8.ini", "\xEF\xBB\xBF[s]\r\nk=\xC5\x91\r\n[t]\r\n");
  EXPECT_EQ(WriteProfileString("s", "\xE9", "\xFB", f8), "1");  // "é" = "ű"
  EXPECT_EQ(WriteProfileString("S", "k", "\xE1", f8), "1");     // "á"
  EXPECT_EQ(project.read("u8.ini"),
            "\xEF\xBB\xBF[s]\r\nk=\xC3\xA1\r\n\xC3\xA9=\xC5\xB1\r\n[t]\r\n");
  EXPECT_EQ(ReadProfileString("s", "\xE9", f8), "\xFB");
}

TEST_F(Profile, ValuesAreCutAt127Characters) {
  std::string longFile = project.write("l.ini", "[s]\nk=" + std::string(200, 'x') + "\n");
  EXPECT_EQ(ReadProfileString("s", "k", longFile), std::string(127, 'x'));
}

TEST_F(Profile, WritingEditsInPlaceAndKeepsEverythingElse) {
  std::int32_t status = 0;
  EXPECT_EQ(WriteProfileString("SECTION1", "NAME1", "new", file, &status), "1");
  EXPECT_EQ(status, 1);
  EXPECT_EQ(WriteProfileString("section1", "added", "1", file), "1");
  EXPECT_EQ(WriteProfileString("Fresh", "k", "v", file), "1");
  EXPECT_EQ(project.read("a.ini"),
            "; comment\r\n[section1]\r\nname1=new\r\nname2=\"val2\"\r\nname3\r\n"
            "name4 = a \r\nadded=1\r\n\r\n[ section2 ]\r\nkey='q'\r\n[section1]\r\nlater=x\r\n"
            "[Fresh]\r\nk=v\r\n");
  EXPECT_EQ(ReadProfileString("section1", "name1", file), "new");  // no stale cache
  EXPECT_EQ(WriteProfileString("s", "k", "v", project.path("new.ini")), "1");
  EXPECT_EQ(project.read("new.ini"), "[s]\r\nk=v\r\n");
  EXPECT_EQ(WriteProfileString("s", "k", "v", project.path("no/such/folder/x.ini")), "0");
}

TEST_F(Profile, MessagesReplacePlaceholdersOnce) {
  std::string lang = project.write("x.lng", "[Messages]\r\ns9=File %1 in %2 (%1)\r\n");
  Messages m(lang);
  EXPECT_EQ(m.format({"Messages", "s9"}, "a%2", "b"), "File a%2 in b (a%2)");
  EXPECT_EQ(m.text({"Messages", "nokey"}), "");
  EXPECT_EQ(Messages(project.path("none.lng")).text({"Messages", "s9"}), "");
}

// A key in one language file and not in the other shows an empty text; the
// run-time failures and stop messages must have theirs.
TEST(ShippedLanguageFiles, HoldTheSameKeysEachWithItsText) {
  std::map<std::string, std::set<std::string>> keys[2];
  for (int i : {0, 1}) {
    std::ifstream in(sourceDir() + (i ? "/data/Hungarian.lng" : "/data/English.lng"));
    std::string line, section;
    while (std::getline(in, line)) {
      if (!line.empty() && line.back() == '\r') line.pop_back();
      const std::size_t eq = line.find('=');
      if (line.rfind('[', 0) == 0) {
        section = line;
      } else if (eq != std::string::npos && line[0] != ';') {
        keys[i][section].insert(line.substr(0, eq));
        EXPECT_LT(eq + 1, line.size()) << section << " " << line;
      }
    }
  }
  EXPECT_EQ(keys[0], keys[1]);
  for (const char* key :
       {"title",  "where",   "text",  "div0",      "overflow", "mismatch",  "badarg",
        "fields", "args",    "vars",  "bar",       "paren",    "depth",     "notavail",
        "binary", "linelen", "write", "pattern",   "strfunc",  "subscript", "mstation",
        "engine", "then",    "order", "crossings", "textlen"})
    EXPECT_TRUE(keys[0]["[Runtime]"].count(key)) << key;
  for (const char* key : {"s5", "s8", "s9", "s10", "s12", "s13", "s14", "s15", "s17"})
    EXPECT_TRUE(keys[0]["[Messages]"].count(key)) << key;
}

}  // namespace
}  // namespace korvane::test
