#pragma once

#include <cstdint>
#include <string>

/// The finished part of each spindle.
///
///   spur     whose definition: BilletVdm::VdmNumber
///   spindle  1 is the sub spindle, all else the main spindle
/// Result     0, or -1 (store/record_frame.h)
/// Source     docs/formats/definition.md
namespace vanzet {

/// The types of finish parts.
namespace finish_part_type {
inline constexpr std::int32_t kNone = 0;
inline constexpr std::int32_t kFromFigures = 1;
inline constexpr std::int32_t kFromSolid = 2;
}  // namespace finish_part_type

struct FinishPartRecord {
  std::int32_t type = finish_part_type::kNone;
  std::string figureOutside;  ///< its name
  std::string figureInside;
  std::string solidName;
};

std::int32_t WriteFinishPart(std::int32_t spur, std::int32_t spindle, const FinishPartRecord& record);

/// On failure, as of a definition of an old layout without the operation, the type is 0 and the names are
/// empty; but `figureOutside` stays as it is, on purpose, where the read has none.
std::int32_t ReadFinishPart(std::int32_t spur, std::int32_t spindle, FinishPartRecord& record);

}  // namespace vanzet
