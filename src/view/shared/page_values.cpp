#include "view/shared/page_values.h"

#include <algorithm>

namespace vanzet::view {

const Control* PageValues::Find(std::int32_t id) const {
  const auto control = std::ranges::find(controls_, id, &Control::id);
  return control == controls_.end() ? nullptr : &*control;
}

double PageValues::NumberOf(std::int32_t id) const {
  const Control* const control = Find(id);
  return control == nullptr ? 0 : control->number.value_or(0);
}

std::string PageValues::TextOf(std::int32_t id) const {
  const Control* const control = Find(id);
  return control == nullptr ? std::string() : control->text;
}

bool PageValues::IsChecked(std::int32_t id) const {
  const Control* const control = Find(id);
  return control != nullptr && control->isChecked;
}

bool PageValues::IsNoNumber(std::int32_t id) const {
  const Control* const control = Find(id);
  return control != nullptr && control->isReal && !control->number;
}

}  // namespace vanzet::view
