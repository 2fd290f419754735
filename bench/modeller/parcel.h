#pragma once

#include <TopoDS_Shape.hxx>
#include <iosfwd>
#include <string>
#include <vector>

#include "base/result.h"
#include "modeller/export.h"

/// The form in which bodies travel between the workbench and its exchange program.
namespace vanzet::modeller {

struct ParcelBody {
  std::string name;
  Colour colour;
  TopoDS_Shape shape;
};

/// Writes the count of the bodies, a line of colour and name for each, then one compound of their shapes in
/// Open CASCADE's binary form.
void PackParcel(const std::vector<ParcelBody>& bodies, std::ostream& bytes);

/// Reads what `PackParcel` wrote. Fails when the parcel is incomplete.
Result<std::vector<ParcelBody>> UnpackParcel(std::istream& bytes);

}  // namespace vanzet::modeller
