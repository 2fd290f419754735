#pragma once

#include <string>
#include <vector>

#include "contour/contour.h"

namespace vanzet::contour {

/// What a picture shows: layers of contours, the first at the bottom, and marks above them.
struct Drawing {
  enum class Role {
    kMain,      ///< what the picture is about: filled where closed, with start point and arrows
    kOther,     ///< a second party, in another colour
    kUnderlay,  ///< how it was before: thin and grey
  };
  struct Layer {
    Role role;
    const Contours* contours;  ///< the caller's
    std::string name = {};     ///< in the legend, which there is when several layers with contours have one
  };
  struct Mark {
    enum class Kind {
      kAsked,  ///< a cross: the point that was asked about
      kFound,  ///< a dot: the point that is the answer
    };
    Kind kind;
    geometry::Point point;
  };
  struct Link {
    geometry::Point from, to;  ///< a dashed line between two marks
  };

  std::vector<Layer> layers;
  std::vector<Mark> marks;
  std::vector<Link> links;
  bool numbers = false;  ///< at the vertices of the main layer, as far as there is room
};

/// The picture as SVG: y points up, arcs are arcs, the view holds all of it with a margin.
/// Paths have the coordinates of the contours; one group of the picture scales and mirrors them.
std::string Svg(const Drawing& drawing);

}  // namespace vanzet::contour
