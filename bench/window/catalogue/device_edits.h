#pragma once

#include <functional>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "catalogue/shop_place.h"

namespace vanzet::window {

/// Changes of single values in a catalogue, each written at once and by the rules of the dialog, and the way
/// back. What other programs write meanwhile stays.
class DeviceEdits {
 public:
  explicit DeviceEdits(catalogue::ShopPlace place) : place_(std::move(place)) {}

  /// The catalogue as it is now.
  Result<catalogue::Shop> Read() const { return catalogue::ReadShop(place_); }

  // Each returns the catalogue as it was written.
  // Errors   a value that the catalogue refuses; a device that is gone; those of `catalogue::ChangeShop`

  Result<catalogue::Shop> SetLetter(const std::string& device, char letter, const std::string& text);
  Result<catalogue::Shop> SetFigure(const std::string& device, const std::string& key,
                                    const std::string& text);

  /// Takes back the last change. Fails when the device was changed by others since. Requires: `CanUndo`.
  Result<catalogue::Shop> Undo();
  bool CanUndo() const { return !undo_.empty(); }

  const catalogue::ShopPlace& place() const { return place_; }

 private:
  /// A device with its figures.
  struct State {
    DeviceParams params;
    std::optional<catalogue::MakerJson> figures;

    bool operator==(const State&) const = default;
  };
  struct Edit {
    std::string device;
    State before, after;
  };
  using Work = std::function<Result<void>(catalogue::Shop&, const State& before)>;

  static Result<State> StateOf(const catalogue::Shop& shop, const std::string& device);
  Result<catalogue::Shop> Change(const std::string& device, const Work& work, Edit& edit) const;
  Result<catalogue::Shop> ChangeAndNote(const std::string& device, const Work& work);

  catalogue::ShopPlace place_;
  std::vector<Edit> undo_;
};

}  // namespace vanzet::window
