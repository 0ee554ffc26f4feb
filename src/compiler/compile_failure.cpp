#include "compiler/compile_failure.h"

namespace korvane {

RuntimeFailure failureFromAutomation(const Messages& messages, const hosts::AutomationError& e) {
  if (e.subject.empty()) return RuntimeFailure("automation", e.what(), "");
  return RuntimeFailure("automation", e.subject,
                        messages.format("Automation", hosts::reasonKey(e.reason), e.detail));
}

RuntimeFailure failureFromConversion(const conv::ConversionError& e, std::string subject) {
  if (subject.empty()) subject = e.what();
  switch (e.code()) {
    case conv::ConvErrc::Overflow:
      return RuntimeFailure("overflow", subject);
    case conv::ConvErrc::TypeMismatch:
      return RuntimeFailure("mismatch", subject);
    case conv::ConvErrc::InvalidPattern:
      return RuntimeFailure("pattern", subject);
    default:
      return RuntimeFailure("badarg", subject);
  }
}

std::string describeFailure(const Messages& messages, const CompileFailure& f) {
  if (f.kind() == CompileFailure::Kind::Message) {
    std::string m = messages.format("Messages", f.key(), f.arg1(), f.arg2());
    if (!f.engineError.empty()) m += "\n" + messages.format("Runtime", "engine", f.engineError);
    if (!f.whereFile.empty())
      m += "\n" + messages.format("Runtime", "where", f.whereFile, std::to_string(f.whereLine));
    return m;
  }
  std::string m = messages.text("Runtime", "title") + ": " +
                  messages.format("Runtime", f.key(), f.arg1(), f.arg2());
  if (!f.file.empty())
    m += "\n" + messages.format("Runtime", "where", f.file, std::to_string(f.line));
  if (!f.lineText.empty()) m += "\n" + messages.format("Runtime", "text", f.lineText);
  return m;
}

}  // namespace korvane
