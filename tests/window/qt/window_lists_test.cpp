// The main window's lists, driven through their widgets: captions from the
// language file, picking sections, the to-run list's moves, deletes and copy,
// the File menu's states, Home, the "excl" panel and folders that vanish.
#include <QClipboard>
#include <QGuiApplication>
#include <QMenu>
#include <QMenuBar>
#include <QPushButton>
#include <QtTest>
#include <filesystem>

#include "base/fs.h"
#include "support/window_fixture.h"
#include "window/text_edge.h"

using namespace korvane;
using namespace korvane::window;
using namespace korvane::window::test;

namespace {

QString entry(const WindowFixture& f, const std::string& relative, const char* section = nullptr) {
  return fromCore(f.path(relative)) + (section ? QString(" [%1]").arg(section) : QString());
}

}  // namespace

class WindowListsTest : public QObject {
  Q_OBJECT

 private slots:
  void captionsComeFromTheLanguageFile_data();
  void captionsComeFromTheLanguageFile();
  void pickRules();
  void aFileThatCannotBeReadHasNoSections();
  void moveUpAndDown();
  void deleteCopyAndPopups();
  void fileMenuStates();
  void homeWithAndWithoutInputs();
  void exclPanelInsideAndOutsideTheProject();
  void vanishedFoldersAndTheFolderPanel();
};

void WindowListsTest::captionsComeFromTheLanguageFile_data() {
  QTest::addColumn<QString>("lang");
  QTest::addColumn<QString>("file");
  QTest::addColumn<QString>("label");
  QTest::addColumn<QString>("runTip");
  QTest::newRow("Hungarian") << "Hungarian" << QString::fromUtf8("Fájl")
                             << QString::fromUtf8("Bemeneti fájlok")
                             << QString::fromUtf8(
                                    "Futtatás: a futtatandók listája felülről lefelé");
  QTest::newRow("English") << "English"
                           << "File"
                           << "Input files"
                           << "Run the run list from top to bottom";
}

void WindowListsTest::captionsComeFromTheLanguageFile() {
  QFETCH(QString, lang);
  QFETCH(QString, file);
  QFETCH(QString, label);
  QFETCH(QString, runTip);
  WindowFixture f(lang.toStdString());
  MainWindow& w = f.open();
  QCOMPARE(child<QMenu>(&w, "mnuFile")->title(), file);
  QCOMPARE(w.action("mnuRun")->toolTip(), runTip);
  QCOMPARE(child<QLabel>(&w, "subsLabel")->text(), f.text("Caption1", "s2"));
  QCOMPARE(child<QPushButton>(&w, "cmdPickAll")->text(), f.text("Caption1", "s4"));
  QCOMPARE(w.action("mnuSaveOne")->text(), f.text("StatusBar1", "saveone"));
  QCOMPARE(child<QLabel>(&w, "stat")->text(), f.text("StatusBar1", "stat1"));
  bool found = false;
  for (QLabel* l : w.findChildren<QLabel*>()) found = found || l->text() == label;
  QVERIFY(found);
  // Every menu entry and tool tip has its text: a missing key would leave one empty.
  for (QAction* a : w.findChildren<QAction*>())
    if (a->objectName().startsWith("mnu"))
      QVERIFY2(!a->text().isEmpty(), qPrintable(a->objectName()));
  if (lang == "Hungarian") {
    QCOMPARE(w.action("mnuExit")->text(), QString::fromUtf8("Kilépés"));
    QCOMPARE(w.action("mnuLongDraw")->text(), QString::fromUtf8("Hossz-szelvény rajzolása..."));
  }
}

