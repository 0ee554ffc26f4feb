#include "hosts/automation.h"

#include <cmath>
#include <cstdio>

namespace korvane::hosts {

std::string AutoValue::text() const {
  if (auto s = std::get_if<std::string>(&v)) return *s;
  if (auto b = std::get_if<bool>(&v)) return *b ? "True" : "False";
  if (auto i = std::get_if<std::int32_t>(&v)) return std::to_string(*i);
  if (auto d = std::get_if<double>(&v)) {
    char buf[32];
    std::snprintf(buf, sizeof buf, "%.15g", *d);
    return buf;
  }
  return {};
}

double AutoValue::number() const {
  if (auto i = std::get_if<std::int32_t>(&v)) return *i;
  if (auto d = std::get_if<double>(&v)) return *d;
  if (auto b = std::get_if<bool>(&v)) return *b ? -1 : 0;
  if (auto s = std::get_if<std::string>(&v)) return std::atof(s->c_str());
  return 0;
}

std::vector<double> AutoValue::numbers() const {
  if (auto a = std::get_if<std::vector<double>>(&v)) return *a;
  if (std::holds_alternative<std::int32_t>(v) || std::holds_alternative<double>(v))
    return {number()};
  return {};
}

bool AutoValue::truth() const { return number() != 0; }

AutoObject AutoValue::object() const {
  if (auto o = std::get_if<AutoObject>(&v)) return *o;
  return nullptr;
}

texts::automation::Key reasonKey(AutomationError::Reason reason) {
  switch (reason) {
    case AutomationError::Reason::Raised:
      return texts::automation::kRaised;
    case AutomationError::Reason::NoAnswer:
      return texts::automation::kNoAnswer;
    case AutomationError::Reason::Gone:
      return texts::automation::kGone;
    case AutomationError::Reason::NotInstalled:
      return texts::automation::kNotInstalled;
    case AutomationError::Reason::NotRunning:
      return texts::automation::kNotRunning;
    case AutomationError::Reason::UnknownMember:
      return texts::automation::kUnknownMember;
    case AutomationError::Reason::Failed:
      break;
  }
  return texts::automation::kFailed;
}

}  // namespace korvane::hosts
