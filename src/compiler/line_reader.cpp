#include "compiler/line_reader.h"

#include <filesystem>
#include <map>
#include <mutex>

#include "base/codepage.h"
#include "base/fs.h"
#include "compiler/compile_failure.h"

namespace korvane {

LineReader::~LineReader() { close(); }

namespace {

// Files larger than this are never taken for UTF-8 without a byte-order mark.
constexpr std::uintmax_t kUtf8ScanLimit = 64u << 20;

// Whether a file without a byte-order mark is UTF-8: valid UTF-8 holding at
// least one non-ASCII character. A file is read again for every repetition,
// so the answer is kept while the file keeps its size and time.
bool isUtf8File(const std::string& fullName) {
  struct Known {
    std::uintmax_t size;
    std::filesystem::file_time_type time;
    bool utf8;
  };
  static std::mutex mutex;
  static std::map<std::string, Known> known;
  std::error_code ec;
  const auto path = fs::native(fullName);
  const auto size = std::filesystem::file_size(path, ec);
  if (ec || size > kUtf8ScanLimit) return false;
  const auto time = std::filesystem::last_write_time(path, ec);
  std::lock_guard<std::mutex> lock(mutex);
  auto it = known.find(fullName);
  if (it != known.end() && it->second.size == size && it->second.time == time)
    return it->second.utf8;
  auto data = fs::readFile(fullName);
  const bool utf8 = data && cp::looksLikeUtf8(*data);
  if (known.size() > 1000) known.clear();
  known[fullName] = Known{size, time, utf8};
  return utf8;
}

}  // namespace

bool LineReader::open(const std::string& fullName) {
  close();
  name_ = fullName;
  file_ = std::fopen(fs::native(fullName).string().c_str(), "rb");
  lineNumber_ = 0;
  utf8_ = file_ != nullptr && isUtf8File(fullName);
  first_ = true;
  pos_ = len_ = 0;
  return file_ != nullptr;
}

void LineReader::close() {
  if (file_) std::fclose(file_);
  file_ = nullptr;
}

int LineReader::get() {
  if (pos_ == len_) {
    if (!file_) return EOF;
    len_ = std::fread(buffer_, 1, sizeof buffer_, file_);
    pos_ = 0;
    if (len_ == 0) return EOF;
  }
  return static_cast<unsigned char>(buffer_[pos_++]);
}

bool LineReader::readLine(std::string& line) {
  line.clear();
  int c = get();
  if (c == EOF) return false;
  if (first_) {
    first_ = false;
    // The first read filled the buffer from its start: look for a UTF-8 mark.
    if (len_ >= 3 && pos_ == 1 && buffer_[0] == '\xEF' && buffer_[1] == '\xBB' &&
        buffer_[2] == '\xBF') {
      utf8_ = true;
      pos_ = 3;
      c = get();
      if (c == EOF) return false;
    }
  }
  ++lineNumber_;
  while (c != EOF && c != '\n' && c != '\r') {
    if (c == 0) throw RuntimeFailure("binary", name_);
    if (line.size() >= kMaxLine) throw RuntimeFailure("linelen", std::to_string(kMaxLine));
    line += static_cast<char>(c);
    c = get();
  }
  if (c == '\r') {
    int n = get();
    if (n != '\n' && n != EOF) --pos_;  // a lone CR ends the line too
  }
  if (utf8_) line = cp::fromUtf8(line);
  return true;
}

}  // namespace korvane
