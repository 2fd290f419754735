#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "base/length_unit.h"
#include "base/result.h"
#include "modeller/body.h"
#include "modeller/named_place.h"

namespace vanzet::modeller {

/// Where the body of a file comes to be: a model has an origin and axes of its own, and the workbench needs
/// the front of a body at x = 0, looking along x, and its turning axis on the x axis.
///
/// Units   the coordinates are the file's own, in millimetres once `unit` is applied
struct Laying {
  geometry::Vector3d looking{1, 0, 0};  ///< the direction of the front; of any length but 0
  geometry::Point3d axis{0, 0,
                         0};  ///< a point of the turning axis; its place along `looking` is without effect
  double face = 0;            ///< the position of the front along `looking`
  double turn = 0;            ///< degrees about x, by the right-hand rule, after all else
  LengthUnit unit = LengthUnit::kMillimetre;  ///< of a file that has none

  bool operator==(const Laying&) const = default;
};

/// The words of directions along an axis: "x", "-x" and so on, and the direction of a word.
const std::vector<std::string>& DirectionWords();
std::optional<geometry::Vector3d> DirectionNamed(std::string_view word);

/// The word of a direction, or its three numbers: "0.6, 0, 0.8".
std::string DirectionText(const geometry::Vector3d& direction);

/// Reads two numbers, the coordinates that a direction along an axis leaves in their order (of z: x and y),
/// or all three. Nothing for any other text.
std::optional<geometry::Point3d> AxisNamed(std::string_view text, const geometry::Vector3d& looking);

/// The laying that puts a coordinate system of the file on that of the workbench: its axis to x, its origin
/// to the origin, its upwards to y. A turn of some degrees follows.
Laying LayingAt(const NamedPlace& place, double turn);

/// Returns the body where the laying puts it. Quarter turns are exact. Fails when the body has a unit of its
/// own and the laying has another one.
Result<Body> LayBody(const Body& body, const Laying& laying);

/// The text beside a file that says how its body lies: "bodies/casting.lay" of "bodies/casting.step".
std::filesystem::path LayingFileOf(const std::filesystem::path& bodyFile);

/// Reads that text; nothing when it does not exist.
/// Errors   with file and line: an unknown key, a value that is none, a key twice
Result<std::optional<Laying>> ReadLaying(const std::filesystem::path& bodyFile);

/// Writes it, completely or not at all.
Result<void> WriteLaying(const std::filesystem::path& bodyFile, const Laying& laying);

/// Lays a body as the text beside its file says, if there is one.
Result<Body> LayAsFileSays(const Result<Body>& body, const std::filesystem::path& bodyFile);

}  // namespace vanzet::modeller
