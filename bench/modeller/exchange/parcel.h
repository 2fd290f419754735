#pragma once

#include <TopoDS_Shape.hxx>
#include <string>
#include <vector>

#include "base/result.h"
#include "modeller/export.h"

/// The file in memory that this program was started with.
namespace vanzet::modeller {

struct ParcelBody {
  std::string name;
  Colour colour;
  TopoDS_Shape shape;
};

/// The bodies that are to be written: their count, a line of colour and name for each, then one compound of
/// their shapes in Open CASCADE's binary form. The places of shapes are worked into their geometry.
Result<std::vector<ParcelBody>> ReadParcel();

/// Leaves a shape for the one that started this program, in that binary form.
Result<void> WriteParcel(const TopoDS_Shape& shape);

}  // namespace vanzet::modeller
