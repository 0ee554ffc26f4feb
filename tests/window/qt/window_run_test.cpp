// Run from the window: entries worked through on a thread of their own with
// the running entry selected, the stop message box, `input` as a modal box,
// Stop/Esc, batch mode, and the variables viewer after the run.
#include <QFontInfo>
#include <QInputDialog>
#include <QPlainTextEdit>
#include <QProcess>
#include <QtTest>

#include "base/fs.h"
#include "shell/window_settings.h"
#include "support/window_fixture.h"
#include "window/longsection_panel.h"
#include "window/text_edge.h"

using namespace korvane;
using namespace korvane::window;
using namespace korvane::window::test;

namespace {

// An input that compiles for a long time: a repeat over many lines.
const char* const kLongInput = "insert,loop\r\nrepeat=2000000\r\n";
const char* const kLoop = "repeat\r\n#g_n=|count|\r\nendrepeat\r\n";

}  // namespace

class WindowRunTest : public QObject {
  Q_OBJECT

 private slots:
  void aStopInTheSecondOfThreeEntries();
  void theNextRunAfterAFailure();
  void inputIsAModalBox();
  void stopInterruptsALongRun();
  void variablesViewer();
  void helpLongDrawAndAbout();
  void batchMode();
  void programExitStatuses();
};

void WindowRunTest::aStopInTheSecondOfThreeEntries() {
  WindowFixture f;
  f.write("a.ipf", "#g_first=a\r\ncrea,a\r\n");
  f.write("b.ipf", "#g_second=b|g_first|\r\ninsert,missing.\r\n#g_after=x\r\n");
  f.write("c.ipf", "#g_third=c\r\ncrea,c\r\n");
  f.write("complete.inp", "stale");
  f.setPosition("SaveSeparateFiles", "1");
  MainWindow& w = f.open();
  auto* toRun = child<QListWidget>(&w, "ToRun");
  for (const char* name : {"a.ipf", "b.ipf", "c.ipf"}) toRun->addItem(fromCore(f.path(name)));

  BoxCatcher boxes;
  QList<int> selectedWhenBoxShown;
  QString statusWhenBoxShown;
  boxes.onBox = [&](QWidget*) {
    selectedWhenBoxShown = selectedRows(toRun);
    statusWhenBoxShown = child<QLabel>(&w, "stat")->text();
  };
  w.action("mnuRun")->trigger();
  QVERIFY(w.running());
  QVERIFY(!w.action("mnuRun")->isEnabled());
  QVERIFY(w.action("mnuStop")->isEnabled());
  QTRY_VERIFY_WITH_TIMEOUT(!w.running() && boxes.boxes == 1, 20000);

  QCOMPARE(boxes.title, f.text("Messages", "s4"));
  QCOMPARE(boxes.text, fromCore(f.session->ctx.messages.format({"Messages", "s9"}, "missing.ipm")));
  QCOMPARE(selectedWhenBoxShown, QList<int>({0, 1}));  // what ran, the failing one last
  QVERIFY(statusWhenBoxShown != f.text("StatusBar1", "stat1"));
  QCOMPARE(child<QLabel>(&w, "stat")->text(), f.text("StatusBar1", "stat1"));
  QCOMPARE(toRun->count(), 3);  // the list stays as it was
  QVERIFY(w.action("mnuRun")->isEnabled());
  QVERIFY(!w.action("mnuStop")->isEnabled());

  // The first two ran, the third did not; the stale combined file is gone.
  QVERIFY(fs::fileExists(f.path("compiled_a.inp")));
  QVERIFY(fs::fileExists(f.path("compiled_b.inp")));
  QVERIFY(!fs::fileExists(f.path("compiled_c.inp")));
  QVERIFY(!fs::fileExists(f.path("complete.inp")));
  const QStringList vars = items(w.viewer()->variables());
  QVERIFY(vars.contains("g_second=ba"));
  QVERIFY(!vars.join(" ").contains("g_third"));
  QVERIFY(!vars.join(" ").contains("g_after"));
  // The run saved the settings first.
  QCOMPARE(f.position("SaveSeparateFiles"), std::string("1"));
}

