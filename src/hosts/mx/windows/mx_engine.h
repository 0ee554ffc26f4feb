// MX's own engine, driven through its automation classes (names in mx_names.h).
#pragma once

#include <memory>
#include <string>

#include "hosts/automation.h"
#include "hosts/mx.h"
#include "hosts/mx/windows/mx_names.h"

namespace korvane::hosts::windows {

// Creates MX's configuration and project services and initialises the first.
// Null with the reason in `error` when MX's classes cannot be created. The
// data-access object and the model library are created when first used.
std::unique_ptr<MxEngine> makeMxEngine(std::unique_ptr<AutomationSystem> system,
                                       const MxNames& names, std::string& error);

// True when MX's configuration service is registered on this machine.
bool mxInstalled(const MxNames& names);

}  // namespace korvane::hosts::windows
