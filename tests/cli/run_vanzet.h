#pragma once

#include <gmock/gmock.h>

#include <string>
#include <vector>

#include "support/temporary_folder.h"

namespace vanzet::test {

/// What a run of the program gave.
struct Outcome {
  int status;  ///< the exit status; 128 and more when a signal ended it
  std::string out;
  std::string err;
};

/// A folder to work in, and the program run there by a shell.
class CommandLineTest : public testing::Test {
 protected:
  /// Runs "vanzet ARGUMENTS"; `before` stands before it on the shell's line, as settings and limits do.
  Outcome Vanzet(const std::string& arguments, const std::string& before = "", const std::string& input = "");

  /// The sections of an operation of a VDM of a project.
  std::vector<std::vector<std::string>> SectionsOf(int vdm, std::size_t operation,
                                                   const std::string& project = "lathe");

  /// Makes the sample project "lathe", whose definitions are empty.
  void MakeProject();
  void MakeUpgradedProject();

  /// Makes the same without a store, as older versions of the program left it.
  void MakeProjectWithoutDefinitions();

  const TemporaryFolder folder;
};

}  // namespace vanzet::test
