#include "compiler/extension/compile_failure.h"

#include "base/conversions.h"
#include "hosts/automation.h"
#include "hosts/excel.h"
#include "hosts/mx.h"

namespace korvane {
namespace {

const char* conversionKey(conv::ConvErrc code) {
  switch (code) {
    case conv::ConvErrc::Overflow:
      return "overflow";
    case conv::ConvErrc::TypeMismatch:
      return "mismatch";
    case conv::ConvErrc::InvalidPattern:
      return "pattern";
    default:
      return "badarg";
  }
}

}  // namespace

RuntimeFailure foreignFailure(std::string subject) {
  try {
    throw;
  } catch (const conv::ConversionError& e) {
    return RuntimeFailure(conversionKey(e.code()), subject.empty() ? e.what() : std::move(subject));
  } catch (const hosts::AutomationError& e) {
    if (e.subject.empty()) return RuntimeFailure("automation", e.what());
    return RuntimeFailure("automation", e.subject, e.detail, hosts::reasonKey(e.reason));
  } catch (const hosts::WorkbookError& e) {
    return RuntimeFailure(hosts::WorkbookError::key(e.reason), e.subject, e.detail);
  } catch (const hosts::MxError& e) {
    return RuntimeFailure("mxstore", e.what());
  }
}

}  // namespace korvane
