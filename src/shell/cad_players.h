// Playing the AutoCAD script and MicroStation key-in channels through the
// applications' automation objects.
#pragma once

#include "compiler/run_context.h"
#include "hosts/automation.h"

namespace korvane {

struct CadOptions {
  // Keep a numbered copy of every script and key-in file in the project
  // folder, and go on without stopping when the CAD system is not there.
  bool keepScripts = false;
};

ChannelPlayers makeCadPlayers(hosts::AutomationSystem& system, CadOptions options = {});

// The two conversations, for callers that hold the application object.
void playAutoCadScript(hosts::AutomationObject& acad, const std::string& scriptFile);
void playMicroStationKeyins(hosts::AutomationObject& ustation, const std::string& keyinFile);

}  // namespace korvane
