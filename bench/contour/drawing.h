#pragma once

#include <string>
#include <vector>

#include "contour/contour.h"

namespace vanzet::contour {

/// The content of a picture: layers of contours, the first at the bottom, and marks above them.
struct Drawing {
  enum class Role {
    kMain,      ///< the subject of the picture: filled where closed, with start point and arrows
    kOther,     ///< a second party, in another colour
    kUnderlay,  ///< the state before: thin and grey
  };
  struct Layer {
    Role role;
    const Contours* contours;  ///< the caller's
    std::string name = {};     ///< for the legend, which appears when several layers with contours have one
  };
  struct Mark {
    enum class Kind {
      kAsked,  ///< a cross: the point of the question
      kFound,  ///< a dot: the point of the answer
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
  bool numbers = false;  ///< numbers the vertices of the main layer, as far as there is room
};

/// Draws the picture as SVG: y points up, arcs are arcs, and all of it is visible with a margin. Paths have
/// the coordinates of the contours; one group of the picture scales and mirrors them.
std::string Svg(const Drawing& drawing);

/// The contours alone at their true size, for plotters and laser cutters: the picture is as large as the
/// contours, its coordinates are millimetres, and its lines are hairlines.
std::string SvgToScale(const Contours& contours);

}  // namespace vanzet::contour
