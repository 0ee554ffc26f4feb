// The automation system of Windows: running processes through WMI, running
// objects through the Running Object Table, new objects through their class,
// objects named by a file or moniker, file versions and the registry.
#pragma once

#include <memory>

#include "hosts/automation.h"

namespace korvane::hosts::windows {

std::unique_ptr<AutomationSystem> makeComAutomationSystem();

// True when a class (ProgID or "{CLSID}") is registered on this machine.
bool classRegistered(const std::string& progId);

}  // namespace korvane::hosts::windows
