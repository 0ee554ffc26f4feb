// Runs the to-run list through the shared Run command on a thread of its
// own, so that the window stays responsive. What the run shows happens on
// the window's thread in the order the run produces it: an entry is selected
// before it is compiled, status texts follow as they come, and `input`
// questions wait for the user's answer in a modal box.
#pragma once

#include <QObject>
#include <QThread>
#include <memory>
#include <string>
#include <vector>

#include "shell/run_command.h"
#include "window/session.h"

namespace korvane::window {

class RunController : public QObject, StatusSink, InputPrompt, RunProgress {
  Q_OBJECT
 public:
  // `dialogParent` owns the `input` boxes; `askUser` false answers every
  // question as cancelled (a batch run without a screen).
  RunController(WindowSession& session, QWidget* dialogParent);
  ~RunController() override;

  bool running() const { return thread_ != nullptr; }
  void start(std::vector<std::string> entries, const RunSettings& settings);
  // Ends the run at the next line it compiles.
  void interrupt();
  void setAskUser(bool ask) { askUser_ = ask; }
  // The outcome of the run that finished last.
  const RunOutcome& outcome() const { return outcome_; }

 signals:
  void entryShown(int index);
  void entryDone(int index, bool ok);
  void statusText(const QString& text);
  void finished();

 private:
  // Called on the run's thread.
  void status(const std::string& text) override;
  bool ask(const std::string& title, const std::string& prompt, std::string& answer) override;
  void entryStarted(std::size_t index, std::size_t total, const std::string& entry) override;
  void entryFinished(std::size_t index, bool ok) override;

  void onThreadFinished();

  WindowSession& session_;
  QWidget* dialogParent_;
  QThread* thread_ = nullptr;
  RunOutcome outcome_;
  bool askUser_ = true;
  std::atomic<bool> closing_{false};
};

}  // namespace korvane::window
