#include "contour/legend.h"

#include "base/number_text.h"

namespace vanzet::contour {
namespace {

// clang-format off
constexpr DrawingStyle kStyles[] = {
    {"#1f4e79", "#dce8f3", 2,   true },  // main
    {"#b5541c", "none",    2,   true },  // other
    {"#9aa3ab", "none",    1.2, false},  // underlay
};
// clang-format on

/// In pixels.
constexpr double kRow = 18, kBelow = 8, kLeft = 14, kLine = 26, kGap = 8, kTextHeight = 12;

std::vector<const Drawing::Layer*> Named(const Drawing& drawing) {
  std::vector<const Drawing::Layer*> named;
  for (const Drawing::Layer& layer : drawing.layers) {
    if (!layer.name.empty() && !layer.contours->empty()) named.push_back(&layer);
  }
  if (named.size() < 2) named.clear();
  return named;
}

std::string Row(const Drawing::Layer& layer, double middle) {
  const DrawingStyle& style = StyleOf(layer.role);
  const std::string y = NumberText(middle);
  return "<path d=\"M" + NumberText(kLeft) + " " + y + " h" + NumberText(kLine) + "\" stroke=\"" +
         style.colour + "\" stroke-width=\"" + NumberText(style.width) + "\"/>\n<text x=\"" +
         NumberText(kLeft + kLine + kGap) + "\" y=\"" + NumberText(middle + 0.36 * kTextHeight) + "\">" +
         layer.name + "</text>\n";
}

}  // namespace

const DrawingStyle& StyleOf(Drawing::Role role) {
  return kStyles[static_cast<int>(role)];
}

double LegendHeight(const Drawing& drawing) {
  const std::size_t rows = Named(drawing).size();
  return rows == 0 ? 0 : static_cast<double>(rows) * kRow + kBelow;
}

std::string Legend(const Drawing& drawing, double top) {
  const auto named = Named(drawing);
  if (named.empty()) return "";
  std::string text = "<g class=\"legend\" font-family=\"sans-serif\" font-size=\"" + NumberText(kTextHeight) +
                     "\" fill=\"#333333\">\n";
  double middle = top + kRow / 2;
  for (const Drawing::Layer* const layer : named) {
    text += Row(*layer, middle);
    middle += kRow;
  }
  return text + "</g>\n";
}

}  // namespace vanzet::contour
