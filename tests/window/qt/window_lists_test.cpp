// The main window's lists, driven through their widgets: captions from the
// language file, picking sections, the to-run list's moves, deletes and copy,
// the File menu's states, Home, the "excl" panel and folders that vanish.
// What the to-run list does with its entries is tests/window/to_run_list_test.cpp.
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

namespace korvane::test {

using namespace window;

class WindowListsTest : public QObject {
  Q_OBJECT

 private slots:
  void captionsComeFromTheLanguageFile();
  void pickRules();
  void fileMenuMoveDeleteAndCopy();
  void homeAndTheExclPanel();
  void vanishedFoldersAndTheFolderPanel();
};

bool hasLabel(QWidget* w, const QString& text) {
  for (QLabel* l : w->findChildren<QLabel*>())
    if (l->text() == text) return true;
  return false;
}

void WindowListsTest::captionsComeFromTheLanguageFile() {
  {
    WindowFixture f("Hungarian");
    MainWindow& w = f.open();
    QCOMPARE(child<QMenu>(&w, "mnuFile")->title(), QString::fromUtf8("Fájl"));
    QCOMPARE(w.action("mnuRun")->toolTip(),
             QString::fromUtf8("Futtatás: a futtatandók listája felülről lefelé"));
    QCOMPARE(w.action("mnuExit")->text(), QString::fromUtf8("Kilépés"));
    QCOMPARE(w.action("mnuLongDraw")->text(), QString::fromUtf8("Hossz-szelvény rajzolása..."));
    QVERIFY(hasLabel(&w, QString::fromUtf8("Bemeneti fájlok")));
  }
  WindowFixture f;
  MainWindow& w = f.open();
  QCOMPARE(child<QMenu>(&w, "mnuFile")->title(), QString("File"));
  QCOMPARE(w.action("mnuRun")->toolTip(), QString("Run the run list from top to bottom"));
  QVERIFY(hasLabel(&w, "Input files"));
  QCOMPARE(f.label("subsLabel")->text(), QString("Sections"));
  QCOMPARE(child<QPushButton>(&w, "cmdPickAll")->text(), QString("All"));
  QCOMPARE(w.action("mnuSaveOne")->text(), QString("Save the run in a single INP file"));
  QCOMPARE(f.label("stat")->text(), QString("Ready"));
  // Every menu entry and tool tip has its text: a missing key would leave one empty.
  for (QAction* a : w.findChildren<QAction*>())
    if (a->objectName().startsWith("mnu"))
      QVERIFY2(!a->text().isEmpty(), qPrintable(a->objectName()));
}

void WindowListsTest::pickRules() {
  WindowFixture f;
  f.write("a_road.ipf", "[main]\r\ncrea,a\r\n[_helper]\r\n[no close\r\n[end]\r\n");
  f.write("b_plain.ipf", "crea,b\r\n");
  f.write("c_gone.ipf", "[main]\r\n");
  f.write("notes.txt", "");
  MainWindow& w = f.open();
  std::filesystem::remove(fs::native(f.path("c_gone.ipf")));  // listed, then gone
  QListWidget *inps = f.list("inps"), *subs = f.list("subs"), *toRun = f.list("ToRun");
  auto* pick = child<QPushButton>(&w, "cmdPick");
  auto* pickAll = child<QPushButton>(&w, "cmdPickAll");
  const QString road = fromCore(f.path("a_road.ipf"));

  QCOMPARE(items(inps), QStringList({"a_road.ipf", "b_plain.ipf", "c_gone.ipf"}));
  QCOMPARE(inps->currentRow(), 0);  // the first file is selected at start
  QCOMPARE(items(subs), QStringList({"main", "_helper", "end"}));
  QVERIFY(subs->isEnabled());
  QVERIFY(pickAll->isEnabled());

  // Pick all leaves the private section out.
  QTest::mouseClick(pickAll, Qt::LeftButton);
  QCOMPARE(items(toRun), QStringList({road + " [main]", road + " [end]"}));

  // A private section is never picked; a section picked twice is there twice.
  clickOn(subs, 1);
  QTest::mouseClick(pick, Qt::LeftButton);
  QCOMPARE(toRun->count(), 2);
  clickOn(subs, 2);
  QTest::mouseClick(pick, Qt::LeftButton);
  doubleClickOn(subs, 2);
  QCOMPARE(toRun->count(), 4);
  QCOMPARE(toRun->item(3)->text(), road + " [end]");

  // Without a section selected Pick adds nothing.
  subs->clearSelection();
  QTest::mouseClick(pick, Qt::LeftButton);
  QCOMPARE(toRun->count(), 4);

  // A file without sections: the sections list is disabled and the whole file is picked.
  clickOn(inps, 1);
  QCOMPARE(subs->count(), 0);
  QVERIFY(!subs->isEnabled());
  QVERIFY(!f.label("subsLabel")->isEnabled());
  QVERIFY(!pickAll->isEnabled());
  doubleClickOn(inps, 1);
  QCOMPARE(toRun->count(), 5);
  QCOMPARE(toRun->item(4)->text(), fromCore(f.path("b_plain.ipf")));

  // A file that cannot be read has no sections; the next one read has its own.
  clickOn(inps, 2);
  QCOMPARE(inps->currentRow(), 2);
  QCOMPARE(subs->count(), 0);
  QVERIFY(!subs->isEnabled());
  QVERIFY(!pickAll->isEnabled());
  clickOn(inps, 0);
  QCOMPARE(items(subs), QStringList({"main", "_helper", "end"}));
}

void WindowListsTest::fileMenuMoveDeleteAndCopy() {
  WindowFixture f;
  f.write("a.ipf", "[main]\r\n[end]\r\n");
  f.write("b.ipf", "crea,b\r\n");
  MainWindow& w = f.open();
  QListWidget* toRun = f.list("ToRun");
  // The File menu's entries as it shows them, "-" before those that are disabled.
  const auto menu = [&] {
    emit child<QMenu>(&w, "mnuFile")->aboutToShow();
    QString shown;
    for (const char* a : {"Edit", "Select", "SelectAll", "Delete", "DeleteAll"})
      shown += QString(w.action(QString("mnu") + a)->isEnabled() ? " " : " -") + a;
    return shown.trimmed();
  };
  // A file with sections, none selected; then a section picked and an entry selected.
  QCOMPARE(menu(), QString("Edit -Select SelectAll -Delete -DeleteAll"));
  clickOn(f.list("subs"), 0);
  QCOMPARE(menu(), QString("Edit Select SelectAll -Delete -DeleteAll"));
  w.action("mnuSelect")->trigger();
  QCOMPARE(menu(), QString("Edit Select SelectAll -Delete DeleteAll"));
  toRun->item(0)->setSelected(true);
  QCOMPARE(menu(), QString("Edit Select SelectAll Delete DeleteAll"));
  // A file without sections is picked whole.
  clickOn(f.list("inps"), 1);
  QCOMPARE(menu(), QString("Edit Select -SelectAll Delete DeleteAll"));

  auto* up = child<QPushButton>(&w, "cmdUp");
  auto* down = child<QPushButton>(&w, "cmdDown");
  toRun->clear();
  toRun->addItems({"e1", "e2", "e3", "e4", "e5"});

  // Entries 2 and 3 move as one with their selection; 2 and 4 are not one run.
  selectRows(toRun, {1, 2}, 2);
  QTest::mouseClick(up, Qt::LeftButton);
  QCOMPARE(items(toRun), QStringList({"e2", "e3", "e1", "e4", "e5"}));
  QCOMPARE(selectedRows(toRun), QList<int>({0, 1}));
  QCOMPARE(toRun->currentRow(), 1);
  QTest::mouseClick(down, Qt::LeftButton);
  QCOMPARE(items(toRun), QStringList({"e1", "e2", "e3", "e4", "e5"}));
  selectRows(toRun, {1, 3}, 3);
  QVERIFY(!up->isEnabled());
  QVERIFY(!down->isEnabled());

  // Delete with the last entry current: the new last one is current and selected.
  selectRows(toRun, {4}, 4);
  w.action("mnuToRunDel")->trigger();
  QCOMPARE(items(toRun), QStringList({"e1", "e2", "e3", "e4"}));
  QCOMPARE(toRun->currentRow(), 3);
  QCOMPARE(selectedRows(toRun), QList<int>({3}));
  selectRows(toRun, {0, 2}, 0);
  w.action("mnuDelete")->trigger();
  QCOMPARE(items(toRun), QStringList({"e2", "e4"}));
  w.action("mnuToRunCopy")->trigger();
  QCOMPARE(QGuiApplication::clipboard()->text(), QString("e2\r\ne4\r\n"));
  w.action("mnuToRunDelAll")->trigger();
  QCOMPARE(toRun->count(), 0);

  // The inputs popup names the selected file; no input file selected.
  w.updateInpsPopup();
  QCOMPARE(w.action("mnuInpsEdit")->text(), QString("Edit: b.ipf"));
  QVERIFY(w.action("mnuInpsEdit")->isEnabled());
  f.list("inps")->clearSelection();
  QCOMPARE(menu(), QString("-Edit -Select -SelectAll -Delete -DeleteAll"));
  w.updateInpsPopup();
  QCOMPARE(w.action("mnuInpsEdit")->text(), QString("Edit"));
  QVERIFY(!w.action("mnuInpsEdit")->isEnabled());
  w.editInput();  // without a selection: nothing, and no box
}

void WindowListsTest::homeAndTheExclPanel() {
  WindowFixture f;
  f.write("top.ipf", "");
  const std::string proj2 = f.project() + "2";
  std::filesystem::create_directories(fs::native(proj2));
  MainWindow& w = f.open();  // no LastFile: start-up goes Home
  QCOMPARE(w.fileListPath(), f.project());
  QCOMPARE(items(f.list("inps")), QStringList({"top.ipf"}));
  QLabel* excl = f.label("excl");
  QCOMPARE(excl->property("picture").toString(), QString("proj"));
  QCOMPARE(excl->toolTip(), QString("You are in the project folder."));

  f.write("inputs/road.ipf", "");
  w.folderPanel()->setFolder(proj2);  // Proj2 beside Proj is outside
  QCOMPARE(w.fileListPath(), proj2);
  QCOMPARE(excl->property("picture").toString(), QString("notproj"));
  QCOMPARE(excl->toolTip(), QString("You are not in the project folder!"));
  QVERIFY(!excl->pixmap().isNull());
  w.action("mnuHome")->trigger();
  QCOMPARE(w.fileListPath(), f.path("inputs"));
  QCOMPARE(items(f.list("inps")), QStringList({"road.ipf"}));
  QCOMPARE(f.label("dir")->text(), fromCore(f.path("inputs")));
  QCOMPARE(excl->property("picture").toString(), QString("proj"));
  QVERIFY(f.list("inps")->hasFocus() || !QGuiApplication::focusWindow());
  std::filesystem::remove_all(fs::native(proj2));
}

void WindowListsTest::vanishedFoldersAndTheFolderPanel() {
  WindowFixture f;
  f.write("inputs/deep/a.ipf", "[main]\r\n");
  MainWindow& w = f.open();
  FolderPanel* panel = w.folderPanel();

  // The folder list shows the subfolders; activating one opens it.
  QList<QListWidgetItem*> deep = panel->folders()->findItems("deep", Qt::MatchEndsWith);
  QCOMPARE(deep.size(), 1);
  emit panel->folders()->itemActivated(deep[0]);
  QCOMPARE(w.fileListPath(), f.path("inputs/deep"));
  QCOMPARE(f.list("subs")->count(), 1);

  // The folder goes away: Refresh falls back to the nearest folder that is there.
  std::filesystem::remove_all(fs::native(f.path("inputs/deep")));
  w.action("mnuRefresh")->trigger();
  QCOMPARE(w.fileListPath(), f.path("inputs"));
  QCOMPARE(f.list("inps")->count(), 0);
  QCOMPARE(f.list("subs")->count(), 0);
  w.pick();  // nothing selected: nothing happens
  QCOMPARE(f.list("ToRun")->count(), 0);

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

}  // namespace korvane::test

QTEST_MAIN(korvane::test::WindowListsTest)
#include "window_lists_test.moc"
