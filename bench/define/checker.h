#pragma once

#include <set>
#include <string>
#include <string_view>
#include <vector>

#include <nlohmann/json.hpp>

#include "base/length_unit.h"
#include "define/check.h"
#include "define/tables.h"

namespace vanzet::define {

/// A value of a form with its path. It is valid until a key is added to the object that contains it.
struct Place {
  Json& json;
  std::string path;

  bool Has(std::string_view key) const { return json.contains(std::string(key)); }
  std::string PathOf(std::string_view key) const { return Below(path, std::string(key)); }
  /// Requires: it has the key.
  Place operator[](std::string_view key) const { return {json.at(std::string(key)), PathOf(key)}; }
};

/// The reason for refusing an unknown word.
std::string UnknownReason(const std::string& what, const std::string& word,
                          const std::vector<std::string>& known);

inline constexpr const char* kMissing = "is missing";

/// Goes through a form once and collects the refusals.
class Checker {
 public:
  explicit Checker(const Surroundings& surroundings) : surroundings_(surroundings) {}

  void Form(const Place& form);

  const Refusals& refusals() const { return refusals_; }

 private:
  using Keys = std::vector<std::string>;

  void Schema(const Place& form);
  void Version(const Place& form);
  void Unit(const Place& form);
  void Spur(const Place& spur);
  void SpurNumber(const Place& spur);
  void Center(const Place& spur);
  void SteadyRest(const Place& spur);
  void Datum(const Place& spur);
  void Spindle(const Place& spur, std::size_t spindle);
  void Clamp(const Place& spindle);

  // Devices: checker_devices.cpp.
  void Device(const Place& device, const DeviceRow& row);
  void OwnDevice(const Place& device, const DeviceRow& row);
  bool IsOfClass(const Place& file, const DeviceRow& row);
  void CatalogueDevice(const Place& device, const DeviceRow& row);
  std::int32_t TypeOf(const Place& device, const DeviceRow& row, const DeviceParams* known);
  bool Letters(const Place& device, std::int32_t type, const DeviceParams* known);
  DeviceParams InUnitOfForm(DeviceParams params) const;
  void Solid(const Place& device, std::int32_t type, const Keys& given);
  std::string NearDevices(const DeviceRow& row, const std::string& name) const;

  // Raw and finished parts: checker_parts.cpp.
  void RawPart(const Place& spindle, bool isSub);
  void Finished(const Place& spindle, bool isSub);
  /// Checks a record that is of one kind of several; returns the kind of a sound one.
  template <class Record>
  const Kind<Record>* OneOf(const Place& spindle, const Part<Record>& part, bool isSub);
  void Cylinder(const Place& billet);
  void Bore(const Place& cylinder);
  void Allowances(const Place& cylinder);
  void FilesOf(const Place& record);

  /// Each returns false when it refuses the value; unknown keys of an object are refused one by one.
  bool IsObject(const Place& place, const Keys& known);
  bool IsText(const Place& place);
  /// A sound length becomes millimetres.
  bool IsNumber(const Place& place, const Quantity& quantity);
  bool IsValue(const Place& place, double /*of*/, const Quantity& quantity) {
    return IsNumber(place, quantity);
  }
  bool IsValue(const Place& place, std::int32_t /*of*/, const Quantity& quantity);
  bool IsValue(const Place& place, bool /*of*/, const Quantity& quantity);
  bool IsValue(const Place& place, const std::string& /*of*/, const Quantity& /*quantity*/) {
    return IsText(place);
  }

  /// Checks the values of a record; `others` are further keys that it may have.
  template <class Record>
  bool Fields(const Place& record, std::span<const Field<Record>> fields, bool isSub, Keys others = {});
  template <class Record>
  bool Value(const Place& record, const Field<Record>& field, bool isSub);

  /// A length of millimetres as the form would have it.
  std::string Shown(double millimetres) const { return LengthText(millimetres, unit_); }

  bool Refuse(const Place& place, std::string reason) { return Refuse(place.path, std::move(reason)); }
  bool Refuse(const std::string& path, std::string reason) {
    refusals_.push_back({path, std::move(reason)});
    return false;
  }

  const Surroundings& surroundings_;
  Refusals refusals_;
  std::set<std::int32_t> spurs_;
  LengthUnit unit_ = LengthUnit::kMillimetre;  ///< of the lengths that are not yet checked
};

}  // namespace vanzet::define
