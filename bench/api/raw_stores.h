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

/// A vertex in the layout for raw readers, who read it in two parts of 8 and 32 bytes.
struct RawVertex {
  std::int32_t unused = 0;
  std::int32_t direction = 0;  ///< of the span that ends here: -1 clockwise, 0 straight, 1 anticlockwise
  double x = 0, y = 0;
  double centreX = 0, centreY = 0;  ///< of an arc
};

using RawMatrix = std::array<double, 16>;

/// Contours and matrices as stores of bytes, for callers that know their layout.
///
/// Contours   an open contour keeps the vertices of the time when it was opened, in millimetres
/// Matrices   each is a VDM of the project's store (docs/formats/store.md); a matrix must be finite
/// Handles    from 1, never used twice; work on a handle that is not open fails
class RawStores {
 public:
  explicit RawStores(vdm::VdmStore& store) : store_(store) {}

  /// Opens a contour for reading; returns no handle for null.
  std::optional<std::int32_t> OpenContour(const geometry::Kurve* contour);

  /// Makes an identity matrix, which replaces a matrix of that number. Fails when the VDM of that number is
  /// not a matrix or is open.
  Result<std::int32_t> MakeMatrix(std::int32_t number);
  Result<std::int32_t> OpenMatrix(std::int32_t number);

  /// Whether all vertices have been read; also true for a handle that is not one of a contour.
  bool IsAtEnd(std::int32_t handle) const;

  /// Reads the next vertex. Fails at the end.
  Result<RawVertex> NextVertex(std::int32_t handle);

  /// Reads the next `bytes` of the records. Fails without reading when fewer are left.
  Result<std::vector<char>> Read(std::int32_t handle, std::int32_t bytes);

  /// Reads the matrix. For a contour returns the identity and goes back to its first vertex.
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
