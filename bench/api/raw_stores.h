#pragma once

#include <array>
#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <variant>
#include <vector>

#include "base/result.h"
#include "geometry/kurve.h"
#include "vdm/store.h"

namespace vanzet::api {

/// A vertex as raw readers get it, in two reads of 8 and 32 bytes.
struct RawVertex {
  std::int32_t unused = 0;
  std::int32_t direction = 0;  ///< of the span that ends here: -1 clockwise, 0 straight, 1 anticlockwise
  double x = 0, y = 0;
  double centreX = 0, centreY = 0;  ///< of an arc
};

using RawMatrix = std::array<double, 16>;

/// Contours and matrices as stores of bytes, for callers that know their layout.
///
/// Contours   a reading keeps the vertices as they were when it was opened, in millimetres
/// Matrices   each is a VDM of the project's store (docs/formats/store.md); a matrix that is not finite is
///            refused
/// Handles    from 1, never given twice; anything done to one that is not open is a fault and gives nothing
class RawStores {
 public:
  explicit RawStores(vdm::VdmStore& store) : store_(store) {}

  /// Begins to read a contour; no handle when there is none.
  std::optional<std::int32_t> OpenContour(const geometry::Kurve* contour);

  /// Makes a matrix, the identity, in the place of the one under that number. Refused: a VDM of that number
  /// that is no matrix, or is open.
  Result<std::int32_t> MakeMatrix(std::int32_t number);
  Result<std::int32_t> OpenMatrix(std::int32_t number);

  /// Whether all vertices are read; true as well behind a handle that reads no contour.
  bool IsAtEnd(std::int32_t handle) const;

  /// The next vertex, and steps behind it; a fault at the end.
  Result<RawVertex> NextVertex(std::int32_t handle);

  /// The next `bytes` of the records; fewer are left: a fault, and nothing is read.
  Result<std::vector<char>> Read(std::int32_t handle, std::int32_t bytes);

  /// The matrix; of a contour the identity, and the reading begins again.
  Result<RawMatrix> ReadMatrix(std::int32_t handle);
  Result<void> WriteMatrix(std::int32_t handle, const RawMatrix& matrix);

  Result<void> Close(std::int32_t handle);

 private:
  struct Reading {
    std::vector<char> bytes;  ///< of all records
    std::size_t at = 0;
  };
  struct OpenedMatrix {
    std::int32_t number;
    RawMatrix matrix;
  };
  using Opened = std::variant<Reading, OpenedMatrix>;

  template <class Kind>
  Result<Kind*> Find(std::int32_t handle);
  std::int32_t Enter(Opened opened);
  Result<void> Keep(std::int32_t number, const RawMatrix& matrix);

  vdm::VdmStore& store_;
  std::map<std::int32_t, Opened> opened_;
  std::int32_t lastHandle_ = 0;
};

}  // namespace vanzet::api
