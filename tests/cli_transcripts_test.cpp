// The command line as its users run it. Each tests/cli/NAME.t is a terminal
// session in a throw-away project; every command in it must print what it
// shows, byte for byte. Besides blank lines and "#" comments it holds:
//
//   requires posix           skipped on other systems ("requires workbook-files":
//                            where workbooks are not read without Excel)
//   copy examples/road       a folder of the repository into the project
//   folder NAME, move FROM TO, link NAME TARGET (a symbolic link)
//   keep FROM TO             a copy of a project file, as it is now
//   same A B                 two project files hold the same bytes
//   write NAME [(crlf)]      a file of the lines indented under it by two spaces,
//     crea,A                 each ending with LF (or CR LF)
//   $ cd inputs              where in the project the next commands run
//   $ korvane run a.ipf      a command: korvane as built, cmake, or a program's
//                            path; NAME=VALUE before it, "> FILE" after it
//   stdout: [(crlf)]         what it printed, right under it; a stream without
//   stderr:                  its block printed nothing
//   exit 1                   its exit status; without this line, 0
//   expect NAME [(crlf)]     the whole content of a file afterwards
//   list NAME                a folder's names, sorted, "/" after a folder's
//   exists NAME, missing NAME
//
// A command runs with KORVANE_HOME the repository's data folder, KORVANE_LANG
// empty and no input; its streams go to stdout.txt and stderr.txt in the
// project. "<project>" is the project folder and "<build>" the build folder,
// "/" after them the system's separator; on Windows each "/" of a command is
// "\", as users type it there. A block line ending in " (esc)" holds \r, \t,
// \\ and \xNN (a byte), " (esc)" alone being an empty last line; one ending in
// " (glob)" matches "*" to any characters and "?" to one. The file is UTF-8:
// commands and streams are in the terminal's encoding (on Windows the ANSI
// code page, and the CR LF that standard error's text mode writes for LF is
// read as LF); files hold the bytes written.
//
// docs/language.md runs as "language_guide": each `ipf` example (on the
// embedded engine after "ipf embedded"), with the `ipm` files before it, must
// compile to the `mx` lines after it.
//
// KORVANE_WRITE_GOLDEN=1 (on Linux) writes every block under a command, expect
// or list afresh from what the program does now: read each before keeping it.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>

#include "base/codepage.h"
#include "base/fs.h"
#include "base/messages.h"
#include "support/cli.h"
#include "support/process.h"

