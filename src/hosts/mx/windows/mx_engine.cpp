#include "hosts/mx/windows/mx_engine.h"

#include <cmath>

#include "base/codepage.h"
#include "hosts/automation/windows/com_system.h"

namespace korvane::hosts::windows {
namespace {

class ComMxString final : public MxString {
 public:
  ComMxString(AutoObject s, const MxNames& n) : s_(std::move(s)), n_(n) {}
  std::string name() override { return s_->get(n_.name).text(); }
  std::vector<double> GetPointData() override { return s_->call(n_.pointData).numbers(); }
  std::vector<MxPoint> points() override {
    const std::vector<double> xyz = GetPointData();
    const std::vector<double> breaks = s_->get(n_.discontinuities).numbers();
    std::vector<MxPoint> out;
    for (std::size_t k = 0; k + 2 < xyz.size(); k += 3) {
      MxPoint p{xyz[k], xyz[k + 1], xyz[k + 2], 0};
      if (k / 3 < breaks.size()) p.Discontinuity = breaks[k / 3] != 0 ? 1 : 0;
      out.push_back(p);
    }
    return out;
  }

 private:
  AutoObject s_;
  const MxNames& n_;
};

class ComMxModel final : public MxModel {
 public:
  ComMxModel(AutoObject m, const MxNames& n) : m_(std::move(m)), n_(n) {}
  std::vector<std::string> stringLabels() override {
    std::vector<std::string> labels;
    AutoObject all = m_->get(n_.strings).object();
    if (!all) return labels;
    const auto count = static_cast<std::int32_t>(all->get("Count").number());
    for (std::int32_t i = 1; i <= count; ++i)
      if (AutoObject s = all->call("Item", {i}).object()) labels.push_back(s->get(n_.name).text());
    return labels;
  }
  std::unique_ptr<MxString> string(std::string_view label) override {
    try {
      AutoObject s = m_->call(n_.string, {std::string(label)}).object();
      if (s) return std::make_unique<ComMxString>(s, n_);
    } catch (const AutomationError& e) {
      if (e.reason != AutomationError::Reason::Raised) throw;  // MX refuses an unknown label
    }
    return nullptr;
  }

