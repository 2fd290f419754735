#include "window/checks/check_commands.h"

#include <QStatusBar>

#include "window/checks/dialog_value.h"
#include "window/theme.h"

namespace vanzet::window {
namespace {

/// The bodies as the drawing has them: one jaw of a side stands for all.
QStringList InSection(QStringList bodies) {
  for (QString& body : bodies) {
    const qsizetype jaw = body.indexOf(" jaw ");
    if (jaw >= 0) body = body.left(jaw) + " jaw 1";
  }
  return bodies;
}

}  // namespace

CheckCommands::CheckCommands(Workplace& workplace, Parts parts, QObject* parent)
    : QObject(parent),
      workplace_(workplace),
      parts_(parts),
      check_(workplace.places.Sibling("vanzet"), this),
      count_(new QToolButton) {
  count_->setObjectName("checkCount");
  count_->setAutoRaise(true);
  count_->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
  count_->hide();
  parts_.bar.insertPermanentWidget(0, count_);
  Connect();
}

void CheckCommands::Connect() {
  connect(&parts_.commands, &EquipmentCommands::Refreshed, this, &CheckCommands::Renew);
  connect(&parts_.commands, &EquipmentCommands::StepStored, this, &CheckCommands::Renew);
  connect(&workplace_.texts, &Texts::Changed, this, &CheckCommands::Renew);
  connect(&check_, &BackgroundCheck::Begun, &parts_.dock, &CheckDock::ShowProgress);
  connect(&check_, &BackgroundCheck::Found, this, [this](const std::vector<ReportedFinding>& findings) {
    parts_.dock.ShowFindings(findings);
    ShowCount();
  });
  connect(&check_, &BackgroundCheck::Failed, this, [this](const QString& reason) {
    parts_.dock.ShowFailure(reason);
    count_->hide();
  });
  connect(&parts_.dock, &CheckDock::FindingChosen, this, &CheckCommands::ShowChosen);
  connect(&parts_.dock, &CheckDock::PageWanted, this, &CheckCommands::OpenPage);
  connect(&parts_.dock, &CheckDock::RuleWanted, this, &CheckCommands::OpenRule);
  connect(count_, &QToolButton::clicked, this, [this] {
    parts_.dock.show();
    parts_.dock.raise();
  });
}

void CheckCommands::Renew() {
  if (!workplace_.session) return;
  check_.Ask({workplace_.session->project().folder(), workplace_.unit, workplace_.texts.language()});
}

void CheckCommands::ShowCount() {
  count_->setIcon(MakeIcon(IconOf(parts_.dock.findings())));
  count_->setText(CountText(parts_.dock.findings(), workplace_.texts.translations()));
  count_->setToolTip(workplace_.texts(Text::kChecks));
  count_->show();
}

void CheckCommands::ShowChosen() {
  const ReportedFinding* const chosen = parts_.dock.Chosen();
  if (chosen == nullptr) {
    parts_.drawing.PointOut({}, {});
    return parts_.equipment.PointOut({}, {});
  }
  const ReportedFinding finding = *chosen;  // another spur can change the list
  if (finding.spur != workplace_.spur) emit SpurWanted(finding.spur);
  parts_.drawing.PointOut(finding.place, InSection(finding.bodies));
  parts_.equipment.PointOut(PlaceInSpace(finding), finding.bodies);
}

void CheckCommands::OpenPage() {
  const ReportedFinding* const finding = parts_.dock.Chosen();
  if (finding == nullptr || !workplace_.session) return;
  const auto read = results::ReadDefinition(workplace_.session->project(), finding->spur);
  if (!read) return workplace_.reportFault(read.fault());
  if (!read->definition) return;
  const auto [node, fields] = DialogValueOf(*finding, scene::ReadEquipment(*read->definition));
  if (node != 0) parts_.commands.DefineAtField(finding->spur, node, fields);
}

void CheckCommands::OpenRule() {
  const ReportedFinding* const finding = parts_.dock.Chosen();
  if (finding == nullptr) return;
  const std::string page = "checks/" + finding->rule.toStdString() + ".md";
  workplace_.Report(workplace_.showHelp(page.c_str(), {}));
}

}  // namespace vanzet::window
