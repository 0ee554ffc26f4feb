// Reads an input file line by line. Lines end at CR LF, LF or CR. A file that
// begins with a UTF-8 byte-order mark, or that is valid UTF-8 and holds
// non-ASCII characters, is converted to the users' code page; a
// file holding NUL bytes is not text; an overlong line is refused. Both are
// run-time failures that name the file.
#pragma once

#include <cstdio>
#include <string>

namespace korvane {

class LineReader {
 public:
  static constexpr std::size_t kMaxLine = 65535;

  LineReader() = default;
  LineReader(const LineReader&) = delete;
  LineReader& operator=(const LineReader&) = delete;
  ~LineReader();

  bool open(const std::string& fullName);
  void close();
  bool isOpen() const { return file_ != nullptr; }
  // Reads the next line; false at the end of the file.
  bool readLine(std::string& line);
  // Number of the line read last (1-based).
  long lineNumber() const { return lineNumber_; }
  const std::string& fullName() const { return name_; }

 private:
  int get();
  std::FILE* file_ = nullptr;
  std::string name_;
  long lineNumber_ = 0;
  bool utf8_ = false;
  bool first_ = true;
  char buffer_[1 << 16];
  std::size_t pos_ = 0, len_ = 0;
};

}  // namespace korvane
