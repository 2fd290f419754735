#pragma once

#include <QString>
#include <cstdint>
#include <optional>
#include <vector>

#include "view/dialog_state.h"

namespace vanzet::view::qt {

/// The controls of the page in front, to be read by id.
class PageValues {
 public:
  /// `controls` has to outlive this.
  explicit PageValues(const std::vector<Control>& controls) : controls_(controls) {}

  /// Null for one that is not on the page.
  const Control* Find(std::int32_t id) const;

  /// What stands in an edit that a real is bound to; 0 where none stands, or no such edit.
  double NumberOf(std::int32_t id) const;
  QString TextOf(std::int32_t id) const;
  bool IsChecked(std::int32_t id) const;

  /// True for an edit that wants a number and holds none.
  bool IsNoNumber(std::int32_t id) const;

 private:
  const std::vector<Control>& controls_;
};

}  // namespace vanzet::view::qt
