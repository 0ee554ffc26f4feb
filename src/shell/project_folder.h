// The folder side of the main window as plain data: the input files and
// subfolders of a folder, the Home folder of a project, and whether a folder
// lies inside the project.
#pragma once

#include <string>
#include <vector>

namespace korvane {

// The "*.ipf" files of a folder (the extension in any letter case), bare
// names sorted ignoring case. Empty when the folder cannot be read.
std::vector<std::string> inputFiles(const std::string& folder);
// The subfolders of a folder, names sorted ignoring case; empty when unreadable.
std::vector<std::string> subfolders(const std::string& folder);

// The folder Home opens: the project's "inputs" folder when there is one,
// else the project folder itself (without a trailing separator).
std::string homeFolder(const std::string& projectFolder);

// Whether `folder` lies inside the project: folder + separator begins with the
// project folder (which ends with a separator), ignoring case. So "Proj2" is
// outside "Proj".
bool insideProject(const std::string& folder, const std::string& projectFolder);

// The folder itself when it exists, else its nearest existing ancestor;
// empty when none exists (a vanished drive).
std::string nearestExistingFolder(const std::string& folder);

// The folders from the root down to `folder`, each a full path, for the
// folder list's tree of ancestors.
std::vector<std::string> folderChain(const std::string& folder);

}  // namespace korvane
