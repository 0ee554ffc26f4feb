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
  void layoutRestoredAndWrittenBack();
  void nonsenseGeometryIsKeptOnTheScreen();
  void folderPanelFromTheSettings();
  void saveModeToggles();
  void lastFileRestored();
};

void WindowSettingsTest::layoutRestoredAndWrittenBack() {
  WindowFixture f;
  f.setPositions({{"Top", "300"},
                  {"Left", "450"},
                  {"Width", "9000"},
                  {"Height", "6000"},
                  {"Dir", "True"},
                  {"dirWidth", "1800"},
                  {"inpWidth", "1500"},
                  {"subWidth", "1200"}});
  MainWindow& w = f.open();
  QCOMPARE(w.width(), 9000 / kTwipsPerPixel);
  QCOMPARE(w.height(), 6000 / kTwipsPerPixel);
  const QList<int> sizes = w.splitter()->sizes();
  QCOMPARE(sizes[0], 1800 / kTwipsPerPixel);
  QCOMPARE(sizes[1], 1500 / kTwipsPerPixel);
  QCOMPARE(sizes[2], 1200 / kTwipsPerPixel);
  QVERIFY(w.folderPanelShown());

  // A splitter moved to below the 750-twip minimum stops at it.
  QSplitterHandle* img2 = w.splitter()->findChild<QSplitterHandle*>("img2");
  QVERIFY(img2);
  const int pos = w.splitter()->sizes()[0] + w.splitter()->handleWidth();
  QTest::mousePress(img2, Qt::LeftButton, {}, QPoint(2, 10));
  QTest::mouseMove(img2, QPoint(-sizes[1] + 5, 10));
  QTest::mouseRelease(img2, Qt::LeftButton, {}, QPoint(-sizes[1] + 5, 10));
  QVERIFY(w.splitter()->sizes()[1] >= kMinPaneTwips / kTwipsPerPixel);
  QVERIFY(pos > 0);

  const int inps = child<QListWidget>(&w, "inps")->width();
  const int subs = child<QListWidget>(&w, "subs")->width();
  f.close();
  QCOMPARE(f.position("Width"), std::to_string(9000));
  QCOMPARE(f.position("Height"), std::to_string(6000));
  QCOMPARE(f.position("inpWidth"), std::to_string(inps * kTwipsPerPixel));
  QCOMPARE(f.position("subWidth"), std::to_string(subs * kTwipsPerPixel));
  QCOMPARE(f.position("Dir"), std::string("True"));
  QCOMPARE(f.position("dirWidth"), std::to_string(1800));
  QCOMPARE(f.position("LastFile"), fs::withTrailingSeparator(f.project()));
}

void WindowSettingsTest::nonsenseGeometryIsKeptOnTheScreen() {
  WindowFixture f;
  const QRect screen = QGuiApplication::primaryScreen()->geometry();
  f.setPositions({{"Top", "-200"},
                  {"Left", "abc"},
                  {"Width", std::to_string((screen.width() + 200) * kTwipsPerPixel)}});
  f.setPosition("Height", "99999");  // not a 16-bit number: the designed height
  f.setPosition("inpWidth", "-40");
  MainWindow& w = f.open();
  QCOMPARE(w.y(), screen.y());
  QCOMPARE(w.x(), screen.x());
  QVERIFY(w.width() <= screen.width());
  QVERIFY(w.height() <= screen.height());
  QVERIFY(w.x() + w.width() <= screen.x() + screen.width());
  QVERIFY(w.splitter()->sizes()[1] >= kMinPaneTwips / kTwipsPerPixel);
}

void WindowSettingsTest::folderPanelFromTheSettings() {
  {
    // Shown but not wanted: hidden at start, and the remembered width is written at exit.
    WindowFixture f;
    f.setPosition("Dir", "False");
    f.setPosition("dirWidth", "2400");
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
  {
    // Narrower than the collapsed width: left as it is, whatever "Dir" says.
    WindowFixture f;
    f.setPosition("Dir", "False");
    f.setPosition("dirWidth", "149");
    MainWindow& w = f.open();
    QVERIFY(w.folderPanelShown());
    QVERIFY(!w.action("mnuDir")->isChecked());
  }
}

void WindowSettingsTest::saveModeToggles() {
  WindowFixture f;
  f.setPosition("SaveSingleFile", "1");
  f.setPosition("SaveSeparateFiles", "2");
  MainWindow& w = f.open();
  StatusPanels* p = w.statusPanels();
  auto* one = child<QToolButton>(&w, "saveone");
  auto* sep = child<QToolButton>(&w, "savesep");
  const QString oneText = "Save the run in a single INP file";
  const QString sepText = "Save the run in separate INP files";

  QCOMPARE(p->bevel("saveone"), kBevelPressed);
  QCOMPARE(one->toolTip(), oneText + " (on)");
  QCOMPARE(one->property("picture").toString(), QString("saveone"));
  QVERIFY(w.action("mnuSaveOne")->isChecked());
  QCOMPARE(p->bevel("savesep"), kBevelRaised);
  QCOMPARE(sep->toolTip(), sepText);
  QCOMPARE(sep->property("picture").toString(), QString("savesepbw"));
  QVERIFY(!w.action("mnuSaveSep")->isChecked());

  // A click on the panel and the menu entry do the same; twice is no change.
  QTest::mouseClick(sep, Qt::LeftButton);
  QCOMPARE(p->bevel("savesep"), kBevelPressed);
  QCOMPARE(sep->toolTip(), sepText + " (on)");
  QCOMPARE(sep->property("picture").toString(), QString("savesep"));
  QVERIFY(w.action("mnuSaveSep")->isChecked());
  QVERIFY(sep->isChecked());
  w.action("mnuSaveSep")->trigger();
  QCOMPARE(p->bevel("savesep"), kBevelRaised);
  QVERIFY(!sep->isChecked());
  QTest::mouseClick(one, Qt::LeftButton);
  QCOMPARE(p->bevel("saveone"), kBevelRaised);
  QCOMPARE(one->property("picture").toString(), QString("saveonebw"));
  w.action("mnuSaveOne")->trigger();
  w.action("mnuSaveSep")->trigger();  // both on together
  QCOMPARE(p->bevel("saveone"), kBevelPressed);
  QCOMPARE(p->bevel("savesep"), kBevelPressed);

  f.close();
  QCOMPARE(f.position("SaveSingleFile"), std::string("1"));
  QCOMPARE(f.position("SaveSeparateFiles"), std::string("1"));
}

void WindowSettingsTest::lastFileRestored() {
  WindowFixture f;
  f.write("inputs/a.ipf", "[one]\r\n");
  f.write("inputs/b.ipf", "[two]\r\n[three]\r\n");
  f.setPosition("LastFile", f.path("inputs/b.ipf"));
  MainWindow& w = f.open();
  auto* inps = child<QListWidget>(&w, "inps");
  QCOMPARE(w.fileListPath(), f.path("inputs"));
  QCOMPARE(inps->currentItem()->text(), QString("b.ipf"));
  QCOMPARE(child<QListWidget>(&w, "subs")->count(), 2);
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
