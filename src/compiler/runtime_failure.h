// A run-time failure of a compile run: bad arithmetic, too many fields, a full
// variable table, a feature that is not available. It unwinds the compile pass
// to the driver, which reports it with the file, line and line text where the
// compile stood. Never thrown across a subsystem's public boundary.
#pragma once

#include <stdexcept>
#include <string>

namespace korvane {

class RuntimeFailure : public std::runtime_error {
 public:
  // `key` names the message in the language file's "Runtime" section.
  explicit RuntimeFailure(std::string key, std::string a1 = {}, std::string a2 = {})
      : std::runtime_error(key), key_(std::move(key)), a1_(std::move(a1)), a2_(std::move(a2)) {}

  const std::string& key() const { return key_; }
  const std::string& arg1() const { return a1_; }
  const std::string& arg2() const { return a2_; }

  // Where the compile stood; filled by the innermost compile level.
  bool located = false;
  std::string file;
  long line = 0;
  std::string lineText;

 private:
  std::string key_, a1_, a2_;
};

}  // namespace korvane
