#pragma once

#include <cstdint>
#include <span>
#include <string_view>

#include "devices/device_params.h"

/// A device as data: every fact of a type, in one file for each kind of device.
///
/// Shape    a kind (chuck, jaw, ...) has types for devices of the catalogue, and one type for devices whose
///          solid is kept in a VDM of their own. Formulas are those of
///          devices/formula.h, over the letters of the device
/// Units    lengths are the host's, angles are degrees
/// Owns     nothing: all facts are constants of the program
namespace vanzet::devices {

enum class Unit { kNone, kMillimetre, kDegree };

/// The demand of the pages for a letter.
enum class Entry {
  kNeeded,    ///< a new device of the catalogue must have a value that is not 0
  kOptional,  ///< the value can be given
  kClosed,    ///< the value comes with the device's VDM and cannot be given
};

/// How a letter takes part in the picture of the outline.
enum class Drawn {
  kAbove0,     ///< the outline is made from it, and it must be above 0
  kFrom0,      ///< the same, and it may be 0
  kNot0,       ///< the same, and it may have either sign
  kAny,        ///< the same, with any value
  kThickness,  ///< how thick a jaw is, which its outline does not show
  kNever,      ///< it is stored only
};

/// A value that a type has.
struct Letter {
  char letter;
  Unit unit;
  Entry entry;
  Drawn drawn;
  const char* name;  ///< English, the key of its translations; empty: the pages have no line for it

  bool IsOfOutline() const { return drawn != Drawn::kThickness && drawn != Drawn::kNever; }
};

/// The condition for an outline of a type that has several.
enum class Bore { kAny, kAbove0, kNone };

/// A corner of an outline.
struct Corner {
  std::string_view x;
  std::string_view y;
  std::string_view chamfer = {};  ///< the length of its chamfer's legs; empty: the corner stays sharp
};

/// The outline of a type, twice: as corners, and as the lines by which the host makes it.
struct Outline {
  Bore bore;
  std::span<const Corner> corners;  ///< in order, without the first one repeated
  /// They start from the lines s100 (y = 0) and s101 (x = 0), make the contour, and clean up. In braces: a
  /// formula, or n, the number of the contour.
  std::span<const std::string_view> lines;
};

/// The kinds of measure in a picture.
enum class MeasureKind {
  kAlong,   ///< a distance in x, from point to point
  kAcross,  ///< a distance in y
  kAngle,   ///< an angle at the first point, between two directions in degrees, from +x against the clock
  kCorner,  ///< something at the first point
};

/// Where the line of a measure runs. Lines outside of the outline are put in lanes, the first one nearest.
enum class Where { kInside, kAbove, kBelow, kLeft, kRight };

/// A letter in the picture of its device.
struct Measure {
  char letter;
  MeasureKind kind;
  Where where;
  int lane;
  std::string_view fromX, fromY;  ///< a point of the outline
  std::string_view toX, toY;      ///< another one; of an angle the two directions
  double at = 0.5;                ///< the place of the letter on its line, from 0 to 1
};

/// The first formula must be less than the second.
struct Rule {
  std::string_view less;
  std::string_view greater;
};

/// A type of device.
struct Device {
  std::int32_t code;
  std::int32_t picture;             ///< the id of the bitmap that explains the letters
  std::span<const Letter> letters;  ///< those that it has, in order; the values of all others are 0
  std::span<const Outline> outlines = {};
  std::span<const Measure> measures = {};
  std::span<const Rule> rules = {};
  DeviceParams example = {};      ///< a device whose picture is easily read
  std::string_view standIn = {};  ///< the width in x of the block that replaces a missing jaw; empty: none
};

/// The class that the VDM of an own device names. The numbers are those of the file.
enum class DeviceClass : std::int32_t { kChuck = 0, kJaw = 1, kCenter = 3 };

/// How a spindle clamps that holds a device.
enum class Clamping {
  kNotFixed,  ///< the device does not say: jaws do, or it clamps nothing
  kOutside,   ///< around the work
  kInside,    ///< from inside the work
};

/// Devices that serve the same purpose.
struct Kind {
  std::string_view word;            ///< in the JSON form of definitions
  std::span<const Device> devices;  ///< those of the catalogue, by code
  Device own;                       ///< the one that is kept in a VDM of its own
  std::int32_t ownOlder;            ///< an older code of `own`; 0: none
  DeviceClass ownClass;
  Clamping clamping;

  /// The first type of the catalogue, which is also the number of the kind.
  std::int32_t First() const { return devices.front().code; }

  /// The position of a type among those of the catalogue, from 1; 0 for any other type.
  std::int32_t ShapeOf(std::int32_t type) const;

  bool HasParametric(std::int32_t type) const { return ShapeOf(type) > 0; }
  bool HasOwn(std::int32_t type) const { return type != 0 && (type == own.code || type == ownOlder); }
  bool Has(std::int32_t type) const { return HasParametric(type) || HasOwn(type); }
};

}  // namespace vanzet::devices