namespace korvane::test {
namespace {

namespace stdfs = std::filesystem;

const stdfs::path kTranscripts = stdfs::path(sourceDir()) / "tests" / "cli";

std::string readBytes(const stdfs::path& p) {
  std::ifstream in(p, std::ios::binary);
  return {std::istreambuf_iterator<char>(in), {}};
}

std::vector<std::string> linesOf(const std::string& text) {
  std::vector<std::string> lines;
  std::istringstream in(text);
  for (std::string l; std::getline(in, l);) lines.push_back(l);
  return lines;
}

bool cut(std::string& line, std::string_view suffix) {
  if (!line.ends_with(suffix)) return false;
  line.resize(line.size() - suffix.size());
  return true;
}

bool globMatch(const char* p, const char* s) {
  if (*p == '*') return globMatch(p + 1, s) || (*s && globMatch(p, s + 1));
  if (!*p || !*s) return !*p && !*s;
  return (*p == '?' || *p == *s) && globMatch(p + 1, s + 1);
}

// A text of the transcript as a terminal shows it (the way back of asShown),
// or as a file holds it.
std::string bytes(const std::string& utf8, bool terminal) {
#ifdef _WIN32
  if (terminal) return cp::fromUtf8(utf8);
#endif
  return utf8;
}

std::string lineBytes(std::string line, bool terminal) {
  if (!cut(line, " (esc)")) return bytes(line, terminal);
  std::string out, run;
  for (std::size_t i = 0; i < line.size(); ++i) {
    const char c = line[i] == '\\' && i + 1 < line.size() ? line[i + 1] : 0;
    if (c != 'r' && c != 't' && c != '\\' && c != 'x') {
      run += line[i];
      continue;
    }
    out += bytes(run, terminal) + (c == 'r' ? "\r" : c == 't' ? "\t" : c == '\\' ? "\\" : "");
    if (c == 'x') out += static_cast<char>(std::stoi(line.substr(i + 2, 2), nullptr, 16));
    run.clear();
    i += c == 'x' ? 3 : 1;
  }
  return out + bytes(run, terminal);
}

// The block line that shows a line the program gave.
std::string rendered(const std::string& line, bool last) {
  const bool utf8 = cp::looksLikeUtf8(line);
  bool esc = line.ends_with(' ') || (line.empty() && last);
  std::string escaped;
  for (unsigned char c : line) {
    const bool raw = c < 0x20 || c == 0x7f || (c >= 0x80 && !utf8);
    char hex[5];
    std::snprintf(hex, sizeof hex, "\\x%02x", c);
    escaped += c == '\r' ? "\\r" : c == '\t' ? "\\t" : c == '\\' ? "\\\\" : raw ? hex : "";
    if (!raw && c != '\\') escaped += static_cast<char>(c);
    esc = esc || raw;
  }
  return esc ? "  " + escaped + " (esc)" : line.empty() ? "" : "  " + line;
}

// docs/language.md as transcript lines.
std::vector<std::string> guide() {
  std::vector<std::string> out = {"folder inputs"};
  std::string kind, name, engine;
  for (const std::string& l : linesOf(readBytes(sourceDir() + "/docs/language.md"))) {
    if (!l.starts_with("```")) {
      if (kind == "ipm" || kind == "ipf" || kind == "mx") out.push_back("  " + l);
    } else if (!kind.empty()) {
      kind.clear();
    } else {
      name.clear();
      std::istringstream(l.substr(3)) >> kind >> name;
      if (kind == "ipm") out.push_back("write " + name);
      if (kind == "ipf") out.push_back("write example.ipf");
      if (kind == "ipf") engine = name == "embedded" ? "embedded" : "none";
      // Some examples show a name standing for itself: its warning is no part of them.
      if (kind == "mx")
        out.push_back("$ korvane compile example.ipf -w --lang en --engine " + engine);
      if (kind == "mx") out.push_back("stdout: (crlf)");
      if (kind.empty()) kind = "text";
    }
  }
  return out;
}

class Transcript {
 public:
  Transcript(const std::string& name, bool writing)
      : name_(name),
        lines_(name == "language_guide" ? guide()
                                        : linesOf(readBytes(kTranscripts / (name + ".t")))),
        writing_(writing) {}

  // Runs it; what it would be with the program's present output (empty when a
  // "requires" line ends it, with the reason in `skipped`).
  std::string run(std::string& skipped) {
    while (at_ < lines_.size()) {
      const std::size_t from = at_;
      const std::string line = lines_[at_++], word = line.substr(0, line.find(' '));
      std::string rest = line.substr(std::min(line.size(), word.size() + 1));
      const std::string first = rest.substr(0, rest.find(' '));
      const std::string second = rest.substr(std::min(rest.size(), first.size() + 1));
      step_ = at_;
      if (word == "$") {
        command(line);
        continue;
      }
      if (word == "expect" || word == "list") {
        const Block b = block(rest);
        const bool file = word == "expect";
        if (file) {
          EXPECT_TRUE(stdfs::is_regular_file(path(rest))) << where() << ": no file";
        }
        compare(word + " " + rest, b, !file, file ? readBytes(path(rest)) : listing(rest));
        continue;
      }
      if (word == "write") {
        const Block b = block(rest);
        std::string content;
        for (const auto& l : b.lines) content += lineBytes(l, false) + (b.crlf ? "\r\n" : "\n");
        stdfs::create_directories(path(rest).parent_path());
        std::ofstream(path(rest), std::ios::binary) << content;
      } else if (word == "copy") {
        stdfs::copy(stdfs::path(sourceDir()) / rest, path("."), stdfs::copy_options::recursive);
      } else if (word == "folder") {
        stdfs::create_directories(path(rest));
      } else if (word == "move") {
        stdfs::rename(path(first), path(second));
      } else if (word == "keep") {
        stdfs::copy_file(path(first), path(second), stdfs::copy_options::overwrite_existing);
      } else if (word == "same") {
        EXPECT_EQ(readBytes(path(first)), readBytes(path(second))) << where() << ": " << rest;
      } else if (word == "link") {
        stdfs::create_symlink(path(second), path(first));
      } else if (word == "exists" || word == "missing") {
        EXPECT_EQ(stdfs::exists(path(rest)), word == "exists") << where();
      } else if (word == "requires") {
#ifdef _WIN32
        if (rest == "posix") skipped = "it needs a POSIX system";
#endif
#ifndef KORVANE_WORKBOOK_FILES
        if (rest == "workbook-files") skipped = "workbooks are read and written by Excel alone";
#endif
        if (!skipped.empty()) return "";
      } else if (!line.empty() && word != "#") {
        ADD_FAILURE() << where() << ": what is `" << line << "`?";
      }
      for (std::size_t i = from; i < at_; ++i) out_ += lines_[i] + "\n";  // as it stands
    }
    return out_;
  }
  int commands = 0;

