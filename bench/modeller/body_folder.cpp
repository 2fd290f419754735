#include "modeller/body_folder.h"

#include <algorithm>
#include <array>

#include "base/letter_case.h"
#include "base/near_words.h"
#include "modeller/laying.h"

namespace vanzet::modeller {
namespace {

namespace fs = std::filesystem;

/// In order of precedence.
constexpr std::array<std::string_view, 7> kEndings = {".step", ".stp", ".brep", ".iges",
                                                      ".igs",  ".stl", ".3mf"};

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

Result<BodyFile> FindBodyFile(std::string_view name, const fs::path& folder) {
  std::vector<std::string> names;
  for (const BodyFile& file : BodyFilesIn(folder)) {
    if (EqualWithoutCase(file.name, name)) return file;
    names.push_back(file.name);
  }
  return Fault{.text = "body '" + std::string(name) + "' does not exist" + DidYouMean(name, names),
               .file = folder.string(),
               .kind = FaultKind::kMissing};
}

Result<std::int32_t> FindOrImportBody(std::string_view name, BodyTable& table, const fs::path& folder,
                                      const Exchange& exchange, const Foresight& foresight) {
  if (const std::int32_t number = table.NumberOf(name); number != 0) return number;
  VANZET_TRY(const auto file, FindBodyFile(name, folder));
  VANZET_TRY(auto body, LayAsFileSays(ImportBody(file.path, exchange, foresight), file.path));
  return table.Add(std::move(body), file.name);
}

std::map<std::string, Result<Body>> ImportNamedBodies(const std::set<std::string>& names,
                                                      const fs::path& folder, const Exchange& exchange,
                                                      const Foresight& foresight) {
  std::map<std::string, Result<Body>> bodies;
  std::vector<std::string> found;
  std::vector<fs::path> files;
  for (const std::string& name : names) {
    const auto file = FindBodyFile(name, folder);
    if (!file) {
      bodies.emplace(name, file.fault());
      continue;
    }
    found.push_back(name);
    files.push_back(file->path);
  }
  if (files.empty()) return bodies;
  auto read = ImportBodies(files, exchange, foresight);
  for (std::size_t i = 0; i < found.size(); ++i) bodies.emplace(found[i], LayAsFileSays(read[i], files[i]));
  return bodies;
}

}  // namespace vanzet::modeller
