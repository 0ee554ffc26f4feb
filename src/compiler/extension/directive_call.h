// What a directive's handler is given: the directive line's fields as they
// were before its preparation ran, the keyword text that the preparation read,
// the file being compiled (whose following lines a command may read), and the
// call context that functions get too.
#pragma once

#include <array>
#include <string>

#include "compiler/extension/call_context.h"

namespace korvane {

struct CompileCall;
class DirectiveCall;

// The compile pass's own state, for the compiler's own directives: defined in
// compiler/compile_call.h; an extension has the call context alone.
inline CompileCall& compileCallOf(DirectiveCall& d);

class DirectiveCall {
 public:
  DirectiveCall(CompileCall& call, std::string line, std::string_view keyword = {});

  // Field k of the directive line (0 is the keyword as written, up to 14).
  const std::string& argument(int k) const { return k < used_ ? fields_[k] : kEmpty; }
  // The directive line after substitution and rewriting.
  const std::string& line() const { return line_; }
  const std::string& keywordText() const { return keywordText_; }
  void setKeywordText(std::string text) { keywordText_ = std::move(text); }

  // The next line of the file being compiled; false at its end.
  bool readLine(std::string& line);

  CallContext& context() { return context_; }

 private:
  friend CompileCall& compileCallOf(DirectiveCall& d);

  CompileCall& call_;
  static inline const std::string kEmpty;
  std::array<std::string, 15> fields_;
  int used_ = 0;  // fields up to the last that is not empty
  std::string line_;
  std::string keywordText_;
  CallContext context_;
};

}  // namespace korvane
