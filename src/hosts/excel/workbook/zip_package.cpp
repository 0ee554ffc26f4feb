#include "hosts/excel/workbook/zip_package.h"

#include <zip.h>

#include <filesystem>
#include <system_error>

#include "base/fs.h"
#include "hosts/excel.h"

namespace korvane::hosts::workbook {
namespace {

using Reason = WorkbookError::Reason;

// Parts larger than this are not read: no worksheet of a road project is.
constexpr zip_uint64_t kMaxPart = 256u << 20;

std::string partName(const std::string& part) {
  return !part.empty() && part.front() == '/' ? part.substr(1) : part;
}

}  // namespace

struct ZipPackage::Archive {
  // A named deleter outside the unnamed namespace: the member's type must not
  // be local to this file while Archive is not.
  struct Closer {
    void operator()(zip_t* z) const {
      if (z) zip_discard(z);
    }
  };
  std::unique_ptr<zip_t, Closer> zip;
};

ZipPackage::ZipPackage(std::string path) : path_(std::move(path)), archive_(new Archive) {
  int error = 0;
  zip_t* z = zip_open(fs::native(path_).string().c_str(), ZIP_RDONLY, &error);
  if (!z) {
    zip_error_t e;
    zip_error_init_with_code(&e, error);
    std::string why = zip_error_strerror(&e);
    zip_error_fini(&e);
    throw WorkbookError(Reason::Unreadable, path_, why);
  }
  archive_->zip.reset(z);
}

ZipPackage::~ZipPackage() = default;

bool ZipPackage::has(const std::string& part) const {
  return archive_->zip &&
         zip_name_locate(archive_->zip.get(), partName(part).c_str(), ZIP_FL_NOCASE) >= 0;
}

std::string ZipPackage::read(const std::string& part) const {
  zip_t* z = archive_->zip.get();
  if (!z) throw WorkbookError(Reason::Unreadable, path_);
  const zip_int64_t index = zip_name_locate(z, partName(part).c_str(), ZIP_FL_NOCASE);
  zip_stat_t st;
  if (index < 0 || zip_stat_index(z, index, 0, &st) != 0 || !(st.valid & ZIP_STAT_SIZE) ||
      st.size > kMaxPart)
    throw WorkbookError(Reason::Unreadable, path_, part);
  zip_file_t* f = zip_fopen_index(z, index, 0);
  if (!f) throw WorkbookError(Reason::Unreadable, path_, part);
  std::string data(st.size, '\0');
  const zip_int64_t n = zip_fread(f, data.data(), st.size);
  zip_fclose(f);
  if (n < 0 || static_cast<zip_uint64_t>(n) != st.size)
    throw WorkbookError(Reason::Unreadable, path_, part);
  return data;
}

void ZipPackage::save(const std::map<std::string, std::string>& changed) {
  // A copy of the workbook is changed and then takes the workbook's place:
  // the workbook is never half-written, and libzip copies every entry we do
  // not replace as it is stored.
  const std::filesystem::path target = fs::native(path_);
  std::filesystem::path temp = target;
  temp += ".korvane-tmp";
  std::error_code ec;
  std::filesystem::copy_file(target, temp, std::filesystem::copy_options::overwrite_existing, ec);
  if (ec) throw WorkbookError(Reason::Unwritable, path_, ec.message());
  auto fail = [&](const std::string& why) {
    std::error_code ignored;
    std::filesystem::remove(temp, ignored);
    throw WorkbookError(Reason::Unwritable, path_, why);
  };
  int error = 0;
  zip_t* z = zip_open(temp.string().c_str(), 0, &error);
  if (!z) fail("zip");
  for (const auto& [part, content] : changed) {
    zip_source_t* src = zip_source_buffer(z, content.data(), content.size(), 0);
    if (!src) {
      zip_discard(z);
      fail(part);
    }
    const std::string name = partName(part);
    zip_int64_t index = zip_name_locate(z, name.c_str(), ZIP_FL_NOCASE);
    bool ok;
    if (index >= 0) {
      ok = zip_file_replace(z, index, src, 0) == 0;
    } else {
      index = zip_file_add(z, name.c_str(), src, ZIP_FL_ENC_UTF_8);
      ok = index >= 0;
    }
    if (!ok) {
      zip_source_free(src);
      zip_discard(z);
      fail(part);
    }
    zip_set_file_compression(z, index, ZIP_CM_DEFLATE, 0);
  }
  if (zip_close(z) != 0) {
    const std::string why = zip_strerror(z);
    zip_discard(z);
    fail(why);
  }
  // Read from the new container from now on (the old one when the rename failed).
  archive_->zip.reset();
  std::filesystem::rename(temp, target, ec);
  error = 0;
  archive_->zip.reset(zip_open(target.string().c_str(), ZIP_RDONLY, &error));
  if (ec) fail(ec.message());
}

}  // namespace korvane::hosts::workbook
