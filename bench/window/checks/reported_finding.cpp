#include "window/checks/reported_finding.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <algorithm>
#include <cmath>
#include <numbers>

#include "view/ids.h"
#include "window/docks/equipment_pages.h"

namespace vanzet::window {
namespace {

using check::Where;
using show::Part;

/// A value of a page, by its word. The sides have fields of their own on the page of the datum.
struct FieldRow {
  const char* value;
  Part part;
  std::int32_t main, sub;
};

/// The part of the definition whose page can mend what a rule finds, and the value that is meant where the
/// finding names none.
struct PageRow {
  const char* rule;
  Part part;
  const char* value = "";
};

// clang-format off
constexpr FieldRow kFields[] = {
    { "bar_length",      Part::kBillet, control::kBarLength,       control::kBarLength },
    { "clamp_diameter",  Part::kBillet, control::kClampDiameter,   control::kClampDiameter },
    { "clamping_out",    Part::kDatum,  control::kClampingOutMain, control::kClampingOutSub },
    { "front_allowance", Part::kBillet, control::kFrontAllowance,  control::kFrontAllowance },
    { "inner_diameter",  Part::kBillet, control::kInnerDiameter,   control::kInnerDiameter },
    { "origin",          Part::kDatum,  control::kOriginMain,      control::kOriginSub },
    { "outer_diameter",  Part::kBillet, control::kOuterDiameter,   control::kOuterDiameter },
    { "rear_allowance",  Part::kBillet, control::kRearAllowance,   control::kRearAllowance },
};

constexpr PageRow kPages[] = {
    { "EQ-101", Part::kClamp },
    { "EQ-102", Part::kClamp },
    { "EQ-103", Part::kClamp },
    { "EQ-104", Part::kBillet },
    { "EQ-105", Part::kClamp },
    { "EQ-201", Part::kBillet, "clamp_diameter" },
    { "EQ-202", Part::kBillet, "clamp_diameter" },
    { "EQ-203", Part::kBillet, "outer_diameter" },
    { "EQ-204", Part::kFinishPart },
    { "EQ-205", Part::kDatum, "origin" },
    { "EQ-206", Part::kCenter },
    { "EQ-301", Part::kFinishPart },
    { "EQ-302", Part::kDatum, "clamping_out" },
    { "EQ-303", Part::kDatum, "clamping_out" },
    { "EQ-304", Part::kDatum, "origin" },
    { "EQ-305", Part::kBillet, "bar_length" },
    { "EQ-401", Part::kJaw },
    { "EQ-402", Part::kClamp },
};
// clang-format on

const FieldRow* FieldOf(const QString& value) {
  const auto* const row =
      std::ranges::find_if(kFields, [&](const auto& each) { return value == each.value; });
  return row == std::end(kFields) ? nullptr : row;
}

PageRow PageOf(const ReportedFinding& finding) {
  const auto* const row =
      std::ranges::find_if(kPages, [&](const PageRow& each) { return finding.rule == each.rule; });
  PageRow page = row == std::end(kPages) ? PageRow{"", Part::kNone} : *row;
  if (finding.where == Where::kCenter) page.part = Part::kCenter;
  if (finding.where == Where::kSteadyRest) page.part = Part::kSteadyRest;
  return page;
}

/// The datum is one page; its findings are about the side of their bodies.
bool IsOfSub(const ReportedFinding& finding) {
  return finding.where == Where::kSub || (finding.where == Where::kDatum && !finding.bodies.isEmpty() &&
                                          finding.bodies.front().startsWith("sub "));
}

Where WhereNamed(const QString& word) {
  for (const Where where : {Where::kSub, Where::kCenter, Where::kSteadyRest, Where::kDatum}) {
    if (word.toStdString() == WordOf(where)) return where;
  }
  return Where::kMain;
}

ReportedFinding FindingOf(const QJsonObject& json) {
  ReportedFinding finding;
  finding.rule = json["rule"].toString();
  finding.severity =
      check::SeverityNamed(json["severity"].toString().toStdString()).value_or(finding.severity);
  finding.spur = json["spur"].toInt();
  finding.where = WhereNamed(json["where"].toString());
  finding.text = json["text"].toString();
  if (json.contains("at")) {
    const QJsonObject at = json["at"].toObject();
    finding.place = geometry::Point(at["x"].toDouble(), at["r"].toDouble());
    finding.degrees = at["angle"].toDouble();
  }
  for (const QJsonValue body : json["bodies"].toArray()) finding.bodies << body.toString();
  finding.mendedBy = json["change"].toObject()["value"].toString();
  return finding;
}

}  // namespace

Result<std::vector<ReportedFinding>> ReadFindings(const QByteArray& json) {
  const QJsonValue list = QJsonDocument::fromJson(json).object()["findings"];
  if (!list.isArray()) return Fault{"the check has not printed a list of findings"};
  std::vector<ReportedFinding> findings;
  for (const QJsonValue each : list.toArray()) findings.push_back(FindingOf(each.toObject()));
  return findings;
}

std::optional<geometry::Point3d> PlaceInSpace(const ReportedFinding& finding) {
  if (!finding.place) return {};
  const double angle = finding.degrees * std::numbers::pi / 180;
  return geometry::Point3d(finding.place->x, finding.place->y * std::cos(angle),
                           finding.place->y * std::sin(angle));
}

DialogValue DialogValueOf(const ReportedFinding& finding, const scene::Equipment& equipment) {
  const PageRow page = PageOf(finding);
  const FieldRow* const mending = FieldOf(finding.mendedBy);
  const FieldRow* const field = mending != nullptr ? mending : FieldOf(page.value);
  const bool isSub = IsOfSub(finding);
  const Part part = mending != nullptr ? mending->part : page.part;
  return {NodeOfPart(part, isSub ? 1 : 0, equipment),
          field == nullptr || field->part != part ? 0 : (isSub ? field->sub : field->main)};
}

}  // namespace vanzet::window
