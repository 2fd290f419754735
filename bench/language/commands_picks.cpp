#include <algorithm>

#include "base/near_words.h"
#include "language/commands.h"

/// Picking: dfm pick, dfm inf, dfm umark, and the macro vbpickel.
namespace vanzet::language {
namespace {

using drawing::Pick;

// Events that a pick ends with.
constexpr std::int32_t kCancelled = 27;
constexpr std::int32_t kObjectPicked = 151;
constexpr std::int32_t kPositionPicked = 1;

/// The figures that can be picked: those of the drawing, then those of the files, each in the order of bytes.
std::vector<std::string> FiguresToPick(Surroundings& surroundings) {
  std::vector<std::string> names;
  for (const auto& [name, figure] : surroundings.board.drawing().figures) names.push_back(name);
  for (const std::string& name : surroundings.workplace.FigureFiles()) names.push_back(name);
  std::erase_if(names, drawing::IsFigureOfModule);
  return names;
}

/// Asks for a figure and returns its number, or nothing when the pick is cancelled.
Result<std::optional<std::int32_t>> PickFigure(const std::string& prompt, Surroundings& surroundings) {
  VANZET_DO(surroundings.board.Load());
  VANZET_TRY(const auto pick, surroundings.picks.Next({Pick::Kind::kFigure, prompt}));
  if (pick.kind == Pick::Kind::kCancel) return std::optional<std::int32_t>();
  const std::vector<std::string> figures = FiguresToPick(surroundings);
  if (std::ranges::find(figures, pick.name) == figures.end()) {
    const bool isOfModule = drawing::IsFigureOfModule(pick.name);
    Fault fault =
        surroundings.picks.At(pick, "figure '" + pick.name +
                                        (isOfModule ? "' is the module's own: it cannot be picked"
                                                    : "' does not exist" + DidYouMean(pick.name, figures)));
    fault.kind = FaultKind::kMissing;
    return fault;
  }
  for (const std::string& name : figures) surroundings.board.objects.NumberOf(name);
  return std::optional(surroundings.board.objects.NumberOf(pick.name));
}

}  // namespace

Result<void> PickObject(const Operands& operands, Surroundings& surroundings) {
  const auto picked = PickFigure(operands[2].text, surroundings);
  // A failed pick counts as cancelled: a caller that got another event would ask for ever.
  const auto object = picked ? *picked : std::nullopt;
  const std::pair<const Operand&, std::int32_t> results[] = {
      {operands[0], object ? kObjectPicked : kCancelled}, {operands[1], object.value_or(0)}};
  for (const auto& [variable, value] : results) {
    if (const auto set = surroundings.variables.Set(variable.text, value); !set)
      return variable.At(set.fault());
  }
  return picked ? Result<void>() : picked.fault();
}

Result<void> ObjectInformation(const Operands& operands, Surroundings& surroundings) {
  const auto name = surroundings.board.objects.NameOf(operands[0].number);
  if (name) return surroundings.variables.Set("$_misc", *name);
  return operands[0].At("object " + std::to_string(operands[0].number) + " does not exist",
                        FaultKind::kMissing);
}

Result<void> ClearMarks(const Operands&, Surroundings&) {
  // Picks leave no marks.
  return {};
}

Result<void> PickPosition(CommandLine& arguments, Surroundings& surroundings) {
  project::Variables& variables = surroundings.variables;
  if (!arguments.SkipWord("POS")) return arguments.Expected("'POS'");
  VANZET_DO(arguments.ExpectEnd());
  const auto pick = surroundings.picks.Next({Pick::Kind::kPosition});
  const bool isPicked = pick && pick->kind == Pick::Kind::kPosition;
  VANZET_DO(variables.Set("i_return", isPicked ? kPositionPicked : kCancelled));
  if (!isPicked) return pick ? Result<void>() : pick.fault();
  VANZET_DO(variables.Set("w_return", pick->position.x));
  return variables.Set("w_return2", pick->position.y);
}

}  // namespace vanzet::language
