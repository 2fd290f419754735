#include <utility>

#include "base/numbers.h"
#include "language/commands.h"
#include "modeller/spun_part.h"
#include "project/definition.h"

/// The macro that makes the billet of the definition that was closed last, from its two figures, as a
/// drawing and as a solid: crebilfromfig 1, crebilfromfig 2.
namespace vanzet::language {
namespace {

using drawing::Board;
using Curves = std::vector<geometry::Kurve>;

/// The operation with the billet of a spindle, and its figure and layer. Its solid has the name of its
/// figure.
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
    if (!arguments.SkipWord(spindle.argument)) continue;
    VANZET_DO(arguments.ExpectEnd());
    return &spindle;
  }
  return arguments.Expected("1 for the main spindle or 2 for the sub spindle");
}

/// The names of the figures, outside and inside, in the section of a billet of the kind 2.
Result<std::vector<std::string>> FiguresOf(const Spindle& spindle, Surroundings& surroundings) {
  constexpr std::size_t kBillet = 3, kItems = 4;
  constexpr std::int32_t kFromFigures = 2;
  const auto vdm = surroundings.store.LastClosed();
  if (!vdm) return Fault{.text = "no definition was closed yet", .kind = FaultKind::kMissing};
  VANZET_TRY(const auto content, surroundings.store.Snapshot(static_cast<std::int64_t>(*vdm)));
  VANZET_TRY(const auto definition, project::ReadDefinition(content));
  const std::vector<std::string>& items = definition.Items(spindle.operation, kBillet);
  if (items.size() < kItems) {
    return Fault{"the definition that was closed last has no billet of that spindle"};
  }
  if (IntegerOrZero(items[1]) != kFromFigures) return Fault{"the billet of that spindle is not from figures"};
  return std::vector<std::string>{items[2], items[3]};
}

/// The contours of a figure of the drawing or of the files. An empty text or "0" stands for no figure.
Result<Curves> CurvesOf(const std::string& figure, Surroundings& surroundings) {
  if (figure.empty() || figure == "0") return Curves();
  const auto& figures = surroundings.board.drawing().figures;
  const auto drawn = figures.find(figure);
  if (drawn == figures.end()) return surroundings.workplace.ReadFigureFile(figure);
  return drawing::CurvesOf(drawn->second);
}

/// The contours that a billet is made from.
struct Contours {
  Curves outside, inside;
};

Result<Curves> CheckedCurvesOf(const std::string& figure, Surroundings& surroundings) {
  VANZET_TRY(auto curves, CurvesOf(figure, surroundings));
  for (const geometry::Kurve& curve : curves) {
    if (const auto valid = drawing::CheckCurve(curve); !valid) {
      return Fault{"the figure '" + figure + "': " + valid.fault().text};
    }
  }
  return curves;
}

Result<Contours> ContoursOf(const Spindle& spindle, Surroundings& surroundings) {
  VANZET_TRY(const auto names, FiguresOf(spindle, surroundings));
  VANZET_TRY(auto outside, CheckedCurvesOf(names.front(), surroundings));
  VANZET_TRY(auto inside, CheckedCurvesOf(names.back(), surroundings));
  return Contours{std::move(outside), std::move(inside)};
}

/// Draws the contours as the figure of the billet, in the layer of the billet, and replaces the old figure.
Result<void> DrawBillet(const Spindle& spindle, const Contours& contours, Board& board) {
  const std::string layer = board.layer();
  const drawing::Window window = board.window;
  board.DeleteFigure(spindle.figure);
  auto drawn =
      board.BeginLayer(spindle.layer, {drawing::FindColour("magenta"), drawing::FindLineStyle("solid")});
  if (drawn) drawn = board.CreateFigure(spindle.figure);
  for (const Curves* const curves : {&contours.outside, &contours.inside}) {
    for (const geometry::Kurve& curve : *curves) {
      if (drawn) drawn = board.Append(spindle.figure, curve);
    }
  }
  board.window = drawing::Window::kDisplay;
  if (drawn) drawn = board.Insert(spindle.figure, {});
  board.window = window;
  if (drawn) drawn = board.SelectLayer(layer);
  return drawn;
}

/// Replaces the solid of the billet. The old solid goes in any case: it would be that of another billet.
Result<void> ModelBillet(const Spindle& spindle, const Contours& contours, modeller::BodyTable& bodies) {
  if (const std::int32_t old = bodies.NumberOf(spindle.figure); old != 0) {
    VANZET_DO(bodies.Delete(old));
  }
  auto body = modeller::SpinPart(contours.outside, contours.inside);
  if (!body) return Fault{std::string(spindle.figure) + " is drawn but has no solid: " + body.fault().text};
  if (!*body) return {};
  const auto added = bodies.Add(std::move(**body), spindle.figure);
  return added ? Result<void>() : added.fault();
}

}  // namespace

Result<void> BilletFromFigures(CommandLine& arguments, Surroundings& surroundings) {
  VANZET_TRY(const auto spindle, ReadSpindle(arguments));
  VANZET_DO(surroundings.board.Load());
  VANZET_TRY(const auto contours, ContoursOf(*spindle, surroundings));
  // On a copy of the board, so that a drawing without room for the new billet keeps the old one.
  Board drawn = surroundings.board;
  VANZET_DO(DrawBillet(*spindle, contours, drawn));
  surroundings.board = std::move(drawn);
  return ModelBillet(*spindle, contours, surroundings.bodies);
}

}  // namespace vanzet::language
