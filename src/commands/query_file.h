// A file of the project folder into which the engine writes the GENIO output
// that a command asked for. It is removed when the command is done with it,
// whether the command finished or failed, so no run leaves one behind.
#pragma once

#include <string>
#include <vector>

namespace korvane::commands {

class QueryFile {
 public:
  explicit QueryFile(std::string path) : path_(std::move(path)) {}
  ~QueryFile();
  QueryFile(const QueryFile&) = delete;
  QueryFile& operator=(const QueryFile&) = delete;

  const std::string& path() const { return path_; }
  // The file's lines without their ends (CR-LF or LF); a run-time failure
  // when the engine wrote no file.
  std::vector<std::string> lines() const;
  void remove();

 private:
  std::string path_;
};

}  // namespace korvane::commands