 private:
  struct Block {
    std::vector<std::string> lines;  // without their indent
    bool crlf = false;
  };

  // The block under the header just read; " (crlf)" goes from the header.
  Block block(std::string& header) {
    Block b{{}, cut(header, " (crlf)")};
    const std::size_t from = at_;
    for (std::size_t i = at_; i < lines_.size(); ++i) {
      const bool blank = lines_[i].find_first_not_of(' ') == std::string::npos;
      if (!blank && !lines_[i].starts_with("  ")) break;
      if (!blank) at_ = i + 1;  // the blank lines after it are not in it
    }
    for (std::size_t i = from; i < at_; ++i)
      b.lines.push_back(lines_[i].substr(2 * !lines_[i].empty()));
    return b;
  }
  bool next(const std::string& head) const {
    return at_ < lines_.size() && lines_[at_].starts_with(head);
  }
  std::string where() const { return name_ + ".t:" + std::to_string(step_); }
  stdfs::path path(const std::string& name) const {
    return fs::pathOfNativeText(fs::nativeText(project_.path(cp::fromUtf8(name))));
  }
  std::string folder(bool terminal) const {
    return terminal ? asShown(project_.folder()) : project_.folder();
  }

  std::string expand(std::string text, bool terminal) const {
    const std::string build = stdfs::path(KORVANE_BIN_DIR).parent_path().string();
    for (const auto& [mark, with] :
         {std::pair{"<project>", folder(terminal)}, {"<build>", build}}) {
      for (std::size_t at = 0; (at = text.find(mark, at)) != std::string::npos;) {
        const std::size_t end = std::min(text.find_first_of(" ,:;\"'()\t", at), text.size());
        std::string name = text.substr(at, end - at).substr(std::string(mark).size());
        std::replace(name.begin(), name.end(), '/', fs::kSep);
        text.replace(at, end - at, with + name);
        at += with.size() + name.size();
      }
    }
    return text;
  }

  // Checks what the program gave against a block, and writes the block afresh.
  void compare(const std::string& head, const Block& b, bool terminal, const std::string& got) {
    std::vector<std::string> gotLines = linesOf(got);
    std::string want;
    for (std::size_t i = 0; i < b.lines.size(); ++i) {
      std::string l = b.lines[i];
      const bool glob = cut(l, " (glob)");
      l = expand(lineBytes(l, terminal), terminal) + (b.crlf ? "\r" : "");
      // A glob line that matches stands for the line it matched.
      const bool matched = glob && i < gotLines.size() && globMatch(l.c_str(), gotLines[i].c_str());
      want += (matched ? gotLines[i] : l) + "\n";
    }
    if (!writing_) {
      EXPECT_EQ(want, got) << where() << ": " << head;
    }
    if (got.empty() && head.starts_with("std")) return;
    gotLines = linesOf(replaceAll(got, folder(terminal), "<project>"));
    const bool crlf =
        got.ends_with("\r\n") &&
        std::all_of(gotLines.begin(), gotLines.end(), [](auto& l) { return l.ends_with('\r'); });
    out_ += head + (crlf ? " (crlf)\n" : "\n");
    for (std::size_t i = 0; i < gotLines.size(); ++i) {
      if (crlf) gotLines[i].pop_back();
      std::string glob = i < b.lines.size() ? b.lines[i] : "";
      const bool kept = cut(glob, " (glob)") && globMatch(glob.c_str(), gotLines[i].c_str());
      out_ += (kept ? "  " + b.lines[i] : rendered(gotLines[i], i + 1 == gotLines.size())) + "\n";
    }
  }

