#include "cli/contour_arguments.h"

#include <CLI/CLI.hpp>

#include "base/number_text.h"
#include "base/numbers.h"
#include "base/path_map.h"
#include "base/quote.h"
#include "cli/output.h"
#include "vdm/file_replacement.h"

namespace vanzet::cli {
namespace {

/// In millimetres.
constexpr double kSmallestTolerance = 1e-6, kLargestTolerance = 1000, kLargestJoin = 10;

using StoreReal = std::function<void(double)>;

CLI::Option* AddReal(CLI::App& command, const std::string& name, double least, double most,
                     const std::string& help, const StoreReal& store) {
  const auto take = [=](const std::string& text) { store(ReadReal(name, text, least, most)); };
  return command.add_option_function<std::string>(name, take, help)->type_name("MM");
}

void AddFileOptions(CLI::App& command, ContourArguments& arguments) {
  command.add_option("--layer", arguments.drawing.layer, "of a drawing only this layer")->type_name("NAME");
  AddReal(command, "--join", 0, kLargestJoin,
          "join pieces of a drawing whose ends are not farther apart; without it 0.001",
          [&](double value) { arguments.drawing.join = value; });
  command
      .add_option("--unit", arguments.drawing.unit, "the drawing's unit; without it what the drawing tells")
      ->check(CLI::IsMember({"mm", "inch", "m"}));
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

geometry::Point ReadPoint(const std::string& name, const std::string& text, double most) {
  const std::size_t comma = text.find(',');
  if (comma == std::string::npos) {
    throw CLI::ValidationError(name, "expected X,Y, found " + Quoted(text));
  }
  const double x = ReadReal(name, text.substr(0, comma), -most, most);
  return {x, ReadReal(name, text.substr(comma + 1), -most, most)};
}

double ReadReal(const std::string& name, const std::string& text, double least, double most) {
  const auto number = WholeReal(text);
  if (!number) throw CLI::ValidationError(name, "expected a number, found " + Quoted(text));
  if (*number >= least && *number <= most) return *number;
  throw CLI::ValidationError(name, "expected a number from " + NumberText(least) + " to " + NumberText(most) +
                                       ", found " + Quoted(text));
}

void AddContourOptions(CLI::App& command, ContourArguments& arguments, unsigned options) {
  if ((options & kTolerance) != 0) {
    AddReal(command, "--tolerance", kSmallestTolerance, kLargestTolerance,
            "how far the result may be from the contour; without it 0.01",
            [&](double value) { arguments.tolerance = value; });
  }
  if ((options & kSelect) != 0) {
    command.add_option("--contour", arguments.contour, "only the contour of this number")->type_name("N");
  }
  if ((options & kFile) != 0) AddFileOptions(command, arguments);
  if ((options & kDxf) != 0) {
    command.add_option("--dxf", arguments.dxf, "write what was made as a drawing to this file")
        ->type_name("FILE");
  }
  AddOperationOptions(command, arguments, options);
  command.add_option("--svg", arguments.svg, "write a picture to this file")->type_name("FILE");
  command.add_flag("--numbers", arguments.vertexNumbers, "with the numbers of the vertices in the picture");
  command.add_flag("--json", arguments.json, "for programs");
}

void SplitContourWords(ContourArguments& arguments, std::size_t files, std::size_t numbers) {
  const auto firstNumber = arguments.words.end() - static_cast<std::ptrdiff_t>(numbers);
  arguments.files.assign(arguments.words.begin(), firstNumber);
  if (arguments.files.empty() && files > 0) arguments.files.emplace_back("-");
  if (std::ranges::count(arguments.files, "-") > 1) {
    throw CLI::ValidationError("FILE", "standard input can be read once only");
  }
  for (auto word = firstNumber; word != arguments.words.end(); ++word) {
    arguments.numbers.push_back(
        ReadReal("coordinate", *word, -contour::kLargestCoordinate, contour::kLargestCoordinate));
  }
}

Result<contour::Contours> ReadContours(const ContourArguments& arguments, std::size_t file) {
  const std::string& name = arguments.files[file];
  auto content = contour::ReadContourFile(name, arguments.drawing);
  if (!content) return content.fault();
  for (const std::string& remark : content->remarks) std::cerr << "vanzet: " + remark + "\n";
  if (!arguments.contour) return std::move(content->contours);
  contour::Contours chosen;
  for (const contour::Contour& contour : content->contours) {
    if (contour.number == *arguments.contour) chosen.push_back(contour);
  }
  if (chosen.empty()) return NoSuchContour(*arguments.contour, content->contours, name);
  return chosen;
}

Result<contour::Contour> ReadOneContour(const ContourArguments& arguments, std::size_t file) {
  auto contours = ReadContours(arguments, file);
  if (!contours) return contours.fault();
  if (contours->size() == 1) return std::move(contours->front());
  return Fault{"there are " + Counted(contours->size(), "contour") + "; choose one with --contour",
               arguments.files[file]};
}

}  // namespace vanzet::cli
