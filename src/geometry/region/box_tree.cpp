#include "geometry/region/box_tree.h"

#include <cmath>
#include <limits>

#include "geometry/region/large_vector.h"

namespace geometry::region {
namespace {

void Enclose(BoxTree::Item& around, const BoxTree::Item& item) {
  if (item.left > item.right) return;
  const bool first = around.left > around.right;
  around.left = first ? item.left : std::min(around.left, item.left);
  around.bottom = first ? item.bottom : std::min(around.bottom, item.bottom);
  around.right = first ? item.right : std::max(around.right, item.right);
  around.top = first ? item.top : std::max(around.top, item.top);
  around.isNew |= item.isNew;
  around.isFirst = first ? item.isFirst : around.isFirst;
  around.advance = first ? item.advance : item.isFirst ? 0 : around.advance & item.advance;
}

}  // namespace

double BoxTree::Gap(const Item& a, const Item& b) {
  if (a.left > a.right || b.left > b.right) return std::numeric_limits<double>::infinity();
  const double x = std::max({0.0, a.left - b.right, b.left - a.right});
  const double y = std::max({0.0, a.bottom - b.top, b.bottom - a.top});
  return std::hypot(x, y);
}

BoxTree::BoxTree(std::vector<Item> items) : items_(std::move(items)) {
  const std::size_t runs = (items_.size() + kRun - 1) / kRun;
  while (leaves_ < runs) leaves_ *= 2;
  ReserveLarge(nodes_, 2 * leaves_);
  nodes_.resize(2 * leaves_);
  for (std::size_t i = 0; i < items_.size(); ++i) Enclose(nodes_[leaves_ + i / kRun], items_[i]);
  for (std::size_t node = leaves_ - 1; node > 0; --node) {
    Enclose(nodes_[node], nodes_[2 * node]);
    Enclose(nodes_[node], nodes_[2 * node + 1]);
  }
}

}  // namespace geometry::region
