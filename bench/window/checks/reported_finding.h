#pragma once

#include <QString>
#include <QStringList>
#include <cstdint>
#include <optional>
#include <vector>

#include "check/finding.h"
#include "scene/equipment.h"

namespace vanzet::window {

/// A finding of the check of a project, as 'vanzet check --json' prints it.
struct ReportedFinding {
  QString rule;  ///< "EQ-201"
  check::Severity severity = check::Severity::kNote;
  int spur = 0;
  check::Where where = check::Where::kMain;
  QString text;  ///< the sentence, in the language in which it was asked for
  std::optional<geometry::Point> place = {};
  QStringList bodies = {};

  bool operator==(const ReportedFinding&) const = default;
};

/// Fails for what is not such a list.
Result<std::vector<ReportedFinding>> ReadFindings(const QByteArray& json);

/// The node of the dialog's page with the value by which the finding would vanish; 0 where no page has it.
std::int32_t NodeOf(const ReportedFinding& finding, const scene::Equipment& equipment);

}  // namespace vanzet::window
