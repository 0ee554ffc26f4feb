// Late-bound automation: the few things Korvane does with AutoCAD, MicroStation
// and Excel — call a method, get or set a property, by name — and the system
// services around them (running processes, running objects, file versions,
// the registry). The Windows implementation supplies COM objects; tests supply
// fakes; elsewhere nothing runs.
#pragma once

#include <cstdint>
#include <memory>
#include <stdexcept>
#include <string>
#include <variant>
#include <vector>

namespace korvane::hosts {

class AutomationObject;
using AutoObject = std::shared_ptr<AutomationObject>;

// A value passed to or returned by a call.
struct AutoValue {
  std::variant<std::monostate, bool, std::int32_t, double, std::string, AutoObject> v;

  AutoValue() = default;
  AutoValue(bool b) : v(b) {}
  AutoValue(std::int32_t i) : v(i) {}
  AutoValue(double d) : v(d) {}
  AutoValue(const char* s) : v(std::string(s)) {}
  AutoValue(std::string s) : v(std::move(s)) {}
  AutoValue(AutoObject o) : v(std::move(o)) {}

  bool isEmpty() const { return std::holds_alternative<std::monostate>(v); }
  std::string text() const;
  double number() const;
  bool truth() const;
  AutoObject object() const;  // null when the value is no object
};

// An automation call that failed (the application refused it, or is gone).
class AutomationError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

class AutomationObject {
 public:
  virtual ~AutomationObject() = default;
  virtual AutoValue call(const std::string& method, const std::vector<AutoValue>& args = {}) = 0;
  virtual AutoValue get(const std::string& property) = 0;
  virtual void set(const std::string& property, const AutoValue& value) = 0;
};

class AutomationSystem {
 public:
  virtual ~AutomationSystem() = default;
  // Command lines of the running processes of an executable name (e.g. "acad.exe").
  virtual std::vector<std::string> processCommandLines(const std::string& exeName) = 0;
  // The running object registered under a name; throws AutomationError when none.
  virtual AutoObject runningObject(const std::string& progId) = 0;
  // "major.minor" of an executable's version, or empty text.
  virtual std::string fileVersion(const std::string& path) = 0;
  // Names of the subkeys of a key under HKEY_CURRENT_USER, in enumeration order.
  virtual std::vector<std::string> registrySubkeys(const std::string& key) = 0;
};

// This machine's automation system: COM on Windows; elsewhere one in which no
// process runs and no object can be attached.
std::unique_ptr<AutomationSystem> makeAutomationSystem();

}  // namespace korvane::hosts
