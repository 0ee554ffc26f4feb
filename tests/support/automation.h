// Test support: automation objects and an automation system that log what
// they are sent and answer from values the test sets.
#pragma once

#include <functional>
#include <map>
#include <string>
#include <vector>

#include "hosts/automation.h"

namespace korvane::test {

// Logs each call "name.Method(args)" (by reference: "name.Method[byref](args)",
// a number "d:" when it is a double), each property set "name.Prop=value" and,
// with logGets, each get "name.Prop". A call or get answers from `answers` by
// member, a call from `onCall` when set.
struct RecordingObject : hosts::AutomationObject {
  using Call = std::function<hosts::AutoValue(const std::string&, std::vector<hosts::AutoValue>&)>;
  std::vector<std::string>& log;
  std::string name;
  bool logGets = false;
  std::map<std::string, hosts::AutoValue> answers;
  Call onCall;

  RecordingObject(std::vector<std::string>& l, std::string n) : log(l), name(std::move(n)) {}

  static std::string list(const std::vector<hosts::AutoValue>& args) {
    std::string s;
    for (const hosts::AutoValue& a : args)
      s += std::string(s.empty() ? "" : ",") + (std::holds_alternative<double>(a.v) ? "d:" : "") +
           a.text();
    return s;
  }
  hosts::AutoValue call(const std::string& m, const std::vector<hosts::AutoValue>& args) override {
    std::vector<hosts::AutoValue> copy = args;
    return invoke(m, copy, {});
  }
  hosts::AutoValue invoke(const std::string& m, std::vector<hosts::AutoValue>& args,
                          hosts::CallOptions options) override {
    log.push_back(name + "." + m + (options.byReference ? "[byref](" : "(") + list(args) + ")");
    return onCall ? onCall(m, args) : answers[m];
  }
  hosts::AutoValue get(const std::string& p) override {
    if (logGets) log.push_back(name + "." + p);
    return answers[p];
  }
  void set(const std::string& p, const hosts::AutoValue& v) override {
    log.push_back(name + "." + p + "=" + v.text());
    answers[p] = v;
  }
};

// Logs "running PROGID" and "file NAME" for each object asked for; an object
// it does not hold is an AutomationError.
struct RecordingSystem : hosts::AutomationSystem {
  std::vector<std::string>& log;
  std::map<std::string, std::vector<std::string>> processes;  // command lines by program
  std::map<std::string, std::string> versions;                // by program path
  std::map<std::string, hosts::AutoObject> running, files;
  std::map<std::string, std::vector<std::string>> registry;  // subkeys by key
  hosts::AutoObject anyFile;  // what a file that `files` does not hold names, if set

  explicit RecordingSystem(std::vector<std::string>& l) : log(l) {}
  std::vector<std::string> processCommandLines(const std::string& exe) override {
    return processes[exe];
  }
  hosts::AutoObject runningObject(const std::string& progId) override {
    return found("running ", running, progId);
  }
  hosts::AutoObject fileObject(const std::string& file) override {
    if (anyFile && !files.count(file)) files[file] = anyFile;
    return found("file ", files, file);
  }
  std::string fileVersion(const std::string& path) override { return versions[path]; }
  std::vector<std::string> registrySubkeys(const std::string& key) override {
    return registry[key];
  }

 private:
  hosts::AutoObject found(const char* what, std::map<std::string, hosts::AutoObject>& objects,
                          const std::string& name) {
    log.push_back(what + name);
    auto it = objects.find(name);
    if (it == objects.end()) throw hosts::AutomationError(name);
    return it->second;
  }
};

// AutoCAD: the application "acad", its documents "docs" and its active
// document "doc", logging to `log`. The document's GetVariable gives 1 for
// FILEDIA, "3" for USERS5 (where getlispvar leaves its value) and 2.5 for any
// other name, and refuses REFUSED; the application is busy for its first
// three state polls.
struct FakeAutoCad {
  std::shared_ptr<RecordingObject> app, docs, doc;
  int busyPolls = 3;

  explicit FakeAutoCad(std::vector<std::string>& log)
      : app(std::make_shared<RecordingObject>(log, "acad")),
        docs(std::make_shared<RecordingObject>(log, "docs")),
        doc(std::make_shared<RecordingObject>(log, "doc")) {
    docs->answers["Count"] = 0;
    app->answers["Documents"] = hosts::AutoObject(docs);
    app->answers["ActiveDocument"] = hosts::AutoObject(doc);
    doc->onCall = [](const std::string& m, std::vector<hosts::AutoValue>& args) {
      const std::string name = args.empty() ? "" : args[0].text();
      if (m != "GetVariable") return hosts::AutoValue();
      if (name == "REFUSED") throw hosts::AutomationError("refused");
      return name == "FILEDIA"  ? hosts::AutoValue(1)
             : name == "USERS5" ? hosts::AutoValue("3")
                                : hosts::AutoValue(2.5);
    };
    app->onCall = [this, &log](const std::string& m, std::vector<hosts::AutoValue>&) {
      if (m != "GetAcadState") return hosts::AutoValue();
      auto state = std::make_shared<RecordingObject>(log, "state");
      state->answers["IsQuiescent"] = --busyPolls <= 0;
      return hosts::AutoValue(hosts::AutoObject(state));
    };
  }
  // AutoCAD 18.0 running in `system`, the one instance of acad.exe.
  void runIn(RecordingSystem& system) {
    system.processes["acad.exe"] = {"\"C:\\A\\acad.exe\""};
    system.versions["C:\\A\\acad.exe"] = "18.0";
    system.running["AutoCAD.Application"] = app;
  }
};

}  // namespace korvane::test
