#include "view/shared/pictures/measure_painter.h"

#include <algorithm>
#include <cmath>

namespace vanzet::view {
namespace {

constexpr double kArrow = 6;
constexpr int kDirections = 8;
constexpr int kSteps = 12;  // of half the height of a letter, in which a free place is looked for
constexpr std::ptrdiff_t kShort = 3;

/// True for a letter that has room beside it for its value.
bool IsShort(const std::string& letter) {
  return std::ranges::count_if(letter, [](char c) { return (c & 0xC0) != 0x80; }) <= kShort;
}

class MeasurePainter {
 public:
  MeasurePainter(Canvas& canvas, const Sketch& sketch, const Place& place, const Palette& palette,
                 const Emphasis& emphasis)
      : canvas_(canvas), sketch_(sketch), place_(place), palette_(palette), emphasis_(emphasis) {}

  void Paint(const Measure& measure) {
    TakeColours(measure);
    switch (measure.kind) {
      case Measure::Kind::kAlong: return Along(measure);
      case Measure::Kind::kAcross: return Across(measure);
      case Measure::Kind::kAngle: return Angle(measure);
      case Measure::Kind::kCorner: return Corner(measure);
    }
  }

  const std::vector<Box>& plates() const { return plates_; }

 private:
  void TakeColours(const Measure& measure) {
    isFocused_ = measure.control == emphasis_.control && measure.control != 0;
    isWrong_ = std::ranges::find(sketch_.wrong, measure.control) != sketch_.wrong.end();
    line_ = {isFocused_ ? palette_.accent : palette_.text, isFocused_ ? 2.0 : 1.0};
    if (isWrong_) line_.colour = FaultColour(palette_);
  }

  std::string LabelOf(const Measure& measure) const {
    const bool hasValue = isFocused_ && !emphasis_.value.empty() && IsShort(measure.letter);
    return hasValue ? measure.letter + " = " + emphasis_.value : measure.letter;
  }

  /// The letter on a plate around `centre`, or where there is room beside it.
  void Label(const Measure& measure, Point centre) {
    const std::string text = LabelOf(measure);
    const Box plate = FreePlate(text, centre);
    const Box wanted = PlateOf(text, centre);
    if (plate != wanted) Extension(wanted.Centre(), plate.Centre());
    plates_.push_back(plate);
    const bool isFilled = isFocused_ && !isWrong_;
    canvas_.Plate(plate, plate.Height() / 2, isFilled ? palette_.accent : palette_.base, {line_.colour});
    canvas_.Text(plate, TextPlace::kCentre, text, isFilled ? palette_.onAccent : line_.colour);
  }

  /// The plate nearest to `centre` that covers no other letter; that around it when there is none.
  Box FreePlate(const std::string& text, Point centre) {
    const Box wanted = PlateOf(text, centre);
    for (int step = 0; step < kSteps; ++step) {
      for (int direction = 0; direction < kDirections; ++direction) {
        const Point place = OnArc(centre, 360.0 / kDirections * direction, step * wanted.Height() / 2);
        const Box plate = PlateOf(text, place);
        const auto covers = [&](const Box& other) { return plate.Intersects(other); };
        if (place_.room.Contains(plate) && std::ranges::none_of(plates_, covers)) return plate;
      }
    }
    return wanted;
  }

  /// A plate around `centre`, moved into the room; the left end of one that is too wide is in it.
  Box PlateOf(const std::string& text, Point centre) {
    const double height = canvas_.LineHeight() + 3;
    const double width = std::max(height, canvas_.TextWidth(text) + height * 0.6);
    const double inside = std::min(centre.x - width / 2, place_.room.right - width);
    const double left = std::max(inside, place_.room.left);
    const double top = centre.y - height / 2;
    return {left, top, left + width, top + height};
  }

  void Line(Point a, Point b) { canvas_.Stroke(Stroke(a, b), line_); }

  void FillAndFrame(const Path& path) {
    canvas_.Fill(path, line_.colour);
    canvas_.Stroke(path, line_);
  }

  void Arrow(Point tip, Point from) {
    const double angle = std::atan2(tip.y - from.y, tip.x - from.x);
    Ring head = {{tip}};
    for (const double side : {-0.35, 0.35})
      head.points.push_back(tip - kArrow * Point{std::cos(angle + side), std::sin(angle + side)});
    FillAndFrame({{head}});
  }

  void ArrowedLine(Point a, Point b) {
    Line(a, b);
    Arrow(a, b);
    Arrow(b, a);
  }

