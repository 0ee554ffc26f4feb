#include "hosts/mx/windows/mx_names.h"

#include <utility>

#include "base/profile.h"

namespace korvane::hosts::windows {

MxNames readMxNames(const std::string& settingsFile) {
  MxNames n;
  const std::pair<const char*, std::string*> keys[] = {
      {"ConfigurationClass", &n.configurationClass},
      {"ProjectClass", &n.projectClass},
      {"DataAccessClass", &n.dataAccessClass},
      {"ModelLibraryClass", &n.libraryClass},
      {"Initialise", &n.initialise},
      {"Terminate", &n.terminate},
      {"GetSetting", &n.setting},
      {"Run", &n.runInput},
      {"ModelExists", &n.modelExists},
      {"StringExists", &n.stringExists},
      {"ProjectFolder", &n.projectFolder},
      {"StringInfo", &n.stringInfo},
      {"StringPoint", &n.stringPoint},
      {"Record", &n.record},
      {"PointText", &n.pointText},
      {"NextLabel", &n.nextLabel},
      {"LabelCount", &n.labelCount},
      {"Parameter", &n.parameter},
      {"Model", &n.model},
      {"Strings", &n.strings},
      {"String", &n.string},
      {"Name", &n.name},
      {"GetPointData", &n.pointData},
      {"Discontinuities", &n.discontinuities},
  };
  if (settingsFile.empty()) return n;
  for (const auto& [key, value] : keys) {
    std::string v = ReadProfileString("MX", key, settingsFile);
    if (!v.empty()) *value = v;
  }
  return n;
}

}  // namespace korvane::hosts::windows
