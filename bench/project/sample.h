#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "base/result.h"

namespace vanzet::project {

/// The names of the samples that come with the workbench, in ascending order. A sample is a folder of project
/// files in `share`/samples.
std::vector<std::string> SampleNames(const std::filesystem::path& share);

/// Creates the project folder `folder` from a sample. Fails when something other than an empty folder exists
/// there, and for an unknown sample (`FaultKind::kMissing`); nothing is left of a project that was begun.
Result<void> MakeProject(const std::filesystem::path& folder, const std::string& sample,
                         const std::filesystem::path& share);

}  // namespace vanzet::project
