#include "window/main_window.h"

#include <QEvent>
#include <QHBoxLayout>
#include <QMenuBar>
#include <QToolBar>
#include <QVBoxLayout>

#include "base/texts/caption_texts.h"
#include "base/texts/menu_texts.h"
#include "base/texts/status_bar_texts.h"
#include "base/texts/toolbar_texts.h"
#include "shell/window_settings.h"
#include "window/pictures.h"
#include "window/text_edge.h"

namespace korvane::window {
namespace {

constexpr int kMinPanePixels = kMinPaneTwips / kTwipsPerPixel;
constexpr int kGapPixels = 100 / kTwipsPerPixel + 1;  // the 100-twip gap between panes

// Menu captions carry no access keys: a "&" in a text is shown as it stands.
QString caption(const QString& text) {
  QString t = text;
  return t.replace("&", "&&");
}

QWidget* labelledPane(QLabel* label, QListWidget* list, QWidget* parent) {
  auto* pane = new QWidget(parent);
  auto* v = new QVBoxLayout(pane);
  v->setContentsMargins(0, 0, 0, 0);
  v->addWidget(label);
  v->addWidget(list, 1);
  label->setBuddy(list);
  list->setMinimumWidth(kMinPanePixels);
  return pane;
}

}  // namespace

MainWindow::MainWindow(WindowSession& session, bool batch) : session_(session), batch_(batch) {
  setObjectName("frmMain");
  setWindowTitle("Korvane");
  setWindowIcon(picture("korvane"));
  runner_ = new RunController(session_, this);
  buildActions();
  buildMenus();
  buildPanes();
  panels_ = new StatusPanels(statusBar(), session_, action("mnuSaveOne"), action("mnuSaveSep"));
  viewer_ = new VariablesViewer(session_, this);
  labelControls();

  connect(runner_, &RunController::entryShown, this, &MainWindow::onEntryShown);
  connect(runner_, &RunController::entryDone, this, [this](int, bool ok) {
    if (!ok) holdStatus_ = true;
  });
  connect(runner_, &RunController::statusText, this, [this](const QString& t) {
    if (!holdStatus_) panels_->setState(t);
  });
  connect(runner_, &RunController::finished, this, &MainWindow::onRunFinished);
  slide_.setInterval(12);
  connect(&slide_, &QTimer::timeout, this, &MainWindow::slideStep);

  restoreLastFile();
  restoreLayout();
  setRunning(false);
}

MainWindow::~MainWindow() {
  delete runner_;  // ends a run that is still going before the widgets go
  runner_ = nullptr;
}

void MainWindow::buildActions() {
  struct Def {
    const char* name;
    const char* picture;  // tool-bar and menu picture, or null
    void (MainWindow::*command)();
  };
  const Def defs[] = {
      {"mnuEdit", nullptr, &MainWindow::editInput},
      {"mnuSelect", nullptr, &MainWindow::pick},
      {"mnuSelectAll", nullptr, &MainWindow::pickAll},
      {"mnuRun", "run", &MainWindow::run},
      {"mnuStop", "stop", &MainWindow::stopRun},
      {"mnuDelete", nullptr, &MainWindow::deleteSelected},
      {"mnuDeleteAll", nullptr, &MainWindow::deleteAll},
      {"mnuSaveOne", nullptr, nullptr},
      {"mnuSaveSep", nullptr, nullptr},
      {"mnuExit", nullptr, nullptr},
      {"mnuRefresh", "refresh", &MainWindow::refresh},
      {"mnuDir", "dir", &MainWindow::toggleFolderPanel},
      {"mnuLists", "lists", &MainWindow::showLists},
      {"mnuHome", "home", &MainWindow::home},
      {"mnuLongDraw", nullptr, &MainWindow::showLongDraw},
      {"mnuCHM", "help", &MainWindow::showHelp},
      {"mnuAbout", nullptr, &MainWindow::showAbout},
      {"mnuInpsEdit", nullptr, &MainWindow::editInput},
      {"mnuToRunDel", nullptr, &MainWindow::deleteSelected},
      {"mnuToRunDelAll", nullptr, &MainWindow::deleteAll},
      {"mnuToRunCopy", nullptr, &MainWindow::copyAll},
  };
  for (const Def& d : defs) {
    auto* a = new QAction(this);
    a->setObjectName(d.name);
    if (d.picture) a->setIcon(picture(d.picture));
    if (d.command) connect(a, &QAction::triggered, this, d.command);
    actions_.insert(d.name, a);
  }
  for (const char* key : {"saveone", "savesep"}) {
    QAction* a = action(QString(key) == "saveone" ? "mnuSaveOne" : "mnuSaveSep");
    a->setCheckable(true);
    connect(a, &QAction::triggered, this, [this, key] { panels_->toggle(key); });
  }
  action("mnuDir")->setCheckable(true);
  action("mnuStop")->setShortcut(Qt::Key_Escape);
  connect(action("mnuExit"), &QAction::triggered, this, &QWidget::close);
}

void MainWindow::buildMenus() {
  auto menu = [this](const char* name, std::initializer_list<const char*> entries) {
    QMenu* m = menuBar()->addMenu(QString());
    m->setObjectName(name);
    for (const char* e : entries) {
      if (*e)
        m->addAction(action(e));
      else
        m->addSeparator();
    }
    return m;
  };
  fileMenu_ =
      menu("mnuFile", {"mnuEdit", "mnuSelect", "mnuSelectAll", "", "mnuRun", "mnuStop", "",
                       "mnuDelete", "mnuDeleteAll", "", "mnuSaveOne", "mnuSaveSep", "", "mnuExit"});
  connect(fileMenu_, &QMenu::aboutToShow, this, &MainWindow::updateFileMenu);
  menu("mnuTools", {"mnuRefresh", "mnuDir", "mnuLists", "mnuHome"});
  menu("mnuLong", {"mnuLongDraw"});
  menu("mnuHelp", {"mnuCHM", "mnuAbout"});

  inpsPopup_ = new QMenu(this);
  inpsPopup_->setObjectName("mnuInps");
  inpsPopup_->addAction(action("mnuInpsEdit"));
  toRunPopup_ = new QMenu(this);
  toRunPopup_->setObjectName("mnuToRun");
  for (const char* e : {"mnuToRunDel", "mnuToRunDelAll", "mnuToRunCopy"})
    toRunPopup_->addAction(action(e));

  QToolBar* bar = addToolBar(QString());
  bar->setObjectName("Toolbar1");
  bar->setMovable(false);
  bar->setIconSize(QSize(24, 24));
  bar->setToolButtonStyle(Qt::ToolButtonIconOnly);
  for (const char* e :
       {"mnuRun", "mnuStop", "", "mnuRefresh", "mnuDir", "mnuHome", "", "mnuLists", "mnuCHM"}) {
    if (*e)
      bar->addAction(action(e));
    else
      bar->addSeparator();
  }
}

void MainWindow::buildPanes() {
  splitter_ = new QSplitter(Qt::Horizontal, this);
  splitter_->setObjectName("panes");
  splitter_->setChildrenCollapsible(false);
  splitter_->setHandleWidth(kGapPixels);

  folderPanel_ = new FolderPanel(splitter_);
  folderPanel_->setMinimumWidth(kMinPanePixels);
  connect(folderPanel_, &FolderPanel::folderChanged, this, &MainWindow::onFolderChanged);

  inps_ = new QListWidget;
  inps_->setObjectName("inps");
  inps_->setContextMenuPolicy(Qt::CustomContextMenu);
  inpsLabel_ = new QLabel;
  subs_ = new QListWidget;
  subs_->setObjectName("subs");
  subsLabel_ = new QLabel;
  subsLabel_->setObjectName("subsLabel");
  toRun_ = new QListWidget;
  toRun_->setObjectName("ToRun");
  toRun_->setSelectionMode(QAbstractItemView::ExtendedSelection);
  toRun_->setContextMenuPolicy(Qt::CustomContextMenu);
  toRunLabel_ = new QLabel;

  splitter_->addWidget(folderPanel_);
  splitter_->addWidget(labelledPane(inpsLabel_, inps_, splitter_));
  splitter_->addWidget(labelledPane(subsLabel_, subs_, splitter_));

  // The run pane: the Pick buttons, the to-run list, the move buttons.
  auto* runPane = new QWidget(splitter_);
  auto* row = new QHBoxLayout(runPane);
  row->setContentsMargins(0, 0, 0, 0);
  auto* pickColumn = new QVBoxLayout;
  auto* moveColumn = new QVBoxLayout;
  auto button = [runPane](const char* name, const char* pictureKey) {
    auto* b = new QPushButton(runPane);
    b->setObjectName(name);
    if (pictureKey) b->setIcon(picture(pictureKey));
    b->setIconSize(QSize(16, 16));
    return b;
  };
  pick_ = button("cmdPick", "pick");
  pickAll_ = button("cmdPickAll", "pickall");
  up_ = button("cmdUp", "up");
  down_ = button("cmdDown", "down");
  const int labelSpace = toRunLabel_->sizeHint().height() + 6;
  pickColumn->addSpacing(labelSpace);
  pickColumn->addWidget(pick_);
  pickColumn->addWidget(pickAll_);
  pickColumn->addStretch(1);
  moveColumn->addSpacing(labelSpace);
  moveColumn->addWidget(up_);
  moveColumn->addWidget(down_);
  moveColumn->addStretch(1);
  auto* listColumn = new QVBoxLayout;
  listColumn->addWidget(toRunLabel_);
  listColumn->addWidget(toRun_, 1);
  toRunLabel_->setBuddy(toRun_);
  toRun_->setMinimumWidth(kMinPanePixels);
  row->addLayout(pickColumn);
  row->addLayout(listColumn, 1);
  row->addLayout(moveColumn);
  splitter_->addWidget(runPane);
  for (int i = 0; i < 3; ++i) splitter_->setStretchFactor(i, 0);
  splitter_->setStretchFactor(3, 1);
  for (int i = 1; i <= 3; ++i) {
    splitter_->handle(i)->setObjectName(QString("img%1").arg(i));
    splitter_->handle(i)->installEventFilter(this);
  }
  connect(splitter_, &QSplitter::splitterMoved, this,
          [this](int, int index) { onSplitterMoved(index); });

  auto* central = new QWidget(this);
  auto* v = new QVBoxLayout(central);
  v->setContentsMargins(6, 4, 6, 2);
  v->addWidget(splitter_);
  setCentralWidget(central);

  connect(inps_, &QListWidget::itemSelectionChanged, this, &MainWindow::loadSections);
  connect(inps_, &QListWidget::itemDoubleClicked, this, &MainWindow::pick);
  connect(subs_, &QListWidget::itemDoubleClicked, this, &MainWindow::pick);
  connect(pick_, &QPushButton::clicked, this, &MainWindow::pick);
  connect(pickAll_, &QPushButton::clicked, this, &MainWindow::pickAll);
  connect(up_, &QPushButton::clicked, this, &MainWindow::moveUp);
  connect(down_, &QPushButton::clicked, this, &MainWindow::moveDown);
  connect(toRun_, &QListWidget::itemSelectionChanged, this, [this] { setRunning(running()); });
  connect(inps_, &QWidget::customContextMenuRequested, this, [this](const QPoint& at) {
    updateInpsPopup();
    inpsPopup_->popup(inps_->viewport()->mapToGlobal(at));
  });
  connect(toRun_, &QWidget::customContextMenuRequested, this,
          [this](const QPoint& at) { toRunPopup_->popup(toRun_->viewport()->mapToGlobal(at)); });
}

void MainWindow::labelControls() {
  const std::pair<const char*, MessageKey> menus[] = {
      {"mnuFile", texts::menu::kFile},
      {"mnuTools", texts::menu::kTools},
      {"mnuLong", texts::menu::kLongsection},
      {"mnuHelp", texts::menu::kHelp},
  };
  for (const auto& [name, key] : menus)
    findChild<QMenu*>(name)->setTitle(caption(session_.text(key)));
  const std::pair<const char*, MessageKey> entries[] = {
      {"mnuEdit", texts::menu::kEdit},
      {"mnuSelect", texts::menu::kSelect},
      {"mnuSelectAll", texts::menu::kSelectAll},
      {"mnuRun", texts::menu::kRun},
      {"mnuStop", texts::menu::kStop},
      {"mnuDelete", texts::menu::kDelete},
      {"mnuDeleteAll", texts::menu::kDeleteAll},
      {"mnuExit", texts::menu::kExit},
      {"mnuRefresh", texts::menu::kRefresh},
      {"mnuDir", texts::menu::kFolderPanel},
      {"mnuLists", texts::menu::kVariables},
      {"mnuHome", texts::menu::kHome},
      {"mnuLongDraw", texts::menu::kLongsectionDraw},
      {"mnuCHM", texts::menu::kHelpContents},
      {"mnuAbout", texts::menu::kAbout},
      {"mnuInpsEdit", texts::menu::kEditInput},
      {"mnuToRunDel", texts::menu::kToRunDelete},
      {"mnuToRunDelAll", texts::menu::kToRunDeleteAll},
      {"mnuToRunCopy", texts::menu::kToRunCopy},
  };
  for (const auto& [name, key] : entries) action(name)->setText(caption(session_.text(key)));
  action("mnuSaveOne")->setText(caption(session_.text(texts::status_bar::kSaveOne)));
  action("mnuSaveSep")->setText(caption(session_.text(texts::status_bar::kSaveSeparate)));

  inpsLabel_->setText(session_.text(texts::caption::kInputFiles));
  subsLabel_->setText(session_.text(texts::caption::kSections));
  toRunLabel_->setText(session_.text(texts::caption::kToRun));
  pickAll_->setText(session_.text(texts::caption::kAll));
  pick_->setToolTip(session_.text(texts::menu::kSelect));
  pickAll_->setToolTip(session_.text(texts::menu::kSelectAll));

  const std::pair<const char*, MessageKey> tips[] = {
      {"mnuRun", texts::toolbar::kRun},         {"mnuStop", texts::toolbar::kStop},
      {"mnuRefresh", texts::toolbar::kRefresh}, {"mnuLists", texts::toolbar::kVariables},
      {"mnuDir", texts::toolbar::kFolderPanel}, {"mnuHome", texts::toolbar::kHome},
      {"mnuCHM", texts::toolbar::kHelp},
  };
  for (const auto& [name, key] : tips) action(name)->setToolTip(session_.text(key));
}

bool MainWindow::eventFilter(QObject* watched, QEvent* e) {
  if (e->type() == QEvent::MouseButtonPress && qobject_cast<QSplitterHandle*>(watched))
    acceptedSizes_ = splitter_->sizes();  // a drag starts
  return QMainWindow::eventFilter(watched, e);
}

void MainWindow::onSplitterMoved(int index) {
  // A splitter moves only the two panes beside it. Where Qt would push a
  // further pane aside because one of the two reached its minimum width,
  // the move is refused and the boundary stays where it was.
  const QList<int> sizes = splitter_->sizes();
  if (acceptedSizes_.size() == sizes.size()) {
    for (int i = 0; i < sizes.size(); ++i) {
      if (i != index - 1 && i != index && sizes[i] != acceptedSizes_[i]) {
        splitter_->setSizes(acceptedSizes_);
        return;
      }
    }
  }
  acceptedSizes_ = sizes;
  if (index == 1 && folderPanelShown_ && !slide_.isActive()) rememberedDirTwips_ = paneTwips(0);
}

void MainWindow::setRunning(bool isRunning) {
  action("mnuRun")->setEnabled(!isRunning);
  action("mnuStop")->setEnabled(isRunning);
  for (const char* name :
       {"mnuSelect", "mnuSelectAll", "mnuDelete", "mnuDeleteAll", "mnuToRunDel", "mnuToRunDelAll"})
    action(name)->setEnabled(!isRunning);
  pick_->setEnabled(!isRunning);
  pickAll_->setEnabled(!isRunning && subs_->count() > 0);
  const bool movable = !isRunning && toRunState().selectedRun().count > 0;
  up_->setEnabled(movable);
  down_->setEnabled(movable);
}

}  // namespace korvane::window
