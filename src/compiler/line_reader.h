// Reads an input file line by line. Lines end at CR LF, LF or CR. A file that
// begins with a UTF-8 byte-order mark, or that is valid UTF-8 and holds
// non-ASCII characters, is converted to the users' code page; a
// file holding NUL bytes is not text (a hint says when it is UTF-16); an
// overlong line is refused. Both are
// run-time failures that name the file. The file is read from the run's
// source cache when it holds it, else as a stream.
#pragma once

#include <cstdio>
#include <memory>
#include <string>

#include "compiler/source_cache.h"

namespace korvane {

class LineReader {
 public:
  static constexpr std::size_t kMaxLine = 65535;

  LineReader() = default;
  LineReader(const LineReader&) = delete;
  LineReader& operator=(const LineReader&) = delete;
  ~LineReader();

  bool open(const std::string& fullName, SourceCache* cache = nullptr);

  // Where the reader stands in its file.
  struct Mark {
    std::size_t pos = 0;
    long line = 0;
    bool first = true;
  };
  Mark mark() const { return {pos_, lineNumber_, first_}; }
  // The text held by the cache that the reader reads, if it does.
  const std::shared_ptr<const SourceCache::HeldFile>& held() const { return held_; }
  // Reads a held text again from a mark taken in it.
  void reopen(const std::string& fullName, std::shared_ptr<const SourceCache::HeldFile> held,
              const Mark& at);
  void close();
  bool isOpen() const { return file_ != nullptr || held_ != nullptr; }
  // Reads the next line; false at the end of the file.
  bool readLine(std::string& line);
  // Number of the line read last (1-based).
  long lineNumber() const { return lineNumber_; }
  const std::string& fullName() const { return name_; }
  // In the line read last: the column (1-based) of its first control
  // character other than a tab, and that character; of its first character
  // that the code page cannot hold (read as "?"); 0 for none.
  long controlColumn() const { return controlColumn_; }
  char controlCharacter() const { return control_; }
  long lostColumn() const { return lostColumn_; }

 private:
  // Makes bytes available at pos_; false at the end of the file.
  bool fill();
  bool streamIsUtf8();

  std::FILE* file_ = nullptr;
  std::unique_ptr<char[]> buffer_;                     // the stream's window, allocated on open
  std::shared_ptr<const SourceCache::HeldFile> held_;  // or the whole file, from the cache
  const char* data_ = nullptr;
  std::size_t pos_ = 0, len_ = 0;
  std::string name_;
  long lineNumber_ = 0;
  bool utf8_ = false;
  bool first_ = true;
  long controlColumn_ = 0, lostColumn_ = 0;
  char control_ = 0;
};

}  // namespace korvane
