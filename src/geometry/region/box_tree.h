#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <utility>
#include <vector>

#include "geometry/region/advance.h"

namespace geometry::region {

/// A tree of boxes around runs of neighbours in a list. Contours are local, so runs along them have small
/// boxes.
class BoxTree {
 public:
  /// A default box meets no other.
  struct Item {
    double left = 1, bottom = 1, right = -1, top = -1;
    bool isNew = false;    ///< pairs of two old items are not visited
    bool isFirst = false;  ///< it does not begin where the item before it ends
    Advance advance = 0;   ///< pairs within a run of items with a common direction are not visited
  };

  explicit BoxTree(std::vector<Item> items);

  /// Calls `visit(i, j)`, i < j, for the pairs of items whose boxes meet and of which one is new, until it
  /// returns false.
  template <class Visit>
  void VisitPairs(Visit visit) const {
    VisitWithin(1, visit);
  }
  /// Calls `visit(i)` for the items whose boxes meet the box.
  template <class Visit>
  void VisitBox(const Item& box, Visit visit) const {
    VisitBelow(1, box, visit);
  }
  /// Calls `visit(i)`, near items first, for all items whose boxes are not farther from the box than `limit`,
  /// which the visit may lower.
  template <class Visit>
  void VisitNearest(const Item& box, double& limit, Visit visit) const {
    VisitNearestBelow(1, box, limit, visit);
  }

 private:
  static constexpr std::size_t kRun = 4;

  static bool Meet(const Item& a, const Item& b) {
    return a.left <= b.right && b.left <= a.right && a.bottom <= b.top && b.bottom <= a.top;
  }
  /// The distance between two boxes; infinite for a box that meets no other.
  static double Gap(const Item& a, const Item& b);
  bool IsLeaf(std::size_t node) const { return node >= leaves_; }
  std::size_t First(std::size_t leaf) const { return std::min((leaf - leaves_) * kRun, items_.size()); }
  std::size_t Last(std::size_t leaf) const { return std::min((leaf - leaves_ + 1) * kRun, items_.size()); }

  template <class Visit>
  bool VisitPair(std::size_t i, std::size_t j, Visit& visit) const {
    return !(items_[i].isNew || items_[j].isNew) || !Meet(items_[i], items_[j]) ||
           visit(static_cast<std::uint32_t>(i), static_cast<std::uint32_t>(j));
  }
  template <class Visit>
  bool VisitWithin(std::size_t node, Visit& visit) const {
    if (!nodes_[node].isNew || nodes_[node].advance != 0) return true;
    if (IsLeaf(node)) {
      for (std::size_t i = First(node); i < Last(node); ++i) {
        for (std::size_t j = i + 1; j < Last(node); ++j) {
          if (!VisitPair(i, j, visit)) return false;
        }
      }
      return true;
    }
    return VisitWithin(2 * node, visit) && VisitWithin(2 * node + 1, visit) &&
           VisitBetween(2 * node, 2 * node + 1, visit);
  }
  /// Both nodes are of one level, `a` before `b`.
  template <class Visit>
  bool VisitBetween(std::size_t a, std::size_t b, Visit& visit) const {
    if (!(nodes_[a].isNew || nodes_[b].isNew) || !Meet(nodes_[a], nodes_[b])) return true;
    if (b == a + 1 && !nodes_[b].isFirst && (nodes_[a].advance & nodes_[b].advance) != 0) return true;
    if (IsLeaf(a)) {
      for (std::size_t i = First(a); i < Last(a); ++i) {
        for (std::size_t j = First(b); j < Last(b); ++j) {
          if (!VisitPair(i, j, visit)) return false;
        }
      }
      return true;
    }
    for (const std::size_t childA : {2 * a, 2 * a + 1}) {
      for (const std::size_t childB : {2 * b, 2 * b + 1}) {
        if (!VisitBetween(childA, childB, visit)) return false;
      }
    }
    return true;
  }
  template <class Visit>
  void VisitBelow(std::size_t node, const Item& box, Visit& visit) const {
    if (!Meet(nodes_[node], box)) return;
    if (IsLeaf(node)) {
      for (std::size_t i = First(node); i < Last(node); ++i) {
        if (Meet(items_[i], box)) visit(static_cast<std::uint32_t>(i));
      }
      return;
    }
    VisitBelow(2 * node, box, visit);
    VisitBelow(2 * node + 1, box, visit);
  }

  template <class Visit>
  void VisitNearestBelow(std::size_t node, const Item& box, double& limit, Visit& visit) const {
    if (Gap(nodes_[node], box) > limit) return;
    if (IsLeaf(node)) {
      for (std::size_t i = First(node); i < Last(node); ++i) {
        if (Gap(items_[i], box) <= limit) visit(static_cast<std::uint32_t>(i));
      }
      return;
    }
    const bool secondFirst = Gap(nodes_[2 * node + 1], box) < Gap(nodes_[2 * node], box);
    VisitNearestBelow(2 * node + (secondFirst ? 1 : 0), box, limit, visit);
    VisitNearestBelow(2 * node + (secondFirst ? 0 : 1), box, limit, visit);
  }

  std::vector<Item> items_;
  std::vector<Item> nodes_;  ///< node n has the children 2n and 2n + 1; node 1 is the root
  std::size_t leaves_ = 1;   ///< the number of the first leaf
};

}  // namespace geometry::region
