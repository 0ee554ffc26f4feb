// The commands of the folder panel, the input lists and the to-run list.
#include <QClipboard>
#include <QDesktopServices>
#include <QGuiApplication>
#include <QUrl>
#include <cstdlib>

#include "base/fs.h"
#include "base/texts/menu_texts.h"
#include "base/texts/window_texts.h"
#include "shell/editor_command.h"
#include "shell/input_sections.h"
#include "shell/project_folder.h"
#include "window/main_window.h"
#include "window/text_edge.h"

namespace korvane::window {
namespace {

bool hasSelection(const QListWidget* list) { return !list->selectedItems().isEmpty(); }

}  // namespace

std::string MainWindow::selectedInput() const {
  const QListWidgetItem* item = inps_->currentItem();
  return item && item->isSelected() ? toCore(item->text()) : std::string();
}

void MainWindow::onFolderChanged() {
  const std::string folder = folderPanel_->folder();
  panels_->setFolder(fromCore(folder));
  panels_->setInsideProject(insideProject(folder, session_.ctx.projectFolder));
  fileListPathChanged();
}

void MainWindow::fileListPathChanged() {
  const QSignalBlocker block(inps_);
  inps_->clear();
  subs_->clear();
  for (const auto& name : inputFiles(folderPanel_->folder())) inps_->addItem(fromCore(name));
  if (inps_->count() > 0) inps_->setCurrentRow(0);
  loadSections();
}

void MainWindow::loadSections() {
  subs_->clear();
  const std::string name = selectedInput();
  if (!name.empty()) {
    if (auto sections = readSections(fs::join(folderPanel_->folder(), name)))
      for (const auto& s : *sections) subs_->addItem(fromCore(s));
  }
  const bool any = subs_->count() > 0;
  subs_->setEnabled(any);
  subsLabel_->setEnabled(any);
  pickAll_->setEnabled(any && !running());
}

void MainWindow::focusInputs() {
  if (hasSelection(inps_))
    inps_->setFocus();
  else if (folderPanelShown_)
    folderPanel_->folders()->setFocus();
}

void MainWindow::pick() {
  if (running()) return;
  const std::string name = selectedInput();
  if (name.empty()) return;
  const bool sections = subs_->isEnabled();
  std::string section;
  const QListWidgetItem* current = subs_->currentItem();
  const bool sectionSelected = sections && current && current->isSelected();
  if (sectionSelected) section = toCore(current->text());
  (sections ? subs_ : inps_)->setFocus();
  const std::string entry =
      pickedEntry(folderPanel_->folder(), name, sections, sectionSelected ? &section : nullptr);
  if (!entry.empty()) toRun_->addItem(fromCore(entry));
}

void MainWindow::pickAll() {
  if (running()) return;
  subs_->setFocus();
  std::vector<std::string> sections;
  for (int i = 0; i < subs_->count(); ++i) sections.push_back(toCore(subs_->item(i)->text()));
  for (const auto& e : pickedAllEntries(folderPanel_->folder(), selectedInput(), sections))
    toRun_->addItem(fromCore(e));
  inps_->setFocus();
}

ToRunList MainWindow::toRunState() const {
  ToRunList l;
  for (int i = 0; i < toRun_->count(); ++i) {
    l.add(toCore(toRun_->item(i)->text()));
    l.selected[i] = toRun_->item(i)->isSelected();
  }
  l.current = toRun_->currentRow();
  return l;
}

void MainWindow::setToRunState(const ToRunList& l) {
  const QSignalBlocker block(toRun_);
  toRun_->clear();
  for (const auto& e : l.entries) toRun_->addItem(fromCore(e));
  if (l.current >= 0) toRun_->setCurrentRow(l.current, QItemSelectionModel::NoUpdate);
  for (int i = 0; i < toRun_->count(); ++i) toRun_->item(i)->setSelected(l.selected[i]);
  setRunning(running());
}

void MainWindow::moveUp() {
  ToRunList l = toRunState();
  if (!running() && l.moveUp()) setToRunState(l);
}

void MainWindow::moveDown() {
  ToRunList l = toRunState();
  if (!running() && l.moveDown()) setToRunState(l);
}

void MainWindow::deleteSelected() {
  if (running()) return;
  toRun_->setFocus();
  ToRunList l = toRunState();
  l.deleteSelected();
  setToRunState(l);
}

void MainWindow::deleteAll() {
  if (running()) return;
  toRun_->clear();
  setRunning(false);
}

void MainWindow::copyAll() {
  QClipboard* clipboard = QGuiApplication::clipboard();
  clipboard->clear();
  clipboard->setText(fromCore(toRunState().copyAllText()));
}

void MainWindow::editInput() {
  const std::string name = selectedInput();
  if (name.empty()) return;
  const std::string path = fs::join(folderPanel_->folder(), name);
#ifdef _WIN32
  const char* root = std::getenv("SystemRoot");
  const bool ok =
      startMinimised(editorCommandLine(registeredEditorCommand(), root ? root : "", path));
#else
  const bool ok = QDesktopServices::openUrl(
      QUrl::fromLocalFile(QString::fromStdU16String(fs::native(path).u16string())));
#endif
  if (!ok) warn("Korvane", session_.format(texts::window::kNoEditor, fromCore(path)));
}

void MainWindow::home() {
  folderPanel_->setFolder(homeFolder(session_.ctx.projectFolder));
  if (isVisible()) focusInputs();
}

void MainWindow::refresh() {
  const int row = inps_->currentRow();
  if (!fs::folderExists(folderPanel_->folder())) {
    folderPanel_->setFolder(folderPanel_->folder());  // gone: its nearest ancestor
  } else {
    folderPanel_->rescan();
    fileListPathChanged();
    if (row >= 0 && row < inps_->count()) inps_->setCurrentRow(row);
  }
  if (isVisible()) focusInputs();
}

void MainWindow::updateFileMenu() {
  const bool idle = !running();
  const bool input = hasSelection(inps_);
  action("mnuEdit")->setEnabled(input);
  action("mnuSelect")->setEnabled(idle && input && (subs_->count() == 0 || hasSelection(subs_)));
  action("mnuSelectAll")->setEnabled(idle && subs_->count() > 0);
  action("mnuDelete")->setEnabled(idle && hasSelection(toRun_));
  action("mnuDeleteAll")->setEnabled(idle && toRun_->count() > 0);
}

void MainWindow::updateInpsPopup() {
  const std::string name = selectedInput();
  QAction* edit = action("mnuInpsEdit");
  const QString text = session_.text(texts::menu::kEditInput).replace("&", "&&");
  edit->setText(name.empty() ? text : text + ": " + fromCore(name).replace("&", "&&"));
  edit->setEnabled(!name.empty());
}

}  // namespace korvane::window
