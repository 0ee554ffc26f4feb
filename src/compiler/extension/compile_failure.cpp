#include "compiler/extension/compile_failure.h"

#include "base/conversions.h"
#include "base/texts/runtime_texts.h"
#include "hosts/automation.h"
#include "hosts/excel.h"
#include "hosts/mx.h"

namespace korvane {
namespace {

texts::runtime::Key conversionKey(conv::ConvErrc code) {
  switch (code) {
    case conv::ConvErrc::Overflow:
      return texts::runtime::kOverflow;
    case conv::ConvErrc::TypeMismatch:
      return texts::runtime::kTypeMismatch;
    case conv::ConvErrc::InvalidPattern:
      return texts::runtime::kBadPattern;
    default:
      return texts::runtime::kBadArgument;
  }
}

}  // namespace

RuntimeFailure foreignFailure(std::string subject) {
  try {
    throw;
  } catch (const conv::ConversionError& e) {
    return RuntimeFailure(conversionKey(e.code()), subject.empty() ? e.what() : std::move(subject));
  } catch (const hosts::AutomationError& e) {
    if (e.subject.empty()) return RuntimeFailure(texts::runtime::kAutomationFailed, e.what());
    return RuntimeFailure(texts::runtime::kAutomationFailed, e.subject, e.detail,
                          hosts::reasonKey(e.reason));
  } catch (const hosts::WorkbookError& e) {
    return RuntimeFailure(hosts::WorkbookError::key(e.reason), e.subject, e.detail);
  } catch (const hosts::MxError& e) {
    return RuntimeFailure(texts::runtime::kModelStore, e.what());
  }
}

}  // namespace korvane
