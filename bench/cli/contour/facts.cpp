#include <nlohmann/json.hpp>

#include "base/number_text.h"
#include "cli/contour/files.h"
#include "cli/contour/operations.h"
#include "cli/contour/region.h"
#include "cli/output.h"
#include "contour/json_form.h"
#include "contour/operations.h"

/// The operations that report facts.
namespace vanzet::cli {
namespace {

using contour::Contour;
using contour::Contours;
using contour::Drawing;
using contour::JsonForm;
using Mark = Drawing::Mark;

constexpr int kDecimals = 4;

std::string Heading(const ContourArguments& arguments, std::string_view english) {
  return std::string(arguments.texts->Translate(kTextSection, english));
}

std::string PointText(const geometry::Point& point) {
  return DecimalText(point.x, kDecimals) + ", " + DecimalText(point.y, kDecimals);
}

std::string FactsText(const contour::Facts& facts, const ContourArguments& arguments) {
  std::vector<std::vector<std::string>> rows;
  const auto add = [&](const char* name, const std::string& value) {
    rows.push_back({Heading(arguments, name), value});
  };
  add(Translatable("spans"),
      std::to_string(facts.spans) + " (" + Counted(static_cast<std::size_t>(facts.arcs), "arc") + ")");
  add(Translatable("closed"), facts.closed ? "yes" : "no");
  add(Translatable("perimeter"), DecimalText(facts.perimeter, kDecimals) + " mm");
  if (facts.closed) add(Translatable("area"), DecimalText(facts.area, kDecimals) + " mm2");
  if (facts.closed) add(Translatable("direction"), contour::DirectionName(facts.direction));
  add(Translatable("box"), PointText(facts.low) + " to " + PointText(facts.high) + " (" +
                               DecimalText(facts.high.x - facts.low.x, kDecimals) + " x " +
                               DecimalText(facts.high.y - facts.low.y, kDecimals) + " mm)");
  return Heading(arguments, Translatable("contour")) + " " + std::to_string(facts.number) + "\n" +
         Columns(rows, "ll", "  ");
}

Json FactsJson(const contour::Facts& facts) {
  return {{"number", facts.number},
          {"spans", facts.spans},
          {"arcs", facts.arcs},
          {"closed", facts.closed},
          {"perimeter", facts.perimeter},
          {"area", facts.area},
          {"direction", contour::DirectionName(facts.direction)},
          {"box", {{"low", JsonForm(facts.low)}, {"high", JsonForm(facts.high)}}}};
}

/// The facts that an operation found: a table for people, a list for programs, and a picture of the contours.
class Report {
 public:
  /// `list` is the name of the list in JSON, `head` are the English headings of the columns. The arguments
  /// and the contours have to outlive the report.
  Report(const ContourArguments& arguments, const char* list, const Contours& contours,
         const std::vector<const char*>& head = {})
      : arguments_(arguments), list_(list) {
    drawing.layers.push_back({Drawing::Role::kMain, &contours, ""});
    if (head.empty()) return;
    rows_.emplace_back();
    for (const char* const english : head) rows_.front().push_back(Heading(arguments, english));
  }

  /// Marks the point that was asked for.
  void MarkQuestion(const geometry::Point& point) { drawing.marks.push_back({Mark::Kind::kAsked, point}); }
  void MarkAnswer(const geometry::Point& point) { drawing.marks.push_back({Mark::Kind::kFound, point}); }

  void AddRow(std::vector<std::string> row, Json entry) {
    rows_.push_back(std::move(row));
    entries_.push_back(std::move(entry));
  }

  /// A fact of several lines, in a report without columns.
  void AddText(const std::string& lines, Json entry) {
    text_ += (text_.empty() ? "" : "\n") + lines;
    entries_.push_back(std::move(entry));
  }

  /// Writes the picture, and prints the table or the list; `whenEmpty` is printed instead of an empty table.
  Result<void> Finish(const char* whenEmpty = "") const {
    VANZET_DO(WritePicture(arguments_, drawing));
    if (arguments_.json) return PrintResult(arguments_, Json{{"unit", "mm"}, {list_, entries_}});
    if (rows_.empty()) return PrintResult(arguments_, text_);
    if (entries_.empty()) return PrintResult(arguments_, std::string(whenEmpty));
    return PrintResult(arguments_, Columns(rows_, std::string(rows_.front().size() - 1, 'r') + "l"));
  }

