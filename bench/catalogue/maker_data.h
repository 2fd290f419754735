#pragma once

#include <span>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

#include <nlohmann/json.hpp>

#include "base/length_unit.h"
#include "base/result.h"

/// The figures of the makers of devices: clampdevice.json, beside the catalogue. Their schema is
/// share/schema/clampdevice.schema.json.
///
/// Shape    {"version":1,"devices":{"Chuck 160":{"stroke":6,"clamp_outside":[20,160],"order":"4711"}}}
/// Source   docs/formats/maker-data.md
namespace vanzet::catalogue {

inline constexpr const char* kMakerFile = "clampdevice.json";

using MakerJson = nlohmann::ordered_json;

enum class MakerValue {
  kNumber,  ///< 0 or more
  kRange,   ///< two numbers, the first one not above the second
  kText,
};

/// A figure of a device.
struct MakerKey {
  const char* key;
  MakerValue value;
  const char* unit;  ///< "" for a text
  const char* name;  ///< English, the key of its translations

  bool IsLength() const { return std::string_view(unit) == "mm"; }
};

/// All keys, in the order in which they are shown.
std::span<const MakerKey> MakerKeys();

/// The row of a key, or null.
const MakerKey* FindMakerKey(std::string_view key);

/// The value of a figure as people read it: "20..160", "4500", "4711".
std::string MakerText(const MakerJson& value);

/// The figures of a device with their lengths in a unit in which people read them, to eight decimals.
MakerJson ShownIn(const MakerJson& figures, LengthUnit unit);

/// Devices with their figures as JSON texts.
using MakerFigures = std::vector<std::pair<std::string, std::string>>;

/// The maker data of all devices. Keys that this program does not know are refused, so that none is lost or
/// mistyped unseen.
// NOLINTNEXTLINE(bugprone-exception-escape): a JSON value moves without throwing, and does not say so
class MakerData {
 public:
  /// Errors   the first key or value that the schema does not have, with its path
  static Result<MakerData> Read(const std::string& text, const std::string& file);

  /// The maker data of these devices, each of which is named once; `file` stands for their file.
  /// Errors   kDamaged for figures that are not those of the schema
  static Result<MakerData> OfFigures(const MakerFigures& all, const std::string& file);

  /// The figures of a device, an object; null for a device without any. Valid until the data change.
  const MakerJson* Find(std::string_view device) const;

  /// The devices that have figures.
  std::vector<std::string> Devices() const;

  /// Sets a figure from its text: a number, "20..160", or a text; an empty text removes it. Lengths are those
  /// of the unit.
  /// Errors   an unknown key, a text that is not a value of the key
  Result<void> Set(const std::string& device, std::string_view key, const std::string& text,
                   LengthUnit unit = LengthUnit::kMillimetre);

  /// Gives a device all figures of another one; removes them where there are none.
  void Put(const std::string& device, const MakerJson* figures);

  /// The same with lengths in a unit in which people read them.
  MakerData ShownIn(LengthUnit unit) const;

  /// Takes the order, the schema and the comments of a file that these data are to replace.
  void KeepFormOf(const MakerData& former);

  /// The bytes of the file; empty when no device has figures and there was no file.
  std::string Text() const;

  /// Fails when writing the file would lose its comments.
  Result<void> CheckChangeable(const std::string& file) const;

 private:
  void Index();

  MakerJson json_;                                          ///< null: no file was read
  std::unordered_map<std::string, std::size_t> positions_;  ///< of devices in their object
  bool hasComments_ = false;
};

}  // namespace vanzet::catalogue
