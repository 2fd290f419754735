#include <map>

#include "cli/arguments.h"
#include "cli/contour/arguments.h"

/// The options that belong to one operation or two.
namespace vanzet::cli {
namespace {

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

}  // namespace

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

}  // namespace vanzet::cli
