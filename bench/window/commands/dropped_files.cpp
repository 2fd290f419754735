#include "window/commands/dropped_files.h"

#include <fstream>
#include <sstream>

#include "base/files/whole_file.h"
#include "base/letter_case.h"

namespace vanzet::window {
namespace {

namespace fs = std::filesystem;

struct EndingRow {
  const char* ending;
  const char* folder;
};
constexpr EndingRow kEndings[] = {
    {".step", "bodies"}, {".stp", "bodies"}, {".stl", "bodies"}, {".brep", "bodies"}, {".dxf", "figures"},
};

/// A file of the folder with the same stem: a name stands for one body or figure.
std::optional<fs::path> NameTaken(const fs::path& folder, const fs::path& file) {
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
    if (!NameTaken(folder, name)) return folder / name;
  }
}

Result<void> Copy(const fs::path& from, const fs::path& to) {
  std::ifstream in(from, std::ios::binary);
  std::ostringstream bytes;
  bytes << in.rdbuf();
  if (!in || !bytes) return Fault{"cannot be read", from.string()};
  return files::ReplaceFile(to, bytes.str());
}

}  // namespace

std::optional<std::string> FolderFor(const fs::path& file) {
  for (const EndingRow& row : kEndings) {
    if (EqualWithoutCase(file.extension().string(), row.ending)) return row.folder;
  }
  return std::nullopt;
}

Result<std::vector<fs::path>> ImportFiles(const std::vector<fs::path>& files, const fs::path& project,
                                          const std::function<Taken(const fs::path&)>& ask) {
  std::vector<fs::path> copied;
  for (const fs::path& file : files) {
    const auto name = FolderFor(file);
    if (!name) return Fault{"is neither STEP, STL, BREP nor DXF", file.string()};
    const fs::path folder = project / *name;
    std::error_code error;
    fs::create_directories(folder, error);
    const auto taken = NameTaken(folder, file);
    if (taken && fs::equivalent(*taken, file, error)) continue;
    const Taken answer = taken ? ask(*taken) : Taken::kReplace;
    if (answer == Taken::kSkip) continue;
    const fs::path place = answer == Taken::kKeepBoth ? FreeName(folder, file) : folder / file.filename();
    if (const auto done = Copy(file, place); !done) return done.fault();
    if (taken && answer == Taken::kReplace && *taken != place) fs::remove(*taken, error);
    copied.push_back(place);
  }
  return copied;
}

}  // namespace vanzet::window
