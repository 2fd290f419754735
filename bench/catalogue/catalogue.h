#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "base/length_unit.h"
#include "base/result.h"
#include "devices/device_params.h"

/// The catalogue of clamp devices, as the workbench reads and writes it.
///
/// The module reads and writes the same file in src/catalogue. That is the other side of a contract between
/// two programs: the file is parsed here once more, from the page alone.
///
/// Source   docs/formats/catalogue.md
namespace vanzet::catalogue {

/// The bytes that a line may have; a longer one is read as several.
inline constexpr std::size_t kLongestLine = 1023;

/// A device of a catalogue.
struct Entry {
  std::string name;
  DeviceParams params;    ///< without the values that the type does not have; type 0: no device is known
  int line = 0;           ///< of its name in the file that was read, from 1; 0: added since
  bool hasValues = true;  ///< false for a last name without a value line

  /// The bytes of both lines with their ends, and the part of them that is the value line without its end.
  /// They belong to the catalogue and its copies.
  std::string_view bytes = {};
  std::size_t valuesAt = 0, valuesSize = 0;

  std::string_view Values() const { return bytes.substr(valuesAt, valuesSize); }

  /// The line of the values, for findings.
  int ValuesLine() const { return hasValues ? line + 1 : line; }
};

/// The devices of a catalogue in the order of its file. The bytes of devices that are not changed stay as
/// they are.
///
/// Threads  one, also for functions that change nothing
class Catalogue {
 public:
  static Catalogue Read(std::string text);

  const std::vector<Entry>& entries() const { return entries_; }

  /// The first device of that name, or null. Valid until the catalogue changes.
  const Entry* Find(std::string_view name) const;

  /// Replaces the values of the name, or appends both. Names and values are those of one line.
  /// Errors   the last name of the file has no value line
  Result<void> Put(const std::string& name, const DeviceParams& params);

  /// Removes the first device of that name; false when it is not there.
  bool Remove(std::string_view name);

  /// Gives the first device of a name another one, in its place; false when it is not there. Requires: the
  /// new name is of one line, and no device has it.
  bool Rename(std::string_view name, const std::string& newName);

  /// Puts back a device that was removed, with its bytes: at its position, or at the end of a shorter
  /// catalogue.
  /// Errors   those of `Put`
  Result<void> Insert(std::size_t position, Entry entry);

  /// The names, each once.
  std::vector<std::string> Names() const;

  /// The bytes of the file.
  std::string Text() const;

  /// The same devices with their lengths in a unit in which people read them; `Text` stays the same.
  Catalogue ShownIn(LengthUnit unit) const;

 private:
  /// The position of the first entry of each name. Made when it is first needed: lists and searches do not.
  std::unordered_map<std::string, std::size_t>& Positions() const;

  /// Keeps bytes as long as this catalogue or a copy of it.
  std::string_view Keep(std::string bytes);
  /// Makes another device possible after the last one.
  Result<void> EndLast();
  void SetValues(Entry& entry, const DeviceParams& params);

  std::vector<std::shared_ptr<const std::string>> texts_;  ///< those of the entries
  std::vector<Entry> entries_;
  mutable std::unordered_map<std::string, std::size_t> positions_;
  std::string_view lineEnd_ = "\n";  ///< of new lines
};

/// Fails for a text that is not a catalogue: at least half of its value lines, or its only line, are not
/// those of a device. The fault names the first such line. A text without words is a catalogue.
Result<void> CheckIsCatalogue(const Catalogue& catalogue, const std::string& file);

/// The value line of a device, without its end.
std::string ValueLineOf(const DeviceParams& params);

}  // namespace vanzet::catalogue