void WindowRunTest::theNextRunAfterAFailure() {
  WindowFixture f;
  f.write("bad.ipf", "insert,missing.\r\n");
  f.write("good.ipf", "#g_ok=1\r\n");
  MainWindow& w = f.open();
  auto* toRun = child<QListWidget>(&w, "ToRun");
  toRun->addItem(fromCore(f.path("bad.ipf")));
  BoxCatcher boxes;
  w.run();
  QTRY_VERIFY_WITH_TIMEOUT(!w.running(), 20000);
  QCOMPARE(boxes.boxes, 1);

  toRun->clear();
  toRun->addItem(fromCore(f.path("good.ipf")));
  w.run();
  QTRY_VERIFY_WITH_TIMEOUT(!w.running(), 20000);
  QCOMPARE(boxes.boxes, 1);  // no second box
  QVERIFY(items(w.viewer()->variables()).contains("g_ok=1"));
  QCOMPARE(selectedRows(toRun), QList<int>({0}));

  // An empty list: nothing runs, no settings are written.
  toRun->clear();
  f.setPosition("Top", "marker");
  w.run();
  QVERIFY(!w.running());
  QCOMPARE(f.position("Top"), std::string("marker"));
}

void WindowRunTest::inputIsAModalBox() {
  WindowFixture f("Hungarian");
  f.write("ask.ipf", "let,w=input(Width?),\r\nlet,h=input(Height?),\r\n");
  MainWindow& w = f.open();
  child<QListWidget>(&w, "ToRun")->addItem(fromCore(f.path("ask.ipf")));
  BoxCatcher boxes;
  boxes.answer = QString::fromUtf8("12,5 árok");
  QStringList prompts;
  boxes.onBox = [&](QWidget* box) {
    if (auto* input = qobject_cast<QInputDialog*>(box)) prompts << input->labelText();
  };
  w.run();
  QTRY_VERIFY_WITH_TIMEOUT(!w.running(), 20000);
  QCOMPARE(boxes.boxes, 2);
  QCOMPARE(boxes.title, QString("Korvane"));
  QVERIFY(prompts.value(0).startsWith(f.text("Messages", "s10")));
  QVERIFY(prompts.value(0).endsWith("Width?"));
  QVERIFY(!prompts.value(0).contains('\r'));
  const QStringList vars = items(w.viewer()->variables());
  // The answer reaches the core in its code page and comes back unchanged.
  QVERIFY2(vars.contains(QString::fromUtf8("w=12,5 árok")), qPrintable(vars.join("|")));
  QVERIFY(vars.contains(QString::fromUtf8("h=12,5 árok")));
}

void WindowRunTest::stopInterruptsALongRun() {
  WindowFixture f;
  f.write("loop.ipm", kLoop);
  f.write("long.ipf", kLongInput);
  f.write("after.ipf", "#g_after=1\r\n");
  MainWindow& w = f.open();
  auto* toRun = child<QListWidget>(&w, "ToRun");
  toRun->addItem(fromCore(f.path("long.ipf")));
  toRun->addItem(fromCore(f.path("after.ipf")));
  BoxCatcher boxes;
  w.run();
  QTRY_COMPARE(child<QLabel>(&w, "stat")->text(), f.text("StatusBar1", "stat2"));
  QVERIFY(w.running());
  // The window answers while the run goes on.
  w.action("mnuSaveOne")->trigger();
  QCOMPARE(w.statusPanels()->bevel("saveone"), kBevelPressed);
  QTest::keyClick(&w, Qt::Key_Escape);
  QTRY_VERIFY_WITH_TIMEOUT(!w.running(), 20000);
  QCOMPARE(boxes.boxes, 1);
  QVERIFY(boxes.text.contains(f.text("Runtime", "interrupted")));
  QVERIFY(!items(w.viewer()->variables()).contains("g_after=1"));

  // Closing the window during a run stops it, then closes.
  w.run();
  QTRY_VERIFY(w.running());
  w.close();
  QTRY_VERIFY_WITH_TIMEOUT(!w.running(), 20000);
  QTRY_VERIFY(!w.isVisible());
  QCOMPARE(boxes.boxes, 1);  // no message for a run stopped by closing
}

