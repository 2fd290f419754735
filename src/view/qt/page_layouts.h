#pragma once

#include <cstdint>
#include <span>
#include <string_view>
#include <vector>

#include "view/qt/device_words.h"
#include "view/qt/texts.h"

/// Where the controls of each page stand, by their ids. What they show and whether they can be used is the
/// state's business.
namespace vanzet::view::qt {

/// A row of a form: what it is about, the control, and what stands beside it.
struct FieldRow {
  std::int32_t label = 0;    ///< the label that names it; 0: the row has a name of the view's own
  std::int32_t control = 0;  ///< what is typed into, ticked or chosen; a button that has a row of its own
  std::int32_t inner = 0;    ///< the edit that is part of a spin
  std::int32_t button = 0;   ///< fills the control
  bool isWide = false;       ///< the label stands above the control, which takes the whole width
  char letter = 0;           ///< of a device's value: name and unit follow the type of the picture
  Unit unit = Unit::kNone;
  const char* name = "";  ///< in full, behind a letter or where there is no label
};

/// Rows under a title.
struct FieldGroup {
  std::int32_t titleLabel = 0;  ///< a label that is the title; 0: the view's own, or none where that is empty
  const char* title = "";
  std::span<const FieldRow> rows = {};
  std::int32_t action = 0;  ///< the button that takes the group's values
};

struct PageLayout {
  std::string_view page;    ///< the class of the page
  std::int32_t header = 0;  ///< a label that is the page's title; 0: its place in the tree is
  std::int32_t picture = 0;
  std::span<const FieldGroup> groups = {};
  std::span<const std::int32_t> actions = {};  ///< buttons at the foot
  const char* noPicture = "";                  ///< stands on the card while there is no picture
};

/// The layouts of all pages that have controls.
std::span<const PageLayout> PageLayouts();

/// Null for a page that has none.
const PageLayout* FindPageLayout(std::string_view page);

/// The buttons that take what is on the page, or a part of it.
std::vector<std::int32_t> ActionsOf(const PageLayout& layout);

/// The ids of all controls that a layout places, in the order of the keyboard.
std::vector<std::int32_t> ControlsOf(const PageLayout& layout);

}  // namespace vanzet::view::qt
