#pragma once

#include <cstdint>
#include <span>
#include <string_view>
#include <vector>

#include "view/shared/device_words.h"
#include "view/shared/texts.h"

/// The places of the controls of each page, by their ids. What they show and whether they can be used is
/// decided by the state.
namespace vanzet::view {

/// A row of a form: its name, its control, and what is beside that.
struct FieldRow {
  std::int32_t label = 0;    ///< the label that names it; 0: the row has a name of the view's own
  std::int32_t control = 0;  ///< the edit, check box, combo or spin; a button that has a row of its own
  std::int32_t inner = 0;    ///< the edit that is part of a spin
  std::int32_t button = 0;   ///< fills the control
  bool isWide = false;       ///< the label is above the control, which takes the whole width
  char letter = 0;           ///< of a device's value: name and unit follow the type of the picture
  Unit unit = Unit::kNone;
  const char* name = "";    ///< in full, after a letter or without a label
  const char* sign = "";    ///< of the value in the picture, before a label that does not have it
  bool hasChooser = false;  ///< a list of devices or files that can be searched by pictures
  bool isNeeded = false;    ///< the page's button demands it; for letters the device's row says so
};

/// Rows under a title.
struct FieldGroup {
  std::int32_t titleLabel = 0;  ///< a label that is the title; 0: the view's own, or none where that is empty
  const char* title = "";
  std::span<const FieldRow> rows = {};
  std::int32_t action = 0;  ///< the button that applies the group's values
};

struct PageLayout {
  std::string_view page;    ///< the class of the page
  const char* help;         ///< the heading in the guide's page of the pages, as the end of its address
  std::int32_t header = 0;  ///< a label that is the page's title; 0: its place in the tree is
  std::int32_t picture = 0;
  std::span<const FieldGroup> groups = {};
  std::span<const std::int32_t> actions = {};  ///< buttons at the foot
  const char* noPicture = "";                  ///< shown on the card without a picture
};

/// The layouts of all pages that have controls.
std::span<const PageLayout> PageLayouts();

/// Null for a page that has none.
const PageLayout* FindPageLayout(std::string_view page);

/// The button that fills an edit; 0 for none.
std::int32_t PickButtonOf(const PageLayout& layout, std::int32_t edit);

/// The buttons that apply the values of the page, or of a part of it.
std::vector<std::int32_t> ActionsOf(const PageLayout& layout);

/// Those that store the values of these controls.
std::vector<std::int32_t> StoringButtons(const PageLayout& layout, const std::vector<std::int32_t>& controls);

/// The ids of all controls that a layout places, in the order of the keyboard: in each group the values one
/// after the other, then the buttons that fill them.
std::vector<std::int32_t> ControlsOf(const PageLayout& layout);

/// The letters that values may have.
inline constexpr std::string_view kValueLetters = "ABCDEFGHIJ";

}  // namespace vanzet::view