void WindowListsTest::pickRules() {
  WindowFixture f;
  f.write("a_road.ipf", "[main]\r\ncrea,a\r\n[_helper]\r\n[no close\r\n[end]\r\n");
  f.write("b_plain.ipf", "crea,b\r\n");
  f.write("notes.txt", "");
  MainWindow& w = f.open();
  auto* inps = child<QListWidget>(&w, "inps");
  auto* subs = child<QListWidget>(&w, "subs");
  auto* toRun = child<QListWidget>(&w, "ToRun");
  auto* pick = child<QPushButton>(&w, "cmdPick");
  auto* pickAll = child<QPushButton>(&w, "cmdPickAll");

  QCOMPARE(items(inps), QStringList({"a_road.ipf", "b_plain.ipf"}));
  QCOMPARE(inps->currentRow(), 0);  // the first file is selected at start
  QCOMPARE(items(subs), QStringList({"main", "_helper", "end"}));
  QVERIFY(subs->isEnabled());
  QVERIFY(pickAll->isEnabled());

  // Pick all leaves the private section out.
  QTest::mouseClick(pickAll, Qt::LeftButton);
  QCOMPARE(items(toRun),
           QStringList({entry(f, "a_road.ipf", "main"), entry(f, "a_road.ipf", "end")}));

  // A private section is never picked; a section picked twice is there twice.
  clickOn(subs, 1);
  QTest::mouseClick(pick, Qt::LeftButton);
  QCOMPARE(toRun->count(), 2);
  clickOn(subs, 2);
  QTest::mouseClick(pick, Qt::LeftButton);
  doubleClickOn(subs, 2);
  QCOMPARE(toRun->count(), 4);
  QCOMPARE(toRun->item(3)->text(), entry(f, "a_road.ipf", "end"));

  // Without a section selected Pick adds nothing.
  subs->clearSelection();
  QTest::mouseClick(pick, Qt::LeftButton);
  QCOMPARE(toRun->count(), 4);

  // A file without sections: the sections list is disabled and the whole file is picked.
  clickOn(inps, 1);
  QCOMPARE(subs->count(), 0);
  QVERIFY(!subs->isEnabled());
  QVERIFY(!child<QLabel>(&w, "subsLabel")->isEnabled());
  QVERIFY(!pickAll->isEnabled());
  doubleClickOn(inps, 1);
  QCOMPARE(toRun->item(4)->text(), entry(f, "b_plain.ipf"));
  QCOMPARE(toRun->count(), 5);
}

void WindowListsTest::aFileThatCannotBeReadHasNoSections() {
  WindowFixture f;
  f.write("a.ipf", "[main]\r\n");
  f.write("gone.ipf", "[main]\r\n");
  MainWindow& w = f.open();
  auto* inps = child<QListWidget>(&w, "inps");
  auto* subs = child<QListWidget>(&w, "subs");
  std::filesystem::remove(fs::native(f.path("gone.ipf")));
  clickOn(inps, 1);
  QCOMPARE(inps->currentRow(), 1);
  QCOMPARE(subs->count(), 0);
  QVERIFY(!subs->isEnabled());
  QVERIFY(!child<QPushButton>(&w, "cmdPickAll")->isEnabled());
  clickOn(inps, 0);
  QCOMPARE(inps->currentRow(), 0);
  QCOMPARE(items(subs), QStringList({"main"}));
}

void WindowListsTest::moveUpAndDown() {
  WindowFixture f;
  MainWindow& w = f.open();
  auto* toRun = child<QListWidget>(&w, "ToRun");
  auto* up = child<QPushButton>(&w, "cmdUp");
  auto* down = child<QPushButton>(&w, "cmdDown");
  toRun->addItems({"e1", "e2", "e3", "e4", "e5"});

  selectRows(toRun, {1, 2}, 2);  // entries 2 and 3
  QVERIFY(up->isEnabled());
  QTest::mouseClick(up, Qt::LeftButton);
  QCOMPARE(items(toRun), QStringList({"e2", "e3", "e1", "e4", "e5"}));
  QCOMPARE(selectedRows(toRun), QList<int>({0, 1}));
  QTest::mouseClick(up, Qt::LeftButton);  // at the top: nothing moves
  QCOMPARE(items(toRun), QStringList({"e2", "e3", "e1", "e4", "e5"}));
  QTest::mouseClick(down, Qt::LeftButton);
  QCOMPARE(items(toRun), QStringList({"e1", "e2", "e3", "e4", "e5"}));
  QCOMPARE(selectedRows(toRun), QList<int>({1, 2}));

  selectRows(toRun, {1, 3}, 3);  // entries 2 and 4: not one run
  QVERIFY(!up->isEnabled());
  QVERIFY(!down->isEnabled());
  w.moveUp();
  w.moveDown();
  QCOMPARE(items(toRun), QStringList({"e1", "e2", "e3", "e4", "e5"}));

  selectRows(toRun, {4}, 4);
  QTest::mouseClick(down, Qt::LeftButton);  // at the bottom
  QCOMPARE(items(toRun), QStringList({"e1", "e2", "e3", "e4", "e5"}));
  QTest::mouseClick(up, Qt::LeftButton);
  QCOMPARE(items(toRun), QStringList({"e1", "e2", "e3", "e5", "e4"}));
  QCOMPARE(toRun->currentRow(), 3);
}

