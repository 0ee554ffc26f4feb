// VARIANTs and Korvane's values, on the COM thread: texts between the users'
// code page (Windows-1250) and BSTR, numbers, booleans, arrays of numbers and
// objects; and the failure of a call as an AutomationError.
#pragma once

// windows.h first: the other Windows headers build on it.
// clang-format off
#include <windows.h>
#include <oaidl.h>
// clang-format on

#include <memory>
#include <string>

#include "hosts/automation.h"
#include "hosts/automation/windows/com_apartment.h"

namespace korvane::hosts::windows {

// The code page of texts inside Korvane.
inline constexpr unsigned kTextCodePage = 1250;

std::wstring wideText(const std::string& text);
std::string narrowText(const wchar_t* text, int length = -1);

// Fills `out` (cleared by the caller with VariantClear) from a value. Throws
// AutomationError for an object that is not one of COM's.
void toVariant(const AutoValue& value, VARIANT& out);
// A value from a VARIANT (references followed); objects are wrapped for `apartment`
// and named `name`.
AutoValue fromVariant(const VARIANT& in, const std::shared_ptr<ComApartment>& apartment,
                      const std::string& name);

// The error for a failed HRESULT of a call on `subject`, with the server's
// description when it raised one.
AutomationError callError(long hr, const std::string& subject, EXCEPINFO* info = nullptr);

}  // namespace korvane::hosts::windows
