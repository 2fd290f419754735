#include "project/sample.h"

#include <unistd.h>

#include <algorithm>
#include <system_error>

#include "project/project.h"

namespace vanzet::project {
namespace {

namespace fs = std::filesystem;

/// The folders of a project that a sample need not have files for.
constexpr const char* kFolders[] = {"bodies", "figures", "tmp"};

Fault FaultOf(const fs::path& place, const std::error_code& error) {
  return Fault{"cannot be made: " + error.message(), place.string()};
}

fs::path WithoutTrailingSlash(const fs::path& folder) {
  return folder.has_filename() ? folder : folder.parent_path();
}

std::string Joined(const std::vector<std::string>& names) {
  std::string text;
  for (const std::string& name : names) text += (text.empty() ? "" : ", ") + name;
  return text;
}

}  // namespace

std::vector<std::string> SampleNames(const fs::path& share) {
  std::vector<std::string> names;
  std::error_code error;
  for (fs::directory_iterator entry(share / "samples", error), end; !error && entry != end;
       entry.increment(error)) {
    if (entry->is_directory()) names.push_back(entry->path().filename().string());
  }
  std::ranges::sort(names);
  return names;
}

Result<void> MakeProject(const fs::path& folder, const std::string& sample, const fs::path& share) {
  const std::vector<std::string> known = SampleNames(share);
  if (std::ranges::find(known, sample) == known.end()) {
    return Fault{"there is no sample '" + sample + "'; there are: " + Joined(known)};
  }
  VANZET_DO(CheckFolderName(folder));
  std::error_code error;
  if (fs::exists(folder, error) && (!fs::is_directory(folder, error) || !fs::is_empty(folder, error))) {
    return Fault{"is there already and not an empty folder", folder.string()};
  }
  // Made beside and renamed: whoever dies on the way leaves no half project under the name.
  const fs::path place = WithoutTrailingSlash(folder);
  const fs::path beside = place.string() + ".new-" + std::to_string(getpid());
  fs::create_directories(beside, error);
  if (!error) fs::copy(share / "samples" / sample, beside, fs::copy_options::recursive, error);
  for (const char* const name : kFolders) {
    if (!error) fs::create_directories(beside / name, error);
  }
  if (!error) fs::rename(beside, place, error);
  if (!error) return {};
  std::error_code ignored;
  fs::remove_all(beside, ignored);
  return FaultOf(folder, error);
}

}  // namespace vanzet::project
