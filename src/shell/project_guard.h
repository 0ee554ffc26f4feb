// What keeps runs from damaging each other or the user's files: one run per
// project folder at a time, and no run whose outputs include a file it reads.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace korvane {

// An exclusive hold on a project folder for the life of the object. Taken
// before anything is written there; a second run on the same folder, in this
// process or another, does not get it. The hold goes when the process ends,
// however it ends.
class ProjectLock {
 public:
  ProjectLock() = default;
  ProjectLock(const ProjectLock&) = delete;
  ProjectLock& operator=(const ProjectLock&) = delete;
  ~ProjectLock();

  // False when another run holds the folder (or it cannot be opened).
  bool acquire(const std::string& projectFolder);

 private:
  std::intptr_t handle_ = -1;
};

// The files a run in `projectFolder` writes besides the ones named on its
// command line: the compiled outputs, the model store, and the save files
// (none for an empty name or prefix).
std::vector<std::string> projectOutputs(const std::string& projectFolder,
                                        const std::vector<std::string>& entryFiles,
                                        const std::string& combinedName,
                                        const std::string& separatePrefix);

// The first of `inputs` that is also one of `outputs` (the same file, however
// named), or nothing.
std::optional<std::string> inputAmongOutputs(const std::vector<std::string>& inputs,
                                             const std::vector<std::string>& outputs);

}  // namespace korvane
