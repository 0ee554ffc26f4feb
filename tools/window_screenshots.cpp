// window_screenshots OUTDIR: pictures of the window for the README, taken on a
// real X server (tools/window_screenshots.sh runs it under Xvfb): the main
// window in Hungarian and in English, a run under way, the stop message box
// and the variables viewer. QT_SCALE_FACTOR=2 gives the 200 % pictures.
#include <QApplication>
#include <QDir>
#include <QScreen>
#include <QtTest>

#include "base/fs.h"
#include "longsection/panel_file.h"
#include "support/window_fixture.h"
#include "window/longsection_panel.h"
#include "window/text_edge.h"

using namespace korvane;
using namespace korvane::window;
using namespace korvane::test;

namespace {

QString g_out;
QString g_suffix;

void settle(int ms = 300) {
  QTest::qWait(ms);
  QApplication::processEvents();
}

// The screen around `w` (and whatever box stands over it).
void shoot(QWidget* w, const QString& name) {
  settle();
  const QRect r = w->frameGeometry().adjusted(-4, -4, 4, 4);
  QPixmap p = w->screen()->grabWindow(0, r.x(), r.y(), r.width(), r.height());
  const QString file = g_out + "/" + name + g_suffix + ".png";
  if (!p.save(file)) qFatal("cannot write %s", qPrintable(file));
  qInfo("%s", qPrintable(file));
}

void copyExample(const WindowFixture& f) {
  f.copyExample();
  f.write("inputs/ditches.ipf",
          "[left]\r\ninsert,ditch_profile\r\n[right]\r\ninsert,ditch_profile\r\n");
  f.write("inputs/labels.ipf", "#g_first=|left(GR03,x)|\r\n#g_side=|right(GR03,1)|\r\n");
  f.write("inputs/long.ipf", "insert,loop\r\nrepeat=3000000\r\n");
  f.write("inputs/loop.ipm", "repeat\r\n#g_n=|count|\r\nendrepeat\r\n");
  f.korvane({"models", "import", "survey/ground.genio", "GROUND"});
}

MainWindow& openOn(WindowFixture& f) {
  f.setPositions({{"Top", "1200"},
                  {"Left", "1200"},
                  {"Width", "13500"},
                  {"Height", "6300"},
                  {"Dir", "True"},
                  {"dirWidth", "2700"},
                  {"inpWidth", "2100"},
                  {"subWidth", "1800"},
                  {"SaveSingleFile", "1"},
                  {"LastFile", f.path("inputs/road.ipf")}});
  MainWindow& w = f.open();
  auto* toRun = child<QListWidget>(&w, "ToRun");
  for (const char* e : {"road.ipf [main]", "road.ipf [trim]", "ditches.ipf [left]"})
    toRun->addItem(fromCore(fs::join(f.path("inputs"), e)));
  return w;
}

void mainWindows() {
  for (const char* lang : {"Hungarian", "English"}) {
    WindowFixture f(lang, "embedded");
    copyExample(f);
    MainWindow& w = openOn(f);
    child<QListWidget>(&w, "subs")->setCurrentRow(0);
    shoot(&w, QString("main-") + (QString(lang) == "Hungarian" ? "hu" : "en"));
  }
}

void runAndStop() {
  WindowFixture f("Hungarian", "embedded");
  copyExample(f);
  MainWindow& w = openOn(f);
  auto* toRun = child<QListWidget>(&w, "ToRun");
  toRun->insertItem(1, fromCore(f.path("inputs/long.ipf")));
  bool shotBox = false;
  BoxCatcher boxes;
  boxes.onBox = [&](QWidget*) {
    if (shotBox) return;
    shotBox = true;  // before the picture: taking it runs the event loop
    shoot(&w, "stop-box");
  };
  w.run();
  QTest::qWait(900);
  shoot(&w, "running");
  QTRY_VERIFY_WITH_TIMEOUT(!w.running(), 120000);

  // The variables viewer after the example's main section.
  toRun->clear();
  toRun->addItem(fromCore(f.path("inputs/road.ipf")) + " [main]");
  toRun->addItem(fromCore(f.path("inputs/road.ipf")) + " [trim]");
  toRun->addItem(fromCore(f.path("inputs/labels.ipf")));
  w.run();
  QTRY_VERIFY_WITH_TIMEOUT(!w.running(), 120000);
  w.showLists();
  VariablesViewer* v = w.viewer();
  v->move(w.x() + 120, w.y() + 60);
  v->resize(520, 300);
  shoot(v, "variables");
  v->tabs()->setCurrentIndex(1);
  shoot(v, "variables-log");
}

// The long-section panel on the example's long-section strings, after
// Preview, and the preview alone, larger.
void longsectionPanel() {
  WindowFixture f("Hungarian", "embedded");
  copyExample(f);
  f.korvane({"run", "inputs/road.ipf [main]", "inputs/profile_strings.ipf"});
  MainWindow& w = openOn(f);
  w.action("mnuLongDraw")->trigger();
  LongsectionPanel* panel = w.longsectionPanel();
  const std::string example = f.path("road_ls.ipd");
  longsection::Parameters p = longsection::readPanelFile(example);
  panel->setParameters(p);
  panel->openSet(example);
  // Its whole form shows on a screen of 1600 by 1050 (the script's 1280 by 800
  // shows the upper part).
  panel->move(10, 10);
  panel->resize(1560, 1000);
  panel->preview();
  shoot(panel, "longsection-panel");
  LongsectionPreview* preview = panel->previewWidget();
  preview->setParent(nullptr);
  panel->hide();  // nothing of the windows behind it in the picture
  w.hide();
  preview->move(60, 60);
  preview->resize(1200, 520);
  preview->show();
  shoot(preview, "longsection-preview");
}

}  // namespace

int main(int argc, char** argv) {
  QApplication app(argc, argv);
  if (argc < 2) qFatal("usage: window_screenshots OUTDIR");
  g_out = QDir(argv[1]).absolutePath();
  const qreal scale = qEnvironmentVariable("QT_SCALE_FACTOR", "1").toDouble();
  if (scale > 1.5) g_suffix = "@2x";
  QDir().mkpath(g_out);
  mainWindows();
  runAndStop();
  longsectionPanel();
  return 0;
}
