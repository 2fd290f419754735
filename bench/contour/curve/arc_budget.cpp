#include "contour/curve/arc_budget.h"

#include <string>

#include "base/number_text.h"

namespace vanzet::contour {

Result<void> ArcBudget::Use(std::size_t arcs) {
  used_ += arcs;
  if (used_ <= most_) return {};
  return Fault{"the ellipses and splines need more than " + std::to_string(most_) + " arcs within " +
               NumberText(tolerance_) + " mm; use --tolerance"};
}

}  // namespace vanzet::contour
