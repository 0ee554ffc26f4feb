#include "compiler/compiled_output.h"

#include <algorithm>

#include "base/codepage.h"
#include "base/fs.h"
#include "base/text.h"
#include "base/texts/runtime_texts.h"
#include "compiler/extension/compile_failure.h"

namespace korvane {
namespace {

// The output file is written by the compile alone: its stream needs no lock.
bool writeRecord(std::string_view line, std::FILE* file) {
#if defined(__GLIBC__)
  return fwrite_unlocked(line.data(), 1, line.size(), file) == line.size() &&
         putc_unlocked('\r', file) != EOF && putc_unlocked('\n', file) != EOF;
#else
  return std::fwrite(line.data(), 1, line.size(), file) == line.size() &&
         std::fputc('\r', file) != EOF && std::fputc('\n', file) != EOF;
#endif
}

}  // namespace

CompiledOutput::~CompiledOutput() { close(); }

void CompiledOutput::setName(const std::string& fullName) {
  name_ = fullName;
  channel_ = channelOf(fullName);
  const fs::NameParts parts = fs::splitName(fullName);
  baseIsTmpinput_ = parts.base == "tmpinput";
  extensionIsScr_ = parts.ext == "scr";
}

void CompiledOutput::open(const std::string& fullName, bool append) {
  close();
  setName(fullName);
  origins_.clear();
  linesWritten_ = 0;
  file_ = fs::openFile(fs::native(fullName), append ? "ab" : "wb");
  if (!file_) throw RuntimeFailure(texts::runtime::kCannotWrite, fullName);
}

void CompiledOutput::close() {
  if (!file_) return;
  std::fclose(file_);
  file_ = nullptr;
}

void CompiledOutput::writeLine(std::string_view line) {
  if (!file_) throw RuntimeFailure(texts::runtime::kCannotWrite, name_);
  if (!writeRecord(line, file_)) throw RuntimeFailure(texts::runtime::kCannotWrite, name_);
  const bool sentinel = isSentinelLine(line);
  noteOrigin(sources_ && !sentinel ? sources_->here() : SourceOrigin{});
  if (tap_ && !sentinel && isMxChannel()) tap_(line);
}

SourceOrigin CompiledOutput::OriginRun::at(long offset) const {
  const long s = step < 0 ? 0 : step;
  if (period == 0) return {origin.node, origin.line + s * offset, origin.pass};
  return {origin.node, origin.line + s * (offset % period), origin.pass + offset / period};
}

void CompiledOutput::noteOrigin(SourceOrigin origin) {
  const long n = linesWritten_++;
  if (!origins_.empty() && origins_.back().origin.node == origin.node) {
    OriginRun& run = origins_.back();
    if (origin.node == SourceMap::kNone) return;
    const long offset = n - run.firstOutput;
    const SourceOrigin& first = run.origin;
    if (run.step < 0) {  // the second line tells what the run is
      const long down = origin.line - first.line;
      if (origin.pass == first.pass && (down == 0 || down == 1)) {
        run.step = static_cast<int>(down);
        return;
      }
      if (origin.pass == first.pass + 1 && down == 0) {  // a repeated part of one line
        run.step = 0;
        run.period = 1;
        return;
      }
    } else {
      if (run.at(offset) == origin) return;
      // The lines so far were one pass of a repeated part, and the next begins.
      if (run.period == 0 && origin.pass == first.pass + 1 && origin.line == first.line) {
        run.period = offset;
        return;
      }
    }
  }
  origins_.push_back(OriginRun{n, origin});
}

SourceOrigin CompiledOutput::originOfLine(long n) const {
  if (n < 1 || n > linesWritten_) return {};
  // The last run that begins at or before the line.
  auto after = std::upper_bound(origins_.begin(), origins_.end(), n - 1,
                                [](long line, const OriginRun& r) { return line < r.firstOutput; });
  const OriginRun& run = *(after - 1);
  if (run.origin.node == SourceMap::kNone) return {};
  return run.at(n - 1 - run.firstOutput);
}

Channel channelOf(std::string_view fullName) {
  const std::string_view last =
      fullName.size() >= 12 ? fullName.substr(fullName.size() - 12) : fullName;
  for (Channel c : {Channel::Mx, Channel::AutoCadScript, Channel::MicroStationKeyin})
    if (last == channelFileName(c)) return c;
  return Channel::Print;
}

const char* channelFileName(Channel channel) {
  switch (channel) {
    case Channel::Mx:
      return "tmpinput.txt";
    case Channel::AutoCadScript:
      return "tmpinput.scr";
    case Channel::MicroStationKeyin:
      return "tmpinput.key";
    default:
      return "";
  }
}

bool isSentinelLine(std::string_view line) {
  if (line.size() != kSentinelCreate.size() && line.size() != kSentinelDelete.size()) return false;
  std::string l = cp::lower(line);
  return l == kSentinelCreate || l == kSentinelDelete;
}

}  // namespace korvane
