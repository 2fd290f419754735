#pragma once

#include <TopoDS_Shape.hxx>
#include <iosfwd>
#include <string>
#include <vector>

#include "base/result.h"
#include "modeller/export.h"

/// Bodies on their way between the workbench and its exchange program.
namespace vanzet::modeller {

struct ParcelBody {
  std::string name;
  Colour colour;
  TopoDS_Shape shape;
};

/// Writes the count of the bodies, a line of colour and name for each, then one compound of their shapes in
/// Open CASCADE's binary form.
void PackParcel(const std::vector<ParcelBody>& bodies, std::ostream& bytes);

/// The other way. Refused when the parcel is not whole.
Result<std::vector<ParcelBody>> UnpackParcel(std::istream& bytes);

}  // namespace vanzet::modeller
