// Test support on Windows: the fake automation servers (fake_server/), which
// play AutoCAD, MicroStation, Excel and MX's classes and record every call.
#pragma once

// windows.h first: the other Windows headers build on it.
// clang-format off
#include <windows.h>
// clang-format on

#include <string>
#include <vector>

#include "hosts/automation.h"

namespace korvane::test {

// Starts the fake server standing as running instances of `progIds` (in the
// Running Object Table), and ends it again.
class RunningFakes {
 public:
  RunningFakes(hosts::AutomationSystem& com, const std::vector<std::string>& progIds);
  ~RunningFakes();
  bool ready() const { return ready_; }

 private:
  hosts::AutomationSystem& com_;
  std::string first_;
  PROCESS_INFORMATION process_{};
  bool ready_ = false;
};

// The calls the server of `object` recorded since its last reset, one a line.
std::vector<std::string> recordedCalls(hosts::AutomationObject& object);
void resetFake(hosts::AutomationObject& object);
// Ends the server of `object` (errors ignored: it may have ended already).
// Under Wine a test process is not over until the servers it started are.
void quitFake(const hosts::AutoObject& object);

}  // namespace korvane::test
