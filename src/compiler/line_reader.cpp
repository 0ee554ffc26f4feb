#include "compiler/line_reader.h"

#include <cstring>

#include "base/codepage.h"
#include "base/fs.h"
#include "base/texts/runtime_texts.h"
#include "compiler/extension/compile_failure.h"
#include "compiler/source_cache.h"

namespace korvane {
namespace {
constexpr std::size_t kWindow = 1 << 16;

// What the first line of a UTF-16 file is read as up to its first NUL: its
// byte-order mark, or one character of plain text.
bool looksUtf16(const std::string& firstLine) {
  return firstLine.starts_with("\xFF\xFE") || firstLine.starts_with("\xFE\xFF") ||
         (firstLine.size() == 1 && firstLine[0] > ' ');
}
}  // namespace

LineReader::~LineReader() { close(); }

bool LineReader::open(const std::string& fullName, SourceCache* cache) {
  close();
  name_ = fullName;
  lineNumber_ = 0;
  first_ = true;
  pos_ = len_ = 0;
  if (cache) held_ = cache->content(fullName);
  if (held_) {
    // A file that is valid UTF-8 and not plain ASCII was written as UTF-8,
    // with or without a byte-order mark.
    utf8_ = held_->utf8;
    data_ = held_->content.data();
    len_ = held_->content.size();
    return true;
  }
  file_ = fs::openFile(fs::native(fullName), "rb");
  if (!file_) return false;
  if (!buffer_) buffer_ = std::make_unique_for_overwrite<char[]>(kWindow);
  data_ = buffer_.get();
  utf8_ = streamIsUtf8();
  return true;
}

void LineReader::reopen(const std::string& fullName,
                        std::shared_ptr<const SourceCache::HeldFile> held, const Mark& at) {
  close();
  name_ = fullName;
  held_ = std::move(held);
  utf8_ = held_->utf8;
  data_ = held_->content.data();
  len_ = held_->content.size();
  pos_ = at.pos;
  lineNumber_ = at.line;
  first_ = at.first;
}

void LineReader::close() {
  if (file_) std::fclose(file_);
  file_ = nullptr;
  held_.reset();
  data_ = nullptr;
}

// Reads the stream once through to tell its encoding, then rewinds it.
bool LineReader::streamIsUtf8() {
  cp::Utf8Scan scan;
  for (std::size_t n; (n = std::fread(buffer_.get(), 1, kWindow, file_)) > 0;)
    if (!scan.feed(std::string_view(buffer_.get(), n))) break;
  std::rewind(file_);
  return scan.looksLikeUtf8();
}

bool LineReader::fill() {
  if (pos_ < len_) return true;
  if (!file_) return false;
  len_ = std::fread(buffer_.get(), 1, kWindow, file_);
  pos_ = 0;
  return len_ > 0;
}

bool LineReader::readLine(std::string& line) {
  line.clear();
  if (!fill()) return false;
  if (first_) {
    first_ = false;
    // The first window starts at the file's start: look for a UTF-8 mark.
    if (len_ >= 3 && std::memcmp(data_, "\xEF\xBB\xBF", 3) == 0) {
      utf8_ = true;
      pos_ = 3;
      if (!fill()) return false;
    }
  }
  ++lineNumber_;
  controlColumn_ = 0;
  for (;;) {
    // Take the run of ordinary characters at once, up to the line's end.
    const char* start = data_ + pos_;
    std::size_t n = 0;
    const std::size_t avail = len_ - pos_;
    for (;;) {
      while (n < avail && static_cast<unsigned char>(start[n]) >= 0x20) ++n;
      if (n == avail || start[n] == '\n' || start[n] == '\r' || start[n] == '\0') break;
      if (start[n] != '\t' && controlColumn_ == 0) {
        controlColumn_ = static_cast<long>(line.size() + n) + 1;
        control_ = start[n];
      }
      ++n;
    }
    if (line.size() + n > kMaxLine)
      throw RuntimeFailure(texts::runtime::kLineTooLong, std::to_string(kMaxLine));
    line.append(start, n);
    pos_ += n;
    if (n < avail) break;  // a line end or a NUL
    if (!fill()) break;    // the end of the file ends the line
  }
  if (pos_ < len_) {
    const char c = data_[pos_++];
    if (c == '\0')
      throw RuntimeFailure(lineNumber_ == 1 && looksUtf16(line) ? texts::runtime::kUtf16Text
                                                                : texts::runtime::kNotText,
                           name_);
    if (c == '\r' && fill() && data_[pos_] == '\n') ++pos_;  // CR LF, or a lone CR
  }
  std::size_t lost = 0;
  if (utf8_) line = cp::fromUtf8(line, lost);
  lostColumn_ = static_cast<long>(lost);
  return true;
}

}  // namespace korvane
