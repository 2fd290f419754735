#pragma once

#include <string>

#include "modeller/export.h"
#include "modeller/mesh.h"

namespace vanzet::modeller {

/// The first line of a VRML 2.0 file.
inline constexpr std::string_view kVrmlHead = "#VRML V2.0 utf8\n";

/// A mesh as a node "Shape" with one IndexedFaceSet, in millimetres with up to six decimals.
std::string VrmlShape(const Mesh& mesh, const Colour& colour);

/// The same to be looked at: with transparency, and with edges smoothed between facets of one curved surface.
std::string VrmlPicture(const Mesh& mesh, const Appearance& appearance);

/// Wraps the node under a name. Characters that a VRML name cannot have become '_'; the number makes the name
/// unique.
std::string NamedVrmlNode(const std::string& name, std::size_t number, const std::string& shape);

/// Meshes as the text of an OBJ file, an object for each, in millimetres with up to six decimals. The points
/// carry the colour, which most readers know; the material files of this format are files of their own.
class ObjText {
 public:
  void Add(const std::string& name, const Mesh& mesh, const Colour& colour);
  const std::string& text() const { return text_; }

 private:
  std::string text_ = "# millimetres\n";
  std::size_t points_ = 0;  ///< of all objects so far: faces count them from 1
};

/// The triangles of some of the meshes as a binary STL file: a head of 80 bytes, the count, then 50 bytes a
/// triangle, all numbers little-endian and coordinates in single precision.
std::string StlBytes(const std::vector<Mesh>& meshes, const std::vector<std::size_t>& numbers);

}  // namespace vanzet::modeller
