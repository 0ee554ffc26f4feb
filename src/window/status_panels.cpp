#include "window/status_panels.h"

#include "base/texts/status_bar_texts.h"
#include "shell/window_settings.h"
#include "window/pictures.h"
#include "window/text_edge.h"

namespace korvane::window {
namespace {

namespace status_bar = texts::status_bar;

constexpr int kPictureSize = 16;

void showPicture(QLabel* label, const QString& key) {
  label->setPixmap(picturePixmap(key, kPictureSize, label->devicePixelRatioF()));
  label->setProperty("picture", key);
}

}  // namespace

StatusPanels::StatusPanels(QStatusBar* bar, const WindowSession& session, QAction* saveOneMenu,
                           QAction* saveSepMenu)
    : QObject(bar), session_(session), saveOneMenu_(saveOneMenu), saveSepMenu_(saveSepMenu) {
  bar->setObjectName("sbr1");
  excl_ = new QLabel(bar);
  excl_->setObjectName("excl");
  bar->addWidget(excl_);
  for (const char* key : {"saveone", "savesep"}) {
    auto* b = new QToolButton(bar);
    b->setObjectName(key);
    b->setCheckable(true);
    b->setAutoRaise(true);
    b->setIconSize(QSize(kPictureSize, kPictureSize));
    b->setProperty("bevel", kBevelRaised);
    connect(b, &QToolButton::clicked, this, [this, key] { toggle(key); });
    bar->addWidget(b);
    (QString(key) == "saveone" ? saveOne_ : saveSep_) = b;
  }
  dir_ = new QLabel(bar);
  dir_->setObjectName("dir");
  dir_->setMinimumWidth(60);
  dir_->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
  bar->addWidget(dir_, 1);
  stat_ = new QLabel(bar);
  stat_->setObjectName("stat");
  bar->addPermanentWidget(stat_);
  repaint("saveone");
  repaint("savesep");
}

void StatusPanels::setInsideProject(bool inside) {
  showPicture(excl_, inside ? "proj" : "notproj");
  excl_->setToolTip(
      session_.text(inside ? status_bar::kInsideProject : status_bar::kOutsideProject));
}

void StatusPanels::setFolder(const QString& folder) {
  dir_->setText(folder);
  dir_->setToolTip(folder);
}

void StatusPanels::setState(const QString& text) { stat_->setText(text); }

QToolButton* StatusPanels::saveButton(const QString& key) const {
  if (key == "saveone") return saveOne_;
  if (key == "savesep") return saveSep_;
  return nullptr;
}

int StatusPanels::bevel(const QString& key) const {
  const QToolButton* b = saveButton(key);
  return b ? b->property("bevel").toInt() : 0;
}

void StatusPanels::setBevel(const QString& key, int bevel) {
  if (QToolButton* b = saveButton(key)) {
    b->setProperty("bevel", bevel);
    repaint(key);
  }
}

void StatusPanels::toggle(const QString& key) {
  if (saveButton(key)) setBevel(key, toggledBevel(bevel(key)));
}

void StatusPanels::repaint(const QString& key) {
  QToolButton* b = saveButton(key);
  const bool on = bevel(key) == kBevelPressed;
  const MessageKey panelText = b == saveOne_ ? status_bar::kSaveOne : status_bar::kSaveSeparate;
  b->setToolTip(fromCore(saveModeTip(bevel(key), session_.ctx.text(panelText),
                                     session_.ctx.text(status_bar::kSaveModeOn))));
  const QString pictureKey = on ? key : key + "bw";
  b->setIcon(picture(pictureKey));
  b->setProperty("picture", pictureKey);
  b->setChecked(on);
  QAction* menu = key == "saveone" ? saveOneMenu_ : saveSepMenu_;
  if (menu) menu->setChecked(on);
}

}  // namespace korvane::window
