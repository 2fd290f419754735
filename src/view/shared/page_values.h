#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "view/dialog_state.h"

namespace vanzet::view {

/// The controls of the current page, to be read by id.
class PageValues {
 public:
  /// `controls` must outlive this.
  explicit PageValues(const std::vector<Control>& controls) : controls_(controls) {}

  /// Null for a control that is not on the page.
  const Control* Find(std::int32_t id) const;

  /// The number in an edit that is bound to a real; 0 for an edit without a number or an unknown one.
  double NumberOf(std::int32_t id) const;
  std::string TextOf(std::int32_t id) const;
  bool IsChecked(std::int32_t id) const;

  /// True for an edit that wants a number and does not hold one.
  bool IsNoNumber(std::int32_t id) const;

 private:
  const std::vector<Control>& controls_;
};

}  // namespace vanzet::view
