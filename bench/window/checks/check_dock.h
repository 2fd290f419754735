#pragma once

#include <QDockWidget>
#include <vector>

#include "window/checks/reported_finding.h"
#include "window/texts.h"

class QLabel;
class QPushButton;
class QTreeWidget;
class QTreeWidgetItem;

namespace vanzet::window {

/// The findings of the check, each with its severity, its place and its sentence.
class CheckDock final : public QDockWidget {
  Q_OBJECT
 public:
  explicit CheckDock(const Texts& texts, QWidget* parent = nullptr);

  void ShowFindings(const std::vector<ReportedFinding>& findings);
  void ShowNothing();                       ///< no project is open
  void ShowProgress();                      ///< what is listed is of an older state
  void ShowFailure(const QString& reason);  ///< in the place of findings

  const std::vector<ReportedFinding>& findings() const { return findings_; }
  const ReportedFinding* Chosen() const;  ///< null without a row
  QTreeWidget& tree() { return *tree_; }

 signals:
  void FindingChosen();  ///< by the mouse or the keys; or none is chosen any more
  void PageWanted();     ///< the person wants the dialog's page about the chosen finding
  void RuleWanted();     ///< and the page of the documentation about its rule

 private:
  void MakeParts();
  void Retranslate();
  void List();
  void EnableButtons();
  void SetState(const QString& state);
  QTreeWidgetItem* RowOf(const ReportedFinding& finding) const;

  const Texts& texts_;
  std::vector<ReportedFinding> findings_;
  QTreeWidget* tree_;
  QLabel* state_;
  QPushButton *page_, *rule_;
};

/// "Errors: 1, warnings: 0, notes: 0"
QString CountText(const std::vector<ReportedFinding>& findings, const Translations& texts);

/// The name of the icon of the worst one; of none, that nothing was found.
const char* IconOf(const std::vector<ReportedFinding>& findings);

}  // namespace vanzet::window
