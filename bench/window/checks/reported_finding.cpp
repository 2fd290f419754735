#include "window/checks/reported_finding.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <cmath>
#include <numbers>

namespace vanzet::window {
namespace {

using check::Where;

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
  finding.part = show::PartNamed(json["part"].toString().toStdString());
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

}  // namespace vanzet::window