  /// From the shape to the line of a measure in a lane, a little beyond it.
  void Extension(Point from, Point to) { canvas_.Stroke(Stroke(from, to), {line_.colour, 0.7}); }

  void Along(const Measure& measure) {
    const Point a = place_.fit.Of(measure.from), b = place_.fit.Of(measure.to);
    const double sign = measure.where == Where::kBelow ? 1 : -1;
    const double edge = sign > 0 ? place_.bounds.bottom : place_.bounds.top;
    const double y = edge + sign * (measure.lane + 0.75) * place_.lane;
    for (const Point& end : {a, b}) Extension(end, {end.x, y + sign * 4});
    const Point left = {std::min(a.x, b.x), y}, right = {std::max(a.x, b.x), y};
    ArrowedLine(left, right);
    const double plate = PlateOf(LabelOf(measure), {}).Width();
    const bool fits = right.x - left.x > plate + 2 * kArrow;
    // Where the line has no room, the letter is beyond its outer end.
    Label(measure, fits ? 0.5 * (left + right) : BeyondEnd(left, right, plate));
  }

  Point BeyondEnd(Point left, Point right, double plate) const {
    const bool toTheRight = (left.x + right.x) / 2 > place_.bounds.Centre().x;
    return toTheRight ? right + Point{plate / 2 + 4, 0} : left - Point{plate / 2 + 4, 0};
  }

  void Across(const Measure& measure) {
    Point a = place_.fit.Of(measure.from), b = place_.fit.Of(measure.to);
    if (measure.where == Where::kLeft || measure.where == Where::kRight) {
      const double sign = measure.where == Where::kRight ? 1 : -1;
      const double edge = sign > 0 ? place_.bounds.right : place_.bounds.left;
      const double x = edge + sign * (measure.lane + 0.75) * place_.lane;
      for (const Point& end : {a, b}) Extension(end, {x + sign * 4, end.y});
      a.x = b.x = x;
    }
    ArrowedLine(a, b);
    Label(measure, a + measure.at * (b - a));
  }

  void Angle(const Measure& measure) {
    const Point apex = place_.fit.Of(measure.from);
    const double first = measure.to.x, second = measure.to.y;
    const double radius = place_.lane * 1.7;
    canvas_.Stroke({{{Arc(apex, radius, -first, -second), false}}}, line_);
    for (const double degrees : {first, second}) Extension(apex, OnArc(apex, degrees, radius + 6));
    Label(measure, OnArc(apex, (first + second) / 2, radius));
  }

  /// Against the clock, as it is seen.
  static Point OnArc(Point centre, double degrees, double radius) {
    return OnCircle(centre, radius, -degrees);
  }

  void Corner(const Measure& measure) {
    const Point corner = place_.fit.Of(measure.from);
    const Point label = CornerLabel(corner, measure.where);
    Line(corner, label);
    FillAndFrame(Circle(corner, 2.2));
    Label(measure, label);
  }

  Point CornerLabel(Point corner, Where where) const {
    const double lane = place_.lane;
    switch (where) {
      case Where::kRight: return corner + Point{lane * 0.8, -lane * 0.8};
      case Where::kAbove: return {corner.x + lane * 0.5, place_.bounds.top - lane * 0.6};
      case Where::kBelow: return {corner.x + lane * 0.5, place_.bounds.bottom + lane * 0.6};
      default: return corner + Point{lane * 0.6, lane * 0.7};
    }
  }

  Canvas& canvas_;
  const Sketch& sketch_;
  const Place& place_;
  const Palette& palette_;
  const Emphasis& emphasis_;
  Pen line_;
  bool isFocused_ = false;
  bool isWrong_ = false;
  std::vector<Box> plates_;
};

}  // namespace

Path Fit::Of(Path path) const {
  for (Ring& ring : path.rings) {
    for (Point& point : ring.points) point = Of(point);
  }
  return path;
}

Box Fit::Of(const Box& box) const {
  const Point low = Of(Point{box.left, box.top}), high = Of(Point{box.right, box.bottom});
  return {low.x, high.y, high.x, low.y};
}

std::vector<Box> PaintMeasures(Canvas& canvas, const Sketch& sketch, const Place& place,
                               const Palette& palette, const Emphasis& emphasis) {
  MeasurePainter measures(canvas, sketch, place, palette, emphasis);
  for (const Measure& measure : sketch.measures) {
    if (measure.control != emphasis.control) measures.Paint(measure);
  }
  // The emphasised measure is on top.
  for (const Measure& measure : sketch.measures) {
    if (measure.control == emphasis.control) measures.Paint(measure);
  }
  return measures.plates();
}

}  // namespace vanzet::view
