#pragma once

#include <cstdint>

#include "macro/billet_drawing.h"

/// The datum and the steady rest ("bezel") of a spur, one of each for both spindles.
///
///   spur  whose definition: BilletVdm::VdmNumber
/// Result  0, or -1 (store/record_frame.h)
/// Source  docs/formats/definition.md
namespace vanzet {

struct BezelRecord {
  std::int32_t isUsed = 0;  ///< 1 or more: the steady rest is used
};

std::int32_t WriteDatum(std::int32_t spur, const DatumRecord& record);

/// On failure all values are 0. A short item gives the sub spindle the values of the main spindle.
std::int32_t ReadDatum(std::int32_t spur, DatumRecord& record);

std::int32_t WriteBezel(std::int32_t spur, const BezelRecord& record);

/// On failure the steady rest is not used.
std::int32_t ReadBezel(std::int32_t spur, BezelRecord& record);

}  // namespace vanzet
