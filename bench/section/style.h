#pragma once

#include <string>
#include <string_view>

#include "modeller/export.h"
#include "section/hatch.h"

/// The colours and hatches of a section, for pictures and views.
namespace vanzet::section {

inline constexpr std::string_view kAxisColour = "#7d868f", kDatumColour = "#a01080",
                                  kDimensionColour = "#20262c", kAlertColour = "#d3122a";

struct BodyStyle {
  double degrees;   ///< of the hatch, on the main side
  double distance;  ///< between its lines, in millimetres of paper

  double Degrees(bool isSub) const { return isSub ? 180 - degrees : degrees; }
};
const BodyStyle& StyleOf(scene::Kind kind);

/// The colour of a body's area, and that of its lines.
modeller::Colour TintOf(scene::Kind kind);
modeller::Colour InkOf(scene::Kind kind);

/// "#b0c0d0"
std::string TextOf(const modeller::Colour& colour);

/// The part of a body that is hatched: of a billet, what the finish part does not take.
geometry::Region HatchedArea(const SectionBody& body, const Section& section);

}  // namespace vanzet::section
