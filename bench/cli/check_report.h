#pragma once

#include <filesystem>
#include <initializer_list>
#include <string_view>

#include "check/report.h"
#include "cli/commands.h"
#include "project/project.h"
#include "results/definitions.h"

namespace vanzet::cli {

using Findings = std::vector<check::Finding>;

/// Has the program end with the status of findings when one of them is an error; with `isStrict` a warning
/// counts, too.
void CountFindings(const Findings& findings, bool isStrict, Context& context);

/// Checks the project after a run that is stored, and prints the findings where the run printed its own
/// lines. `outputs` are the names of the files that the run has written.
Result<void> CheckAfterRun(const project::Project& project, std::initializer_list<std::string_view> outputs,
                           Context& context);

/// Fails for settings with which the project cannot be checked, before a run is stored that is to be.
Result<void> CheckCanBeChecked(const project::Project& project);

/// A line with the counts of errors and warnings, where there are any, of set-ups that are made from values
/// alone: solids of files take too long for a mention. Without findings, and for a project that cannot be
/// checked, it is empty. Fails when the system fails.
Result<std::string> MentionOfFindings(const project::Project& project,
                                      const std::vector<results::SpurDefinition>& spurs,
                                      const Context& context);

/// Draws each finding as two pictures in a folder, which is created if it does not exist, and returns their
/// names. Files of the same names are replaced, others stay.
/// Errors   the folder is a file, or one in which the project reads what it finds
Result<std::vector<std::filesystem::path>> WritePictures(const std::filesystem::path& folder,
                                                         const Findings& findings,
                                                         const project::Project& project,
                                                         const check::Style& style);

}  // namespace vanzet::cli
