#include <nlohmann/json.hpp>

#include "base/number_text.h"
#include "cli/contour/operations.h"
#include "cli/output.h"
#include "contour/json_form.h"
#include "contour/operations.h"

/// The operations that tell facts.
namespace vanzet::cli {
namespace {

using contour::Contour;
using contour::Contours;
using contour::Drawing;
using contour::JsonForm;
using Mark = Drawing::Mark;

constexpr int kDecimals = 4;

/// Columns of text, to the right but for the last one; the first row is the head.
std::string Table(const std::vector<std::vector<std::string>>& rows) {
  std::vector<std::size_t> widths(rows.front().size());
  for (const auto& row : rows) {
    for (std::size_t i = 0; i < row.size(); ++i) widths[i] = std::max(widths[i], row[i].size());
  }
  std::string text;
  for (const auto& row : rows) {
    for (std::size_t i = 0; i < row.size(); ++i) {
      const bool isLast = i + 1 == row.size();
      text += (i == 0 ? "" : "  ") + (isLast ? row[i] : Right(row[i], widths[i]));
    }
    text += '\n';
  }
  return text;
}

std::string PointText(const geometry::Point& point) {
  return DecimalText(point.x, kDecimals) + ", " + DecimalText(point.y, kDecimals);
}

std::string FactsText(const contour::Facts& facts) {
  std::string text = "contour " + std::to_string(facts.number) + "\n";
  const auto line = [&](const char* name, const std::string& value) {
    text += "  " + Left(name, 11) + value + "\n";
  };
  line("spans",
       std::to_string(facts.spans) + " (" + Counted(static_cast<std::size_t>(facts.arcs), "arc") + ")");
  line("closed", facts.closed ? "yes" : "no");
  line("perimeter", DecimalText(facts.perimeter, kDecimals) + " mm");
  if (facts.closed) line("area", DecimalText(facts.area, kDecimals) + " mm2");
  if (facts.closed) line("direction", contour::DirectionName(facts.direction));
  line("box", PointText(facts.low) + " to " + PointText(facts.high) + " (" +
                  DecimalText(facts.high.x - facts.low.x, kDecimals) + " x " +
                  DecimalText(facts.high.y - facts.low.y, kDecimals) + " mm)");
  return text;
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

Drawing DrawingOf(const Contours& contours) {
  Drawing drawing;
  drawing.layers.push_back({Drawing::Role::kMain, &contours, ""});
  return drawing;
}

/// Writes the picture and prints the table or the list.
Result<void> Tell(const ContourArguments& arguments, const Drawing& drawing, const std::string& text,
                  const char* name, const Json& list) {
  VANZET_DO(WritePicture(arguments, drawing));
  return arguments.json ? PrintJson({{"unit", "mm"}, {name, list}}) : Print(text);
}

const char* SideName(contour::Side side) {
  switch (side) {
    case contour::Side::kOpen: return "open";
    case contour::Side::kOn: return "on";
    case contour::Side::kInside: return "inside";
    case contour::Side::kOutside: return "outside";
  }
  return "";
}

}  // namespace

Result<void> ContourInfo(const ContourArguments& arguments) {
  VANZET_TRY(const auto contours, ReadContours(arguments, 0));
  std::string text;
  Json list = Json::array();
  for (const Contour& contour : contours) {
    const contour::Facts facts = FactsOf(contour);
    text += (text.empty() ? "" : "\n") + FactsText(facts);
    list.push_back(FactsJson(facts));
  }
  return Tell(arguments, DrawingOf(contours), text, "contours", list);
}

Result<void> ContourNear(const ContourArguments& arguments) {
  VANZET_TRY(const auto contours, ReadContours(arguments, 0));
  const geometry::Point asked = arguments.PointAt(0);
  Drawing drawing = DrawingOf(contours);
  drawing.marks.push_back({Mark::Kind::kAsked, asked});
  std::vector<std::vector<std::string>> rows = {{"contour", "span", "distance", "nearest point"}};
  Json list = Json::array();
  for (const Contour& contour : contours) {
    const contour::Nearest nearest = NearestOn(contour, asked);
    drawing.marks.push_back({Mark::Kind::kFound, nearest.point});
    drawing.links.push_back({asked, nearest.point});
    rows.push_back({std::to_string(contour.number), std::to_string(nearest.span),
                    DecimalText(nearest.distance, kDecimals), PointText(nearest.point)});
    list.push_back({{"contour", contour.number},
                    {"span", nearest.span},
                    {"point", JsonForm(nearest.point)},
                    {"distance", nearest.distance}});
  }
  return Tell(arguments, drawing, Table(rows), "nearest", list);
}

Result<void> ContourInside(const ContourArguments& arguments) {
  VANZET_TRY(const auto contours, ReadContours(arguments, 0));
  const geometry::Point asked = arguments.PointAt(0);
  Drawing drawing = DrawingOf(contours);
  drawing.marks.push_back({Mark::Kind::kAsked, asked});
  std::vector<std::vector<std::string>> rows = {{"contour", "the point is"}};
  Json list = Json::array();
  for (const Contour& contour : contours) {
    VANZET_TRY(const auto side, SideOf(contour, asked));
    const bool isOpen = side == contour::Side::kOpen;
    rows.push_back(
        {std::to_string(contour.number), isOpen ? "nowhere: the contour is open" : SideName(side)});
    list.push_back({{"contour", contour.number}, {"side", SideName(side)}});
  }
  return Tell(arguments, drawing, Table(rows), "sides", list);
}

Result<void> ContourIntersect(const ContourArguments& arguments) {
  VANZET_TRY(const auto first, ReadContours(arguments, 0));
  VANZET_TRY(const auto second, ReadContours(arguments, 1));
  Drawing drawing = DrawingOf(first);
  drawing.layers.front().name = "A";
  drawing.layers.push_back({Drawing::Role::kOther, &second, "B"});
  std::vector<std::vector<std::string>> rows = {{"contour A", "span", "contour B", "span", "point"}};
  Json list = Json::array();
  for (const Contour& a : first) {
    for (const Contour& b : second) {
      VANZET_TRY(const auto crossings, Crossings(a, b));
      for (const contour::Crossing& crossing : crossings) {
        drawing.marks.push_back({Mark::Kind::kFound, crossing.point});
        rows.push_back({std::to_string(a.number), std::to_string(crossing.spanA), std::to_string(b.number),
                        std::to_string(crossing.spanB), PointText(crossing.point)});
        list.push_back({{"a", {{"contour", a.number}, {"span", crossing.spanA}}},
                        {"b", {{"contour", b.number}, {"span", crossing.spanB}}},
                        {"point", JsonForm(crossing.point)}});
      }
    }
  }
  return Tell(arguments, drawing, list.empty() ? "the contours do not meet\n" : Table(rows), "points", list);
}

}  // namespace vanzet::cli
