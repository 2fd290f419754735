#include "modeller/parcel.h"

#include <BRep_Builder.hxx>
#include <BinTools.hxx>
#include <TopoDS_Compound.hxx>
#include <TopoDS_Iterator.hxx>
#include <algorithm>
#include <array>
#include <istream>
#include <ostream>
#include <sstream>
#include <utility>

#include "base/number_text.h"
#include "base/numbers.h"
#include "base/one_line.h"
#include "modeller/body_size.h"

namespace vanzet::modeller {
namespace {

/// "0.6 0.6 0.6 1 0 name": red, green, blue, whether it is of steel, whether it is seen through
ParcelBody BodyOfLine(std::string_view line) {
  ParcelBody body;
  auto& [colour, isSteel, isSeenThrough] = body.appearance;
  for (double* part : {&colour.red, &colour.green, &colour.blue}) {
    const auto number = RealPrefix(line);
    if (!number) return body;
    *part = number->value;
    line.remove_prefix(number->used);
  }
  for (bool* is : {&isSteel, &isSeenThrough}) {
    const auto number = IntegerPrefix(line);
    if (!number) return body;
    *is = number->value == 1;
    line.remove_prefix(number->used);
  }
  if (!line.empty()) body.name = line.substr(1);
  return body;
}

std::string LineOf(const ParcelBody& body) {
  const auto& [colour, isSteel, isSeenThrough] = body.appearance;
  return NumberText(colour.red) + " " + NumberText(colour.green) + " " + NumberText(colour.blue) +
         (isSteel ? " 1" : " 0") + (isSeenThrough ? " 1 " : " 0 ") + OneLine(body.name) + "\n";
}

/// "0 0 0 1 0 0 0 1 0 main datum": the origin, both directions, the name
std::string LineOf(const NamedPlace& place) {
  const auto& [name, origin, axis, upwards] = place;
  std::string line;
  for (const double part :
       {origin.x, origin.y, origin.z, axis.dx, axis.dy, axis.dz, upwards.dx, upwards.dy, upwards.dz}) {
    line += ExactText(part) + " ";
  }
  return line + OneLine(name) + "\n";
}

NamedPlace PlaceOfLine(std::string_view line) {
  std::array<double, 9> parts{};
  for (double& part : parts) {
    const auto number = RealPrefix(line);
    if (!number) return {};
    part = number->value;
    line.remove_prefix(number->used);
  }
  const auto& [x, y, z, dx, dy, dz, ux, uy, uz] = parts;
  return {
      std::string(line.substr(std::min<std::size_t>(line.size(), 1))), {x, y, z}, {dx, dy, dz}, {ux, uy, uz}};
}

Fault Incomplete() {
  return Fault{"the bodies were not transferred completely"};
}

/// The surfaces of one body; a null shape for a body of the workbench's own.
Result<TopoDS_Shape> ReadSurfaces(std::istream& bytes) {
  std::string line;
  std::getline(bytes, line);
  std::string surfaces(static_cast<std::size_t>(std::max<std::int64_t>(IntegerOrZero(line), 0)), '\0');
  if (!bytes.read(surfaces.data(), static_cast<std::streamsize>(surfaces.size()))) return Incomplete();
  TopoDS_Shape shape;
  if (surfaces.empty()) return shape;
  std::istringstream stream(std::move(surfaces));
  BinTools::Read(shape, stream);
  if (shape.IsNull()) return Incomplete();
  return shape;
}

}  // namespace

void PackParcel(const std::vector<ParcelBody>& bodies, std::ostream& bytes) {
  const BRep_Builder builder;
  TopoDS_Compound compound;
  builder.MakeCompound(compound);
  bytes << std::to_string(bodies.size()) + "\n";
  for (const ParcelBody& body : bodies) {
    bytes << LineOf(body) << std::to_string(body.places.size()) + "\n";
    for (const NamedPlace& place : body.places) bytes << LineOf(place);
    builder.Add(compound, body.shape);
  }
  for (const ParcelBody& body : bodies) {
    bytes << std::to_string(body.surfaces.size()) + "\n" << body.surfaces;
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
    std::getline(bytes, line);
    for (std::int64_t places = IntegerOrZero(line); places > 0 && bytes; --places) {
      std::getline(bytes, line);
      body.places.push_back(PlaceOfLine(line));
    }
  }
  std::vector<TopoDS_Shape> foreign;
  for (std::size_t i = 0; i < bodies.size(); ++i) {
    VANZET_TRY(const auto shape, ReadSurfaces(bytes));
    foreign.push_back(shape);
  }
  TopoDS_Shape compound;
  BinTools::Read(compound, bytes);
  if (compound.IsNull() || compound.NbChildren() != static_cast<int>(bodies.size())) {
    return Incomplete();
  }
  TopoDS_Iterator child(compound);
  for (std::size_t i = 0; i < bodies.size(); ++i, child.Next()) {
    const TopoDS_Shape& shape = child.Value();
    bodies[i].shape = foreign[i].IsNull() ? shape : foreign[i].Moved(shape.Location());
  }
  return bodies;
}

std::string FilesWord(const std::vector<FileBodies>& files) {
  std::string word;
  for (const FileBodies& file : files) {
    if (!word.empty()) word += ';';
    for (std::size_t i = 0; i < file.size(); ++i) word += (i > 0 ? "," : "") + std::to_string(file[i]);
  }
  return word;
}

std::vector<FileBodies> FilesOfWord(const std::string& word, std::size_t bodies) {
  std::vector<FileBodies> files(1);
  std::string_view rest = word;
  while (true) {
    const auto number = IntegerPrefix(rest);
    if (!number || number->value < 0 || static_cast<std::size_t>(number->value) >= bodies) return {};
    files.back().push_back(static_cast<std::size_t>(number->value));
    rest.remove_prefix(number->used);
    if (rest.empty()) return files;
    if (rest.front() != ',' && rest.front() != ';') return {};
    if (rest.front() == ';') files.emplace_back();
    rest.remove_prefix(1);
  }
}

std::filesystem::path NumberedFile(const std::filesystem::path& file, std::size_t number) {
  const std::string name = file.stem().string() + "-" + std::to_string(number) + file.extension().string();
  return file.parent_path() / name;
}

}  // namespace vanzet::modeller
