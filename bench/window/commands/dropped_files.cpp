#include "window/commands/dropped_files.h"

#include <array>
#include <fstream>

#include "base/files/regular_file.h"
#include "base/files/whole_file.h"
#include "base/letter_case.h"
#include "modeller/body_folder.h"

namespace vanzet::window {
namespace {

namespace fs = std::filesystem;

/// The file of the folder with the same stem, if there is one: each name is that of one body or figure.
std::optional<fs::path> FindName(const fs::path& folder, const fs::path& file) {
  std::error_code error;
  for (const fs::directory_entry& entry : fs::directory_iterator(folder, error)) {
    if (!EqualWithoutCase(entry.path().stem().string(), file.stem().string())) continue;
    if (FolderFor(entry.path()) == folder.filename().string()) return entry.path();
  }
  return std::nullopt;
}

/// "casting-2.step", or the next number that is free.
fs::path FreeName(const fs::path& folder, const fs::path& file) {
  for (int number = 2;; ++number) {
    const fs::path name = file.stem().string() + "-" + std::to_string(number) + file.extension().string();
    if (!FindName(folder, name)) return folder / name;
  }
}

Result<void> Copy(const fs::path& from, const fs::path& to) {
  VANZET_DO(files::CheckRegularFile(from));
  std::ifstream in(from, std::ios::binary);
  VANZET_TRY(auto copy, files::FileReplacement::Begin(to));
  std::array<char, 1U << 16U> piece;
  while (in.read(piece.data(), piece.size()) || in.gcount() > 0) {
    VANZET_DO(copy.Write({piece.data(), static_cast<std::size_t>(in.gcount())}));
  }
  if (!in.eof()) return Fault{"cannot be read", from.string()};
  return copy.Commit();
}

}  // namespace

std::optional<std::string> FolderFor(const fs::path& file) {
  if (modeller::IsBodyFile(file)) return "bodies";
  if (EqualWithoutCase(file.extension().string(), ".dxf")) return "figures";
  return std::nullopt;
}

Result<std::vector<fs::path>> ImportFiles(const std::vector<fs::path>& files, const fs::path& project,
                                          const NameQuestion& ask) {
  std::vector<fs::path> copied;
  for (const fs::path& file : files) {
    const auto name = FolderFor(file);
    if (!name) return Fault{"not a STEP, IGES, BREP, STL, 3MF or DXF file", file.string()};
    const fs::path folder = project / *name;
    std::error_code error;
    fs::create_directories(folder, error);
    const auto existing = FindName(folder, file);
    if (existing && fs::equivalent(*existing, file, error)) continue;
    const NameAnswer answer = existing ? ask(*existing) : NameAnswer::kReplace;
    if (answer == NameAnswer::kSkip) continue;
    const fs::path place =
        answer == NameAnswer::kKeepBoth ? FreeName(folder, file) : folder / file.filename();
    VANZET_DO(Copy(file, place));
    if (existing && answer == NameAnswer::kReplace && *existing != place) fs::remove(*existing, error);
    copied.push_back(place);
  }
  return copied;
}

}  // namespace vanzet::window
