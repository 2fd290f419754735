#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "geometry/kurve.h"
#include "geometry/region.h"
#include "modeller/exchange.h"
#include "modeller/export.h"
#include "project/definition.h"
#include "project/machine_ini.h"

/// The equipment of a spur in space, made from its definition. docs/scene.md says how the bodies are placed,
/// and why.
///
/// Space    x along the main spindle's axis, away from the spindle; y up; millimetres
namespace vanzet::scene {

struct Equipment;

enum class Kind { kClamp, kJaw, kCenter, kSteadyRest, kBillet, kFinishPart };

modeller::Colour ColourOf(Kind kind);

/// True for what holds the work, false for the work.
inline bool IsDevice(Kind kind) {
  return kind != Kind::kBillet && kind != Kind::kFinishPart;
}

/// The points at which a device is held and holds, in its own coordinates: x from one to the other.
struct Seats {
  geometry::Point3d plug, socket;
};

struct SceneBody {
  std::string name;  ///< "main chuck", "sub jaw 2", "center"
  Kind kind = Kind::kClamp;
  modeller::Body body;
  geometry::Matrix placement;  ///< moves and turns
  bool isShown = true;
  bool isSeenThrough = false;
  bool isPale = false;  ///< it is not stored yet
  /// The body with its true surfaces, made from the values of a device. Nothing when the device has no
  /// values, or when they do not agree with the body in the definition.
  std::optional<modeller::Body> exact = {};
  /// The half section from which the body is made, in its own coordinates: x along its axis, y away from it;
  /// of a jaw, y is its height. Nothing for a body that has to be cut to see its section.
  std::optional<geometry::Region> profile = {};
  std::string solid = {};           ///< the named solid that it is; empty: the body is made otherwise
  std::optional<Seats> seats = {};  ///< of a device
};

/// A line that marks a place, point by point.
struct Mark {
  std::vector<geometry::Point3d> points;
};

/// A body of the definition that is not in the scene, and why.
struct MissingBody {
  Kind kind;
  bool isSub;
  Fault fault;
};

struct Scene {
  std::vector<SceneBody> bodies;
  std::vector<Mark> marks;
  std::vector<MissingBody> missing = {};
  double subDatum = 0;  ///< the datum of the sub spindle, from which its own x runs back
};

/// The sources of what a definition only names.
struct Sources {
  std::function<Result<std::vector<geometry::Kurve>>(const std::string& name)> figure;
  std::function<Result<modeller::Body>(const std::string& name)> body;
  modeller::Exchange exchange;
  project::SteadyRest steadyRest = {};
  /// Makes devices of the catalogue from their values, as a definition needs whose 3D texts are not written
  /// yet.
  bool hasDevicesByValues = false;
};

/// A 3D text that cannot be read, and a billet or finish part that cannot be made, are missing; the fault
/// says which. Fails only for a reason of the system, and when the work is cancelled.
/// Requires: the geometry library works in millimetres
Result<Scene> MakeScene(const project::Definition& definition, const Sources& sources);

/// The same of other values than the definition has; the 3D texts are those of the definition.
Result<Scene> MakeScene(const Equipment& equipment, const project::Definition& definition,
                        const Sources& sources);

}  // namespace vanzet::scene
