#include "window/longsection_panel.h"

#include <QFileDialog>
#include <QFormLayout>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QScrollArea>
#include <QSplitter>
#include <QVBoxLayout>

#include "base/conversions.h"
#include "base/fs.h"
#include "base/texts/longsection_texts.h"
#include "base/texts/runtime_texts.h"
#include "longsection/generated_input.h"
#include "longsection/model_strings.h"
#include "longsection/panel_file.h"
#include "longsection/validation.h"
#include "shell/longsection_draw.h"
#include "window/text_edge.h"

namespace korvane::window {

namespace {

namespace ls = texts::longsection;

using longsection::Parameters;

QString number(double v) { return fromCore(conv::CStr(v)); }
double number(const QLineEdit* e) { return conv::Val(toCore(e->text().trimmed())); }

QLineEdit* field(const char* name) {
  auto* e = new QLineEdit;
  e->setObjectName(name);
  return e;
}

QComboBox* stringChoice(const char* name) {
  auto* c = new QComboBox;
  c->setObjectName(name);
  c->setEditable(true);
  c->setInsertPolicy(QComboBox::NoInsert);
  return c;
}

}  // namespace

LongsectionPanel::LongsectionPanel(WindowSession& session,
                                   std::function<void(const std::string&, bool)> toRun,
                                   QWidget* parent)
    : QWidget(parent, Qt::Window), session_(session), toRun_(std::move(toRun)) {
  setObjectName("longsectionPanel");
  build();
  fillFiles();
  const std::string last = longsection::lastPanelFile(session_.ctx.settingsPath);
  if (last.empty() || !openSet(last)) newSet();
}

QString LongsectionPanel::text(MessageKey key) const { return session_.text(key); }

void LongsectionPanel::build() {
  setWindowTitle(text(ls::kTitle));
  auto* form = new QWidget;
  auto* column = new QVBoxLayout(form);

  // Panel files.
  auto* filesBox = new QGroupBox(text(ls::kFiles));
  auto* filesLayout = new QVBoxLayout(filesBox);
  files_ = new QListWidget;
  files_->setObjectName("panelFiles");
  files_->setMaximumHeight(90);
  filesLayout->addWidget(files_);
  auto* fileButtons = new QHBoxLayout;
  auto button = [this](MessageKey key, auto slot) {
    auto* b = new QPushButton(text(key));
    b->setObjectName("ls_" + QLatin1StringView(key.key.data(), qsizetype(key.key.size())));
    connect(b, &QPushButton::clicked, this, slot);
    return b;
  };
  fileButtons->addWidget(button(ls::kNew, [this] { newSet(); }));
  fileButtons->addWidget(button(ls::kOpen, [this] { openDialog(); }));
  fileButtons->addWidget(button(ls::kSave, [this] { save(); }));
  fileButtons->addWidget(button(ls::kSaveAs, [this] { saveAs(); }));
  filesLayout->addLayout(fileButtons);
  connect(files_, &QListWidget::itemActivated, this, [this](QListWidgetItem* item) {
    openSet(fs::join(session_.ctx.projectFolder, toCore(item->text())));
  });
  column->addWidget(filesBox);

  // The model and its strings.
  auto* modelBox = new QGroupBox(text(ls::kModel));
  auto* modelForm = new QFormLayout(modelBox);
  model_ = field("model");
  master_ = stringChoice("master");
  ground_ = stringChoice("ground");
  design_ = stringChoice("design");
  modelForm->addRow(text(ls::kModel), model_);
  modelForm->addRow(text(ls::kMasterLabel), master_);
  modelForm->addRow(text(ls::kGroundLabel), ground_);
  modelForm->addRow(text(ls::kDesignLabel), design_);
  connect(model_, &QLineEdit::editingFinished, this, [this] { fillStrings(); });
  column->addWidget(modelBox);

  auto* extrasBox = new QGroupBox(text(ls::kExtras));
  auto* extrasLayout = new QVBoxLayout(extrasBox);
  extras_ = new QTableWidget(0, 3);
  extras_->setObjectName("extras");
  extras_->setHorizontalHeaderLabels(
      {text(ls::kStringColumn), text(ls::kLineTypeColumn), text(ls::kLayerColumn)});
  extras_->horizontalHeader()->setStretchLastSection(true);
  extras_->verticalHeader()->hide();
  extras_->setMaximumHeight(90);
  extrasLayout->addWidget(extras_);
  auto* extraButtons = new QHBoxLayout;
  extraButtons->addWidget(button(ls::kAdd, [this] {
    if (extras_->rowCount() >= longsection::kMaxExtras) return;
    const int row = extras_->rowCount();
    extras_->insertRow(row);
    const longsection::ExtraString e;
    extras_->setItem(row, 1, new QTableWidgetItem(fromCore(e.lineType)));
    extras_->setItem(row, 2, new QTableWidgetItem(fromCore(e.layer)));
  }));
  extraButtons->addWidget(button(ls::kRemove, [this] {
    if (extras_->currentRow() >= 0) extras_->removeRow(extras_->currentRow());
  }));
  extraButtons->addStretch();
  extrasLayout->addLayout(extraButtons);
  column->addWidget(extrasBox);

  // Scales and sheet.
  auto* sheetBox = new QGroupBox(text(ls::kSheet));
  auto* grid = new QGridLayout(sheetBox);
  hscale_ = field("hscale");
  vscale_ = field("vscale");
  size_ = new QComboBox;
  size_->setObjectName("sheetSize");
  for (const auto& s : longsection::standardSheetSizes()) size_->addItem(fromCore(s), fromCore(s));
  size_->addItem(text(ls::kCustomSize), "Custom");
  orientation_ = new QComboBox;
  orientation_->setObjectName("orientation");
  orientation_->addItem(text(ls::kLandscape));
  orientation_->addItem(text(ls::kPortrait));
  width_ = field("sheetWidth");
  height_ = field("sheetHeight");
  left_ = field("marginLeft");
  right_ = field("marginRight");
  top_ = field("marginTop");
  bottom_ = field("marginBottom");
  int row = 0;
  auto pair = [&](MessageKey key, QWidget* a, MessageKey key2, QWidget* b) {
    grid->addWidget(new QLabel(text(key)), row, 0);
    grid->addWidget(a, row, 1);
    grid->addWidget(new QLabel(text(key2)), row, 2);
    grid->addWidget(b, row, 3);
    ++row;
  };
  pair(ls::kHorizontalScale, hscale_, ls::kVerticalScale, vscale_);
  pair(ls::kSize, size_, ls::kOrientation, orientation_);
  pair(ls::kWidth, width_, ls::kHeight, height_);
  grid->addWidget(new QLabel(text(ls::kMargins)), row++, 0, 1, 4);
  pair(ls::kLeft, left_, ls::kRight, right_);
  pair(ls::kTop, top_, ls::kBottom, bottom_);
  connect(size_, &QComboBox::currentIndexChanged, this, [this] { sizeChanged(); });
  connect(orientation_, &QComboBox::currentIndexChanged, this, [this] { sizeChanged(); });
  column->addWidget(sheetBox);

  // Chainages, levels and the drawing.
  auto* rangeBox = new QGroupBox(text(ls::kChainages));
  auto* rangeForm = new QFormLayout(rangeBox);
  start_ = field("startChainage");
  end_ = field("endChainage");
  start_->setPlaceholderText(text(ls::kChainageHint));
  end_->setPlaceholderText(text(ls::kChainageHint));
  interval_ = field("interval");
  gradeColumns_ = new QCheckBox(text(ls::kGradeColumns));
  gradeColumns_->setObjectName("gradeColumns");
  datum_ = field("datum");
  datum_->setPlaceholderText(text(ls::kDatumHint));
  textHeight_ = field("textHeight");
  groundType_ = field("groundType");
  designType_ = field("designType");
  rangeForm->addRow(text(ls::kStartChainage), start_);
  rangeForm->addRow(text(ls::kEndChainage), end_);
  rangeForm->addRow(text(ls::kBandInterval), interval_);
  rangeForm->addRow(QString(), gradeColumns_);
  rangeForm->addRow(text(ls::kDatumLevel), datum_);
  rangeForm->addRow(text(ls::kTextHeight), textHeight_);
  rangeForm->addRow(text(ls::kGroundLineType), groundType_);
  rangeForm->addRow(text(ls::kDesignLineType), designType_);
  column->addWidget(rangeBox);

  // Generate and what follows it.
  putOnList_ = new QRadioButton(text(ls::kPutOnList));
  putOnList_->setObjectName("putOnList");
  runNow_ = new QRadioButton(text(ls::kRunNow));
  runNow_->setObjectName("runNow");
  putOnList_->setChecked(true);
  auto* actions = new QHBoxLayout;
  actions->addWidget(button(ls::kGenerate, [this] {
    if (generate()) toRun_(input_, runNow_->isChecked());
  }));
  actions->addWidget(putOnList_);
  actions->addWidget(runNow_);
  actions->addStretch();
  actions->addWidget(button(ls::kPreview, [this] { preview(); }));
  column->addLayout(actions);
  problems_ = new QLabel;
  problems_->setObjectName("problems");
  problems_->setWordWrap(true);
  problems_->setStyleSheet("color: #b00000");
  info_ = new QLabel;
  info_->setObjectName("info");
  info_->setWordWrap(true);
  column->addWidget(problems_);
  column->addWidget(info_);
  column->addStretch();

  auto* scroll = new QScrollArea;
  scroll->setWidget(form);
  scroll->setWidgetResizable(true);
  scroll->setMinimumWidth(form->sizeHint().width() + 24);
  preview_ = new LongsectionPreview;
  preview_->setHint(text(ls::kPreviewHint));
  auto* split = new QSplitter;
  split->addWidget(scroll);
  split->addWidget(preview_);
  split->setStretchFactor(1, 1);
  auto* layout = new QHBoxLayout(this);
  layout->setContentsMargins(4, 4, 4, 4);
  layout->addWidget(split);
  resize(1200, 760);
}

void LongsectionPanel::fillFiles() {
  files_->clear();
  for (const auto& name : longsection::panelFilesIn(session_.ctx.projectFolder))
    files_->addItem(fromCore(name));
}

void LongsectionPanel::fillStrings() {
  std::vector<std::string> labels;
  try {
    if (session_.ctx.engine)
      labels = longsection::stringLabels(*session_.ctx.engine, toCore(model_->text().trimmed()));
  } catch (const hosts::MxError& e) {  // no labels to offer; say why
    problems_->setText(session_.format(texts::runtime::kModelStore, fromCore(e.what())));
  }
  for (QComboBox* c : {master_, ground_, design_}) {
    const QString kept = c->currentText();
    c->clear();
    for (const auto& l : labels) c->addItem(fromCore(l));
    c->setCurrentText(kept);
  }
}

void LongsectionPanel::sizeChanged() {
  const bool custom = size_->currentData().toString() == "Custom";
  width_->setEnabled(custom);
  height_->setEnabled(custom);
  double w = 0, h = 0;
  if (longsection::standardSheet(toCore(size_->currentData().toString()),
                                 orientation_->currentIndex() == 0, w, h)) {
    width_->setText(number(w));
    height_->setText(number(h));
  }
}

Parameters LongsectionPanel::parameters() const {
  Parameters p;
  p.referenceModel = toCore(model_->text().trimmed());
  p.masterString = toCore(master_->currentText().trimmed());
  p.groundString = toCore(ground_->currentText().trimmed());
  p.designString = toCore(design_->currentText().trimmed());
  for (int r = 0; r < extras_->rowCount(); ++r) {
    auto cell = [&](int c) {
      const QTableWidgetItem* i = extras_->item(r, c);
      return i ? toCore(i->text().trimmed()) : std::string();
    };
    longsection::ExtraString e;
    e.label = cell(0);
    if (!cell(1).empty()) e.lineType = cell(1);
    if (!cell(2).empty()) e.layer = cell(2);
    if (!e.label.empty()) p.extras.push_back(e);
  }
  p.horizontalScale = number(hscale_);
  p.verticalScale = number(vscale_);
  p.sheetSize = toCore(size_->currentData().toString());
  p.landscape = orientation_->currentIndex() == 0;
  p.sheetWidth = number(width_);
  p.sheetHeight = number(height_);
  p.marginLeft = number(left_);
  p.marginRight = number(right_);
  p.marginTop = number(top_);
  p.marginBottom = number(bottom_);
  p.startChainage = toCore(start_->text().trimmed());
  p.endChainage = toCore(end_->text().trimmed());
  p.chainageInterval = number(interval_);
  p.gradeChangeColumns = gradeColumns_->isChecked();
  p.datumLevel = toCore(datum_->text().trimmed());
  p.textHeight = number(textHeight_);
  p.groundLineType = toCore(groundType_->text().trimmed());
  p.designLineType = toCore(designType_->text().trimmed());
  return p;
}

void LongsectionPanel::setParameters(const Parameters& p) {
  model_->setText(fromCore(p.referenceModel));
  fillStrings();
  master_->setCurrentText(fromCore(p.masterString));
  ground_->setCurrentText(fromCore(p.groundString));
  design_->setCurrentText(fromCore(p.designString));
  extras_->setRowCount(0);
  for (const auto& e : p.extras) {
    const int row = extras_->rowCount();
    extras_->insertRow(row);
    extras_->setItem(row, 0, new QTableWidgetItem(fromCore(e.label)));
    extras_->setItem(row, 1, new QTableWidgetItem(fromCore(e.lineType)));
    extras_->setItem(row, 2, new QTableWidgetItem(fromCore(e.layer)));
  }
  hscale_->setText(number(p.horizontalScale));
  vscale_->setText(number(p.verticalScale));
  orientation_->setCurrentIndex(p.landscape ? 0 : 1);
  const int size = size_->findData(fromCore(p.sheetSize));
  size_->setCurrentIndex(size < 0 ? size_->findData("Custom") : size);
  sizeChanged();
  width_->setText(number(p.sheetWidth));
  height_->setText(number(p.sheetHeight));
  left_->setText(number(p.marginLeft));
  right_->setText(number(p.marginRight));
  top_->setText(number(p.marginTop));
  bottom_->setText(number(p.marginBottom));
  start_->setText(fromCore(p.startChainage));
  end_->setText(fromCore(p.endChainage));
  interval_->setText(number(p.chainageInterval));
  gradeColumns_->setChecked(p.gradeChangeColumns);
  datum_->setText(fromCore(p.datumLevel));
  textHeight_->setText(number(p.textHeight));
  groundType_->setText(fromCore(p.groundLineType));
  designType_->setText(fromCore(p.designLineType));
}

void LongsectionPanel::setFile(const std::string& path) {
  file_ = path;
  const QString name = path.empty() ? QString() : fromCore(fs::splitName(path).base + ".ipd");
  setWindowTitle(name.isEmpty() ? text(ls::kTitle) : text(ls::kTitle) + " - " + name);
  if (!path.empty()) longsection::rememberPanelFile(session_.ctx.settingsPath, path);
}

void LongsectionPanel::newSet() {
  setParameters(Parameters());
  setFile({});
  problems_->clear();
  info_->clear();
  preview_->clear();
}

bool LongsectionPanel::openSet(const std::string& path) {
  if (!fs::fileExists(path)) return false;
  setParameters(longsection::readPanelFile(path));
  setFile(path);
  problems_->clear();
  info_->clear();
  preview_->clear();
  return true;
}

void LongsectionPanel::openDialog() {
  const QString chosen = QFileDialog::getOpenFileName(
      this, text(ls::kOpen), fromCore(session_.ctx.projectFolder), text(ls::kFileFilter));
  if (!chosen.isEmpty()) openSet(toCore(chosen));
}

bool LongsectionPanel::save() {
  if (file_.empty()) return saveAs();
  if (!longsection::writePanelFile(file_, parameters())) {
    problems_->setText(session_.format(ls::kSaveFailed, fromCore(file_)));
    return false;
  }
  fillFiles();
  return true;
}

bool LongsectionPanel::saveAs() {
  QString chosen = QFileDialog::getSaveFileName(
      this, text(ls::kSaveAs), fromCore(session_.ctx.projectFolder), text(ls::kFileFilter));
  if (chosen.isEmpty()) return false;
  if (!chosen.endsWith(".ipd", Qt::CaseInsensitive)) chosen += ".ipd";
  setFile(toCore(chosen));
  return save();
}

bool LongsectionPanel::check() {
  longsection::Extent extent;
  const auto found =
      longsection::validate(parameters(), session_.ctx.engine, session_.ctx.messages, &extent);
  QString all;
  for (const auto& m : found)
    all += (all.isEmpty() ? text(ls::kProblems) + "\n" : "\n") + fromCore(m);
  problems_->setText(all);
  if (found.empty() && extent.sheets > 0)
    info_->setText(session_.format(ls::kSheetsInfo, QString::number(extent.sheets),
                                   number(extent.start) + " - " + number(extent.end)));
  return found.empty();
}

bool LongsectionPanel::generate() {
  info_->clear();
  if (!check()) return false;
  if (file_.empty() && !saveAs()) {
    problems_->setText(text(ls::kSaveFirst));
    return false;
  }
  if (!save()) return false;
  const Parameters p = parameters();
  longsection::Extent extent;
  longsection::validate(p, session_.ctx.engine, session_.ctx.messages, &extent);
  input_ = longsection::writeGeneratedInput(file_, p, session_.ctx.messages);
  // The drawing parameter file lies where `sheets` looks: MX's project folder.
  std::string folder = session_.ctx.mxProjectFolder();
  if (folder.empty()) folder = session_.ctx.projectFolder;
  if (input_.empty() ||
      !longsection::writeDrawingParameterFile(folder, longsection::setName(file_), p, extent)) {
    problems_->setText(session_.format(ls::kSaveFailed, fromCore(file_)));
    return false;
  }
  info_->setText(info_->text() + "\n" + session_.format(ls::kWritten, fromCore(input_)));
  return true;
}

bool LongsectionPanel::preview() {
  if (!generate()) return false;
  DrawnLongsection drawn;
  std::string error;
  if (!drawLongsectionWithoutCad(session_.ctx, input_, drawn, error)) {
    problems_->setText(fromCore(error));
    preview_->clear();
    return false;
  }
  preview_->load(fromCore(drawn.svg));
  info_->setText(info_->text() + "\n" + session_.format(ls::kWritten, fromCore(drawn.svg)));
  return true;
}

}  // namespace korvane::window