void WindowRunTest::variablesViewer() {
  WindowFixture f;
  f.write("v.ipf", "#a=\"x=1\"\r\n#b=|left(abc,x)|\r\n#g_c=3\r\n");
  MainWindow& w = f.open();
  child<QListWidget>(&w, "ToRun")->addItem(fromCore(f.path("v.ipf")));
  w.run();
  QTRY_VERIFY_WITH_TIMEOUT(!w.running(), 20000);
  w.action("mnuLists")->trigger();
  VariablesViewer* v = w.viewer();
  QVERIFY(QTest::qWaitForWindowExposed(v));
  QCOMPARE(v->windowTitle(), f.text("Lists", "Caption"));
  QCOMPARE(v->tabs()->tabText(0), f.text("Lists", "Vars"));
  QCOMPARE(v->tabs()->tabToolTip(0), f.text("Lists", "Varstip"));
  QCOMPARE(v->tabs()->tabText(1), f.text("Lists", "Sups"));
  QCOMPARE(v->tabs()->tabToolTip(1), f.text("Lists", "Supstip"));
  const QStringList vars = items(v->variables());
  QVERIFY2(vars.contains("a=x=1"), qPrintable(vars.join("|")));  // "=" in a value unchanged
  QVERIFY(vars.contains("g_c=3"));
  for (const QString& item : vars) QVERIFY(!item.startsWith("zTMP"));
  QVERIFY(QFontInfo(v->variables()->font()).fixedPitch());
  QVERIFY(QFontInfo(v->logText()->font()).fixedPitch());
  // The second page: the trapped string-function failure.
  const QString log = v->logText()->toPlainText();
  QVERIFY2(
      log.contains(fromCore(f.session->ctx.messages.format({"Runtime", "strfunc"}, "left", "2"))),
      qPrintable(log));
  QVERIFY(log.contains(fromCore(f.path("v.ipf"))));
  v->tabs()->setCurrentIndex(1);
  QVERIFY(v->logText()->isVisible());
  QVERIFY(!v->variables()->isVisible());

  // Never smaller than 3000 by 3000 twips.
  v->resize(50, 50);
  QCOMPARE(v->width(), kViewerMinTwips / kTwipsPerPixel);
  QCOMPARE(v->height(), kViewerMinTwips / kTwipsPerPixel);
}

void WindowRunTest::helpLongDrawAndAbout() {
  WindowFixture f("Hungarian");
  MainWindow& w = f.open();
  BoxCatcher boxes;
  QString details;
  boxes.onBox = [&](QWidget* box) {
    if (auto* m = qobject_cast<QMessageBox*>(box)) details = m->informativeText();
  };
  // No help file beside the settings: the box says which file is missing.
  w.action("mnuCHM")->trigger();
  QCOMPARE(boxes.boxes, 1);
  QCOMPARE(boxes.text,
           f.session->format({"Window", "nohelp"}, fromCore(fs::join(f.home(), "KorvaneHU.chm"))));
  // LongDraw opens the long-section panel, once however often it is asked for.
  w.action("mnuLongDraw")->trigger();
  QVERIFY(w.longsectionPanel() && w.longsectionPanel()->isVisible());
  QVERIFY(w.longsectionPanel()->windowTitle().startsWith(f.text("Longsection", "title")));
  LongsectionPanel* panel = w.longsectionPanel();
  w.action("mnuLongDraw")->trigger();
  QCOMPARE(w.longsectionPanel(), panel);
  QCOMPARE(boxes.boxes, 1);
  w.action("mnuAbout")->trigger();
  QCOMPARE(boxes.boxes, 2);
  QCOMPARE(boxes.title, f.text("Menu1", "About"));
  QCOMPARE(boxes.text, QString("Korvane"));
  QVERIFY(details.contains(f.session->format({"Window", "version"}, KORVANE_TEST_VERSION)));
  QVERIFY(details.contains(fromCore(f.project())));
}

void WindowRunTest::batchMode() {
  WindowFixture f;
  f.write("a.ipf", "#g_x=1\r\n");
  f.write("b.ipf", "insert,missing.\r\n");
  f.setPosition("Width", "9000");
  f.open(false);
  QCOMPARE(f.window->runBatch(f.path("a.ipf")), 0);
  QVERIFY(!f.window->isVisible());
  QCOMPARE(f.position("Width"), std::string("9000"));  // the layout written back as it was read
  f.open(false);
  QCOMPARE(f.window->runBatch(f.path("b.ipf")), 1);
}

void WindowRunTest::programExitStatuses() {
  WindowFixture f;
  f.write("a.ipf", "crea,a\r\n");
  f.write("b.ipf", "insert,missing.\r\n");
  auto run = [&](const QStringList& args, const QString& home) {
    QProcess p;
    QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
    env.insert("KORVANE_HOME", home);
    env.insert("QT_QPA_PLATFORM", "offscreen");
    p.setProcessEnvironment(env);
    p.setWorkingDirectory(fromCore(f.project()));
    p.start(KORVANE_BIN_DIR "/korvane-window", args);
    if (!p.waitForFinished(60000)) return -1;
    return p.exitCode();
  };
  const QString home = fromCore(f.home());
  QCOMPARE(run({"a.ipf"}, home), 0);
  QVERIFY(fs::fileExists(f.path("tmpinput.txt")));
  QCOMPARE(run({"b.ipf"}, home), 1);
  QCOMPARE(run({"a.ipf"}, fromCore(f.path("nohome"))), 2);
}

QTEST_MAIN(WindowRunTest)
#include "window_run_test.moc"
