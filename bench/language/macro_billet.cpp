#include <utility>

#include "base/numbers.h"
#include "language/commands.h"
#include "project/definition.h"

/// The macro that makes the billet of the definition that was closed last from its two figures:
/// crebilfromfig 1, crebilfromfig 2.
namespace vanzet::language {
namespace {

using drawing::Board;

/// Where the billet of a spindle is kept, and how it is drawn.
struct Spindle {
  std::string_view argument;
  std::size_t operation;
  const char* figure;
  const char* layer;
};
constexpr Spindle kSpindles[] = {
    {"1", 1, "BilletM", "Billet_Spindel_1"},
    {"2", 2, "BilletS", "Billet_Spindel_2"},
};

Result<const Spindle*> ReadSpindle(CommandLine& arguments) {
  for (const Spindle& spindle : kSpindles) {
    if (!arguments.Take(spindle.argument)) continue;
    if (const auto end = arguments.End(); !end) return end.fault();
    return &spindle;
  }
  return arguments.Expected("1 for the main spindle or 2 for the sub spindle");
}

/// The names of the figures, outside and inside, that a billet of the kind 2 has in its section.
Result<std::vector<std::string>> FiguresOf(const Spindle& spindle, Surroundings& surroundings) {
  constexpr std::size_t kBillet = 3, kItems = 4;
  constexpr std::int32_t kFromFigures = 2;
  const auto vdm = surroundings.store.LastClosed();
  if (!vdm) return Fault{"no definition was closed yet"};
  const auto content = surroundings.store.Snapshot(static_cast<std::int64_t>(*vdm));
  if (!content) return content.fault();
  const auto definition = project::ReadDefinition(*content);
  if (!definition) return definition.fault();
  const auto& operations = definition->operations;
  const auto* const sections =
      spindle.operation < operations.size() ? &operations[spindle.operation].sections : nullptr;
  if (sections == nullptr || sections->size() <= kBillet || (*sections)[kBillet].size() < kItems) {
    return Fault{"the definition that was closed last has no billet of that spindle"};
  }
  const std::vector<std::string>& items = (*sections)[kBillet];
  if (IntegerOrZero(items[1]) != kFromFigures) return Fault{"the billet of that spindle is not from figures"};
  return std::vector<std::string>{items[2], items[3]};
}

/// The contours of a figure of the drawing or of the files. A text that names none has no contours.
Result<std::vector<geometry::Kurve>> CurvesOf(const std::string& figure, Surroundings& surroundings) {
  if (figure.empty() || figure == "0") return std::vector<geometry::Kurve>();
  const auto& figures = surroundings.board.drawing().figures;
  const auto drawn = figures.find(figure);
  if (drawn == figures.end()) return surroundings.workplace.ReadFigureFile(figure);
  std::vector<geometry::Kurve> curves;
  for (const drawing::Stroke& stroke : drawn->second.strokes) curves.push_back(stroke.curve);
  return curves;
}

Result<std::vector<geometry::Kurve>> BilletCurves(const Spindle& spindle, Surroundings& surroundings) {
  const auto names = FiguresOf(spindle, surroundings);
  if (!names) return names.fault();
  std::vector<geometry::Kurve> all;
  for (const std::string& name : *names) {
    const auto curves = CurvesOf(name, surroundings);
    if (!curves) return curves.fault();
    for (const geometry::Kurve& curve : *curves) {
      if (const auto sound = drawing::CheckCurve(curve); !sound) {
        return Fault{"the figure '" + name + "': " + sound.fault().text};
      }
    }
    all.insert(all.end(), curves->begin(), curves->end());
  }
  return all;
}

/// Draws the contours as the billet's figure, in the place of the old one, in the billet's layer.
Result<void> DrawBillet(const Spindle& spindle, const std::vector<geometry::Kurve>& curves, Board& board) {
  const std::string layer = board.layer();
  const drawing::Window window = board.window;
  board.DeleteFigure(spindle.figure);
  auto drawn =
      board.BeginLayer(spindle.layer, {drawing::FindColour("magenta"), drawing::FindLineStyle("solid")});
  if (drawn) drawn = board.CreateFigure(spindle.figure);
  for (const geometry::Kurve& curve : curves) {
    if (drawn) drawn = board.Append(spindle.figure, curve);
  }
  board.window = drawing::Window::kDisplay;
  if (drawn) drawn = board.Insert(spindle.figure, {});
  board.window = window;
  if (drawn) drawn = board.SelectLayer(layer);
  return drawn;
}

}  // namespace

Result<void> BilletFromFigures(CommandLine& arguments, Surroundings& surroundings) {
  const auto spindle = ReadSpindle(arguments);
  if (!spindle) return spindle.fault();
  if (const auto loaded = surroundings.board.Load(); !loaded) return loaded;
  const auto curves = BilletCurves(**spindle, surroundings);
  if (!curves) return curves.fault();
  // On a board beside it, so that a drawing without room for the new billet keeps the old one.
  Board drawn = surroundings.board;
  if (const auto done = DrawBillet(**spindle, *curves, drawn); !done) return done;
  surroundings.board = std::move(drawn);
  return {};
}

}  // namespace vanzet::language
