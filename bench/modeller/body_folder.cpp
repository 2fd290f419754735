#include "modeller/body_folder.h"

#include <algorithm>
#include <array>

#include "base/letter_case.h"
#include "base/near_words.h"

namespace vanzet::modeller {
namespace {

namespace fs = std::filesystem;

/// In order of precedence.
constexpr std::array<std::string_view, 4> kEndings = {".step", ".stp", ".brep", ".stl"};

std::size_t RankOf(const fs::path& path) {
  const std::string ending = path.extension().string();
  const auto* const found =
      std::ranges::find_if(kEndings, [&](std::string_view known) { return EqualWithoutCase(known, ending); });
  return static_cast<std::size_t>(found - kEndings.begin());
}

bool ComesBefore(const BodyFile& a, const BodyFile& b) {
  if (!EqualWithoutCase(a.name, b.name)) return LessWithoutCase()(a.name, b.name);
  if (RankOf(a.path) != RankOf(b.path)) return RankOf(a.path) < RankOf(b.path);
  return a.path < b.path;
}

}  // namespace

bool IsBodyFile(const fs::path& path) {
  return RankOf(path) < kEndings.size();
}

std::vector<BodyFile> BodyFilesIn(const fs::path& folder) {
  std::vector<BodyFile> files;
  std::error_code failure;
  for (fs::directory_iterator entry(folder, failure), end; !failure && entry != end;
       entry.increment(failure)) {
    std::error_code unknown;
    if (!IsBodyFile(entry->path()) || !entry->is_regular_file(unknown)) continue;
    files.push_back({entry->path().stem().string(), entry->path()});
  }
  std::ranges::sort(files, ComesBefore);
  const auto isSame = [](const BodyFile& a, const BodyFile& b) { return EqualWithoutCase(a.name, b.name); };
  files.erase(std::unique(files.begin(), files.end(), isSame), files.end());
  return files;
}

Result<std::int32_t> FindOrImportBody(std::string_view name, BodyTable& table, const fs::path& folder,
                                      const Exchange& exchange) {
  if (const std::int32_t number = table.NumberOf(name); number != 0) return number;
  std::vector<std::string> names;
  for (const BodyFile& file : BodyFilesIn(folder)) {
    names.push_back(file.name);
    if (!EqualWithoutCase(file.name, name)) continue;
    VANZET_TRY(auto body, ImportBody(file.path, exchange));
    return table.Add(std::move(body), file.name);
  }
  return Fault{.text = "body '" + std::string(name) + "' does not exist" + DidYouMean(name, names),
               .file = folder.string(),
               .kind = FaultKind::kMissing};
}

}  // namespace vanzet::modeller
