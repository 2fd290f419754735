#include "cli/contour/options.h"

#include <algorithm>
#include <cmath>
#include <filesystem>
#include <iterator>
#include <map>
#include <sstream>

#include "base/letter_case.h"
#include "base/numbers.h"
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

/// Takes a word as `take` does, and notes that an option for drawings was given.
TakeWord ForDrawings(ContourArguments& arguments, TakeWord take) {
  return [&arguments, take = std::move(take)](const std::string& name, const std::string& word) {
    take(name, word);
    arguments.drawingOption = name;
  };
}

void AddFileOptions(Command& command, ContourArguments& arguments, bool withTolerance) {
  command.AddOption("--layer", "NAME", "drawings: only this layer",
                    ForDrawings(arguments, StoreText(arguments.drawing.layer)));
  command.AddOption("--join", "MM",
                    "drawings: join pieces whose ends are no farther apart than this; default: 0.001",
                    ForDrawings(arguments, StoreReal(arguments.drawing.join, 0, kLargestJoin)));
  command
      .AddOption("--unit", "UNIT", "drawings: the unit; default: the unit that the drawing states",
                 ForDrawings(arguments, StoreText(arguments.drawing.unit)))
      .OneOf({"mm", "inch", "m"});
  if (withTolerance) {
    command.AddOption(
        "--tolerance", "MM",
        "drawings: the largest distance of arcs from the splines and ellipses that they replace; "
        "default: 0.001",
        ForDrawings(arguments,
                    StoreReal(arguments.drawing.tolerance, kSmallestTolerance, kLargestTolerance)));
  }
  command.AddFlag("--strict", "fail when something of FILE is left out", arguments.strict);
}

constexpr int kMostSteps = 1000;

/// Adds an option that takes one of a few words.
template <class Value>
void AddChoice(Command& command, const std::string& name, const std::string& type, Value& value,
               const std::string& help, const std::map<std::string, Value>& words) {
  std::vector<std::string> names;
  names.reserve(words.size());
  for (const auto& [word, meaning] : words) names.push_back(word);
  const auto take = [&value, words](const std::string&, const std::string& word) { value = words.at(word); };
  command.AddOption(name, type, help, take).OneOf(std::move(names));
}

void AddOffsetOptions(Command& command, ContourArguments& arguments) {
  using contour::OffsetMethod;
  for (std::size_t i = 0; i < kSides.size(); ++i) {
    command.AddFlag(kSides[i].flag, kSides[i].help, arguments.sides[i]);
  }
  AddChoice<std::optional<OffsetMethod>>(
      command, "--method", "METHOD", arguments.method,
      "the method; spans keeps loops and rounds no corners; default: kurveex",
      {{"kurve", OffsetMethod::kKurve},
       {"kurveex", OffsetMethod::kKurveEx},
       {"spans", OffsetMethod::kSpans}});
  command.AddOption("--steps", "N", "number of offsets, each one distance further out",
                    StoreInteger(arguments.steps, 1, kMostSteps));
}

void AddRegionOptions(Command& command, ContourArguments& arguments) {
  using geometry::Corner;
  using geometry::PathEnd;
  command.AddFlag("--region",
                  "make all loops of the offset of the region that the contours enclose; the default for "
                  "several closed contours",
                  arguments.region);
  AddChoice<std::optional<Corner>>(
      command, "--corner", "CORNER", arguments.corner, "regions: the corners that open; default: round",
      {{"round", Corner::Round}, {"miter", Corner::Miter}, {"chamfer", Corner::Chamfer}});
  AddChoice<std::optional<PathEnd>>(
      command, "--thicken", "END", arguments.thicken,
      "make the region within DISTANCE of the contours, which may be open, with ends of this form",
      {{"round", PathEnd::Round}, {"square", PathEnd::Square}, {"butt", PathEnd::Butt}});
}

void AddEndOption(Command& command, ContourArguments& arguments) {
  using contour::End;
  AddChoice<End>(command, "--at", "END", arguments.end, "the ends to change; default: end",
                 {{"start", End::kStart}, {"end", End::kEnd}, {"both", End::kBoth}});
}

