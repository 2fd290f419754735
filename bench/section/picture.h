#pragma once

#include <array>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "base/length_unit.h"
#include "base/result.h"
#include "base/translations.h"
#include "section/layout.h"

/// A section as a drawing: SVG in millimetres.
namespace vanzet::section {

/// The section of the catalogues of texts that has those of this folder.
inline constexpr const char* kTextSection = "section";

/// The layers of the picture, in their order.
inline constexpr std::array<std::string_view, 6> kLayers = {"devices", "billet",     "part",
                                                            "datum",   "dimensions", "legend"};

/// The layer in which a body is drawn.
std::string_view LayerOf(scene::Kind kind);

/// A part of the section that is drawn in red, and a text about it.
struct Alert {
  std::string caption;
  std::set<std::string> bodies = {};          ///< with their outlines
  geometry::Region area = {};                 ///< filled
  std::optional<geometry::Point> place = {};  ///< in a ring
};

struct PictureOptions {
  std::vector<std::string> layers = {};  ///< of kLayers; empty: all
  /// Millimetres of paper for one of the set-up; 0: of the usual scales the largest one that fits A4.
  double scale = 0;
  /// In pixels. Without both the picture has its true size, in millimetres of paper.
  std::optional<int> width = {}, height = {};
  LengthUnit unit = LengthUnit::kMillimetre;
  Alert alert = {};
};

/// The section as SVG: the user unit is a millimetre of the set-up, x to the right, the radius up. Bodies are
/// paths in the coordinates of the section, with a group for each layer.
/// Fails with `kMissing` for a layer that does not exist.
Result<std::string> PictureSvg(const Section& section, const PictureOptions& options,
                               const Translations& texts);

/// The texts of a section in a language: "Clamp diameter Ø42".
SectionTexts TextsOf(const PictureOptions& options, const Translations& texts);

/// The scale at which the section fits A4, of 10:1, 5:1, 2:1, 1:1, 1:2, 1:5 and so on.
double UsualScale(const Section& section);

/// A size on paper, in millimetres.
struct PaperSize {
  double width, height;
};

/// The size of the whole picture. Requires: the options have a scale.
PaperSize SizeOf(const Section& section, const PictureOptions& options, const Translations& texts);

/// Of these scales the largest one at which the whole picture fits, its dimensions and labels included; the
/// smallest where none fits.
double ScaleFor(const PaperSize& room, const Section& section, const PictureOptions& options,
                const Translations& texts);

/// "1:2"
std::string ScaleText(double scale);

}  // namespace vanzet::section
