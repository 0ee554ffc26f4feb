// The compiled output: one open text file at a time (MX input, an AutoCAD
// script, a MicroStation key-in file or a print file), lines ending in CR LF.
#pragma once

#include <cstdio>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "compiler/source_map.h"

namespace korvane {

inline constexpr std::string_view kSentinelCreate = "crea,it is just a flag model";
inline constexpr std::string_view kSentinelDelete = "dele,it is just a flag model";
inline constexpr std::string_view kSentinelModel = "it is just a flag model";

// Where the compiled output goes, told by the last 12 characters of its name:
// the MX input, an AutoCAD script, a MicroStation key-in file, or any other
// file named by a `print` directive.
enum class Channel { Mx, AutoCadScript, MicroStationKeyin, Print };
Channel channelOf(std::string_view fullName);
// "tmpinput.txt", "tmpinput.scr", "tmpinput.key"; empty for a print file.
const char* channelFileName(Channel channel);

class CompiledOutput {
 public:
  CompiledOutput() = default;
  CompiledOutput(const CompiledOutput&) = delete;
  CompiledOutput& operator=(const CompiledOutput&) = delete;
  ~CompiledOutput();

  // Opens `fullName` new (or for appending). A file that cannot be opened is a
  // run-time failure.
  void open(const std::string& fullName, bool append = false);
  void close();
  bool isOpen() const { return file_ != nullptr; }
  // The full name of the output in use (kept after close).
  const std::string& fullName() const { return name_; }
  void setName(const std::string& fullName);
  // Whether the output's base name is "tmpinput" and its extension "scr",
  // which decide what happens to blank lines.
  bool baseIsTmpinput() const { return baseIsTmpinput_; }
  bool extensionIsScr() const { return extensionIsScr_; }

  void writeLine(std::string_view line);

  Channel channel() const { return channel_; }
  bool isMxChannel() const { return channel() == Channel::Mx; }

  // Where each line comes from: the source map's node for the place the
  // compile stood at when the line was written.
  void setSourceMap(SourceMap* map) { sources_ = map; }
  // The place of line n (1-based) of the output opened last; no place for a
  // line that has none (the sentinel lines, or beyond the end).
  SourceOrigin originOfLine(long n) const;
  std::size_t originRuns() const { return origins_.size(); }

  // Receives every line written to the MX input except the sentinel lines.
  void setMxTap(std::function<void(std::string_view)> tap) { tap_ = std::move(tap); }

 private:
  std::FILE* file_ = nullptr;
  std::string name_;
  Channel channel_ = Channel::Print;
  bool baseIsTmpinput_ = false, extensionIsScr_ = false;
  std::function<void(std::string_view)> tap_;
  SourceMap* sources_ = nullptr;
  // The places of the lines written, run-length coded: a run is lines that
  // come from consecutive lines of one file (plain lines), or all from one
  // line (a command that writes many), and may step through the passes of a
  // repetition (the same lines again, pass after pass), so that a long file
  // or a long repetition costs one run and not one entry a line.
  struct OriginRun {
    long firstOutput;  // 0-based output line
    SourceOrigin origin;
    int step = -1;    // 1 or 0 once the run has a second line
    long period = 0;  // lines a pass, when the run goes on into further passes
    SourceOrigin at(long offset) const;
  };
  std::vector<OriginRun> origins_;
  long linesWritten_ = 0;
  void noteOrigin(SourceOrigin origin);
};

bool isSentinelLine(std::string_view line);

}  // namespace korvane
