// Support for the window's Qt tests: a throw-away home folder (settings and
// language files copied from data/) and project folder, a session and main
// window opened on them, runs of its to-run list, and a catcher that answers
// the next modal box.
#pragma once

#include <QListWidget>
#include <QMessageBox>
#include <QPointer>
#include <QTemporaryDir>
#include <QTimer>
#include <functional>
#include <memory>
#include <string>

#include "window/main_window.h"
#include "window/session.h"

namespace korvane::test {

using window::MainWindow;
using window::WindowSession;

class WindowFixture {
 public:
  // `lang`: "Hungarian" or "English"; `engine`: "none" or "embedded".
  explicit WindowFixture(const std::string& lang = "English", const std::string& engine = "none");
  ~WindowFixture();

  std::string project() const;  // the project folder, no trailing separator
  std::string home() const;
  std::string settings() const;
  // Writes a file under the project (folders made as needed); returns its path.
  std::string write(const std::string& relative, const std::string& content) const;
  std::string path(const std::string& relative) const;
  void setPosition(const std::string& key, const std::string& value) const;
  void setPositions(std::initializer_list<std::pair<const char*, std::string>> values) const;
  std::string position(const std::string& key) const;

  // Opens the session and the main window and shows it, as an interactive start does.
  MainWindow& open(bool show = true);
  // Closes and destroys the window (writing its settings), keeping the session.
  void close();
  // The window's list or label `name`.
  QListWidget* list(const char* name) const;
  QLabel* label(const char* name) const;
  // Puts files of the project on the to-run list.
  void queue(std::initializer_list<const char*> files) const;
  // Runs the to-run list; false when it has not ended within 20 s.
  bool runToEnd() const;
  // What the variables viewer lists after the last run, "name=value".
  QStringList variables() const;

  // The example project copied into the project folder, and `korvane ARGS`
  // run there with this home folder; returns its exit status.
  void copyExample() const;
  int korvane(const QStringList& args) const;

  std::unique_ptr<WindowSession> session;
  std::unique_ptr<MainWindow> window;

 private:
  QTemporaryDir dir_;
  std::string engine_;
};

// Waits for modal boxes and answers them: message boxes with their first
// button, input boxes with `answer`.
class BoxCatcher : public QObject {
 public:
  BoxCatcher();
  QString title, text;
  int boxes = 0;
  QString answer;
  // Called with each box before it is answered (screenshots).
  std::function<void(QWidget*)> onBox;

 private:
  QTimer timer_;
};

template <typename T>
T* child(QWidget* w, const char* name) {
  return w->findChild<T*>(name);
}

// A list's texts and selection, and the mouse on its rows.
QStringList items(QListWidget* list);
QList<int> selectedRows(QListWidget* list);
void selectRows(QListWidget* list, QList<int> rows, int current);
void clickOn(QListWidget* list, int row);
void doubleClickOn(QListWidget* list, int row);

}  // namespace korvane::test