void WindowListsTest::deleteCopyAndPopups() {
  WindowFixture f;
  f.write("road.ipf", "crea,a\r\n");
  MainWindow& w = f.open();
  auto* toRun = child<QListWidget>(&w, "ToRun");
  auto* inps = child<QListWidget>(&w, "inps");
  toRun->addItems({"e1", "e2", "e3", "e4", "e5"});

  // Delete with the last entry current: the new last one is current and selected.
  selectRows(toRun, {4}, 4);
  w.action("mnuToRunDel")->trigger();
  QCOMPARE(items(toRun), QStringList({"e1", "e2", "e3", "e4"}));
  QCOMPARE(toRun->currentRow(), 3);
  QCOMPARE(selectedRows(toRun), QList<int>({3}));

  selectRows(toRun, {0, 2}, 0);
  w.action("mnuDelete")->trigger();
  QCOMPARE(items(toRun), QStringList({"e2", "e4"}));
  QCOMPARE(selectedRows(toRun), QList<int>({0}));

  w.action("mnuToRunCopy")->trigger();
  QCOMPARE(QGuiApplication::clipboard()->text(), QString("e2\r\ne4\r\n"));

  // The inputs popup names the selected file.
  w.updateInpsPopup();
  QCOMPARE(w.action("mnuInpsEdit")->text(), f.text("Menu1", "InpsEdit") + ": road.ipf");
  QVERIFY(w.action("mnuInpsEdit")->isEnabled());
  inps->clearSelection();
  w.updateInpsPopup();
  QCOMPARE(w.action("mnuInpsEdit")->text(), f.text("Menu1", "InpsEdit"));
  QVERIFY(!w.action("mnuInpsEdit")->isEnabled());
  w.editInput();  // without a selection: nothing, and no box

  w.action("mnuToRunDelAll")->trigger();
  QCOMPARE(toRun->count(), 0);
  w.action("mnuToRunCopy")->trigger();
  QCOMPARE(QGuiApplication::clipboard()->text(), QString());
  selectRows(toRun, {}, -1);
  w.deleteSelected();  // nothing to delete: nothing happens
  QCOMPARE(toRun->count(), 0);
}

void WindowListsTest::fileMenuStates() {
  WindowFixture f;
  f.write("a.ipf", "[main]\r\n[end]\r\n");
  f.write("b.ipf", "crea,b\r\n");
  MainWindow& w = f.open();
  auto* inps = child<QListWidget>(&w, "inps");
  auto* subs = child<QListWidget>(&w, "subs");
  auto* toRun = child<QListWidget>(&w, "ToRun");
  auto* menu = child<QMenu>(&w, "mnuFile");
  auto enabled = [&](const char* name) {
    emit menu->aboutToShow();
    return w.action(name)->isEnabled();
  };

  // A file with sections, none selected.
  QVERIFY(enabled("mnuEdit"));
  QVERIFY(!enabled("mnuSelect"));
  QVERIFY(enabled("mnuSelectAll"));
  QVERIFY(!enabled("mnuDelete"));
  QVERIFY(!enabled("mnuDeleteAll"));
  clickOn(subs, 0);
  QVERIFY(enabled("mnuSelect"));
  w.action("mnuSelect")->trigger();
  QVERIFY(enabled("mnuDeleteAll"));
  QVERIFY(!enabled("mnuDelete"));
  toRun->item(0)->setSelected(true);
  QVERIFY(enabled("mnuDelete"));

  // A file without sections can be picked whole; Select all has nothing to do.
  clickOn(inps, 1);
  QVERIFY(enabled("mnuSelect"));
  QVERIFY(!enabled("mnuSelectAll"));

  // No input file selected.
  inps->clearSelection();
  QVERIFY(!enabled("mnuEdit"));
  QVERIFY(!enabled("mnuSelect"));
}

