#include "compiler/line_reader.h"

#include "base/codepage.h"
#include "base/fs.h"
#include "compiler/compile_failure.h"

namespace korvane {

LineReader::~LineReader() { close(); }

bool LineReader::open(const std::string& fullName) {
  close();
  name_ = fullName;
  file_ = std::fopen(fs::native(fullName).string().c_str(), "rb");
  lineNumber_ = 0;
  utf8_ = false;
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
