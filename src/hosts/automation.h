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

#include "base/texts/automation_texts.h"

namespace korvane::hosts {

class AutomationObject;
using AutoObject = std::shared_ptr<AutomationObject>;

// A value passed to or returned by a call. Texts are in the users' code page;
// an array of numbers is what point data travels as.
struct AutoValue {
  std::variant<std::monostate, bool, std::int32_t, double, std::string, AutoObject,
               std::vector<double>>
      v;

  AutoValue() = default;
  AutoValue(bool b) : v(b) {}
  AutoValue(std::int32_t i) : v(i) {}
  AutoValue(double d) : v(d) {}
  AutoValue(const char* s) : v(std::string(s)) {}
  AutoValue(std::string s) : v(std::move(s)) {}
  AutoValue(AutoObject o) : v(std::move(o)) {}
  AutoValue(std::vector<double> a) : v(std::move(a)) {}

  bool isEmpty() const { return std::holds_alternative<std::monostate>(v); }
  std::string text() const;
  double number() const;
  bool truth() const;
  AutoObject object() const;            // null when the value is no object
  std::vector<double> numbers() const;  // the array, or the one number; empty otherwise
};

// How a call passes its arguments and how long it may take.
struct CallOptions {
  bool byReference = false;  // the callee may change the arguments; their new values come back
  bool untilDone = false;    // no time limit: the application works until it is done
};

// An automation call that failed (the application refused it, or is gone).
class AutomationError : public std::runtime_error {
 public:
  // Why a call failed; the language file's "Automation" section has a text for each.
  enum class Reason { Failed, Raised, NoAnswer, Gone, NotInstalled, NotRunning, UnknownMember };

  using std::runtime_error::runtime_error;
  AutomationError(Reason reason, std::string subject, std::string detail)
      : std::runtime_error(subject + ": " + detail),
        reason(reason),
        subject(std::move(subject)),
        detail(std::move(detail)) {}

  Reason reason = Reason::Failed;
  std::string subject;  // the object and member: "AutoCAD.Application.ActiveDocument.SendCommand"
  std::string detail;   // the application's own description, or the error code
};

// The text of a reason in the language file's "Automation" section.
texts::automation::Key reasonKey(AutomationError::Reason reason);

class AutomationObject {
 public:
  virtual ~AutomationObject() = default;
  virtual AutoValue call(const std::string& method, const std::vector<AutoValue>& args = {}) = 0;
  virtual AutoValue get(const std::string& property) = 0;
  virtual void set(const std::string& property, const AutoValue& value) = 0;
  // A call with its arguments by reference, or without a time limit.
  virtual AutoValue invoke(const std::string& method, std::vector<AutoValue>& args,
                           CallOptions options) {
    return call(method, args);
  }
  // The members of a collection, in its own order (what For Each visits).
  virtual std::vector<AutoValue> elements() { return {}; }
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
  // A new object of a class (by ProgID or "{CLSID}"); throws AutomationError.
  virtual AutoObject createObject(const std::string& progId) {
    throw AutomationError(progId + ": no automation on this system");
  }
  // The object a file or moniker names (a workbook by path, "winmgmts:...");
  // throws AutomationError.
  virtual AutoObject fileObject(const std::string& name) {
    throw AutomationError(name + ": no automation on this system");
  }
};

// This machine's automation system: COM on Windows; elsewhere one in which no
// process runs and no object can be attached.
std::unique_ptr<AutomationSystem> makeAutomationSystem();

}  // namespace korvane::hosts
