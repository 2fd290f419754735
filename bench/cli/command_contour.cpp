#include <CLI/CLI.hpp>

#include "cli/commands.h"
#include "cli/contour_operations.h"
#include "contour/library.h"

namespace vanzet::cli {
namespace {

struct Row {
  const char* name;
  const char* help;
  const char* operands;
  std::size_t files;    ///< at most; the first of them may be left out when there is one
  std::size_t numbers;  ///< behind the files
  unsigned options;     ///< of `ContourOption`
  Result<void> (*run)(const ContourArguments&);
  const char* example;
};

// clang-format off
constexpr Row kRows[] = {
    {"info", "Tells spans, length, area, direction and box of each contour.", "[FILE]", 1, 0,
     kFile | kSelect, ContourInfo, "vanzet contour info slot.txt"},
    {"near", "Finds the point of each contour that is nearest to a point.", "[FILE] X Y", 1, 2,
     kFile | kSelect, ContourNear, "vanzet contour near slot.txt 12.5 -3"},
    {"inside", "Tells on which side of each contour a point is.", "[FILE] X Y", 1, 2,
     kFile | kSelect, ContourInside, "vanzet contour inside slot.txt 0 0 --json"},
    {"intersect", "Finds where the contours of one file meet those of another.", "A B", 2, 0,
     kFile, ContourIntersect, "vanzet contour intersect slot.txt shaft.dxf --svg both.svg"},
    {"split", "Makes chords of all arcs.", "[FILE]", 1, 0,
     kFile | kSelect | kTolerance, ContourSplit, "vanzet contour split slot.txt --tolerance 0.1"},
    {"reduce", "Drops vertices that the contour can do without.", "[FILE]", 1, 0,
     kFile | kSelect | kTolerance, ContourReduce, "vanzet contour reduce scan.dxf --tolerance 0.05"},
    {"transform", "Moves, turns, mirrors and scales contours, in the order given.", "[FILE]", 1, 0,
     kFile | kSelect | kSteps, ContourTransform,
     "vanzet contour transform slot.txt --turn 90 --move 20,0 --mirror x"},
    {"part", "Cuts a contour from a point to another, along its direction.", "[FILE] X1 Y1 X2 Y2", 1, 4,
     kFile | kSelect, ContourPart, "vanzet contour part slot.txt 0 10 30 10"},
    {"circle", "Makes a circle of two half turns, anticlockwise.", "X Y R", 0, 3,
     kNoOption, ContourCircle, "vanzet contour circle 0 0 25 | vanzet contour split"},
};
// clang-format on

constexpr const char* kFooter =
    "FILE holds contours in the text form, or is a drawing when its name ends with .dxf. Without FILE, or "
    "for\n"
    "'-', contour text is read from standard input. All lengths are millimetres, angles degrees.\n"
    "A number that begins with a point and is negative is written with its zero: -0.5.\n\n"
    "Example:\n  ";

void AddOperation(CLI::App& contour, const Row& row, Context& context) {
  const auto arguments = std::make_shared<ContourArguments>();
  CLI::App* const command = contour.add_subcommand(row.name, row.help);
  const std::size_t least = row.numbers + (row.files == 2 ? 2 : 0);
  CLI::Option* const words = command->add_option(row.operands, arguments->words);
  words->required(least > 0)->expected(static_cast<int>(least), static_cast<int>(row.numbers + row.files));
  AddContourOptions(*command, *arguments, row.options);
  if ((row.options & kSteps) != 0) AddContourSteps(*command);
  command->footer(std::string(kFooter) + row.example);
  command->callback([=, &row, &context] {
    SplitContourWords(*arguments, row.files, row.numbers);
    if ((row.options & kSteps) != 0) TakeContourSteps(*command, arguments->matrix);
    context.run = [=, &row] {
      contour::UseMillimetres();
      const auto done = contour::Guarded([&] { return row.run(*arguments); });
      return done ? *done : done.fault();
    };
  });
}

}  // namespace

void AddContour(CLI::App& app, Context& context) {
  CLI::App* const contour =
      app.add_subcommand("contour", "Asks, changes and draws contours of lines and arcs.");
  contour->require_subcommand(1);
  contour->footer(std::string(kFooter) + "vanzet contour info slot.txt --svg slot.svg --numbers");
  for (const Row& row : kRows) AddOperation(*contour, row, context);
}

}  // namespace vanzet::cli
