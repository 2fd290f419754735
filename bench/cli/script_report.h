#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "project/project.h"
#include "vdm/store.h"

namespace vanzet::cli {

/// The effects of a script of the dialog, in a line for people:
///
///   job.txt: changed spur 0; 1 message, the first: 'Please enter a number.'; closed by OK
///
/// Story    `Begin` before the script is played, `Line` after it and before the commit
class ScriptReport {
 public:
  /// Project and store have to outlive the report.
  static Result<ScriptReport> Begin(const project::Project& project, const vdm::VdmStore& store);

  /// Compares the equipment of all spurs with what it was. The messages are those of the transcript; one that
  /// is not a regular file cannot be read again, and the line says nothing of messages then.
  Result<std::string> Line(const std::string& script, const std::filesystem::path& transcript) const;

 private:
  ScriptReport(const project::Project& project, const vdm::VdmStore& store)
      : project_(&project), store_(&store) {}

  /// The equipment of each spur, as the text of its form.
  Result<std::vector<std::string>> Equipment() const;
  Result<std::string> Changes() const;

  const project::Project* project_;
  const vdm::VdmStore* store_;
  std::vector<std::string> before_;
};

}  // namespace vanzet::cli
