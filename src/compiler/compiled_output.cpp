#include "compiler/compiled_output.h"

#include "compiler/runtime_failure.h"
#include "shell/text.h"
#include "shell/codepage.h"
#include "shell/fs.h"

namespace korvane {

CompiledOutput::~CompiledOutput() { close(); }

void CompiledOutput::open(const std::string& fullName, bool append) {
  close();
  name_ = fullName;
  file_ = std::fopen(fs::native(fullName).string().c_str(), append ? "ab" : "wb");
  if (!file_) throw RuntimeFailure("write", fullName);
}

void CompiledOutput::close() {
  if (!file_) return;
  std::fclose(file_);
  file_ = nullptr;
}

void CompiledOutput::writeLine(std::string_view line) {
  if (!file_) throw RuntimeFailure("write", name_);
  if (std::fwrite(line.data(), 1, line.size(), file_) != line.size() ||
      std::fwrite("\r\n", 1, 2, file_) != 2)
    throw RuntimeFailure("write", name_);
  if (tap_ && isMxChannel() && !isSentinelLine(line)) tap_(line);
}

bool CompiledOutput::isMxChannel() const { return text::endsWith(name_, "tmpinput.txt"); }

bool isSentinelLine(std::string_view line) {
  std::string l = cp::lower(line);
  return l == kSentinelCreate || l == kSentinelDelete;
}

}  // namespace korvane
