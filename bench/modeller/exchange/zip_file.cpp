#include "modeller/exchange/zip_file.h"

#include <algorithm>
#include <array>

#include "base/quote.h"

namespace vanzet::modeller {
namespace {

namespace fs = std::filesystem;

struct CloseEntry {
  void operator()(zip_file_t* entry) const { zip_fclose(entry); }
};
using Entry = std::unique_ptr<zip_file_t, CloseEntry>;

std::string MessageOf(int code) {
  zip_error_t error;
  zip_error_init_with_code(&error, code);
  const std::string message = zip_error_strerror(&error);
  zip_error_fini(&error);
  return message;
}

/// Whether a name is that of a file below the root of the package.
bool StaysInside(const std::string& name) {
  const fs::path path(name);
  const bool isOdd = name.empty() || name.find_first_of("\\:") != std::string::npos || path.is_absolute();
  return !isOdd && std::ranges::find(path, "..") == path.end();
}

Fault TooLarge() {
  return Fault{"its files are larger than " + std::to_string(ZipFile::kMostBytes >> 20U) + " MiB"};
}

}  // namespace

Result<ZipFile> ZipFile::Open(const fs::path& file) {
  int code = 0;
  ZipFile zip(zip_open(file.c_str(), ZIP_RDONLY | ZIP_CHECKCONS, &code));
  if (zip.archive_ == nullptr) return Fault{"not a readable ZIP file: " + MessageOf(code)};
  VANZET_DO(zip.ReadNames());
  return zip;
}

Result<void> ZipFile::ReadNames() {
  const std::int64_t count = zip_get_num_entries(archive_.get(), 0);
  if (count > kMostEntries) return Fault{"has more than " + std::to_string(kMostEntries) + " files"};
  for (std::int64_t i = 0; i < count; ++i) {
    const char* const found = zip_get_name(archive_.get(), static_cast<zip_uint64_t>(i), 0);
    const std::string name = found == nullptr ? "" : found;
    if (!StaysInside(name)) return Fault{"its file " + Quoted(name) + " leads out of the package"};
    if (!name.ends_with('/')) names_.push_back(name);
  }
  std::ranges::sort(names_);
  return {};
}

Result<std::string> ZipFile::Content(const std::string& name) {
  zip_stat_t facts;
  if (zip_stat(archive_.get(), name.c_str(), 0, &facts) == 0 &&
      (facts.valid & ZIP_STAT_ENCRYPTION_METHOD) != 0 && facts.encryption_method != ZIP_EM_NONE) {
    return Fault{"its file " + Quoted(name) + " is encrypted"};
  }
  const auto refuse = [&](const char* reason) {
    return Fault{"its file " + Quoted(name) + " cannot be unpacked: " + reason};
  };
  const Entry entry(zip_fopen(archive_.get(), name.c_str(), 0));
  if (entry == nullptr) return refuse(zip_strerror(archive_.get()));
  std::string content;
  std::array<char, std::size_t{1} << 16U> block;
  while (true) {
    const std::int64_t read = zip_fread(entry.get(), block.data(), block.size());
    if (read < 0) return refuse(zip_file_strerror(entry.get()));
    if (read == 0) return content;
    // The announced size is not believed: a small file can become a huge one.
    if (static_cast<std::uint64_t>(read) > bytesLeft_) return TooLarge();
    bytesLeft_ -= static_cast<std::uint64_t>(read);
    content.append(block.data(), static_cast<std::size_t>(read));
  }
}

}  // namespace vanzet::modeller
