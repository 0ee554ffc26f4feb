// This machine's automation system: COM on Windows; elsewhere one in which no
// process runs and no object can be attached.
#include "hosts/automation.h"

#ifdef _WIN32
#include "hosts/automation/windows/com_system.h"
#endif

namespace korvane::hosts {
namespace {

class NoAutomation final : public AutomationSystem {
 public:
  std::vector<std::string> processCommandLines(const std::string&) override { return {}; }
  AutoObject runningObject(const std::string& progId) override {
    throw AutomationError(progId + " is not running");
  }
  std::string fileVersion(const std::string&) override { return {}; }
  std::vector<std::string> registrySubkeys(const std::string&) override { return {}; }
};

}  // namespace

std::unique_ptr<AutomationSystem> makeAutomationSystem() {
#ifdef _WIN32
  return windows::makeComAutomationSystem();
#else
  return std::make_unique<NoAutomation>();
#endif
}

}  // namespace korvane::hosts
