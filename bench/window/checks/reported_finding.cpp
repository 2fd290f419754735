#include "window/checks/reported_finding.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <algorithm>

#include "window/docks/equipment_pages.h"

namespace vanzet::window {
namespace {

using check::Where;
using show::Part;

/// The part of the definition whose page can mend what a rule finds.
struct PageRow {
  const char* rule;
  Part part;
};

// clang-format off
constexpr PageRow kPages[] = {
    { "EQ-101", Part::kClamp },
    { "EQ-102", Part::kClamp },
    { "EQ-103", Part::kClamp },
    { "EQ-104", Part::kBillet },
    { "EQ-105", Part::kClamp },
    { "EQ-201", Part::kBillet },
    { "EQ-202", Part::kBillet },
    { "EQ-203", Part::kBillet },
    { "EQ-204", Part::kFinishPart },
    { "EQ-205", Part::kDatum },
    { "EQ-206", Part::kCenter },
    { "EQ-301", Part::kFinishPart },
    { "EQ-302", Part::kDatum },
    { "EQ-303", Part::kDatum },
    { "EQ-304", Part::kDatum },
    { "EQ-305", Part::kBillet },
    { "EQ-401", Part::kJaw },
    { "EQ-402", Part::kClamp },
};
// clang-format on

Part PartOf(const ReportedFinding& finding) {
  if (finding.where == Where::kCenter) return Part::kCenter;
  if (finding.where == Where::kSteadyRest) return Part::kSteadyRest;
  if (finding.where == Where::kDatum) return Part::kDatum;
  const auto* const row =
      std::ranges::find_if(kPages, [&](const PageRow& each) { return finding.rule == each.rule; });
  return row == std::end(kPages) ? Part::kNone : row->part;
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
  }
  for (const QJsonValue body : json["bodies"].toArray()) finding.bodies << body.toString();
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

std::int32_t NodeOf(const ReportedFinding& finding, const scene::Equipment& equipment) {
  return NodeOfPart(PartOf(finding), finding.where == Where::kSub ? 1 : 0, equipment);
}

}  // namespace vanzet::window