  std::string listing(const std::string& name) const {
    std::vector<std::string> names;  // Korvane's text, sorted as UTF-8 on every system
    for (const auto& e : stdfs::directory_iterator(path(name)))
      names.push_back(fs::fromNative(e.path().filename()) + (e.is_directory() ? "/" : ""));
    std::sort(names.begin(), names.end(),
              [](const auto& a, const auto& b) { return cp::toUtf8(a) < cp::toUtf8(b); });
    std::string out;
    for (const auto& n : names) out += asShown(n) + "\n";
    return out;
  }

  void command(const std::string& line) {
    std::vector<std::string> words = shellWords(bytes(line.substr(2), true));
    out_ += line + "\n";
    if (words.size() == 2 && words[0] == "cd") {
      cwd_ = words[1];
      return;
    }
    ProgramRun run;
    run.folder = project_.path(cp::fromUtf8(cwd_));
    run.env = {{"KORVANE_HOME", sourceDir() + "/data"}, {"KORVANE_LANG", ""}};
    for (std::size_t eq; words.size() > 1 && (eq = words[0].find('=')) != std::string::npos;
         words.erase(words.begin()))
      run.env[words[0].substr(0, eq)] = expand(words[0].substr(eq + 1), true);
    run.out = project_.path("stdout.txt");
    run.err = project_.path("stderr.txt");
    for (std::size_t i = 0; i < words.size(); ++i) {
      std::string word = expand(words[i], true);
#ifdef _WIN32
      std::replace(word.begin(), word.end(), '/', '\\');
#endif
      if (word == ">" && i + 1 < words.size())
        run.out = fs::isAbsolute(words[++i]) ? words[i] : project_.path(words[i]);
      else if (i == 0 && (word == "korvane" || word == "cmake"))
        run.argv.push_back(word == "cmake" ? KORVANE_CMAKE : builtProgram(word));
      else
        run.argv.push_back(word);
    }
    // What it must do, right under it.
    std::string outHead = "stdout:", errHead = "stderr:";
    Block out, err;
    int status = 0;
    if (next(outHead)) outHead = lines_[at_++], out = block(outHead);
    if (next(errHead)) errHead = lines_[at_++], err = block(errHead);
    if (next("exit ")) status = std::stoi(lines_[at_++].substr(5));

    stdfs::remove(path("stdout.txt"));  // nothing of the command before
    stdfs::remove(path("stderr.txt"));
    const int got = runProgram(run);
    ++commands;
    if (!writing_) {
      EXPECT_EQ(got, status) << where() << ": the exit status";
    }
    compare("stdout:", out, true, readBytes(path("stdout.txt")));
    compare("stderr:", err, true, errorText(readBytes(path("stderr.txt"))));
    if (got != 0) out_ += "exit " + std::to_string(got) + "\n";
  }

  std::string name_;
  std::vector<std::string> lines_;
  bool writing_;
  std::size_t at_ = 0, step_ = 0;  // the next line; the line of the step under way
  std::string out_, cwd_ = ".";
  TempProject project_;
};

std::vector<std::string> transcriptNames() {
  std::vector<std::string> names = {"language_guide"};
  for (const auto& e : stdfs::directory_iterator(kTranscripts))
    if (e.path().extension() == ".t") names.push_back(e.path().stem().string());
  std::sort(names.begin(), names.end());
  return names;
}

class CliTranscript : public ::testing::TestWithParam<std::string> {};

TEST_P(CliTranscript, EveryCommandPrintsWhatItShows) {
#ifdef _WIN32
  const bool writing = false;  // the transcripts are written as Linux shows them
#else
  const bool writing = std::getenv("KORVANE_WRITE_GOLDEN") && GetParam() != "language_guide";
#endif
  std::string skipped;
  Transcript transcript(GetParam(), writing);
  const std::string again = transcript.run(skipped);
  if (!skipped.empty()) GTEST_SKIP() << skipped;
  if (writing) std::ofstream(kTranscripts / (GetParam() + ".t"), std::ios::binary) << again;
  // A guide whose examples are no longer found fails.
  EXPECT_GE(transcript.commands, GetParam() == "language_guide" ? 12 : 1);
}

INSTANTIATE_TEST_SUITE_P(Cli, CliTranscript, ::testing::ValuesIn(transcriptNames()),
                         [](const auto& info) { return info.param; });

}  // namespace
}  // namespace korvane::test
