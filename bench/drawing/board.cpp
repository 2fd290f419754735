#include "drawing/board.h"

#include <fstream>
#include <system_error>
#include <utility>

#include "contour/contour.h"
#include "contour/library.h"
#include "drawing/drawing_text.h"

namespace vanzet::drawing {
namespace {

/// The part of a map with keys from `first` to `last`.
template <class Map>
auto Between(Map& map, int first, int last) {
  return std::pair(map.lower_bound(first), map.upper_bound(last));
}

/// The contour whose heights are half of those of the other.
Result<geometry::Kurve> HalveHeights(const geometry::Kurve& curve) {
  geometry::Kurve halved;
  bool hasArcs = false;
  for (int i = 0; i < curve.nVertices; ++i) {
    geometry::spVertex vertex;
    curve.Get(i, vertex);
    vertex.p.y /= 2;
    vertex.pc.y /= 2;
    hasArcs = hasArcs || vertex.type != geometry::LINEAR;
    halved.Add(vertex);
  }
  const auto valid = CheckCurve(halved);
  if (!valid && hasArcs) return Fault{"the heights of an arc cannot be taken as diameters"};
  return valid ? Result<geometry::Kurve>(halved) : valid.fault();
}

}  // namespace

Board::Board() : isLoaded_(true) {
  contour::UseMillimetres();
  layerNumbers_.NumberOf(kFirstLayer);
}

Board::Board(std::filesystem::path folder) : Board() {
  folder_ = std::move(folder);
  isLoaded_ = false;
}

Result<Drawing> Board::ReadFile() const {
  std::error_code error;
  const auto status = std::filesystem::status(File(), error);
  if (status.type() == std::filesystem::file_type::not_found) return Drawing();
  // Opening a pipe or a device could block.
  if (!std::filesystem::is_regular_file(status)) return Fault{"not a regular file", File().string()};
  std::ifstream text(File(), std::ios::binary);
  if (!text) return Fault{.text = "cannot be read", .file = File().string(), .kind = FaultKind::kSystem};
  return ReadDrawing(text, File().string());
}

Result<void> Board::Load() {
  if (isLoaded_) return {};
  VANZET_TRY(auto read, ReadFile());
  drawing_ = std::move(read);
  isLoaded_ = true;
  return {};
}

Result<std::optional<Fault>> Board::LoadOrBegin() {
  const auto loaded = Load();
  if (loaded) return std::optional<Fault>();
  if (loaded.fault().kind != FaultKind::kDamaged) return loaded.fault();
  isLoaded_ = isReplaced_ = true;
  return std::optional<Fault>(loaded.fault());
}

Result<std::optional<std::string>> Board::Unsaved() {
  if (!HasChanges()) return std::optional<std::string>();
  VANZET_TRY(auto kept, isReplaced_ ? Result<Drawing>(Drawing()) : ReadFile());
  Merge(drawing_, changes_, kept);
  unsaved_ = std::move(kept);
  return std::optional<std::string>(DrawingText(*unsaved_));
}

void Board::MarkSaved() {
  if (!unsaved_) return;
  drawing_ = *std::exchange(unsaved_, std::nullopt);
  drawing_.layers.try_emplace(layer_);
  changes_ = Changes();
  isReplaced_ = false;
}

Result<void> Board::SelectLayer(const std::string& name) {
  VANZET_DO(CheckName(name, "a layer"));
  if (drawing_.layers.try_emplace(name).second) changes_.layers.insert(name);
  layer_ = name;
  layerNumbers_.NumberOf(name);
  return {};
}

const Pen& Board::pen() const {
  return drawing_.layers.at(layer_);
}

Result<void> Board::BeginLayer(const std::string& name, const Pen& pen) {
  const std::string former = layer_;
  VANZET_DO(SelectLayer(name));
  formerLayer_ = former;
  drawing_.layers[layer_] = pen;
  changes_.layers.insert(layer_);
  return {};
}

void Board::EndLayer() {
  const auto former = std::exchange(formerLayer_, std::nullopt);
  // The former layer may have been deleted.
  if (former) layer_ = drawing_.layers.contains(*former) ? *former : kFirstLayer;
}

Result<void> Board::DeleteLayer(const std::string& name) {
  if (name == kFirstLayer) return Fault{"layer " + name + " cannot be deleted"};
  RemoveLayer(drawing_, name, changes_);
  if (layer_ == name) layer_ = kFirstLayer;
  return {};
}

const LineKey* Board::FindDrawn(int number) const {
  const LineKey* other = nullptr;
  for (const auto& [key, line] : drawing_.lines) {
    if (key.number != number) continue;
    if (key.layer == layer_) return &key;
    if (other == nullptr) other = &key;
  }
  return other;
}

const geometry::CLine* Board::FindLine(int number) const {
  const auto line = workpieces.lines.find(number);
  if (line != workpieces.lines.end()) return &line->second;
  const LineKey* const drawn = FindDrawn(number);
  return drawn == nullptr ? nullptr : &drawing_.lines.at(*drawn).line;
}

Result<void> Board::PutLine(int number, const geometry::CLine& line) {
  VANZET_DO(CheckReach(line.p));
  if (window == Window::kConstruction) {
    workpieces.lines.insert_or_assign(number, line);
    return {};
  }
  const LineKey key{layer_, number};
  drawing_.lines.insert_or_assign(key, DrawnLine{line, pen()});
  changes_.lines.insert(key);
  return {};
}

void Board::DeleteLines(int first, int last) {
  const bool isOne = first == last;
  if (isOne && workpieces.lines.erase(first) > 0) return;
  const auto [from, to] = Between(workpieces.lines, first, last);
  workpieces.lines.erase(from, to);
  const LineKey* const one = isOne ? FindDrawn(first) : nullptr;
  const std::string layer = one != nullptr ? one->layer : layer_;
  const auto drawn =
      std::pair(drawing_.lines.lower_bound({layer, first}), drawing_.lines.upper_bound({layer, last}));
  for (auto line = drawn.first; line != drawn.second; ++line) changes_.lines.insert(line->first);
  drawing_.lines.erase(drawn.first, drawn.second);
}

const geometry::Kurve* Board::FindContour(int number) const {
  const auto contour = drawing_.contours.find(number);
  return contour == drawing_.contours.end() ? nullptr : &contour->second.stroke.curve;
}

Result<void> Board::CheckRoom(const geometry::Kurve& curve) const {
  VANZET_DO(CheckCurve(curve));
  if (VerticesOf(drawing_) + static_cast<std::size_t>(curve.nVertices) <= contour::kMostVertices) return {};
  return Fault{"the drawing is full: it cannot have more than " + std::to_string(contour::kMostVertices) +
               " vertices"};
}

Result<void> Board::PutContour(int number, geometry::Kurve curve) {
  VANZET_DO(CheckRoom(curve));
  drawing_.contours.insert_or_assign(number, Contour{{std::move(curve), layer_, pen()}, window});
  changes_.contours.insert(number);
  return {};
}

Result<void> Board::ReplaceContour(int number, geometry::Kurve curve) {
  VANZET_DO(CheckCurve(curve));
  drawing_.contours.at(number).stroke.curve = std::move(curve);
  changes_.contours.insert(number);
  return {};
}

void Board::DeleteContours(int first, int last) {
  const auto [from, to] = Between(drawing_.contours, first, last);
  for (auto contour = from; contour != to; ++contour) changes_.contours.insert(contour->first);
  drawing_.contours.erase(from, to);
}

Result<void> Board::CreateFigure(const std::string& name) {
  VANZET_DO(CheckName(name, "a figure"));
  if (!drawing_.figures.try_emplace(name).second) return Fault{"figure " + name + " already exists"};
  changes_.figures.insert(name);
  return {};
}

Result<void> Board::Append(const std::string& figure, Stroke stroke) {
  VANZET_DO(CheckRoom(stroke.curve));
  drawing_.figures.at(figure).strokes.push_back(std::move(stroke));
  changes_.figures.insert(figure);
  return {};
}

Result<void> Board::Append(const std::string& figure, int contour) {
  Stroke stroke = drawing_.contours.at(contour).stroke;
  if (diameterFigures_.contains(figure)) {
    VANZET_TRY(stroke.curve, HalveHeights(stroke.curve));
  }
  return Append(figure, std::move(stroke));
}

Result<void> Board::Append(const std::string& figure, geometry::Kurve curve) {
  return Append(figure, Stroke{std::move(curve), layer_, pen()});
}

Result<void> Board::Insert(const std::string& figure, const Placement& placement) {
  VANZET_DO(CheckReach({placement.x, placement.y}));
  drawing_.figures.at(figure).insertions.push_back({window, placement});
  changes_.figures.insert(figure);
  return {};
}

void Board::DeleteFigure(const std::string& name) {
  diameterFigures_.erase(name);
  if (drawing_.figures.erase(name) > 0) changes_.figures.insert(name);
}

}  // namespace vanzet::drawing
