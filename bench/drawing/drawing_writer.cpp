#include "base/number_text.h"
#include "drawing/drawing_text.h"

namespace vanzet::drawing {
namespace {

/// No zero has a sign.
std::string Text(double number) {
  return ExactText(number + 0.0);
}

std::string Text(const Pen& pen) {
  return std::string(pen.colour->name) + " " + std::string(pen.style->name);
}

const char* Text(Window window) {
  return window == Window::kDisplay ? "display" : "construction";
}

std::string VertexText(const geometry::spVertex& vertex) {
  std::string text = "x" + Text(vertex.p.x) + " y" + Text(vertex.p.y);
  if (vertex.type == geometry::LINEAR) return text;
  text += " x" + Text(vertex.pc.x) + " y" + Text(vertex.pc.y);
  return (vertex.type == geometry::ACW ? "a" : "t") + text;
}

/// Writes the parts and counts them.
class Writer {
 public:
  std::string Write(const Drawing& drawing) {
    for (const auto& [name, pen] : drawing.layers) Part("layer " + Text(pen) + " " + name);
    for (const auto& [name, figure] : drawing.figures) WriteFigure(name, figure);
    for (const auto& [number, contour] : drawing.contours) {
      WriteCurve("contour " + std::to_string(number) + " " + Text(contour.window), contour.stroke);
    }
    for (const auto& [key, line] : drawing.lines) {
      Part("line " + std::to_string(key.number) + " " + Text(line.line.p.x) + " " + Text(line.line.p.y) +
           " " + Text(line.line.v.dx) + " " + Text(line.line.v.dy) + " " + Text(line.pen) + " " + key.layer);
    }
    return text_ + "end " + std::to_string(parts_) + "\n";
  }

 private:
  void WriteFigure(const std::string& name, const Figure& figure) {
    Part("figure " + name);
    for (const Stroke& stroke : figure.strokes) WriteCurve("stroke", stroke);
    for (const Figure::Insertion& insertion : figure.insertions) {
      const Placement& p = insertion.placement;
      std::string line = std::string("insert ") + Text(insertion.window);
      for (const double number : {p.xx, p.xy, p.yx, p.yy, p.x, p.y}) line += " " + Text(number);
      Part(line);
    }
  }

  void WriteCurve(const std::string& head, const Stroke& stroke) {
    Part(head + " " + Text(stroke.pen) + " " + stroke.layer);
    for (int i = 0; i < stroke.curve.nVertices; ++i) {
      geometry::spVertex vertex;
      stroke.curve.Get(i, vertex);
      text_ += VertexText(vertex) + "\n";
    }
    text_ += "ek\n";
  }

  void Part(const std::string& line) {
    text_ += line + "\n";
    ++parts_;
  }

  std::string text_ = "drawing 1\n";
  std::size_t parts_ = 0;
};

}  // namespace

std::string DrawingText(const Drawing& drawing) {
  return Writer().Write(drawing);
}

}  // namespace vanzet::drawing
