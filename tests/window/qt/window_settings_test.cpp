// The window's layout and save modes through the settings file: restored at
// start (nonsense clamped onto the screen), written back at exit, and the
// save-mode panels with their pictures, tool tips and menu check marks.
#include "shell/window_settings.h"

#include <QGuiApplication>
#include <QScreen>
#include <QToolButton>
#include <QtTest>

#include "base/fs.h"
#include "support/window_fixture.h"
#include "window/text_edge.h"

namespace korvane::test {

using namespace window;

class WindowSettingsTest : public QObject {
  Q_OBJECT

 private slots:
  void layoutAndSaveModesRestoredAndWrittenBack();
  void nonsenseGeometryAndTheFolderPanel();
  void lastFileRestored();
};

// What a save-mode panel shows: its bevel, picture, button check mark, menu
// check mark and tool tip.
QString shown(MainWindow& w, const char* panel, const char* menu) {
  auto* b = child<QToolButton>(&w, panel);
  return QString("%1 %2%3%4 %5")
      .arg(w.statusPanels()->bevel(panel) == kBevelPressed ? "pressed" : "raised",
           b->property("picture").toString(), b->isChecked() ? " checked" : "",
           w.action(menu)->isChecked() ? " menu" : "", b->toolTip());
}

void WindowSettingsTest::layoutAndSaveModesRestoredAndWrittenBack() {
  WindowFixture f;
  f.setPositions({{"Top", "300"},
                  {"Left", "450"},
                  {"Width", "9000"},
                  {"Height", "6000"},
                  {"Dir", "True"},
                  {"dirWidth", "1800"},
                  {"inpWidth", "1500"},
                  {"subWidth", "1200"},
                  {"SaveSingleFile", "1"},
                  {"SaveSeparateFiles", "2"}});
  MainWindow& w = f.open();
  QCOMPARE(w.size(), QSize(9000, 6000) / kTwipsPerPixel);
  QCOMPARE(w.splitter()->sizes().mid(0, 3),
           QList<int>({1800 / kTwipsPerPixel, 1500 / kTwipsPerPixel, 1200 / kTwipsPerPixel}));
  QVERIFY(w.folderPanelShown());

  // A splitter moved to below the 750-twip minimum stops at it.
  QSplitterHandle* img2 = w.splitter()->findChild<QSplitterHandle*>("img2");
  QVERIFY(img2);
  const QPoint farLeft(-1500 / kTwipsPerPixel + 5, 10);
  QTest::mousePress(img2, Qt::LeftButton, {}, QPoint(2, 10));
  QTest::mouseMove(img2, farLeft);
  QTest::mouseRelease(img2, Qt::LeftButton, {}, farLeft);
  QVERIFY(w.splitter()->sizes()[1] >= kMinPaneTwips / kTwipsPerPixel);

  // The save modes: a click on the panel and the menu entry do the same;
  // twice is no change.
  const QString one = "Save the run in a single INP file",
                sep = "Save the run in separate INP files";
  QCOMPARE(shown(w, "saveone", "mnuSaveOne"), "pressed saveone checked menu " + one + " (on)");
  QCOMPARE(shown(w, "savesep", "mnuSaveSep"), "raised savesepbw " + sep);
  QTest::mouseClick(child<QToolButton>(&w, "savesep"), Qt::LeftButton);
  QCOMPARE(shown(w, "savesep", "mnuSaveSep"), "pressed savesep checked menu " + sep + " (on)");
  w.action("mnuSaveSep")->trigger();
  QCOMPARE(shown(w, "savesep", "mnuSaveSep"), "raised savesepbw " + sep);
  QTest::mouseClick(child<QToolButton>(&w, "saveone"), Qt::LeftButton);
  QCOMPARE(shown(w, "saveone", "mnuSaveOne"), "raised saveonebw " + one);
  w.action("mnuSaveOne")->trigger();
  w.action("mnuSaveSep")->trigger();  // both on together
  QCOMPARE(w.statusPanels()->bevel("saveone"), kBevelPressed);
  QCOMPARE(w.statusPanels()->bevel("savesep"), kBevelPressed);

  const int inps = f.list("inps")->width(), subs = f.list("subs")->width();
  f.close();
  QCOMPARE(f.position("SaveSingleFile"), std::string("1"));
  QCOMPARE(f.position("SaveSeparateFiles"), std::string("1"));
  QCOMPARE(f.position("Width"), std::string("9000"));
  QCOMPARE(f.position("Height"), std::string("6000"));
  QCOMPARE(f.position("inpWidth"), std::to_string(inps * kTwipsPerPixel));
  QCOMPARE(f.position("subWidth"), std::to_string(subs * kTwipsPerPixel));
  QCOMPARE(f.position("Dir"), std::string("True"));
  QCOMPARE(f.position("dirWidth"), std::string("1800"));
  QCOMPARE(f.position("LastFile"), fs::withTrailingSeparator(f.project()));
}

void WindowSettingsTest::nonsenseGeometryAndTheFolderPanel() {
  // Nonsense is kept on the screen; a folder panel narrower than the collapsed
  // width is left as it is, whatever "Dir" says.
  WindowFixture f;
  const QRect screen = QGuiApplication::primaryScreen()->geometry();
  f.setPositions({{"Top", "-200"},
                  {"Left", "abc"},
                  {"Width", std::to_string((screen.width() + 200) * kTwipsPerPixel)},
                  {"Height", "99999"},  // not a 16-bit number: the designed height
                  {"inpWidth", "-40"},
                  {"Dir", "False"},
                  {"dirWidth", "149"}});
  MainWindow& first = f.open();
  QCOMPARE(first.pos(), screen.topLeft());
  QVERIFY(screen.contains(QRect(first.pos(), first.size())));
  QVERIFY(first.splitter()->sizes()[1] >= kMinPaneTwips / kTwipsPerPixel);
  QVERIFY(first.folderPanelShown());
  QVERIFY(!first.action("mnuDir")->isChecked());
  // Shown but not wanted: hidden at start, and the remembered width is written at exit.
  f.close();
  f.setPositions({{"Dir", "False"}, {"dirWidth", "2400"}});
  MainWindow& w = f.open();
  QVERIFY(!w.folderPanelShown());
  QVERIFY(!w.folderPanel()->isVisible());
  QVERIFY(!w.action("mnuDir")->isChecked());
  f.close();
  QCOMPARE(f.position("Dir"), std::string("False"));
  QCOMPARE(f.position("dirWidth"), std::string("2400"));
  // The next start brings it back when asked for.
  f.setPosition("Dir", "True");
  MainWindow& again = f.open();
  QVERIFY(again.folderPanelShown());
  QCOMPARE(again.splitter()->sizes()[0], 2400 / kTwipsPerPixel);
}

void WindowSettingsTest::lastFileRestored() {
  WindowFixture f;
  f.write("inputs/a.ipf", "[one]\r\n");
  f.write("inputs/b.ipf", "[two]\r\n[three]\r\n");
  f.setPosition("LastFile", f.path("inputs/b.ipf"));
  MainWindow& w = f.open();
  QCOMPARE(w.fileListPath(), f.path("inputs"));
  QCOMPARE(f.list("inps")->currentItem()->text(), QString("b.ipf"));
  QCOMPARE(f.list("subs")->count(), 2);
  f.close();
  QCOMPARE(f.position("LastFile"), f.path("inputs/b.ipf"));

  // The file is gone: its folder opens; the folder is gone too: Home.
  std::filesystem::remove(fs::native(f.path("inputs/b.ipf")));
  MainWindow& second = f.open();
  QCOMPARE(second.fileListPath(), f.path("inputs"));
  QCOMPARE(second.selectedInput(), std::string("a.ipf"));
  f.close();
  f.setPosition("LastFile", fs::join(f.path("gone"), "x.ipf"));
  MainWindow& third = f.open();
  QCOMPARE(third.fileListPath(), f.path("inputs"));  // Home: the inputs folder
}

}  // namespace korvane::test

QTEST_MAIN(korvane::test::WindowSettingsTest)
#include "window_settings_test.moc"
