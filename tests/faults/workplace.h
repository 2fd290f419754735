#pragma once

#include <filesystem>
#include <map>
#include <string>

#include "faults/commands.h"
#include "support/temporary_folder.h"

namespace vanzet::faults {

/// The content of a folder: the text of each file by its path in the folder, of a store the items of all its
/// VDMs, and "folder" for each folder. Files that carry nothing from run to run, such as a lock, are left
/// out.
using Content = std::map<std::string, std::string>;

Content ContentOf(const std::filesystem::path& folder);

/// The result of a run of the program.
struct Outcome {
  int status = 0;  ///< the exit status; 128 and more when a signal ended it
  std::string out;
  std::string err;
  std::string report;  ///< the lines of the library that has calls fail
};

/// A folder to run the program in, with folders beside it for its temporary files and its output.
class Workplace {
 public:
  Workplace();

  /// Puts the forms, scripts and models there that the commands name.
  void PutGivenFiles() const;

  /// Changes a text in the store of the project, so that it does not fit its checksum.
  void DamageStore() const;

  /// Gives the project a store as the first version wrote it.
  void AgeStore() const;

  /// Makes it a copy of another one.
  void CopyFrom(const Workplace& other) const;

  /// Runs the program. `fault` is for VANZET_FAULT; when it is empty, no call fails. A fourth word is a file
  /// or folder that the failing calls are about.
  Outcome Vanzet(const Words& words, const std::string& fault = "") const;

  /// The same without waiting for the end: its process.
  int Start(const Words& words, const std::string& fault = "", const std::string& streams = "") const;
  Outcome Finish(int process, const std::string& streams = "") const;

  std::filesystem::path work() const { return root_ / "work"; }
  std::filesystem::path temporary() const { return root_ / "tmp"; }

 private:
  const test::TemporaryFolder root_;
};

}  // namespace vanzet::faults
