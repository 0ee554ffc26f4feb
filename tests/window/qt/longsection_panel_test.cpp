// The long-section panel driven through its widgets on the example project:
// the strings offered from the model, the messages a bad set gets before
// anything is written, Generate onto the to-run list, the preview, and the
// panel file reopened with the next session.
#include "window/longsection_panel.h"

#include <QLabel>
#include <QProcess>
#include <QPushButton>
#include <QtTest>
#include <filesystem>

#include "base/fs.h"
#include "longsection/panel_file.h"
#include "support/window_fixture.h"
#include "window/text_edge.h"

using namespace korvane;
using namespace korvane::window;
using namespace korvane::window::test;

namespace {

// The example project with its design and long-section strings built.
void exampleWithStrings(const WindowFixture& f) {
  namespace stdfs = std::filesystem;
  stdfs::copy(stdfs::path(KORVANE_SOURCE_DIR) / "examples" / "road", fs::native(f.project()),
              stdfs::copy_options::recursive);
  QProcess run;
  run.setWorkingDirectory(fromCore(f.project()));
  run.start(KORVANE_BIN_DIR "/korvane",
            {"run", "inputs/road.ipf [main]", "inputs/profile_strings.ipf", "--home",
             fromCore(f.home())});
  QVERIFY(run.waitForFinished(60000));
  QCOMPARE(run.exitCode(), 0);
}

QStringList items(QComboBox* c) {
  QStringList out;
  for (int i = 0; i < c->count(); ++i) out << c->itemText(i);
  return out;
}

void press(QWidget* panel, const char* name) {
  auto* b = child<QPushButton>(panel, name);
  QVERIFY(b);
  b->click();
}

}  // namespace

class LongsectionPanelTest : public QObject {
  Q_OBJECT
 private slots:
  void fromModelToPreview();
};

void LongsectionPanelTest::fromModelToPreview() {
  WindowFixture f("English", "embedded");
  exampleWithStrings(f);
  longsection::Parameters saved;
  saved.referenceModel = "DESIGN M1";
  saved.masterString = "MAST";
  saved.groundString = "LGND";
  saved.designString = "LDES";
  QVERIFY(longsection::writePanelFile(f.path("road_ls.ipd"), saved));

  MainWindow& w = f.open();
  w.action("mnuLongDraw")->trigger();
  LongsectionPanel* panel = w.longsectionPanel();
  QVERIFY(panel);
  QCOMPARE(child<QListWidget>(panel, "panelFiles")->count(), 1);
  QVERIFY(panel->panelFile().empty());  // nothing opened before: a new set
  QVERIFY(panel->openSet(f.path("road_ls.ipd")));

  // The string choices come from the model.
  auto* ground = child<QComboBox>(panel, "ground");
  QVERIFY(items(ground).contains("LGND"));
  QVERIFY(items(ground).contains("LDES"));
  QVERIFY(items(ground).contains("MAST"));

  // A bad set: its messages, and nothing written or queued.
  child<QLineEdit>(panel, "vscale")->setText("0");
  child<QLineEdit>(panel, "startChainage")->setText("1100");
  child<QLineEdit>(panel, "endChainage")->setText("1000");
  press(panel, "ls_generate");
  const Messages& texts = f.session->ctx.messages;
  QVERIFY(panel->problems().contains(fromCore(texts.text({"Longsection", "scale"}))));
  QVERIFY(
      panel->problems().contains(fromCore(texts.format({"Longsection", "range"}, "1100", "1000"))));
  QVERIFY(!fs::fileExists(f.path("road_ls.ipf")));
  auto* toRun = child<QListWidget>(&w, "ToRun");
  QCOMPARE(toRun->count(), 0);

  // Put right: Generate writes the input and puts it on the to-run list.
  child<QLineEdit>(panel, "vscale")->setText("100");
  child<QLineEdit>(panel, "startChainage")->clear();
  child<QLineEdit>(panel, "endChainage")->clear();
  child<QLineEdit>(panel, "hscale")->setText("500");
  press(panel, "ls_generate");
  QVERIFY2(panel->problems().isEmpty(), qPrintable(panel->problems()));
  QCOMPARE(toRun->count(), 1);
  QCOMPARE(toRun->item(0)->text(), fromCore(f.path("road_ls.ipf")));
  QVERIFY(fs::fileExists(f.path("road_ls.dpf")));
  QCOMPARE(longsection::readPanelFile(f.path("road_ls.ipd")).horizontalScale, 500.0);

  // The preview draws the set without AutoCAD.
  press(panel, "ls_preview");
  QVERIFY2(panel->problems().isEmpty(), qPrintable(panel->problems()));
  QVERIFY(panel->previewWidget()->hasPicture());
  QVERIFY(fs::fileExists(f.path("road_ls.svg")));

  // The next session's panel opens the same file again.
  f.close();
  MainWindow& again = f.open();
  again.action("mnuLongDraw")->trigger();
  QCOMPARE(again.longsectionPanel()->panelFile(), f.path("road_ls.ipd"));
  QCOMPARE(child<QLineEdit>(again.longsectionPanel(), "hscale")->text(), QString("500"));
}

QTEST_MAIN(LongsectionPanelTest)
#include "longsection_panel_test.moc"
