#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "base/length_unit.h"
#include "view/dialog_state.h"
#include "view/shared/page_layouts.h"

/// The texts around the controls of a page, made from the table of pages and the state.
namespace vanzet::view {

/// Follows a value that the page demands.
inline constexpr const char* kNeededSign = "*";

/// A row of a form at this moment.
struct RowModel {
  const FieldRow* field;
  std::string letter = {};        ///< an edit's caption, or the sign before its label; empty: none
  std::string name = {};          ///< the view's own, of a letter or of the row; empty: none
  std::string unit = {};          ///< "mm", "in", "°"; empty: none
  std::string spoken = {};        ///< the name of the control for readers of the screen; empty: its own text
  std::string spokenButton = {};  ///< that of the button that fills it
  LengthUnit lengthUnit = LengthUnit::kMillimetre;  ///< in which the control shows its content
  bool isNeeded = false;
  bool isHidden = false;  ///< label and control of a letter that the type of device does not have
};

/// The rows of all groups of a page, in order.
std::vector<RowModel> RowsOf(const PageLayout& layout, const std::vector<Control>& controls);

/// The type of device that a picture is of; 0 for another picture.
std::int32_t TypeOfPicture(std::int32_t bitmap);

/// The names of controls as the page has them: "A, B".
std::string NamesOf(const PageLayout& layout, const std::vector<std::int32_t>& ids,
                    const std::vector<Control>& controls);

/// The controls that the table does not place, but pictures. A form has them below all others.
std::vector<std::int32_t> LeftOversOf(const PageLayout& layout, const std::vector<Control>& controls);

}  // namespace vanzet::view
