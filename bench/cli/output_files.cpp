#include "cli/output_files.h"

#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>

#include "base/files/system_fault.h"
#include "project/catalogue.h"
#include "vdm/embedded/engine.h"

namespace vanzet::cli {
namespace {

namespace fs = std::filesystem;

constexpr mode_t kNewFile = 0666;
constexpr const char* kStandard = "-";  ///< as an output: standard output

Fault CannotBeWritten(const fs::path& file, int error) {
  return files::SystemFault("cannot be written", error, file);
}

/// The files with fixed names that commands read in a project.
constexpr const char* kProjectFiles[] = {
    "bench.ini", "machine.ini", "clampdevice.cld", "drawing.txt", vdm::SqliteEngine::kStoreFile,
    "store.lock"};

/// The folders of a project all of whose files are inputs.
constexpr const char* kProjectFolders[] = {"bodies", "figures"};

/// True when both names lead to the same file. Pipes, devices and standard output have no
/// content to lose.
bool IsSameFile(const fs::path& output, const fs::path& other) {
  if (output.empty() || other.empty() || output == kStandard) return false;
  std::error_code unknown;
  const fs::file_status status = fs::status(output, unknown);
  if (fs::is_regular_file(status)) return fs::equivalent(output, other, unknown);
  const auto nameOf = [&](const fs::path& file) {
    return fs::weakly_canonical(fs::absolute(file, unknown), unknown);
  };
  return !fs::exists(status) && nameOf(output) == nameOf(other);
}

}  // namespace

Result<void> CheckIsNoInput(const fs::path& output, const std::vector<fs::path>& inputs) {
  if (std::ranges::none_of(inputs, [&](const fs::path& input) { return IsSameFile(output, input); })) {
    return {};
  }
  return Fault{"cannot be written: this command reads the file", output.string()};
}

Result<void> CheckAreTwoFiles(const fs::path& output, const fs::path& other) {
  if (output == kStandard && other == kStandard) {
    return Fault{"standard output cannot take two outputs; name a file for one of them"};
  }
  if (!IsSameFile(output, other)) return {};
  return Fault{"cannot be written: another option of this command names the file", output.string()};
}

std::vector<fs::path> InputsOf(const project::Project& project) {
  std::vector<fs::path> inputs;
  for (const char* const name : kProjectFiles) inputs.push_back(project.folder() / name);
  inputs.push_back(project.folder() / project.paths().Resolve(project.Environment("ppdefini")));
  const auto& settings = project.settings().project;
  const auto catalogue = settings.find(project::kCatalogueSetting);
  inputs.push_back(
      project::CatalogueFile(project, catalogue == settings.end() ? "" : catalogue->second.value));
  for (const char* const name : kProjectFolders) {
    std::error_code error;
    for (const auto& entry : fs::directory_iterator(project.folder() / name, error)) {
      inputs.push_back(entry.path());
    }
  }
  return inputs;
}

Result<void> CheckIsNoInputFolder(const fs::path& folder, const project::Project& project) {
  for (const char* const input : kProjectFolders) {
    std::error_code unknown;
    if (!fs::equivalent(folder, project.folder() / input, unknown)) continue;
    return Fault{"cannot be the folder of the files: the project reads its " + std::string(input) + " there",
                 folder.string()};
  }
  return {};
}

Result<void> CheckOutputFile(const fs::path& file) {
  if (file.empty()) return {};
  std::error_code unknown;
  const fs::file_status status = fs::status(file, unknown);
  if (fs::is_directory(status)) return CannotBeWritten(file, EISDIR);
  if (fs::exists(status) && !fs::is_regular_file(status)) {
    return access(file.c_str(), W_OK) == 0 ? Result<void>() : CannotBeWritten(file, errno);
  }
  const int opened = open(file.c_str(), O_WRONLY | O_CREAT | O_CLOEXEC, kNewFile);
  if (opened < 0) return CannotBeWritten(file, errno);
  close(opened);
  return {};
}

}  // namespace vanzet::cli
