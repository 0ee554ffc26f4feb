// korvane-window: the desktop window. Started without arguments it shows the
// main window; with a run entry on its command line it runs that entry
// without a window and ends with the exit status of `korvane run`.
#include <QApplication>
#include <QDir>
#include <QLockFile>
#include <QMessageBox>
#include <QStandardPaths>
#include <iostream>

#include "base/texts/messages_texts.h"
#include "shell/startup.h"
#include "window/main_window.h"
#include "window/pictures.h"
#include "window/text_edge.h"

using namespace korvane;

namespace {

bool screenAvailable() {
  const QString p = QGuiApplication::platformName();
  return p != "offscreen" && p != "minimal";
}

void tell(const QString& title, const QString& text) {
  std::cerr << text.toStdString() << std::endl;
  if (screenAvailable()) QMessageBox::warning(nullptr, title, text);
}

}  // namespace

int main(int argc, char** argv) {
  QApplication app(argc, argv);
  QApplication::setApplicationName("Korvane");
  QApplication::setWindowIcon(window::picture("korvane"));

  // The whole command line is one run entry.
  QStringList words = QApplication::arguments();
  words.removeFirst();
  const QString commandLine = words.join(' ');
  const bool batch = !commandLine.isEmpty();

  std::string error;
  auto session = window::WindowSession::open(StartupOptions{}, error);
  if (!session) {
    tell("Korvane", window::fromCore(error));
    return 2;
  }

  // One window at a time; batch runs are never refused.
  QLockFile lock(QDir(QStandardPaths::writableLocation(QStandardPaths::TempLocation))
                     .filePath("korvane-window.lock"));
  if (!batch && !lock.tryLock(0)) {
    tell("Korvane", session->format(texts::messages::kAlreadyRunning, "Korvane"));
    return 0;
  }

  window::MainWindow main(*session, batch);
  if (batch) return main.runBatch(absoluteRunEntry(window::toCore(commandLine)));
  main.show();
  main.idleReset();
  return app.exec();
}