void WindowListsTest::homeWithAndWithoutInputs() {
  WindowFixture f;
  f.write("top.ipf", "");
  MainWindow& w = f.open();  // no LastFile: start-up goes Home
  QCOMPARE(w.fileListPath(), f.project());
  QCOMPARE(items(child<QListWidget>(&w, "inps")), QStringList({"top.ipf"}));

  f.write("inputs/road.ipf", "");
  f.write("other/x.ipf", "");
  w.folderPanel()->setFolder(f.path("other"));
  QCOMPARE(w.fileListPath(), f.path("other"));
  w.action("mnuHome")->trigger();
  QCOMPARE(w.fileListPath(), f.path("inputs"));
  QCOMPARE(items(child<QListWidget>(&w, "inps")), QStringList({"road.ipf"}));
  QCOMPARE(child<QLabel>(&w, "dir")->text(), fromCore(f.path("inputs")));
  QVERIFY(child<QListWidget>(&w, "inps")->hasFocus() || !QGuiApplication::focusWindow());
}

void WindowListsTest::exclPanelInsideAndOutsideTheProject() {
  WindowFixture f;
  f.write("inputs/a.ipf", "");
  const std::string proj2 = f.project() + "2";
  std::filesystem::create_directories(fs::native(proj2));
  MainWindow& w = f.open();
  auto* excl = child<QLabel>(&w, "excl");
  QCOMPARE(excl->property("picture").toString(), QString("proj"));
  QCOMPARE(excl->toolTip(), f.text("StatusBar1", "chk"));

  w.folderPanel()->setFolder(proj2);  // Proj2 beside Proj is outside
  QCOMPARE(excl->property("picture").toString(), QString("notproj"));
  QCOMPARE(excl->toolTip(), f.text("StatusBar1", "excl"));
  QVERIFY(!excl->pixmap().isNull());

  w.folderPanel()->setFolder(f.path("inputs"));
  QCOMPARE(excl->property("picture").toString(), QString("proj"));
  std::filesystem::remove_all(fs::native(proj2));
}

void WindowListsTest::vanishedFoldersAndTheFolderPanel() {
  WindowFixture f;
  f.write("inputs/deep/a.ipf", "[main]\r\n");
  MainWindow& w = f.open();
  FolderPanel* panel = w.folderPanel();
  auto* folders = panel->folders();

  // The folder list shows the subfolders; activating one opens it.
  QList<QListWidgetItem*> deep = folders->findItems("deep", Qt::MatchEndsWith);
  QCOMPARE(deep.size(), 1);
  emit folders->itemActivated(deep[0]);
  QCOMPARE(w.fileListPath(), f.path("inputs/deep"));
  QCOMPARE(child<QListWidget>(&w, "subs")->count(), 1);

  // The folder goes away: Refresh falls back to the nearest folder that is there.
  std::filesystem::remove_all(fs::native(f.path("inputs/deep")));
  w.action("mnuRefresh")->trigger();
  QCOMPARE(w.fileListPath(), f.path("inputs"));
  QCOMPARE(child<QListWidget>(&w, "inps")->count(), 0);
  QCOMPARE(child<QListWidget>(&w, "subs")->count(), 0);
  w.pick();  // nothing selected: nothing happens
  QCOMPARE(child<QListWidget>(&w, "ToRun")->count(), 0);

  // The folder panel slides closed and open; its state is written at once.
  QVERIFY(w.folderPanelShown());
  const int width = panel->width();
  w.action("mnuDir")->trigger();
  QVERIFY(!w.action("mnuDir")->isChecked());
  QCOMPARE(f.position("Dir"), std::string("False"));
  QTRY_VERIFY(!w.sliding());
  QVERIFY(!panel->isVisible());
  w.action("mnuDir")->trigger();
  QVERIFY(w.action("mnuDir")->isChecked());
  QCOMPARE(f.position("Dir"), std::string("True"));
  QTRY_VERIFY(!w.sliding());
  QVERIFY(panel->isVisible());
  QCOMPARE(panel->width(), width);
}

QTEST_MAIN(WindowListsTest)
#include "window_lists_test.moc"
