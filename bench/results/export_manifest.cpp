#include "results/export_manifest.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <limits>
#include <nlohmann/json.hpp>
#include <optional>

#include "base/files/regular_file.h"
#include "base/files/whole_file.h"
#include "vdm/checksum.h"

namespace vanzet::results {
namespace {

namespace fs = std::filesystem;
using Json = nlohmann::ordered_json;

constexpr int kVersion = 1;

/// A name without a folder, which leads to nothing outside of the folder of the list.
bool IsPlainName(const std::string& name) {
  const fs::path path(name);
  return !name.empty() && name != "." && name != ".." && path == path.filename();
}

std::string HexText(std::uint64_t number) {
  std::array<char, 16> digits{};
  const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), number, 16).ptr;
  return {digits.data(), end};
}

}  // namespace

ExportManifest::Content ExportManifest::ContentOf(std::string_view bytes) {
  return {bytes.size(), HexText(vdm::ChecksumOf(bytes))};
}

Result<ExportManifest> ExportManifest::Read(const fs::path& folder) {
  const fs::path file = folder / kFile;
  const auto text = files::ReadWholeFile(file);
  if (!text && text.fault().kind == FaultKind::kMissing) return ExportManifest();
  if (!text) return text.fault();
  const Fault damaged{.text = "not a list of exported files; remove it to go on",
                      .file = file.string(),
                      .kind = FaultKind::kDamaged};
  try {
    ExportManifest manifest;
    const Json json = Json::parse(*text);
    if (json.at("version") != kVersion) return damaged;
    for (const Json& entry : json.at("files")) {
      const auto name = entry.at("name").get<std::string>();
      if (!IsPlainName(name)) return damaged;
      manifest.files_.insert({name, {entry.at("size"), entry.at("checksum")}});
    }
    return manifest;
  } catch (const Json::exception&) {
    return damaged;
  }
}

Result<void> ExportManifest::Write(const fs::path& folder) const {
  Json list = Json::array();
  for (const auto& [name, content] : files_) {
    list.push_back({{"name", name}, {"size", content.size}, {"checksum", content.checksum}});
  }
  const Json json = {{"version", kVersion}, {"files", std::move(list)}};
  return files::ReplaceFile(folder / kFile, json.dump(2, ' ', false, Json::error_handler_t::replace) + "\n");
}

void ExportManifest::Add(const std::string& name, std::string_view content) {
  files_.insert({name, ContentOf(content)});
}

void ExportManifest::Add(const ExportManifest& other) {
  files_.insert(other.files_.begin(), other.files_.end());
}

Result<std::vector<fs::path>> ExportManifest::RemoveAllBut(const ExportManifest& kept,
                                                           const fs::path& folder) const {
  std::vector<fs::path> changed;
  for (auto entry = files_.begin(); entry != files_.end(); entry = files_.upper_bound(entry->first)) {
    const std::string& name = entry->first;
    const fs::path file = folder / name;
    std::error_code unknown;
    if (kept.Has(name) || !fs::exists(fs::symlink_status(file, unknown))) continue;
    const auto bytes = files::ReadWholeFile(file, std::numeric_limits<std::uintmax_t>::max());
    const auto [first, last] = files_.equal_range(name);
    const bool isOurs = bytes && std::any_of(first, last, [content = ContentOf(*bytes)](const auto& listed) {
                          return listed.second == content;
                        });
    if (!isOurs) {
      changed.push_back(file);
    } else if (!fs::remove(file, unknown)) {
      return Fault{.text = "cannot be removed: " + unknown.message(),
                   .file = file.string(),
                   .kind = FaultKind::kSystem};
    }
  }
  return changed;
}

}  // namespace vanzet::results
