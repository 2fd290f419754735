#include "cli/contour/arguments.h"

#include <algorithm>
#include <iostream>

#include "base/quote.h"
#include "cli/arguments.h"
#include "cli/output.h"

namespace vanzet::cli {
namespace {

/// In millimetres.
constexpr double kSmallestTolerance = 1e-6, kLargestTolerance = 1000, kLargestJoin = 10;

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

Fault NoSuchContour(std::int32_t number, const contour::Contours& contours, const std::string& file) {
  constexpr std::size_t kMostTold = 10;
  std::string text = "there is no contour " + std::to_string(number) + "; there is";
  for (std::size_t i = 0; i < contours.size() && i < kMostTold; ++i) {
    text += (i == 0 ? " " : ", ") + std::to_string(contours[i].number);
  }
  return {text + (contours.size() > kMostTold ? " and more" : ""), file};
}

}  // namespace

geometry::Point PointOf(const std::string& name, const std::string& word, double most) {
  const std::size_t comma = word.find(',');
  if (comma == std::string::npos) throw WrongUsage{name, "expected X,Y, found " + Quoted(word)};
  const double x = RealOf(name, word.substr(0, comma), -most, most);
  return {x, RealOf(name, word.substr(comma + 1), -most, most)};
}

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

Result<contour::Contours> ReadContours(const ContourArguments& arguments, std::size_t file) {
  const std::string& name = arguments.files[file];
  VANZET_TRY(auto content, contour::ReadContourFile(name, arguments.drawing));
  for (const std::string& remark : content.remarks) std::cerr << "vanzet: " + remark + "\n";
  if (!arguments.contour) return std::move(content.contours);
  contour::Contours chosen;
  for (const contour::Contour& contour : content.contours) {
    if (contour.number == *arguments.contour) chosen.push_back(contour);
  }
  if (chosen.empty()) return NoSuchContour(*arguments.contour, content.contours, name);
  return chosen;
}

Result<contour::Contour> ReadOneContour(const ContourArguments& arguments, std::size_t file) {
  VANZET_TRY(auto contours, ReadContours(arguments, file));
  if (contours.size() == 1) return std::move(contours.front());
  return Fault{"there are " + Counted(contours.size(), "contour") + "; choose one with --contour",
               arguments.files[file]};
}

}  // namespace vanzet::cli
