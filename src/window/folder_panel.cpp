#include "window/folder_panel.h"

#include <QDir>
#include <QKeyEvent>
#include <QStorageInfo>
#include <QStyle>
#include <QVBoxLayout>

#include "base/fs.h"
#include "shell/project_folder.h"
#include "window/text_edge.h"

namespace korvane::window {
namespace {

// Folder paths in the lists: core text, kept beside the shown name.
constexpr int kPathRole = Qt::UserRole;

// Opens the current folder row on Enter, as a double click does.
class FolderList : public QListWidget {
 public:
  using QListWidget::QListWidget;

 protected:
  void keyPressEvent(QKeyEvent* e) override {
    if ((e->key() == Qt::Key_Return || e->key() == Qt::Key_Enter) && currentItem())
      emit itemActivated(currentItem());
    else
      QListWidget::keyPressEvent(e);
  }
};

QString rootOf(const QString& path) {
  const QString r = QStorageInfo(path).rootPath();
  return r.isEmpty() ? QDir(path).rootPath() : r;
}

}  // namespace

FolderPanel::FolderPanel(QWidget* parent) : QWidget(parent) {
  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(0, 0, 0, 0);
  drives_ = new QComboBox(this);
  drives_->setObjectName("Drive1");
  drives_->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
  drives_->setMinimumContentsLength(4);
  folders_ = new FolderList(this);
  folders_->setObjectName("Dir1");
  layout->addWidget(drives_);
  layout->addWidget(folders_, 1);
  fillDrives();
  connect(drives_, &QComboBox::activated, this, [this](int i) {
    // Drive change: the folder list goes to the new drive.
    setFolder(toCore(drives_->itemData(i, kPathRole).toString()));
  });
  connect(folders_, &QListWidget::itemActivated, this,
          [this](QListWidgetItem* item) { openRow(folders_->row(item)); });
}

void FolderPanel::fillDrives() {
  drives_->clear();
  QStringList roots;
  for (const QFileInfo& d : QDir::drives()) roots << d.absoluteFilePath();
  if (roots.size() <= 1) {  // no drive letters: the mounted volumes
    roots.clear();
    for (const QStorageInfo& v : QStorageInfo::mountedVolumes())
      if (v.isValid() && v.isReady() && !roots.contains(v.rootPath())) roots << v.rootPath();
    if (roots.isEmpty()) roots << QDir::rootPath();
    roots.sort();
  }
  for (const QString& r : roots) drives_->addItem(QDir::toNativeSeparators(r), r);
}

void FolderPanel::setDriveFor(const std::string& folder) {
  const QString root = rootOf(fromCore(folder));
  int best = -1, bestLength = -1;
  for (int i = 0; i < drives_->count(); ++i) {
    const QString r = drives_->itemData(i, kPathRole).toString();
    if (QDir::cleanPath(root).compare(QDir::cleanPath(r), Qt::CaseInsensitive) == 0 &&
        r.size() > bestLength) {
      best = i;
      bestLength = static_cast<int>(r.size());
    }
  }
  if (best < 0) {  // a volume mounted since the list was filled
    fillDrives();
    best = drives_->findData(root, kPathRole);
  }
  if (best >= 0) drives_->setCurrentIndex(best);
}

void FolderPanel::setFolder(const std::string& folder) {
  std::string f = nearestExistingFolder(folder);
  if (f.empty()) f = nearestExistingFolder(fs::currentFolder());
  folder_ = f;
  setDriveFor(folder_);
  fillFolders();
  emit folderChanged();
}

void FolderPanel::rescan() { fillFolders(); }

void FolderPanel::fillFolders() {
  folders_->clear();
  const QIcon closed = style()->standardIcon(QStyle::SP_DirClosedIcon);
  const QIcon open = style()->standardIcon(QStyle::SP_DirOpenIcon);
  const auto chain = folderChain(folder_);
  int depth = 0;
  auto add = [&](const std::string& path, const std::string& name, const QIcon& icon) {
    auto* item = new QListWidgetItem(icon, QString(depth * 2, ' ') + fromCore(name), folders_);
    item->setData(kPathRole, fromCore(path));
    item->setToolTip(fromCore(path));
  };
  for (std::size_t i = 0; i < chain.size(); ++i, ++depth) {
    const std::string& p = chain[i];
    const std::size_t sep = p.find_last_of("\\/");
    const bool root = i == 0;
    add(p, root || sep == std::string::npos ? p : p.substr(sep + 1), open);
  }
  folders_->setCurrentRow(folders_->count() - 1);
  for (const auto& name : subfolders(folder_)) add(fs::join(folder_, name), name, closed);
}

void FolderPanel::openRow(int row) {
  if (QListWidgetItem* item = folders_->item(row))
    setFolder(toCore(item->data(kPathRole).toString()));
}

}  // namespace korvane::window