void AddOpeningOption(Command& command, ContourArguments& arguments) {
  command.AddOption(
      "--from", "X,Y",
      "open a closed contour at this point; --at start cuts after the point, --at end before it",
      [&](const std::string& name, const std::string& word) {
        arguments.opening = PointOf(name, word, contour::kLargestCoordinate);
      });
}

void AddTextOptions(Command& command, ContourArguments& arguments) {
  using contour::LibraryText;
  AddChoice<LibraryText>(command, "--form", "FORM", arguments.textForm, "the form; default: contour",
                         {{"contour", LibraryText::kContour},
                          {"report", LibraryText::kReport},
                          {"vertices", LibraryText::kVertices},
                          {"spans", LibraryText::kSpans}});
  AddChoice<bool>(command, "--reader", "READER", arguments.libraryReads,
                  "the reader of FILE: the strict one, or that of the library, which skips what it does not "
                  "know; default: strict",
                  {{"strict", false}, {"library", true}});
}

void CheckSides(const ContourArguments& arguments) {
  const OffsetSide* first = nullptr;
  for (std::size_t i = 0; i < kSides.size(); ++i) {
    if (!arguments.sides[i]) continue;
    if (first != nullptr) {
      throw WrongUsage{kSides[i].flag, "cannot be given together with " + std::string(first->flag)};
    }
    first = &kSides[i];
  }
}

void CheckRegion(const ContourArguments& arguments) {
  if (!arguments.AsksForRegion()) return;
  if (arguments.AsksForContours()) {
    throw WrongUsage{"--region, --corner and --thicken",
                     "cannot be given together with --left, --right, --method or --steps"};
  }
  if (arguments.thicken && (arguments.sides[2] || arguments.sides[3])) {
    throw WrongUsage{"--thicken", "cannot be given together with --inside or --outside"};
  }
  if (arguments.thicken && arguments.numbers[0] < 0) {
    throw WrongUsage{"DISTANCE", "expected 0 or more with --thicken"};
  }
}

/// A picture or a drawing on standard output is alone there.
void CheckStandardOutput(const ContourArguments& arguments) {
  if (arguments.svg == "-" && arguments.dxf == "-") {
    throw WrongUsage{"--svg -", "cannot be given together with --dxf -"};
  }
  if (!arguments.PrintsFile() || !arguments.json) return;
  throw WrongUsage{
      "--json", "cannot be given together with " + std::string(arguments.svg == "-" ? "--svg -" : "--dxf -")};
}

/// A name without an ending, such as that of a device, is accepted.
void CheckEnding(const char* option, const std::string& file, const char* ending) {
  const std::string found = std::filesystem::path(file).extension().string();
  if (found.empty() || EqualWithoutCase(found, ending)) return;
  throw WrongUsage{option,
                   "expected a name that ends with " + std::string(ending) + ", found " + Quoted(file)};
}

/// Adds the options that belong to one operation or two.
void AddOperationOptions(Command& command, ContourArguments& arguments, unsigned options) {
  if ((options & kOffset) != 0) {
    AddOffsetOptions(command, arguments);
    AddRegionOptions(command, arguments);
  }
  if ((options & kArea) != 0) {
    command.AddFlag("--area", "intersect the regions that the contours enclose", arguments.area);
  }
  if ((options & kEnd) != 0) AddEndOption(command, arguments);
  if ((options & kOpening) != 0) AddOpeningOption(command, arguments);
  if ((options & kForce) != 0) {
    command.AddFlag("--force", "even if both have the same number of spans already", arguments.force);
  }
  if ((options & kMirror) != 0)
    command.AddFlag("--mirror", "accept a mirror image as well", arguments.mirror);
  if ((options & kXmlKind) != 0) {
    AddChoice<contour::XmlKind>(
        command, "--form", "FORM", arguments.xmlKind,
        "the element; only kurve can be read back; default: kurve",
        {{"kurve", contour::XmlKind::kKurve}, {"kurveex", contour::XmlKind::kKurveEx}});
  }
  if ((options & kTextForm) != 0) AddTextOptions(command, arguments);
}

