// An Office Open XML package: the zip container of a workbook, its parts by
// name. Saving writes a new container beside the old one and puts it in its
// place; parts that did not change are copied as they are stored.
#pragma once

#include <map>
#include <memory>
#include <string>

namespace korvane::hosts::workbook {

class ZipPackage {
 public:
  // Throws WorkbookError (Unreadable) when `path` is no zip container.
  explicit ZipPackage(std::string path);
  ~ZipPackage();
  ZipPackage(const ZipPackage&) = delete;
  ZipPackage& operator=(const ZipPackage&) = delete;

  const std::string& path() const { return path_; }
  // Part names without a leading "/", compared ignoring case.
  bool has(const std::string& part) const;
  // Throws WorkbookError (Unreadable) when the part is missing or damaged.
  std::string read(const std::string& part) const;
  // Writes the package with `changed` parts replaced (or added); throws
  // WorkbookError (Unwritable) and leaves the file as it was on failure.
  void save(const std::map<std::string, std::string>& changed);

 private:
  std::string path_;
  struct Archive;
  std::unique_ptr<Archive> archive_;
};

}  // namespace korvane::hosts::workbook
