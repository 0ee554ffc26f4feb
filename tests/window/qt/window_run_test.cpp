// Run from the window: entries worked through on a thread of their own with
// the running entry selected, the stop message box, `input` as a modal box,
// Stop/Esc, batch mode, and the variables viewer after the run.
#include <QFontDatabase>
#include <QInputDialog>
#include <QPlainTextEdit>
#include <QProcess>
#include <QtTest>
#include <filesystem>

#include "base/fs.h"
#include "shell/window_settings.h"
#include "support/window_fixture.h"
#include "window/longsection_panel.h"
#include "window/text_edge.h"

namespace korvane::test {

using namespace window;

class WindowRunTest : public QObject {
  Q_OBJECT

 private slots:
  void aStopInTheSecondOfThreeEntries();
  void inputHelpLongDrawAndAbout();
  void stopInterruptsALongRun();
  void variablesViewer();
  void batchModeAndTheProgramsExitStatuses();
};

void WindowRunTest::aStopInTheSecondOfThreeEntries() {
  WindowFixture f;
  f.write("a.ipf", "#g_first=a\r\ncrea,a\r\n");
  f.write("b.ipf", "#g_second=b|g_first|\r\ninsert,missing.\r\n#g_after=x\r\n");
  f.write("c.ipf", "#g_third=c\r\ncrea,c\r\n");
  f.write("good.ipf", "#g_ok=1\r\n");
  f.setPosition("SaveSeparateFiles", "1");
  MainWindow& w = f.open();
  f.queue({"a.ipf", "b.ipf", "c.ipf"});

  BoxCatcher boxes;
  QList<int> selectedWhenBoxShown;
  QString statusWhenBoxShown;
  boxes.onBox = [&](QWidget*) {
    selectedWhenBoxShown = selectedRows(f.list("ToRun"));
    statusWhenBoxShown = f.label("stat")->text();
  };
  w.action("mnuRun")->trigger();
  QVERIFY(w.running());
  QVERIFY(!w.action("mnuRun")->isEnabled());
  QVERIFY(w.action("mnuStop")->isEnabled());
  QTRY_VERIFY_WITH_TIMEOUT(!w.running() && boxes.boxes == 1, 20000);

  QCOMPARE(boxes.title, QString("Korvane - run stopped"));
  QCOMPARE(boxes.text, QString("File not found: missing.ipm (not in the input's folder, the "
                               "project folder or the macro folders)"));
  QCOMPARE(selectedWhenBoxShown, QList<int>({0, 1}));  // what ran, the failing one last
  QVERIFY(statusWhenBoxShown != "Ready");
  QCOMPARE(f.label("stat")->text(), QString("Ready"));
  QCOMPARE(f.list("ToRun")->count(), 3);  // the list stays as it was
  QVERIFY(w.action("mnuRun")->isEnabled());
  QVERIFY(!w.action("mnuStop")->isEnabled());

  // The first two ran, with the save mode of the settings; the third did not.
  QVERIFY(fs::fileExists(f.path("compiled_b.inp")));
  QVERIFY(f.variables().contains("g_second=ba"));
  QVERIFY(!f.variables().join(" ").contains("g_third"));
  QVERIFY(!f.variables().join(" ").contains("g_after"));
  // The run saved the settings first.
  QCOMPARE(f.position("SaveSeparateFiles"), std::string("1"));

  // The next run has no box of its own, and selects what it ran.
  f.list("ToRun")->clear();
  f.queue({"good.ipf"});
  QVERIFY(f.runToEnd());
  QCOMPARE(boxes.boxes, 1);
  QVERIFY(f.variables().contains("g_ok=1"));
  QCOMPARE(selectedRows(f.list("ToRun")), QList<int>({0}));

  // An empty list: nothing runs, no settings are written.
  f.list("ToRun")->clear();
  f.setPosition("Top", "marker");
  w.run();
  QVERIFY(!w.running());
  QCOMPARE(f.position("Top"), std::string("marker"));
}

void WindowRunTest::inputHelpLongDrawAndAbout() {
  WindowFixture f("Hungarian");
  f.write("ask.ipf", "let,w=input(Width?),\r\nlet,h=input(Height?),\r\n");
  MainWindow& w = f.open();
  f.queue({"ask.ipf"});
  BoxCatcher boxes;
  boxes.answer = QString::fromUtf8("12,5 árok");
  QStringList prompts;
  QString details;
  boxes.onBox = [&](QWidget* box) {
    if (auto* input = qobject_cast<QInputDialog*>(box)) prompts << input->labelText();
    if (auto* m = qobject_cast<QMessageBox*>(box)) details = m->informativeText();
  };
  // input() is a modal box.
  QVERIFY(f.runToEnd());
  QCOMPARE(boxes.boxes, 2);
  QCOMPARE(boxes.title, QString("Korvane"));
  QVERIFY(prompts.value(0).startsWith(QString::fromUtf8("Add meg a kért értéket:")));
  QVERIFY(prompts.value(0).endsWith("Width?"));
  QVERIFY(!prompts.value(0).contains('\r'));
  // The answer reaches the core in its code page and comes back unchanged.
  QVERIFY2(f.variables().contains(QString::fromUtf8("w=12,5 árok")),
           qPrintable(f.variables().join("|")));
  QVERIFY(f.variables().contains(QString::fromUtf8("h=12,5 árok")));

  // No help file beside the settings: the box says which file is missing.
  w.action("mnuCHM")->trigger();
  QCOMPARE(boxes.boxes, 3);
  QCOMPARE(boxes.text, QString::fromUtf8("Nem található a súgófájl: ") +
                           fromCore(fs::join(f.home(), "KorvaneHU.chm")));
  // LongDraw opens the long-section panel, once however often it is asked for.
  w.action("mnuLongDraw")->trigger();
  LongsectionPanel* panel = w.longsectionPanel();
  QVERIFY(panel && panel->isVisible());
  QVERIFY(panel->windowTitle().startsWith(QString::fromUtf8("Hossz-szelvény")));
  w.action("mnuLongDraw")->trigger();
  QCOMPARE(w.longsectionPanel(), panel);
  QCOMPARE(boxes.boxes, 3);
  w.action("mnuAbout")->trigger();
  QCOMPARE(boxes.boxes, 4);
  QCOMPARE(boxes.title, QString::fromUtf8("Névjegy"));
  QCOMPARE(boxes.text, QString("Korvane"));
  QVERIFY(details.contains(QString::fromUtf8("Változat: ") + KORVANE_TEST_VERSION));
  QVERIFY(details.contains(fromCore(f.project())));
}

void WindowRunTest::stopInterruptsALongRun() {
  WindowFixture f;
  f.write("loop.ipm", "repeat\r\n#g_n=|count|\r\nendrepeat\r\n");
  f.write("long.ipf", "insert,loop\r\nrepeat=2000000\r\n");  // compiles for a long time
  f.write("after.ipf", "#g_after=1\r\n");
  MainWindow& w = f.open();
  f.queue({"long.ipf", "after.ipf"});
  BoxCatcher boxes;
  w.run();
  QTRY_COMPARE(f.label("stat")->text(), QString("Compiling..."));
  QVERIFY(w.running());
  // The window answers while the run goes on.
  w.action("mnuSaveOne")->trigger();
  QCOMPARE(w.statusPanels()->bevel("saveone"), kBevelPressed);
  QTest::keyClick(&w, Qt::Key_Escape);
  QTRY_VERIFY_WITH_TIMEOUT(!w.running(), 20000);
  QCOMPARE(boxes.boxes, 1);
  QVERIFY(boxes.text.contains("The run was interrupted"));
  QVERIFY(!f.variables().contains("g_after=1"));

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
  f.write("v.ipf", "#a=\"x=1\"\r\n#b=|left(abc,x)|\r\n#g_c=3\r\ncrea,|g_cx|\r\n");
  MainWindow& w = f.open();
  f.queue({"v.ipf"});
  QVERIFY(f.runToEnd());
  w.action("mnuLists")->trigger();
  VariablesViewer* v = w.viewer();
  QVERIFY(QTest::qWaitForWindowExposed(v));
  QCOMPARE(v->windowTitle(), QString("Variables"));
  QCOMPARE(v->tabs()->tabText(0), QString("Variables"));
  QCOMPARE(v->tabs()->tabToolTip(0), QString("Variables left by the last run, with their values"));
  QCOMPARE(v->tabs()->tabText(1), QString("Log"));
  QCOMPARE(v->tabs()->tabToolTip(1), QString("Text collected during the last run"));
  const QStringList vars = f.variables();
  QVERIFY2(vars.contains("a=x=1"), qPrintable(vars.join("|")));  // "=" in a value unchanged
  QVERIFY(vars.contains("g_c=3"));
  for (const QString& item : vars) QVERIFY(!item.startsWith("zTMP"));
  // The platform's fixed font, whatever fonts this machine has installed.
  const QFont fixed = QFontDatabase::systemFont(QFontDatabase::FixedFont);
  QCOMPARE(v->variables()->font(), fixed);
  QCOMPARE(v->logText()->font(), fixed);
  // The second page: the trapped string-function failure.
  const QString log = v->logText()->toPlainText();
  QVERIFY2(log.contains("left: the arguments are wrong (it takes 2), the result is empty"),
           qPrintable(log));
  QVERIFY(log.contains(fromCore(f.path("v.ipf"))));
  // A likely mistake, as the command line tells it.
  QVERIFY2(log.contains(fromCore(f.path("v.ipf")) + ", line 4, column 7: g_cx has no value yet: it "
                                                    "stands for its own name. Did you mean g_c?"),
           qPrintable(log));
  v->tabs()->setCurrentIndex(1);
  QVERIFY(v->logText()->isVisible());
  QVERIFY(!v->variables()->isVisible());

  // Never smaller than 3000 by 3000 twips.
  v->resize(50, 50);
  QCOMPARE(v->width(), kViewerMinTwips / kTwipsPerPixel);
  QCOMPARE(v->height(), kViewerMinTwips / kTwipsPerPixel);
}

void WindowRunTest::batchModeAndTheProgramsExitStatuses() {
  WindowFixture f;
  f.write("a.ipf", "#g_x=1\r\ncrea,a\r\n");
  f.write("b.ipf", "insert,missing.\r\n");
  f.setPosition("Width", "9000");
  f.open(false);
  QCOMPARE(f.window->runBatch(f.path("a.ipf")), 0);
  QVERIFY(!f.window->isVisible());
  QCOMPARE(f.position("Width"), std::string("9000"));  // the layout written back as it was read
  f.open(false);
  QCOMPARE(f.window->runBatch(f.path("b.ipf")), 1);

  // korvane-window ENTRY: the same, as a program (the session here closed first).
  f.window.reset();
  f.session.reset();
  auto run = [&](const QString& entry, const std::string& home) {
    QProcess p;
    QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
    env.insert("KORVANE_HOME", fromCore(home));
    env.insert("QT_QPA_PLATFORM", "offscreen");
    p.setProcessEnvironment(env);
    p.setWorkingDirectory(fromCore(f.project()));
    p.start(KORVANE_BIN_DIR "/korvane-window", {entry});
    return p.waitForFinished(60000) ? p.exitCode() : -1;
  };
  std::filesystem::remove(fs::native(f.path("tmpinput.txt")));
  QCOMPARE(run("a.ipf", f.home()), 0);
  QVERIFY(fs::fileExists(f.path("tmpinput.txt")));
  QCOMPARE(run("b.ipf", f.home()), 1);
  QCOMPARE(run("a.ipf", f.path("nohome")), 2);
}

}  // namespace korvane::test

QTEST_MAIN(korvane::test::WindowRunTest)
#include "window_run_test.moc"
