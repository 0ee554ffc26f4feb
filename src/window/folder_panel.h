// The folder panel: the drive list above the folder list. The folder list
// shows the current folder's ancestors, the folder itself and its
// subfolders; a double click or Enter opens one. Where the system has no
// drive letters the drive list offers the mounted volumes.
#pragma once

#include <QComboBox>
#include <QListWidget>
#include <QWidget>
#include <string>

namespace korvane::window {

class FolderPanel : public QWidget {
  Q_OBJECT
 public:
  explicit FolderPanel(QWidget* parent = nullptr);

  // The current folder (users' code page, no trailing separator).
  const std::string& folder() const { return folder_; }
  // Opens a folder; one that has gone opens its nearest existing ancestor.
  // Emits folderChanged.
  void setFolder(const std::string& folder);
  // Sets the drive list to the drive or volume that holds `folder`.
  void setDriveFor(const std::string& folder);
  // Reads the folder again (after Refresh).
  void rescan();

  QComboBox* drives() const { return drives_; }
  QListWidget* folders() const { return folders_; }

 signals:
  void folderChanged();

 private:
  void fillDrives();
  void fillFolders();
  void openRow(int row);

  QComboBox* drives_;
  QListWidget* folders_;
  std::string folder_;
};

}  // namespace korvane::window
