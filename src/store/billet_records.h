#pragma once

#include <cstdint>
#include <string>

#include "macro/billet_drawing.h"

/// The raw part of each spindle.
///
///   spur     whose definition: BilletVdm::VdmNumber
///   spindle  0 is the main spindle, all else the sub spindle
/// Result     0, or -1 (store/record_frame.h)
/// Source     docs/formats/definition.md
namespace vanzet {

/// The types of billets.
namespace billet_type {
inline constexpr std::int32_t kNone = 0;
inline constexpr std::int32_t kCylindric = 1;
inline constexpr std::int32_t kFromFigures = 2;
inline constexpr std::int32_t kFromSolid = 3;
}  // namespace billet_type

/// A billet. Each type has its own fields: docs/formats/definition.md.
///
/// The workbench parses the same records for itself (bench/scene/equipment.h). The two are sides of a
/// contract between two programs: each follows the page, and neither includes the other.
/// Units    those of the host; `angle` in degrees
struct BilletRecord : BilletDrawing {
  std::string figureOutside;  ///< its name
  std::string figureInside;
  std::string solidName;
  double clampDiameter = 0;  ///< read as the outer diameter for a billet without a solid
  double angle = 0;
};

/// Writes the billet. One from figures is then built by the host's macro "crebilfromfig", which opens the
/// definition for itself.
std::int32_t WriteBillet(std::int32_t spur, std::int32_t spindle, const BilletRecord& record);

/// On failure the record is cleared. A definition without a billet reads as one of type 0.
std::int32_t ReadBillet(std::int32_t spur, std::int32_t spindle, BilletRecord& record);

/// Makes a record one of type 0, shown on screen. `figureOutside` stays as it is, on purpose: a record that
/// is read again keeps its first figure where the read has none.
void ClearBilletRecord(BilletRecord& record);

}  // namespace vanzet
