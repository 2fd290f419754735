#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "view/dialog_state.h"

namespace vanzet::dialog {

using view::ControlKind;

/// A control as its window template has it, before anything is put into it. The texts that come from messages
/// are not here: a page sets them when its window is made.
struct ControlTemplate {
  std::int32_t id;
  ControlKind kind;
  std::string_view text = {};     ///< the same in every language
  std::string_view caption = {};  ///< the letter next to an edit
  bool isVisible = true;
  bool isList = false;      ///< a combo without an edit
  std::int32_t bitmap = 0;  ///< of a picture that is always the same
  std::int32_t least = 0;   ///< spins
  std::int32_t most = 0;
  std::int32_t buddy = 0;  ///< the edit that shows a spin's value
};

/// The text of a real in an edit: "%.15g", with a point under every locale.
std::string RealText(double value);

/// The real in the text of an edit. An empty text is 0, a decimal comma counts as a point, and blanks around
/// the number are ignored. Empty when the text is not a finite number.
std::optional<double> RealOf(std::string_view text);

/// The controls of one window.
/// Requires: each id that is asked for is in the template, and its control is of the kind meant.
class Controls {
 public:
  /// `rows` has to outlive the controls.
  explicit Controls(std::span<const ControlTemplate> rows);

  const std::vector<view::Control>& All() const { return controls_; }

  /// Remembers the contents of the moment as those that are stored.
  void Keep() { kept_ = controls_; }

  /// The controls whose contents differ from those kept; none before anything was kept.
  std::vector<std::int32_t> NotKept() const;
  bool Has(std::int32_t id) const;
  const view::Control& Of(std::int32_t id) const;

  void SetText(std::int32_t id, std::string text);
  void SetReal(std::int32_t edit, double value);
  void Enable(std::int32_t id, bool isEnabled);
  void Show(std::int32_t id, bool isVisible);
  void Check(std::int32_t id, bool isChecked);
  void SetPicture(std::int32_t id, std::int32_t bitmap);

  /// Sets a text as if it was typed: a combo has no entry selected then, and a spin follows its edit as long
  /// as that holds a number in its range.
  void Type(std::int32_t id, const std::string& text);

  /// A value out of the spin's range becomes the nearest in it.
  void SetSpin(std::int32_t id, std::int32_t value);

  /// The devices behind the entries of a combo.
  void SetDevices(std::int32_t combo, std::vector<view::ListedDevice> devices);

  /// Removes the entries and the text of a combo.
  void Empty(std::int32_t combo);
  void AddEntries(std::int32_t combo, const std::vector<std::string>& entries);

  /// Selects an entry, or none when the index does not exist. The combo's text follows.
  void Select(std::int32_t combo, std::int32_t index);

 private:
  view::Control& At(std::int32_t id);

  std::span<const ControlTemplate> rows_;
  std::vector<view::Control> controls_;
  std::vector<view::Control> kept_;
};

}  // namespace vanzet::dialog