 private:
  AutoObject m_;
  const MxNames& n_;
};

// The file name (without its folder) of the last ".mmd" file named on a
// command line, quoted or not; empty when there is none.
std::string mmdOnCommandLine(const std::string& line) {
  std::string found, word;
  bool quoted = false;
  const auto endWord = [&] {
    if (word.size() > 4 && cp::equalsIgnoreCase(word.substr(word.size() - 4), ".mmd"))
      found = word.substr(word.find_last_of("\\/") + 1);
    word.clear();
  };
  for (char c : line) {
    if (c == '"')
      quoted = !quoted;
    else if (c == ' ' && !quoted)
      endWord();
    else
      word += c;
  }
  endWord();
  return found;
}

class ComMxEngine final : public MxEngine,
                          MxConfiguration,
                          MxProject,
                          MxDataAccess,
                          MxModelLibrary {
 public:
  ComMxEngine(std::unique_ptr<AutomationSystem> system, MxNames names, AutoObject config,
              AutoObject project)
      : system_(std::move(system)),
        n_(std::move(names)),
        config_(std::move(config)),
        project_(std::move(project)) {}
  ~ComMxEngine() override {
    try {
      config_->call(n_.terminate);
    } catch (const AutomationError&) {
      // MX gone already: nothing to let go of.
    }
  }

  MxConfiguration& configuration() override { return *this; }
  MxProject& project() override { return *this; }
  MxDataAccess& dataAccess() override { return *this; }
  MxModelLibrary& library() override { return *this; }

  // Configuration service.
  std::string setting(std::string_view name) override {
    return config_->call(n_.setting, {std::string(name)}).text();
  }
  MxRunResult run(std::string_view verb, const std::string& fullName) override {
    std::vector<AutoValue> args{std::string(verb), fullName};
    config_->invoke(n_.runInput, args, CallOptions{false, true});  // as long as MX works
    return {};
  }
  bool modelExists(std::string_view model) override {
    return config_->call(n_.modelExists, {std::string(model)}).truth();
  }
  bool stringExists(std::string_view model, std::string_view label) override {
    return config_->call(n_.stringExists, {std::string(model), std::string(label)}).truth();
  }

  // Project service.
  std::string currentFolder() override { return project_->get(n_.projectFolder).text(); }
  // MX's engine is started with its project file on its command line.
  std::string projectFileName() override {
    for (const std::string& line : system_->processCommandLines("mosseng.exe")) {
      const std::string name = mmdOnCommandLine(line);
      if (!name.empty()) return name;
    }
    return {};
  }

  // Data access.
  std::int32_t stringInfo(std::string_view model, std::string_view label,
                          std::int32_t& pointCount) override {
    std::vector<AutoValue> args{std::string(model), std::string(label), std::int32_t(0)};
    auto status = query(n_.stringInfo, args);
    pointCount = static_cast<std::int32_t>(args[2].number());
    return status;
  }
  std::int32_t point(std::string_view model, std::string_view label, std::int32_t n,
                     PointRecord& out) override {
    std::vector<AutoValue> args{std::string(model), std::string(label), n, AutoValue()};
    auto status = query(n_.stringPoint, args);
    if (status == 0) fillRecord(args[3], out);
    return status;
  }
  std::int32_t record(std::int32_t n, PointRecord& out) override {
    std::vector<AutoValue> args{n, AutoValue()};
    auto status = query(n_.record, args);
    if (status == 0) fillRecord(args[1], out);
    return status;
  }
  std::int32_t nextLabel(std::string_view model, std::string_view prefix,
                         std::string& label) override {
    std::vector<AutoValue> args{std::string(model), std::string(prefix), std::string()};
    auto status = query(n_.nextLabel, args);
    label = args[2].text();
    return status;
  }
  std::int32_t labelCount(std::string_view model, std::string_view prefix,
                          std::int32_t& count) override {
    std::vector<AutoValue> args{std::string(model), std::string(prefix), std::int32_t(0)};
    auto status = query(n_.labelCount, args);
    count = static_cast<std::int32_t>(args[2].number());
    return status;
  }
  // MX's automation answers 1 for a parameter it found, unlike its other
  // queries; translated here into the status words every engine answers.
  std::int32_t parameter(std::string_view name, int group, std::string& value) override {
    std::vector<AutoValue> args{std::string(name), std::int32_t(group), std::string()};
    const bool found = query(n_.parameter, args) == 1;
    value = args[2].text();
    return found ? MxStatus::kFound : MxStatus::kNoParameter;
  }

  // Model library.
  std::unique_ptr<MxModel> model(std::string_view name) override {
    try {
      AutoObject m = libraryObject()->call(n_.model, {std::string(name)}).object();
      if (m) return std::make_unique<ComMxModel>(m, n_);
    } catch (const AutomationError& e) {
      if (e.reason != AutomationError::Reason::Raised) throw;  // MX refuses an unknown model
    }
    return nullptr;
  }

 private:
  AutomationObject& data() {
    if (!data_) data_ = system_->createObject(n_.dataAccessClass);
    return *data_;
  }
  AutoObject libraryObject() {
    if (!library_) library_ = system_->createObject(n_.libraryClass);
    return library_;
  }
  std::int32_t query(const std::string& member, std::vector<AutoValue>& args) {
    return static_cast<std::int32_t>(
        data().invoke(member, args, CallOptions{true, false}).number());
  }
  void fillRecord(const AutoValue& numbers, PointRecord& out) {
    const std::vector<double> values = numbers.numbers();
    out = PointRecord{};
    for (std::size_t k = 0; k < values.size() && k < out.num.size(); ++k) out.num[k] = values[k];
    for (std::int32_t k = 0; k < static_cast<std::int32_t>(out.txt.size()); ++k)
      out.txt[k] = data().call(n_.pointText, {k + 1}).text();
  }

  std::unique_ptr<AutomationSystem> system_;
  MxNames n_;
  AutoObject config_, project_, data_, library_;
};

}  // namespace

bool mxInstalled(const MxNames& names) { return classRegistered(names.configurationClass); }

std::unique_ptr<MxEngine> makeMxEngine(std::unique_ptr<AutomationSystem> system,
                                       const MxNames& names, std::string& error) {
  try {
    AutoObject config = system->createObject(names.configurationClass);
    AutoObject project = system->createObject(names.projectClass);
    config->call(names.initialise);
    return std::make_unique<ComMxEngine>(std::move(system), names, config, project);
  } catch (const AutomationError& e) {
    error = e.what();
    return nullptr;
  }
}

}  // namespace korvane::hosts::windows
