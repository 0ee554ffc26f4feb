// Everything the window works with outside its widgets: the start-up result
// (home, settings and language files, project folder, engine), the run
// context, the run log and the flag that interrupts a run.
#pragma once

#include <QString>
#include <atomic>
#include <memory>
#include <string>

#include "compiler/run_context.h"
#include "shell/run_log.h"
#include "shell/startup.h"

namespace korvane::window {

class WindowSession {
 public:
  // Null with the message in `error` (users' code page) when start-up failed.
  static std::unique_ptr<WindowSession> open(const StartupOptions& options, std::string& error);

  // A text of the language file, ready for a widget.
  QString text(MessageKey key) const;
  QString format(MessageKey key, const QString& a1, const QString& a2 = {}) const;

  const HomePaths& paths() const { return started_.paths; }
  // The help file: "Korvane" + HU or EN + ".chm" beside the settings.
  std::string helpFile() const;

  RunContext ctx;
  RunLog log;
  // The run's warnings, in the log.
  class LogWarnings final : public WarningSink {
   public:
    explicit LogWarnings(WindowSession& s) : s_(s) {}
    void warning(const RunWarning& w) override { s_.log.add(describeWarning(s_.ctx.messages, w)); }

   private:
    WindowSession& s_;
  } warnings{*this};
  std::atomic<bool> interrupted{false};

 private:
  Startup started_;
  std::unique_ptr<LoggingEngine> logging_;
};

}  // namespace korvane::window
