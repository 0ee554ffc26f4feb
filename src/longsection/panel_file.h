// Panel files (".ipd"): one long-section drawing's parameters in the
// private-profile format of the settings file. Reading never fails: what a
// file lacks, or a file that is not there, keeps the default.
#pragma once

#include <string>
#include <vector>

#include "longsection/parameters.h"

namespace korvane::longsection {

inline constexpr const char* kPanelExtension = ".ipd";

Parameters readPanelFile(const std::string& path);

// Writes every parameter (the file is created when missing). False when a
// value could not be written.
bool writePanelFile(const std::string& path, const Parameters& p);

// The panel files of a folder, file names only, sorted.
std::vector<std::string> panelFilesIn(const std::string& folder);

// The panel file opened last, kept in the settings file; empty when none.
std::string lastPanelFile(const std::string& settingsFile);
void rememberPanelFile(const std::string& settingsFile, const std::string& path);

}  // namespace korvane::longsection
