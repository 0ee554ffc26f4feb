// The engine for "--engine none": runs nothing; every model query answers
// "no such model", every parameter "no such parameter". Settings and the project folder are still
// answered, so that file search and `projectdir` work without MX.
#pragma once

#include <map>
#include <string>

#include "hosts/mx.h"

namespace korvane::hosts {

class NullEngine final : public MxEngine, MxConfiguration, MxProject, MxDataAccess, MxModelLibrary {
 public:
  NullEngine(std::string projectFolder, std::map<std::string, std::string> settings);

  MxConfiguration& configuration() override { return *this; }
  MxProject& project() override { return *this; }
  MxDataAccess& dataAccess() override { return *this; }
  MxModelLibrary& library() override { return *this; }

  std::string setting(std::string_view name) override;
  MxRunResult run(std::string_view verb, const std::string& fullName) override;
  bool modelExists(std::string_view) override { return false; }
  bool stringExists(std::string_view, std::string_view) override { return false; }
  bool holdsModels() override { return false; }

  std::string currentFolder() override { return projectFolder_; }
  std::string projectFileName() override { return {}; }  // no MX, no project file

  std::int32_t stringInfo(std::string_view, std::string_view, std::int32_t& count) override;
  std::int32_t point(std::string_view, std::string_view, std::int32_t, PointRecord&) override;
  std::int32_t record(std::int32_t, PointRecord&) override;
  std::int32_t nextLabel(std::string_view, std::string_view, std::string& label) override;
  std::int32_t labelCount(std::string_view, std::string_view, std::int32_t& count) override;
  std::int32_t parameter(std::string_view, int, std::string& value) override;

  std::unique_ptr<MxModel> model(std::string_view) override { return nullptr; }

  // How many runs were asked for (nothing is executed).
  int runCount() const { return runs_; }

 private:
  std::string projectFolder_;
  std::map<std::string, std::string> settings_;
  int runs_ = 0;
};

}  // namespace korvane::hosts
