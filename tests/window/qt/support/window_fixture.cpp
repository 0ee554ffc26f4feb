#include "support/window_fixture.h"

#include <QAbstractButton>
#include <QApplication>
#include <QInputDialog>
#include <QtTest>
#include <filesystem>
#include <fstream>

#include "base/fs.h"
#include "base/profile.h"

namespace korvane::window::test {
namespace stdfs = std::filesystem;

WindowFixture::WindowFixture(const std::string& lang, const std::string& engine) : engine_(engine) {
  const stdfs::path root = dir_.path().toStdString();
  stdfs::create_directories(root / "home");
  stdfs::create_directories(root / "Proj");
  for (const char* f : {"Korvane.ini", "Hungarian.lng", "English.lng"})
    stdfs::copy_file(stdfs::path(KORVANE_SOURCE_DIR) / "data" / f, root / "home" / f);
  // Korvane's own macros, as they are installed beside the program.
  stdfs::copy(stdfs::path(KORVANE_SOURCE_DIR) / "data" / "macros", root / "home" / "macros");
  WriteProfileString("Language", "lang", lang, settings());
}

WindowFixture::~WindowFixture() {
  window.reset();
  session.reset();
}

std::string WindowFixture::project() const { return fs::join(dir_.path().toStdString(), "Proj"); }
std::string WindowFixture::home() const { return fs::join(dir_.path().toStdString(), "home"); }
std::string WindowFixture::settings() const { return fs::join(home(), "Korvane.ini"); }
std::string WindowFixture::path(const std::string& relative) const {
  return fs::join(project(), relative);
}

std::string WindowFixture::write(const std::string& relative, const std::string& content) const {
  const stdfs::path p = fs::native(path(relative));
  stdfs::create_directories(p.parent_path());
  std::ofstream(p, std::ios::binary) << content;
  return path(relative);
}

void WindowFixture::setPosition(const std::string& key, const std::string& value) const {
  WriteProfileString("Position", key, value, settings());
}

void WindowFixture::setPositions(
    std::initializer_list<std::pair<const char*, std::string>> values) const {
  for (const auto& [key, value] : values) setPosition(key, value);
}

std::string WindowFixture::position(const std::string& key) const {
  return ReadProfileString("Position", key, settings());
}

MainWindow& WindowFixture::open(bool show) {
  if (!session) {
    std::string error;
    StartupOptions options;
    options.home = home();
    options.project = project();
    options.engine = engine_;
    session = WindowSession::open(options, error);
    if (!session) qFatal("session: %s", error.c_str());
  }
  window = std::make_unique<MainWindow>(*session, false);
  if (show) {
    window->show();
    if (!QTest::qWaitForWindowExposed(window.get())) qWarning("window not exposed");
    window->idleReset();
  }
  return *window;
}

void WindowFixture::close() {
  if (window) window->close();
  window.reset();
}

QString WindowFixture::text(const char* section, const char* key) const {
  return session->text({section, key});
}

BoxCatcher::BoxCatcher() {
  timer_.setInterval(20);
  connect(&timer_, &QTimer::timeout, this, [this] {
    QWidget* w = QApplication::activeModalWidget();
    if (!w) return;
    if (onBox) onBox(w);
    if (auto* box = qobject_cast<QMessageBox*>(w)) {
      ++boxes;
      title = box->windowTitle();
      text = box->text();
      if (QAbstractButton* b = box->buttons().value(0))
        b->click();
      else
        box->close();
    } else if (auto* input = qobject_cast<QInputDialog*>(w)) {
      ++boxes;
      title = input->windowTitle();
      text = input->labelText();
      if (cancel) {
        input->reject();
      } else {
        input->setTextValue(answer);
        input->accept();
      }
    }
  });
  timer_.start();
}

QStringList items(QListWidget* list) {
  QStringList out;
  for (int i = 0; i < list->count(); ++i) out << list->item(i)->text();
  return out;
}

QList<int> selectedRows(QListWidget* list) {
  QList<int> out;
  for (int i = 0; i < list->count(); ++i)
    if (list->item(i)->isSelected()) out << i;
  return out;
}

void selectRows(QListWidget* list, QList<int> rows, int current) {
  list->clearSelection();
  list->setCurrentRow(current, QItemSelectionModel::NoUpdate);
  for (int r : rows) list->item(r)->setSelected(true);
}

void clickOn(QListWidget* list, int row) {
  const QRect r = list->visualItemRect(list->item(row));
  QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, r.center());
}

void doubleClickOn(QListWidget* list, int row) {
  const QRect r = list->visualItemRect(list->item(row));
  QTest::mouseDClick(list->viewport(), Qt::LeftButton, {}, r.center());
}

}  // namespace korvane::window::test