constexpr double kLargestMove = contour::kLargestCoordinate, kLargestTurn = 1e6, kLargestScale = 1e6;

void Move(const std::string& name, const std::string& value, geometry::Matrix& matrix) {
  const geometry::Point move = PointOf(name, value, kLargestMove);
  matrix.Translate(move.x, move.y);
}

/// Quarter turns are exact, so that what is on an axis stays on an axis.
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
    {"--turn", "DEGREES", "turn anticlockwise around the origin", Turn},
    {"--mirror", "x|y", "mirror at this axis", Mirror},
    {"--scale", "F", "multiply all lengths by F", Scale},
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
    command.AddOption("--tolerance", "MM",
                      "the largest distance of the result from the contour; default: 0.01",
                      StoreReal(arguments.tolerance, kSmallestTolerance, kLargestTolerance));
  }
  if ((options & kSelect) != 0) {
    command.AddOption("--contour", "N", "only the contour with this number", StoreInteger(arguments.contour));
  }
  if ((options & kFile) != 0) AddFileOptions(command, arguments, (options & kTolerance) == 0);
  if ((options & kDxf) != 0) {
    command.AddOption("--dxf", "FILE", "write the result as a drawing to this file; -: to standard output",
                      StoreText(arguments.dxf));
  }
  AddOperationOptions(command, arguments, options);
  command.AddOption("--svg", "FILE", "write a picture to this file; -: to standard output",
                    StoreText(arguments.svg));
  command.AddFlag("--numbers", "number the vertices in the picture", arguments.vertexNumbers).Needs("--svg");
  if ((options & kDxf) != 0) {
    command
        .AddFlag("--to-scale", "draw the result alone, at its true size in millimetres", arguments.isToScale)
        .Needs("--svg");
  }
  command.AddFlag("--json", "print JSON", arguments.json);
  if ((options & kSteps) != 0) AddContourSteps(command, arguments.matrix);
}

void CheckContourArguments(const ContourArguments& arguments) {
  if (arguments.isToScale && arguments.vertexNumbers) {
    throw WrongUsage{"--to-scale", "cannot be given together with --numbers"};
  }
  CheckSides(arguments);
  CheckRegion(arguments);
  CheckStandardOutput(arguments);
  CheckEnding("--svg", arguments.svg, ".svg");
  CheckEnding("--dxf", arguments.dxf, ".dxf");
}

namespace {

/// The names of the numbers among the operands: "X" and "Y" of "[FILE] X Y".
std::vector<std::string> NamesOf(const std::string& operands, std::size_t numbers) {
  std::istringstream words(operands);
  std::vector<std::string> names{std::istream_iterator<std::string>(words), {}};
  names.erase(names.begin(), names.end() - static_cast<std::ptrdiff_t>(numbers));
  return names;
}

}  // namespace

void SplitContourWords(ContourArguments& arguments, const std::string& operands, std::size_t files,
                       std::size_t numbers) {
  const auto& words = arguments.words;
  const std::vector<std::string> names = NamesOf(operands, numbers);
  if (files > 0 && numbers > 0 && words.size() == numbers && !WholeReal(words.front())) {
    throw WrongUsage{"", names.back() + " is missing"};
  }
  const auto firstNumber = words.end() - static_cast<std::ptrdiff_t>(numbers);
  arguments.files.assign(words.begin(), firstNumber);
  if (arguments.files.empty() && files > 0) arguments.files.emplace_back("-");
  if (std::ranges::count(arguments.files, "-") > 1) {
    throw WrongUsage{"FILE", "standard input can be read only once"};
  }
  for (std::size_t i = 0; i < numbers; ++i) {
    arguments.numbers.push_back(RealOf(names[i], firstNumber[static_cast<std::ptrdiff_t>(i)],
                                       -contour::kLargestCoordinate, contour::kLargestCoordinate));
  }
}

}  // namespace vanzet::cli
