#pragma once

#include <QString>
#include <QStringList>
#include <cstdint>
#include <optional>
#include <vector>

#include "check/finding.h"
#include "geometry/point.h"
#include "show/part.h"

namespace vanzet::window {

/// A finding of the check of a project, as 'vanzet check --json' prints it.
struct ReportedFinding {
  QString rule = {};  ///< "EQ-201"
  check::Severity severity = check::Severity::kNote;
  int spur = 0;
  check::Where where = check::Where::kMain;
  QString text = {};                          ///< the sentence, in the language in which it was asked for
  std::optional<geometry::Point> place = {};  ///< in the turning plane
  double degrees = 0;                         ///< of that plane about the axis, from the upright one
  QStringList bodies = {};
  show::Part part = show::Part::kNone;  ///< kNone: the rule and the place say it
  QString mendedBy = {};  ///< the value by which it would vanish: "clamping_out"; empty: no single one

  bool operator==(const ReportedFinding&) const = default;
};

/// Fails for what is not such a list.
Result<std::vector<ReportedFinding>> ReadFindings(const QByteArray& json);

/// The place in space; nothing where the finding has none.
std::optional<geometry::Point3d> PlaceInSpace(const ReportedFinding& finding);

}  // namespace vanzet::window
