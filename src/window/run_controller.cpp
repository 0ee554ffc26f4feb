#include "window/run_controller.h"

#include <QCoreApplication>
#include <QInputDialog>

#include "base/texts/window_texts.h"
#include "window/text_edge.h"

namespace korvane::window {

RunController::RunController(WindowSession& session, QWidget* dialogParent)
    : QObject(dialogParent), session_(session), dialogParent_(dialogParent) {}

RunController::~RunController() {
  if (!thread_) return;
  // The window is going away in the middle of a run: nobody listens any
  // more, questions are cancelled, and the run ends at its next line.
  closing_ = true;
  disconnect(this, nullptr, nullptr, nullptr);
  thread_->disconnect(this);
  interrupt();
  while (!thread_->wait(20)) QCoreApplication::processEvents();
  delete thread_;
}

void RunController::start(std::vector<std::string> entries, const RunSettings& settings) {
  if (thread_) return;
  session_.interrupted = false;
  session_.ctx.statusSink = this;
  session_.ctx.prompt = this;
  outcome_ = {};
  thread_ = QThread::create([this, entries = std::move(entries), settings] {
    outcome_ = runEntries(session_.ctx, entries, settings, this);
  });
  connect(thread_, &QThread::finished, this, &RunController::onThreadFinished);
  thread_->start();
}

void RunController::interrupt() { session_.interrupted = true; }

void RunController::onThreadFinished() {
  thread_->wait();
  delete thread_;
  thread_ = nullptr;
  session_.ctx.statusSink = nullptr;
  session_.ctx.prompt = nullptr;
  emit finished();
}

void RunController::status(const std::string& text) {
  const QString t = fromCore(text);
  QMetaObject::invokeMethod(
      this, [this, t] { emit statusText(t); }, Qt::QueuedConnection);
}

void RunController::entryStarted(std::size_t index, std::size_t, const std::string& entry) {
  session_.log.add(session_.ctx.messages.format(texts::window::kLogEntry, entry));
  if (closing_) return;
  const int i = static_cast<int>(index);
  // Waits until the window shows which entry runs.
  QMetaObject::invokeMethod(
      this, [this, i] { emit entryShown(i); }, Qt::BlockingQueuedConnection);
}

void RunController::entryFinished(std::size_t index, bool ok) {
  const int i = static_cast<int>(index);
  QMetaObject::invokeMethod(
      this, [this, i, ok] { emit entryDone(i, ok); }, Qt::QueuedConnection);
}

bool RunController::ask(const std::string& title, const std::string& prompt, std::string& answer) {
  if (closing_ || !askUser_) return false;
  bool ok = false;
  QString text;
  QMetaObject::invokeMethod(
      this,
      [&] {
        if (closing_) return;
        QInputDialog box(dialogParent_);
        box.setObjectName("inputBox");
        box.setWindowTitle(fromCore(title));
        box.setLabelText(fromCore(prompt).replace("\r\n", "\n"));
        box.setInputMode(QInputDialog::TextInput);
        ok = box.exec() == QDialog::Accepted;
        text = box.textValue();
      },
      Qt::BlockingQueuedConnection);
  if (ok) answer = toCore(text);
  return ok;
}

}  // namespace korvane::window
