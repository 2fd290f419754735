#pragma once

#include <filesystem>
#include <vector>

#include "base/result.h"
#include "project/project.h"

/// Checks of the files that a command writes, before it begins its work.
namespace vanzet::cli {

/// Fails when the file cannot be opened for writing. One that does not exist is created, empty; of one that
/// exists the content stays. Pipes and devices are not opened: their readers would see it. An empty name is
/// that of no file.
Result<void> CheckOutputFile(const std::filesystem::path& file);

/// Fails when `output` is one of the inputs, by whatever name, so that the command would replace what it
/// reads. Empty names are those of no files.
Result<void> CheckIsNoInput(const std::filesystem::path& output,
                            const std::vector<std::filesystem::path>& inputs);

/// Fails when two outputs of a command are the same file, so that one would overwrite the other, or both are
/// standard output.
Result<void> CheckAreTwoFiles(const std::filesystem::path& output, const std::filesystem::path& other);

/// Fails for the folders in which the project reads what it finds.
Result<void> CheckIsNoInputFolder(const std::filesystem::path& folder, const project::Project& project);

/// The files of a project that commands read: its settings, machine, catalogue, drawing and store, and what
/// is in the folders of bodies and figures.
std::vector<std::filesystem::path> InputsOf(const project::Project& project);

}  // namespace vanzet::cli
