// The MX side of Korvane: the services of an installed MX that the compiler,
// the functions and the commands use, as small interfaces. Implementations:
// the embedded engine (portable), MX's own automation (Windows), and "none"
// (nothing runs, every model query answers "not found").
#pragma once

#include <array>
#include <cstdint>
#include <memory>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace korvane::hosts {

// An engine that cannot answer at all: its model store cannot be read. Not
// "no such model": a query never takes a broken store for an empty one.
// modelExists, stringExists and the model library throw it, with the reason;
// the data-access queries answer kStoreFailure instead.
class MxError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

// The status words of the data-access queries: one meaning each, the same
// from every engine.
struct MxStatus {
  static constexpr std::int32_t kFound = 0;
  static constexpr std::int32_t kNoModel = -1;      // no such model (or none current, no store yet)
  static constexpr std::int32_t kNoString = -2;     // the model has no string of that label
  static constexpr std::int32_t kNoPoint = -3;      // no such point of the string, or record
  static constexpr std::int32_t kBadArgument = -4;  // an argument outside what the query takes
  static constexpr std::int32_t kNoFreeLabel = -5;  // every label of the prefix is taken
  static constexpr std::int32_t kNoParameter = -6;  // no parameter of that name in the group
  static constexpr std::int32_t kStoreFailure = -9;  // the model store cannot be read
};

// Result area of one string-point or data-record query.
struct PointRecord {
  std::array<double, 16> num{};       // numbers 1..16 in slots 0..15; number 5 is the chainage
  std::array<std::string, 16> txt{};  // texts 1..16 in slots 0..15
};

// What a run of an input file reported. An empty error means MX reached the
// end of the input without complaint.
struct MxRunResult {
  std::string error;    // the engine's own message, empty on success
  std::string listing;  // full path of the run's listing, when the engine keeps one
  long errorLine = 0;   // the input line the engine refused (1-based), 0 when unknown
  // Stopped from outside (Ctrl-C) before errorLine; nothing of the run was kept.
  bool interrupted = false;
  bool ok() const { return error.empty(); }
};

// MX's configuration service.
class MxConfiguration {
 public:
  virtual ~MxConfiguration() = default;
  // A setting by name: "PrivateMacros", "ProjectMacros", "PublicMacros".
  virtual std::string setting(std::string_view name) = 0;
  // Runs an input file; called with the word "input" and the file's full name.
  // Returns when the run has ended.
  virtual MxRunResult run(std::string_view verb, const std::string& fullName) = 0;
  // As the models are now; MxError when that cannot be known.
  virtual bool modelExists(std::string_view model) = 0;
  virtual bool stringExists(std::string_view model, std::string_view label) = 0;
  // The names of the models, for "did you mean"; none where the engine cannot list them.
  virtual std::vector<std::string> modelNames() { return {}; }
  // False for an engine without models (--engine none), where every model is missing.
  virtual bool holdsModels() { return true; }
};

// MX's project service.
class MxProject {
 public:
  virtual ~MxProject() = default;
  // The current project folder, without a trailing separator.
  virtual std::string currentFolder() = 0;
  // The name of the current MX project file in that folder (for example
  // "road.mmd"), without the folder; empty when there is none.
  virtual std::string projectFileName() = 0;
};

// MX's data-access object. Every query returns a status word of MxStatus.
class MxDataAccess {
 public:
  virtual ~MxDataAccess() = default;
  // String information: sets pointCount to the string's number of points.
  virtual std::int32_t stringInfo(std::string_view model, std::string_view label,
                                  std::int32_t& pointCount) = 0;
  // Point n (1-based) of a string.
  virtual std::int32_t point(std::string_view model, std::string_view label, std::int32_t n,
                             PointRecord& out) = 0;
  // Record n of the current model.
  virtual std::int32_t record(std::int32_t n, PointRecord& out) = 0;
  // The next label for a prefix of 1 to 3 characters in a model.
  virtual std::int32_t nextLabel(std::string_view model, std::string_view prefix,
                                 std::string& label) = 0;
  // How many labels of a model begin with a prefix.
  virtual std::int32_t labelCount(std::string_view model, std::string_view prefix,
                                  std::int32_t& count) = 0;
  // A parameter by name in group 1 to 7: kFound, or kNoParameter.
  virtual std::int32_t parameter(std::string_view name, int group, std::string& value) = 0;
};

// One point of a string as the model library gives it.
struct MxPoint {
  double X = 0, Y = 0, z = 0;
  int Discontinuity = 0;  // 1: the string is broken after this point
};

class MxString {
 public:
  virtual ~MxString() = default;
  virtual std::string name() = 0;
  virtual std::vector<MxPoint> points() = 0;
  // The points as one flat array, three values a point: x, y, z.
  virtual std::vector<double> GetPointData() = 0;
};

class MxModel {
 public:
  virtual ~MxModel() = default;
  // Labels of the model's strings, in model order.
  virtual std::vector<std::string> stringLabels() = 0;
  // A string by label; null when the model has none of that label.
  virtual std::unique_ptr<MxString> string(std::string_view label) = 0;
};

// MX's model library. Its objects and their strings throw MxError when the
// store cannot be read, never answer "none" for it.
class MxModelLibrary {
 public:
  virtual ~MxModelLibrary() = default;
  // A model by name; null when there is none.
  virtual std::unique_ptr<MxModel> model(std::string_view name) = 0;
};

// The four services together, as one engine offers them.
class MxEngine {
 public:
  virtual ~MxEngine() = default;
  virtual MxConfiguration& configuration() = 0;
  virtual MxProject& project() = 0;
  virtual MxDataAccess& dataAccess() = 0;
  virtual MxModelLibrary& library() = 0;
};

}  // namespace korvane::hosts
