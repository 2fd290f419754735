#pragma once

#include <string>
#include <vector>

#include "view/shared/canvas.h"

namespace vanzet::test {

/// A canvas whose letters are 7 by 16 pixels, and that keeps what is drawn on it.
class RecordingCanvas final : public view::Canvas {
 public:
  struct DrawnPath {
    view::Path path;
    view::Rgb colour;
  };
  struct DrawnStroke {
    view::Path path;
    view::Pen pen;
  };
  struct DrawnPlate {
    view::Box box;
    view::Rgb fill;
  };
  struct DrawnText {
    view::Box box;
    std::string text;
    view::Rgb colour;
  };

  void Fill(const view::Path& path, view::Rgb colour) override { fills.push_back({path, colour}); }
  void Hatch(const view::Path& path, view::Rgb colour) override { hatches.push_back({path, colour}); }
  void Stroke(const view::Path& path, const view::Pen& pen) override { strokes.push_back({path, pen}); }
  void Plate(const view::Box& box, double /*rounding*/, view::Rgb fill, const view::Pen& /*frame*/) override {
    plates.push_back({box, fill});
  }
  void Text(const view::Box& box, view::TextPlace /*place*/, const std::string& text,
            view::Rgb colour) override {
    texts.push_back({box, text, colour});
  }
  double TextWidth(const std::string& text) override { return 7.0 * static_cast<double>(text.size()); }
  double LineHeight() override { return 16; }
  double WrappedHeight(const std::string& text, double width) override {
    return 16 * (1 + static_cast<int>(TextWidth(text) / width));
  }

  std::vector<DrawnPath> fills = {};
  std::vector<DrawnPath> hatches = {};
  std::vector<DrawnStroke> strokes = {};
  std::vector<DrawnPlate> plates = {};
  std::vector<DrawnText> texts = {};
};

}  // namespace vanzet::test
