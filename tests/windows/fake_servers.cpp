#include "windows/fake_servers.h"

#include <chrono>
#include <thread>

#include "support/process.h"

namespace korvane::test {

RunningFakes::RunningFakes(hosts::AutomationSystem& com, const std::vector<std::string>& progIds)
    : com_(com), first_(progIds.front()) {
  std::string line = "\"" + builtProgram("korvane_fake_servers") + "\" /run";
  for (const auto& p : progIds) line += " " + p;
  STARTUPINFOA si{};
  si.cb = sizeof si;
  if (!CreateProcessA(nullptr, line.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr, &si,
                      &process_))
    return;
  // Registered when every instance answers.
  for (int attempt = 0; attempt < 200 && !ready_; ++attempt) {
    try {
      for (const auto& p : progIds) com_.runningObject(p);
      ready_ = true;
    } catch (const hosts::AutomationError&) {
      std::this_thread::sleep_for(std::chrono::milliseconds(50));
    }
  }
}

RunningFakes::~RunningFakes() {
  if (!process_.hProcess) return;
  try {
    com_.runningObject(first_)->call("FakeQuit");
  } catch (const hosts::AutomationError&) {
  }
  if (WaitForSingleObject(process_.hProcess, 10000) != WAIT_OBJECT_0)
    TerminateProcess(process_.hProcess, 1);
  CloseHandle(process_.hThread);
  CloseHandle(process_.hProcess);
}

std::vector<std::string> recordedCalls(hosts::AutomationObject& object) {
  std::vector<std::string> lines;
  const std::string all = object.call("FakeCalls").text();
  std::size_t at = 0;
  for (std::size_t nl; (nl = all.find('\n', at)) != std::string::npos; at = nl + 1)
    lines.push_back(all.substr(at, nl - at));
  return lines;
}

void resetFake(hosts::AutomationObject& object) { object.call("FakeReset"); }

void quitFake(const hosts::AutoObject& object) {
  try {
    if (object) object->call("FakeQuit");
  } catch (const hosts::AutomationError&) {
  }
}

}  // namespace korvane::test
