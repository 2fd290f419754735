#include "modeller/parcel.h"

#include <BRep_Builder.hxx>
#include <BinTools.hxx>
#include <TopoDS_Compound.hxx>
#include <TopoDS_Iterator.hxx>
#include <istream>
#include <ostream>

#include "base/number_text.h"
#include "base/numbers.h"
#include "base/one_line.h"
#include "modeller/body_size.h"

namespace vanzet::modeller {
namespace {

/// "0.6 0.6 0.6 name"
ParcelBody BodyOfLine(std::string_view line) {
  ParcelBody body;
  for (double* part : {&body.colour.red, &body.colour.green, &body.colour.blue}) {
    const auto number = RealPrefix(line);
    if (!number) return body;
    *part = number->value;
    line.remove_prefix(number->used);
  }
  if (!line.empty()) body.name = line.substr(1);
  return body;
}

std::string LineOf(const ParcelBody& body) {
  return NumberText(body.colour.red) + " " + NumberText(body.colour.green) + " " +
         NumberText(body.colour.blue) + " " + OneLine(body.name) + "\n";
}

Fault Incomplete() {
  return Fault{"the bodies were not transferred completely"};
}

}  // namespace

void PackParcel(const std::vector<ParcelBody>& bodies, std::ostream& bytes) {
  const BRep_Builder builder;
  TopoDS_Compound compound;
  builder.MakeCompound(compound);
  bytes << std::to_string(bodies.size()) + "\n";
  for (const ParcelBody& body : bodies) {
    bytes << LineOf(body);
    builder.Add(compound, body.shape);
  }
  BinTools::Write(compound, bytes);
}

Result<std::vector<ParcelBody>> UnpackParcel(std::istream& bytes) {
  std::string line;
  std::getline(bytes, line);
  const auto count = IntegerOrZero(line);
  if (count < 0 || static_cast<std::uint64_t>(count) > kMostFaces) return Incomplete();
  std::vector<ParcelBody> bodies(static_cast<std::size_t>(count));
  for (ParcelBody& body : bodies) {
    std::getline(bytes, line);
    body = BodyOfLine(line);
  }
  TopoDS_Shape compound;
  BinTools::Read(compound, bytes);
  if (compound.IsNull() || compound.NbChildren() != static_cast<int>(bodies.size())) {
    return Incomplete();
  }
  TopoDS_Iterator child(compound);
  for (ParcelBody& body : bodies) {
    body.shape = child.Value();
    child.Next();
  }
  return bodies;
}

}  // namespace vanzet::modeller