  Drawing drawing;

 private:
  const ContourArguments& arguments_;
  const char* list_;
  std::vector<std::vector<std::string>> rows_;
  std::string text_;
  Json entries_ = Json::array();
};

const char* SideName(contour::Side side) {
  switch (side) {
    case contour::Side::kOpen: return "open";
    case contour::Side::kOn: return "on";
    case contour::Side::kInside: return "inside";
    case contour::Side::kOutside: return "outside";
  }
  return "";
}

Result<void> AddCrossings(const Contour& a, const Contour& b, Report& report) {
  VANZET_TRY(const auto crossings, Crossings(a, b));
  for (const contour::Crossing& crossing : crossings) {
    report.MarkAnswer(crossing.point);
    report.AddRow({std::to_string(a.number), std::to_string(crossing.spanA), std::to_string(b.number),
                   std::to_string(crossing.spanB), PointText(crossing.point)},
                  {{"a", {{"contour", a.number}, {"span", crossing.spanA}}},
                   {"b", {{"contour", b.number}, {"span", crossing.spanB}}},
                   {"point", JsonForm(crossing.point)}});
  }
  return {};
}

}  // namespace

Result<void> ContourInfo(const ContourArguments& arguments) {
  VANZET_TRY(const auto contours, ReadContours(arguments, 0));
  Report report(arguments, "contours", contours);
  for (const Contour& contour : contours) {
    const contour::Facts facts = FactsOf(contour);
    report.AddText(FactsText(facts, arguments), FactsJson(facts));
  }
  return report.Finish();
}

Result<void> ContourNear(const ContourArguments& arguments) {
  VANZET_TRY(const auto contours, ReadContours(arguments, 0));
  const geometry::Point asked = arguments.PointAt(0);
  Report report(arguments, "nearest", contours,
                {Translatable("contour"), Translatable("span"), Translatable("distance"),
                 Translatable("nearest point")});
  report.MarkQuestion(asked);
  for (const Contour& contour : contours) {
    const contour::Nearest nearest = NearestOn(contour, asked);
    report.MarkAnswer(nearest.point);
    report.drawing.links.push_back({asked, nearest.point});
    report.AddRow({std::to_string(contour.number), std::to_string(nearest.span),
                   DecimalText(nearest.distance, kDecimals), PointText(nearest.point)},
                  {{"contour", contour.number},
                   {"span", nearest.span},
                   {"point", JsonForm(nearest.point)},
                   {"distance", nearest.distance}});
  }
  return report.Finish();
}

// A contour inside of another is a hole: the point is inside of an odd number of them, or on one.
Result<void> ContourInside(const ContourArguments& arguments) {
  VANZET_TRY(const auto contours, ReadContours(arguments, 0));
  const geometry::Point asked = arguments.PointAt(0);
  Report report(arguments, "sides", contours, {Translatable("contour"), Translatable("the point is")});
  report.MarkQuestion(asked);
  bool isInside = false, isOn = false;
  for (const Contour& contour : contours) {
    VANZET_TRY(const auto side, SideOf(contour, asked));
    isInside = isInside != (side == contour::Side::kInside);
    isOn = isOn || side == contour::Side::kOn;
    const bool isOpen = side == contour::Side::kOpen;
    report.AddRow(
        {std::to_string(contour.number), isOpen ? "undefined: the contour is open" : SideName(side)},
        {{"contour", contour.number}, {"side", SideName(side)}});
  }
  if (!isInside && !isOn) AnswerNo(arguments);
  return report.Finish();
}

Result<void> ContourIntersect(const ContourArguments& arguments) {
  if (arguments.area) return IntersectAreas(arguments);
  VANZET_TRY(const auto first, ReadContours(arguments, 0));
  VANZET_TRY(const auto second, ReadContours(arguments, 1));
  Report report(arguments, "points", first,
                {Translatable("contour A"), Translatable("span"), Translatable("contour B"),
                 Translatable("span"), Translatable("point")});
  report.drawing.layers.front().name = "A";
  report.drawing.layers.push_back({Drawing::Role::kOther, &second, "B"});
  for (const Contour& a : first) {
    for (const Contour& b : second) VANZET_DO(AddCrossings(a, b, report));
  }
  return report.Finish("the contours do not meet\n");
}

}  // namespace vanzet::cli
