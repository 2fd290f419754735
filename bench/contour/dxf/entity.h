#pragma once

#include <optional>
#include <string>
#include <vector>

#include "contour/curve/space.h"
#include "contour/dxf/groups.h"

namespace vanzet::contour {

/// The groups from one of code 0 to the next: the name of the entity, and the groups that are used, whose
/// numbers are checked.
struct DxfEntity {
  std::string kind;
  int place = 0;
  std::vector<DxfGroup> groups;

  const DxfGroup* Find(int code) const;
  bool Has(int code) const { return Find(code) != nullptr; }
  double Real(int code, double otherwise = 0) const;
  int Integer(int code, int otherwise = 0) const;
  std::string Text(int code) const;

  /// The point of the codes 10, 20, 30 for 10, and so on.
  Space Point(int code, const Space& otherwise = {}) const;

  /// The numbers or points of all groups of that code, in their order.
  std::vector<double> Reals(int code) const;
  std::vector<Space> Points(int code) const;
};

/// Whether contours are made of entities of this kind or of their parts.
bool IsRead(std::string_view kind);

/// Whether entities of this kind draw nothing of their own: they are neither read nor counted as left out.
bool DrawsNothing(std::string_view kind);

/// Takes a group into an entity if it is used. Fails when its value is not a number where it has to be one.
Result<void> TakeInto(DxfEntity& entity, DxfGroup group, const DxfGroups& groups);

/// Fails when the entity lacks a number, or has another count of vertices than it declares.
Result<void> CheckEntity(const DxfEntity& entity, const DxfGroups& groups);

}  // namespace vanzet::contour
