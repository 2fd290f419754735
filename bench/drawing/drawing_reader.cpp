#include <algorithm>
#include <cmath>

#include "base/numbers.h"
#include "base/quote.h"
#include "base/text_line_reader.h"
#include "contour/contour.h"
#include "drawing/drawing_text.h"

namespace vanzet::drawing {
namespace {

using geometry::Point;

/// Reads the words of one line one after the other. Faults have no file and no line yet.
class Words {
 public:
  explicit Words(std::string_view line) : rest_(line) {}

  /// Reads up to the next blank.
  std::string_view Word() {
    const std::size_t end = std::min(rest_.find(' '), rest_.size());
    const std::string_view word = rest_.substr(0, end);
    rest_.remove_prefix(std::min(end + 1, rest_.size()));
    return word;
  }

  Result<double> Number() { return Number(""); }

  /// Reads a number after `mark` in the same word.
  Result<double> Number(std::string_view mark) {
    const std::string_view word = Word();
    const auto number = word.starts_with(mark) ? WholeReal(word.substr(mark.size())) : std::nullopt;
    const double largest = contour::kLargestCoordinate;
    if (!number || !(std::fabs(*number) <= largest)) {
      return Fault{"expected " + (mark.empty() ? "a number" : "'" + std::string(mark) + "' and a number") +
                   " within 1e+07, found " + Quoted(word)};
    }
    return *number;
  }

  Result<Point> Place() {
    VANZET_TRY(const auto x, Number("x"));
    VANZET_TRY(const auto y, Number("y"));
    return Point(x, y);
  }

  Result<std::int32_t> Integer() {
    const std::string_view word = Word();
    if (const auto number = WholeInteger(word)) return *number;
    return Fault{"expected an integer, found " + Quoted(word)};
  }

  Result<Window> WindowName() {
    const std::string_view word = Word();
    if (word == "display") return Window::kDisplay;
    if (word == "construction") return Window::kConstruction;
    return Fault{"expected 'display' or 'construction', found " + Quoted(word)};
  }

  Result<Pen> ReadPen() {
    const std::string_view colour = Word(), style = Word();
    const Pen pen{FindColour(colour), FindLineStyle(style)};
    if (pen.colour == nullptr) {
      return Fault{"expected " + ColourNames() + ", found " + Quoted(colour)};
    }
    if (pen.style == nullptr) {
      return Fault{"expected " + LineStyleNames() + ", found " + Quoted(style)};
    }
    return pen;
  }

  /// Reads the rest of the line as a name.
  Result<std::string> Name(std::string_view what) {
    std::string name(std::exchange(rest_, {}));
    VANZET_DO(CheckName(name, what));
    return name;
  }

  Result<void> End() const {
    if (rest_.empty()) return {};
    return Fault{"expected the end of the line, found " + Quoted(rest_)};
  }

 private:
  std::string_view rest_;
};

/// Reads a drawing line by line. The faults of its parts have no file and no line yet.
class Reader {
 public:
  Reader(std::istream& text, const std::string& name) : lines_(text, name) {}

  Result<Drawing> Read() {
    VANZET_DO(Begin());
    while (!isEnded_) {
      VANZET_TRY(const auto next, Next());
      if (!next) return lines_.At("is cut short: expected 'end'");
      VANZET_DO(ReadPart());
    }
    if (const auto next = Next(); !next || *next) {
      return next ? lines_.At("unexpected text after 'end'") : next.fault();
    }
    if (drawing_.layers.contains(kFirstLayer)) return std::move(drawing_);
    return lines_.At("layer " + std::string(kFirstLayer) + " is missing");
  }

 private:
  struct Part {
    std::string_view word;
    Result<void> (Reader::*read)(Words& words);
  };
  static const Part kParts[];

  Result<void> Begin() {
    drawing_.layers.clear();
    VANZET_TRY(const auto next, Next());
    if (next && line_ == "drawing 1") return {};
    if (next && line_.starts_with("drawing ")) {
      return lines_.At("belongs to another version: expected 'drawing 1'");
    }
    return lines_.At("not a drawing: expected 'drawing 1'");
  }

  Result<bool> Next() { return lines_.Next(line_); }

  /// Reads the part that begins on this line, and adds file and line to its fault.
  Result<void> ReadPart() {
    Words words(line_);
    const std::string_view word = words.Word();
    const Part* part = kParts;
    while (!part->word.empty() && part->word != word) ++part;
    if (part->word.empty()) {
      return lines_.At("expected a layer, figure, stroke, insert, contour, line or 'end', found " +
                       Quoted(line_));
    }
    const auto taken = (this->*part->read)(words);
    ++parts_;
    if (taken || !taken.fault().file.empty()) return taken;
    return lines_.At(taken.fault());
  }

  Result<void> AddLayer(Words& words) {
    VANZET_TRY(const auto pen, words.ReadPen());
    VANZET_TRY(const auto name, words.Name("a layer"));
    if (drawing_.layers.emplace(name, pen).second) return {};
    return Fault{"layer " + Quoted(name) + " is listed twice"};
  }

  Result<void> AddFigure(Words& words) {
    VANZET_TRY(const auto name, words.Name("a figure"));
    const auto [place, isNew] = drawing_.figures.try_emplace(name);
    figure_ = &place->second;
    if (isNew) return {};
    return Fault{"figure " + Quoted(name) + " is listed twice"};
  }

  Result<void> AddStroke(Words& words) {
    if (figure_ == nullptr) return Fault{"a stroke must follow a figure"};
    VANZET_TRY(auto stroke, ReadStroke(words));
    figure_->strokes.push_back(std::move(stroke));
    return {};
  }

