#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "catalogue/shop_place.h"

namespace vanzet::window {

/// Changes of devices in a catalogue, each written at once and by the rules of the dialog, and the way back.
/// Changes of other programs stay.
///
/// Units    lengths that are typed, and those in faults, are of the unit
class DeviceEdits {
 public:
  DeviceEdits(catalogue::ShopPlace place, LengthUnit unit) : place_(std::move(place)), unit_(unit) {}

  /// The catalogue as it is now.
  Result<catalogue::Shop> Read() const { return catalogue::ReadShop(place_); }

  // Each returns the catalogue as it was written.
  // Errors   a name or value that the catalogue refuses; a device that is gone; those of
  //          `catalogue::ChangeShop`

  Result<catalogue::Shop> SetLetter(const std::string& device, char letter, const std::string& text);
  Result<catalogue::Shop> SetFigure(const std::string& device, const std::string& key,
                                    const std::string& text);
  /// Fails when another device has the name.
  Result<catalogue::Shop> Rename(const std::string& device, const std::string& name);
  /// The maker data go with the devices.
  Result<catalogue::Shop> Remove(const std::vector<std::string>& devices);

  /// A device that was added, and the catalogue.
  struct Added {
    std::string name;
    catalogue::Shop shop;
  };
  /// Adds a device with the usual values of its type, under a name that is free.
  Result<Added> Add(std::int32_t type, const std::string& name);
  /// The same with the values and maker data of another device.
  Result<Added> AddCopy(const std::string& device);

  /// Takes back the last change. Fails when a device was changed by others since. Requires: `CanUndo`.
  Result<catalogue::Shop> Undo();
  bool CanUndo() const { return !undo_.empty(); }

  const catalogue::ShopPlace& place() const { return place_; }
  LengthUnit unit() const { return unit_; }

 private:
  /// A device with its place and its figures.
  struct State {
    std::size_t position = 0;
    catalogue::Entry entry;
    std::string bytes;  ///< of the entry, whose own are those of its catalogue
    std::optional<catalogue::MakerJson> figures;

    bool HasValuesOf(const State& other) const;
  };
  /// A device before and after; nothing: it is not there.
  struct Edit {
    std::optional<State> before, after;
    bool isRemoval = false;  ///< what is there afterwards is another device of that name
  };
  using Edits = std::vector<Edit>;
  using Work = std::function<Result<Edits>(catalogue::Shop& shop)>;

  static std::optional<State> Find(const catalogue::Shop& shop, const std::string& device);
  static Result<State> StateOf(const catalogue::Shop& shop, const std::string& device);
  static Result<void> TakeBack(catalogue::Shop& shop, const Edit& edit);
  static Result<void> PutBack(catalogue::Shop& shop, const std::string& name, const Edit& edit);
  Result<catalogue::Shop> Change(const Work& work);
  Result<catalogue::Shop> ChangeDevice(const std::string& device,
                                       const std::function<Result<void>(catalogue::Shop&)>& work);
  Result<Added> AddNamed(const std::string& name,
                         const std::function<Result<void>(catalogue::Shop&, const std::string& free)>& work);

  catalogue::ShopPlace place_;
  LengthUnit unit_;
  std::vector<Edits> undo_;
};

}  // namespace vanzet::window
