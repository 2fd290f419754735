#pragma once

#include <filesystem>
#include <functional>
#include <string>
#include <vector>

#include "base/result.h"

namespace vanzet::project {

/// The names of the samples that come with the workbench, in ascending order. A sample is a folder of project
/// files in `share`/samples.
std::vector<std::string> SampleNames(const std::filesystem::path& share);

/// Work on a project folder that is not in its place yet.
using FillFolder = std::function<Result<void>(const std::filesystem::path& folder)>;

/// Creates the project folder `folder` from a sample; `fill` is called before it gets its name. Fails when
/// something other than an empty folder exists there, for an unknown sample (`FaultKind::kMissing`), and with
/// `fill`; nothing is left of a project that was begun.
Result<void> MakeProject(const std::filesystem::path& folder, const std::string& sample,
                         const std::filesystem::path& share, const FillFolder& fill = {});

}  // namespace vanzet::project