  Result<void> AddInsertion(Words& words) {
    if (figure_ == nullptr) return Fault{"an insert must follow a figure"};
    VANZET_TRY(const auto window, words.WindowName());
    Placement placement;
    for (double* number :
         {&placement.xx, &placement.xy, &placement.yx, &placement.yy, &placement.x, &placement.y}) {
      VANZET_TRY(const auto read, words.Number());
      *number = read;
    }
    if (!KeepsLengths(placement)) return Fault{"the placement does not keep lengths"};
    figure_->insertions.push_back({window, placement});
    return words.End();
  }

  Result<void> AddContour(Words& words) {
    VANZET_TRY(const auto number, words.Integer());
    VANZET_TRY(const auto window, words.WindowName());
    VANZET_TRY(auto stroke, ReadStroke(words));
    if (drawing_.contours.emplace(number, Contour{std::move(stroke), window}).second) return {};
    return Fault{"contour " + std::to_string(number) + " is listed twice"};
  }

  Result<void> AddLine(Words& words) {
    VANZET_TRY(const auto number, words.Integer());
    double place[4];
    for (double& coordinate : place) {
      VANZET_TRY(const auto read, words.Number());
      coordinate = read;
    }
    geometry::CLine line(Point(place[0], place[1]), place[2], place[3], false);
    line.ok = true;
    constexpr double kSameLength = 1e-9;
    if (std::fabs(line.v.Magnitude() - 1) > kSameLength) return Fault{"the direction's length is not 1"};
    VANZET_TRY(const auto pen, words.ReadPen());
    VANZET_TRY(const auto layer, Layer(words));
    if (drawing_.lines.emplace(LineKey{layer, number}, DrawnLine{line, pen}).second) return {};
    return Fault{"line " + std::to_string(number) + " in layer " + Quoted(layer) + " is listed twice"};
  }

  Result<void> ReadEnd(Words& words) {
    isEnded_ = true;
    VANZET_TRY(const auto count, words.Integer());
    if (count != static_cast<std::int64_t>(parts_)) {
      return Fault{"expected 'end " + std::to_string(parts_) + "', the number of parts"};
    }
    return words.End();
  }

  Result<std::string> Layer(Words& words) const {
    auto layer = words.Name("a layer");
    if (layer && !drawing_.layers.contains(*layer)) {
      return Fault{"layer " + Quoted(*layer) + " does not exist"};
    }
    return layer;
  }

  /// Reads the pen, the layer, and on the next lines the vertices.
  Result<Stroke> ReadStroke(Words& words) {
    VANZET_TRY(const auto pen, words.ReadPen());
    VANZET_TRY(const auto layer, Layer(words));
    Stroke stroke{{}, layer, pen};
    for (;;) {
      VANZET_TRY(const auto next, Next());
      if (!next) return Fault{"is cut short: expected 'ek'"};
      if (line_ == "ek") break;
      VANZET_DO(ReadVertex(stroke.curve));
    }
    VANZET_DO(CheckCurve(stroke.curve));
    return stroke;
  }

  Result<void> ReadVertex(geometry::Kurve& curve) {
    if (++vertices_ > contour::kMostVertices) {
      return Fault{"more than " + std::to_string(contour::kMostVertices) + " vertices"};
    }
    std::string_view line = line_;
    geometry::spVertex vertex;
    if (line.starts_with('a')) vertex.type = geometry::ACW;
    if (line.starts_with('t')) vertex.type = geometry::CW;
    if (vertex.type != geometry::LINEAR) line.remove_prefix(1);
    Words words(line);
    VANZET_TRY(const auto place, words.Place());
    vertex.p = place;
    if (vertex.type != geometry::LINEAR) {
      VANZET_TRY(const auto centre, words.Place());
      vertex.pc = centre;
    }
    VANZET_DO(words.End());
    return Append(vertex, curve);
  }

  static Result<void> Append(const geometry::spVertex& vertex, geometry::Kurve& curve) {
    if (!curve.started && vertex.type != geometry::LINEAR) {
      return Fault{"a contour cannot start with an arc"};
    }
    if (curve.Add(vertex, false)) return {};
    return Fault{"the vertex is at the place of the one before it"};
  }

  TextLineReader lines_;
  std::string line_;
  Drawing drawing_;
  Figure* figure_ = nullptr;  ///< the figure of strokes and inserts
  std::size_t parts_ = 0;
  std::size_t vertices_ = 0;
  bool isEnded_ = false;
};

// clang-format off
const Reader::Part Reader::kParts[] = {
    { "layer",   &Reader::AddLayer },
    { "figure",  &Reader::AddFigure },
    { "stroke",  &Reader::AddStroke },
    { "insert",  &Reader::AddInsertion },
    { "contour", &Reader::AddContour },
    { "line",    &Reader::AddLine },
    { "end",     &Reader::ReadEnd },
    { "",        nullptr },
};
// clang-format on

}  // namespace

Result<void> CheckName(std::string_view name, std::string_view what) {
  const auto isControl = [](char c) {
    const auto byte = static_cast<unsigned char>(c);
    return byte < 0x20 || byte == 0x7F;
  };
  const bool fits = !name.empty() && name.size() <= kLongestName && name.front() != ' ' &&
                    name.back() != ' ' && std::ranges::none_of(name, isControl);
  if (fits) return {};
  return Fault{std::string(what) + " cannot be called " + Quoted(name) +
               ": a name has 1 to 255 bytes, no control character, and no blank at its ends"};
}

Result<Drawing> ReadDrawing(std::istream& text, const std::string& name) {
  auto drawing = Reader(text, name).Read();
  if (drawing || drawing.fault().kind == FaultKind::kSystem) return drawing;
  Fault fault = drawing.fault();
  fault.kind = FaultKind::kDamaged;
  return fault;
}

}  // namespace vanzet::drawing
