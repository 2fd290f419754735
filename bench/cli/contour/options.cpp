#include "cli/contour/options.h"

#include <algorithm>
#include <cmath>
#include <map>

#include "base/quote.h"
#include "cli/arguments.h"
#include "geometry/numerics.h"

namespace vanzet::cli {
namespace {

/// In millimetres.
constexpr double kSmallestTolerance = 1e-6, kLargestTolerance = 1000, kLargestJoin = 10;

/// The point of "X,Y". Throws `WrongUsage`.
geometry::Point PointOf(const std::string& name, const std::string& word, double most) {
  const std::size_t comma = word.find(',');
  if (comma == std::string::npos) throw WrongUsage{name, "expected X,Y, found " + Quoted(word)};
  const double x = RealOf(name, word.substr(0, comma), -most, most);
  return {x, RealOf(name, word.substr(comma + 1), -most, most)};
}

void AddFileOptions(Command& command, ContourArguments& arguments) {
  command.AddOption("--layer", "NAME", "of a drawing only this layer", StoreText(arguments.drawing.layer));
  command.AddOption("--join", "MM",
                    "join pieces of a drawing whose ends are not farther apart; without it 0.001",
                    StoreReal(arguments.drawing.join, 0, kLargestJoin));
  command
      .AddOption("--unit", "TEXT", "the drawing's unit; without it what the drawing tells",
                 StoreText(arguments.drawing.unit))
      .OneOf({"mm", "inch", "m"});
}

constexpr int kMostSteps = 1000;

/// An option that is one of some words.
template <class Value>
void AddChoice(Command& command, const std::string& name, Value& value, const std::string& help,
               const std::map<std::string, Value>& words) {
  std::vector<std::string> names;
  for (const auto& [word, meaning] : words) names.push_back(word);
  const auto take = [&value, words](const std::string&, const std::string& word) { value = words.at(word); };
  command.AddOption(name, "TEXT", help, take).OneOf(std::move(names));
}

void AddOffsetOptions(Command& command, ContourArguments& arguments) {
  using contour::OffsetMethod;
  command.AddFlag("--right", "to the right of the contour", arguments.toTheRight);
  command.AddFlag("--left", "to its left; so without either").Excludes("--right");
  AddChoice<OffsetMethod>(command, "--method", arguments.method,
                          "how it is made; spans leaves loops and rounds nothing. Without it kurveex",
                          {{"kurve", OffsetMethod::kKurve},
                           {"kurveex", OffsetMethod::kKurveEx},
                           {"spans", OffsetMethod::kSpans}});
  command.AddOption("--steps", "INT", "so many, each farther by the distance",
                    StoreInteger(arguments.steps, 1, kMostSteps));
}

void AddEndOption(Command& command, ContourArguments& arguments) {
  using contour::End;
  AddChoice<End>(command, "--at", arguments.end, "at which end; without it end",
                 {{"start", End::kStart}, {"end", End::kEnd}, {"both", End::kBoth}});
}

void AddOpeningOption(Command& command, ContourArguments& arguments) {
  command.AddOption("--from", "X,Y",
                    "open a closed contour here: cut off behind it with --at start, before it with --at end",
                    [&](const std::string& name, const std::string& word) {
                      arguments.opening = PointOf(name, word, contour::kLargestCoordinate);
                    });
}

void AddTextOptions(Command& command, ContourArguments& arguments) {
  using contour::LibraryText;
  AddChoice<LibraryText>(command, "--form", arguments.textForm, "which form; without it contour",
                         {{"contour", LibraryText::kContour},
                          {"report", LibraryText::kReport},
                          {"vertices", LibraryText::kVertices},
                          {"spans", LibraryText::kSpans}});
  AddChoice<bool>(
      command, "--reader", arguments.libraryReads,
      "who reads FILE: the strict reader, or the library, which passes over what it does not know. "
      "Without it strict",
      {{"strict", false}, {"library", true}});
}

/// Adds the options that belong to one operation or two.
void AddOperationOptions(Command& command, ContourArguments& arguments, unsigned options) {
  if ((options & kOffset) != 0) AddOffsetOptions(command, arguments);
  if ((options & kEnd) != 0) AddEndOption(command, arguments);
  if ((options & kOpening) != 0) AddOpeningOption(command, arguments);
  if ((options & kForce) != 0) {
    command.AddFlag("--force", "also when both have as many spans already", arguments.force);
  }
  if ((options & kMirror) != 0) command.AddFlag("--mirror", "also as a mirror image", arguments.mirror);
  if ((options & kXmlKind) != 0) {
    AddChoice<contour::XmlKind>(
        command, "--form", arguments.xmlKind, "which element; only kurve can be read back. Without it kurve",
        {{"kurve", contour::XmlKind::kKurve}, {"kurveex", contour::XmlKind::kKurveEx}});
  }
  if ((options & kTextForm) != 0) AddTextOptions(command, arguments);
}

constexpr double kLargestMove = contour::kLargestCoordinate, kLargestTurn = 1e6, kLargestScale = 1e6;

void Move(const std::string& name, const std::string& value, geometry::Matrix& matrix) {
  const geometry::Point move = PointOf(name, value, kLargestMove);
  matrix.Translate(move.x, move.y);
}

/// Quarter turns are exact, so that what lies on an axis stays on one.
void Turn(const std::string& name, const std::string& value, geometry::Matrix& matrix) {
  const double degrees = std::remainder(RealOf(name, value, -kLargestTurn, kLargestTurn), 360);
  const double quarters = degrees / 90;
  double sine = std::sin(degrees * geometry::PI / 180), cosine = std::cos(degrees * geometry::PI / 180);
  if (quarters == std::round(quarters)) {
    sine = std::round(sine);
    cosine = std::round(cosine);
  }
  matrix.Rotate(sine, cosine, 3);
}

void Mirror(const std::string& name, const std::string& value, geometry::Matrix& matrix) {
  if (value != "x" && value != "y") {
    throw WrongUsage{name, "expected x or y, found " + Quoted(value)};
  }
  matrix.Scale(value == "y" ? -1 : 1, value == "x" ? -1 : 1, 1);
}

void Scale(const std::string& name, const std::string& value, geometry::Matrix& matrix) {
  const double factor = RealOf(name, value, 1 / kLargestScale, kLargestScale);
  matrix.Scale(factor, factor, 1);
}

constexpr struct Step {
  const char* name;
  const char* value;
  const char* help;
  void (*apply)(const std::string& name, const std::string& value, geometry::Matrix& matrix);
} kStepRows[] = {
    {"--move", "X,Y", "move by X and Y", Move},
    {"--turn", "DEGREES", "turn anticlockwise about the origin", Turn},
    {"--mirror", "x|y", "mirror at this axis", Mirror},
    {"--scale", "F", "multiply all lengths", Scale},
};

/// Adds the steps of a transformation, which change the matrix in the order given.
void AddContourSteps(Command& command, geometry::Matrix& matrix) {
  for (const Step& step : kStepRows) {
    const auto take = [&](const std::string& name, const std::string& word) {
      step.apply(name, word, matrix);
    };
    command.AddOption(step.name, step.value, step.help, take).Repeatable();
  }
}

}  // namespace

void AddContourOptions(Command& command, ContourArguments& arguments, unsigned options) {
  if ((options & kTolerance) != 0) {
    command.AddOption("--tolerance", "MM", "how far the result may be from the contour; without it 0.01",
                      StoreReal(arguments.tolerance, kSmallestTolerance, kLargestTolerance));
  }
  if ((options & kSelect) != 0) {
    command.AddOption("--contour", "N", "only the contour of this number", StoreInteger(arguments.contour));
  }
  if ((options & kFile) != 0) AddFileOptions(command, arguments);
  if ((options & kDxf) != 0) {
    command.AddOption("--dxf", "FILE", "write what was made as a drawing to this file",
                      StoreText(arguments.dxf));
  }
  AddOperationOptions(command, arguments, options);
  command.AddOption("--svg", "FILE", "write a picture to this file", StoreText(arguments.svg));
  command.AddFlag("--numbers", "with the numbers of the vertices in the picture", arguments.vertexNumbers);
  command.AddFlag("--json", "for programs", arguments.json);
  if ((options & kSteps) != 0) AddContourSteps(command, arguments.matrix);
}

void SplitContourWords(ContourArguments& arguments, std::size_t files, std::size_t numbers) {
  const auto firstNumber = arguments.words.end() - static_cast<std::ptrdiff_t>(numbers);
  arguments.files.assign(arguments.words.begin(), firstNumber);
  if (arguments.files.empty() && files > 0) arguments.files.emplace_back("-");
  if (std::ranges::count(arguments.files, "-") > 1) {
    throw WrongUsage{"FILE", "standard input can be read once only"};
  }
  for (auto word = firstNumber; word != arguments.words.end(); ++word) {
    arguments.numbers.push_back(
        RealOf("coordinate", *word, -contour::kLargestCoordinate, contour::kLargestCoordinate));
  }
}

}  // namespace vanzet::cli
