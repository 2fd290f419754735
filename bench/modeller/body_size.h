#pragma once

#include <TopoDS_Shape.hxx>
#include <cstdint>

#include "base/result.h"

/// How much a shape may hold. A file of a few kilobytes can use one box a million times, by groups of groups;
/// all work on such a shape takes as long as if each use were a box of its own.
namespace vanzet::modeller {

inline constexpr std::uint64_t kMostFaces = 100'000;
inline constexpr std::uint64_t kMostParts = 10'000'000;  ///< faces, edges, points and groups together
inline constexpr std::uint64_t kMostFacets = 5'000'000;
inline constexpr int kMostLevels = 1'000;  ///< of groups within groups

/// Returns the number of faces of a shape, each counted as often as it is used. Fails beyond the limits
/// above. The time that it takes depends on what the shape holds once, however often that is used.
Result<std::uint64_t> CountFaces(const TopoDS_Shape& shape);

}  // namespace vanzet::modeller
