#pragma once

#include <cstdint>
#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "base/result.h"

namespace vanzet {

/// The shop's parametric clamp devices: the lines of its clampdevice file, held in memory.
///
/// Shape    pairs of lines, a device's name and its value line (macro/device_record.h); in file order. A last
///          name may lack its value line
/// Errors   a fault with the file and the reason; catalogue/catalogue_work.h asks the user and reports them
/// Source   docs/formats/catalogue.md
///
/// Names are compared exactly. A name or a value line that is put in is cut where a line of the file ends: at
/// a line feed, and at 1023 bytes.
class CDevice {
 public:
  /// Finds the path: the project's setting CLAMP_DB_PATH, or, where that has fewer than 3 characters, the
  /// host's setting "clampmdb". The file is not read yet.
  CDevice();
  virtual ~CDevice() = default;

  /// Has the user choose the file; true when one was chosen. It need not exist. One that is to be written has
  /// a name suggested, "clampdevice" and the country.
  bool SelectFile(bool forReading, void* owner);

  /// Replaces the lines by those of the file. Fails when it cannot be opened for reading and writing; there
  /// are no lines then.
  Result<void> ReadFile();

  /// True for a file that can be read and that the system keeps from being changed.
  bool MayOnlyBeRead() const;

  /// Makes the lines the content of the file. When it fails the old content stays.
  Result<void> WriteFile() const;

  /// Reads the file again, has `change` change the lines, and writes the file, while no other process can do
  /// the same. Returns false, with nothing written, when `change` returns false. A file that does not exist
  /// any more is made again from the lines. Fails also for a file that is not a catalogue.
  Result<bool> ChangeFile(const std::function<bool()>& change);

  /// Replaces the lines by those of another catalogue.
  void TakeLinesOf(const CDevice& other) { lines_ = other.lines_; }

  /// Replaces the value line of the name, or appends both.
  void PutDevice(const std::string& name, const std::string& valueLine);

  /// Removes the name and its value line; false when it is not there.
  bool RemoveDevice(const std::string& name);

  bool HasDevice(const std::string& name) const;

  /// The value line of the name; empty for an unknown name.
  std::string ValueLineOf(const std::string& name) const;

  /// Puts the names of the devices of that type into `names`, in file order.
  /// Throws std::out_of_range "invalid vector subscript" on a last name without a value line, with the names
  /// before it in the list.
  void NamesOfType(std::int32_t type, std::vector<std::string>& names) const;

  const std::string& path() const { return path_; }
  void SetPath(const std::string& path) { path_ = path; }

 private:
  /// Reads the file, and fails for one that is not a catalogue. The lines stay where the file cannot be read.
  Result<void> ReadAgain(const std::filesystem::path& file);

  /// The index of the name's line.
  std::optional<std::size_t> Find(const std::string& name) const;

  std::string path_;
  std::vector<std::string> lines_;
};

}  // namespace vanzet
