#pragma once

#include <algorithm>
#include <cstdint>
#include <string>

#include "view/shared/sketch.h"

/// The surface that pictures are painted on, in whatever toolkit.
namespace vanzet::view {

struct Rgb {
  std::uint8_t red = 0, green = 0, blue = 0;

  bool operator==(const Rgb&) const = default;
};

/// The colours of the moment: of texts in edits, of their ground, of selections, and of texts on these.
struct Palette {
  Rgb text, base, accent, onAccent;

  bool IsDark() const {
    const auto [least, most] = std::minmax({base.red, base.green, base.blue});
    return least + most < 256;
  }
};

enum class Dash { kSolid, kDashed, kDashDot };

struct Pen {
  Rgb colour;
  double width = 1;
  Dash dash = Dash::kSolid;
  bool isRound = false;  ///< at ends and corners; else ends are square, half a width beyond, and corners cut
};

enum class TextPlace {
  kCentre,        ///< one line in the middle of the box
  kBottomCentre,  ///< lines in the middle, the last one at the bottom; wrapped between words
};

/// Units    pixels, y down
class Canvas {
 public:
  virtual ~Canvas() = default;

  virtual void Fill(const Path& path, Rgb colour) = 0;

  /// Thin lines from the bottom left to the top right, within the path.
  virtual void Hatch(const Path& path, Rgb colour) = 0;
  virtual void Stroke(const Path& path, const Pen& pen) = 0;

  /// A box with round corners of that radius.
  virtual void Plate(const Box& box, double rounding, Rgb fill, const Pen& frame) = 0;
  virtual void Text(const Box& box, TextPlace place, const std::string& text, Rgb colour) = 0;

  virtual double TextWidth(const std::string& text) = 0;  ///< of one line
  virtual double LineHeight() = 0;
  virtual double WrappedHeight(const std::string& text, double width) = 0;
};

}  // namespace vanzet::view
