#pragma once

#include <TopoDS_Shape.hxx>
#include <iosfwd>
#include <string>
#include <string_view>
#include <vector>

#include "base/result.h"
#include "modeller/export.h"

/// The form in which bodies travel from the workbench to its exchange program.
namespace vanzet::modeller {

struct ParcelBody {
  std::string name;
  Appearance appearance;
  TopoDS_Shape shape;
  std::string_view surfaces = {};  ///< of a file's body; its shape then only has its place
  std::vector<NamedPlace> places = {};
};

/// Writes the count of the bodies, a line of appearance and name for each, which the
/// lines of its places follow, their surfaces, each after a line
/// with their length, then one compound of their shapes in Open CASCADE's binary form.
void PackParcel(const std::vector<ParcelBody>& bodies, std::ostream& bytes);

/// Reads what `PackParcel` wrote, for the exchange program alone. Each body has its whole shape then, and no
/// surfaces besides. Fails when the parcel is incomplete.
Result<std::vector<ParcelBody>> UnpackParcel(std::istream& bytes);

/// The bodies of several files as one word, "0,1,2;1", and back. A word that is not of this form, or names a
/// body that does not exist, gives nothing.
std::string FilesWord(const std::vector<FileBodies>& files);
std::vector<FileBodies> FilesOfWord(const std::string& word, std::size_t bodies);

/// The name of one of several files: "bodies.step" becomes "bodies-2.step".
std::filesystem::path NumberedFile(const std::filesystem::path& file, std::size_t number);

}  // namespace vanzet::modeller
