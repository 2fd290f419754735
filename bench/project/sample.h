#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "base/result.h"

namespace vanzet::project {

/// The samples that come with the workbench, by name, rising. A sample is a folder of project files in
/// `share`/samples.
std::vector<std::string> SampleNames(const std::filesystem::path& share);

/// Makes the project folder `folder` from a sample. Refused when there is something at that place already,
/// but for an empty folder; what was begun is then taken away.
Result<void> MakeProject(const std::filesystem::path& folder, const std::string& sample,
                         const std::filesystem::path& share);

}  // namespace vanzet::project
