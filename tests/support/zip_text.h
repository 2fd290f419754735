#pragma once

#include <zip.h>

#include <filesystem>
#include <map>
#include <string>

namespace vanzet::test {

/// The content of each file of a ZIP, by its name.
using ZipContent = std::map<std::string, std::string>;

/// Writes a ZIP file, by the library that reads them too. Returns false when it could not.
inline bool WriteZip(const std::filesystem::path& file, const ZipContent& content) {
  zip_t* const archive = zip_open(file.c_str(), ZIP_CREATE | ZIP_TRUNCATE, nullptr);
  if (archive == nullptr) return false;
  for (const auto& [name, bytes] : content) {
    zip_source_t* const source = zip_source_buffer(archive, bytes.data(), bytes.size(), 0);
    if (zip_file_add(archive, name.c_str(), source, ZIP_FL_ENC_UTF_8) < 0) zip_source_free(source);
  }
  return zip_close(archive) == 0;
}

}  // namespace vanzet::test
