#include "window/checks/check_dock.h"

#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QSignalBlocker>
#include <QTreeWidget>
#include <QVBoxLayout>
#include <algorithm>

#include "check/report.h"
#include "window/qt_text.h"
#include "window/theme.h"

namespace vanzet::window {
namespace {

using check::Severity;

enum Column { kSeverity, kRule, kPlace, kSentence };

const char* IconOf(Severity severity) {
  switch (severity) {
    case Severity::kError: return "error";
    case Severity::kWarning: return "warning";
    case Severity::kNote: return "note";
  }
  return "";
}

QString TextOf(const Translations& texts, std::string_view english) {
  return ToQString(texts.Translate(check::kTextSection, english));
}

}  // namespace

QString CountText(const std::vector<ReportedFinding>& findings, const Translations& texts) {
  if (findings.empty()) return TextOf(texts, "Nothing was found.");
  const auto count = [&](Severity severity) {
    return static_cast<int>(std::ranges::count(findings, severity, &ReportedFinding::severity));
  };
  return ToQString(
      check::CountText({count(Severity::kError), count(Severity::kWarning), count(Severity::kNote)}, texts));
}

const char* IconOf(const std::vector<ReportedFinding>& findings) {
  const auto worst = std::ranges::max_element(findings, {}, &ReportedFinding::severity);
  return worst == findings.end() ? "possible" : IconOf(worst->severity);
}

CheckDock::CheckDock(const Texts& texts, QWidget* parent)
    : QDockWidget(parent),
      texts_(texts),
      tree_(new QTreeWidget),
      state_(new QLabel),
      page_(new QPushButton),
      rule_(new QPushButton) {
  setObjectName("checks");
  MakeParts();
  connect(tree_, &QTreeWidget::currentItemChanged, this, &CheckDock::EnableButtons);
  connect(tree_, &QTreeWidget::currentItemChanged, this, &CheckDock::FindingChosen);
  connect(tree_, &QTreeWidget::itemClicked, this, &CheckDock::FindingChosen);
  connect(tree_, &QTreeWidget::itemActivated, this, &CheckDock::PageWanted);
  connect(page_, &QPushButton::clicked, this, &CheckDock::PageWanted);
  connect(rule_, &QPushButton::clicked, this, &CheckDock::RuleWanted);
  connect(&texts_, &Texts::Changed, this, &CheckDock::Retranslate);
  Retranslate();
}

void CheckDock::MakeParts() {
  tree_->setColumnCount(4);
  tree_->setRootIsDecorated(false);
  tree_->setAlternatingRowColors(true);
  tree_->setWordWrap(true);
  state_->setObjectName("checkState");
  page_->setObjectName("openPage");
  rule_->setObjectName("openRule");
  auto* const content = new QWidget;
  auto* const rows = new QVBoxLayout(content);
  rows->setContentsMargins(4, 0, 4, 4);
  rows->addWidget(tree_, 1);
  // No text widens the window: the docks at its side would become narrow for good.
  state_->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
  for (QPushButton* const button : {page_, rule_}) button->setMinimumWidth(1);
  auto* const below = new QHBoxLayout;
  below->addWidget(state_, 1);
  below->addWidget(rule_);
  below->addWidget(page_);
  rows->addLayout(below);
  setWidget(content);
}

void CheckDock::Retranslate() {
  setWindowTitle(texts_(Text::kChecks));
  tree_->setAccessibleName(texts_(Text::kChecks));
  tree_->setHeaderLabels(
      {texts_(Text::kSeverity), texts_(Text::kRule), texts_(Text::kWhere), texts_(Text::kFinding)});
  page_->setText(texts_(Text::kOpenPage));
  rule_->setText(texts_(Text::kExplainRule));
  List();
}

const ReportedFinding* CheckDock::Chosen() const {
  const int row = tree_->indexOfTopLevelItem(tree_->currentItem());
  return row < 0 ? nullptr : &findings_[static_cast<std::size_t>(row)];
}

void CheckDock::ShowFindings(const std::vector<ReportedFinding>& findings) {
  if (findings != findings_) {
    findings_ = findings;
    List();
  }
  SetState(CountText(findings_, texts_.translations()));
}

void CheckDock::ShowNothing() {
  findings_.clear();
  List();
  SetState({});
}

void CheckDock::ShowProgress() {
  SetState(texts_(Text::kChecking));
}

void CheckDock::ShowFailure(const QString& reason) {
  ShowNothing();
  SetState(reason);
}

void CheckDock::SetState(const QString& state) {
  state_->setText(state);
  state_->setToolTip(state);
}

QTreeWidgetItem* CheckDock::RowOf(const ReportedFinding& finding) const {
  const Translations& texts = texts_.translations();
  const QString place =
      texts_(Text::kSpur).arg(finding.spur + 1) + ", " + ToQString(check::PlaceText(finding.where, texts));
  auto* const row =
      new QTreeWidgetItem({TextOf(texts, WordOf(finding.severity)), finding.rule, place, finding.text});
  row->setIcon(kSeverity, MakeIcon(IconOf(finding.severity)));
  row->setToolTip(kSentence, finding.text);
  return row;
}

void CheckDock::List() {
  const QSignalBlocker quiet(tree_);
  const bool hadChoice = tree_->currentItem() != nullptr;
  tree_->clear();
  for (const ReportedFinding& finding : findings_) tree_->addTopLevelItem(RowOf(finding));
  for (int column = 0; column < kSentence; ++column) tree_->resizeColumnToContents(column);
  EnableButtons();
  if (hadChoice) emit FindingChosen();
}

void CheckDock::EnableButtons() {
  const bool isChosen = Chosen() != nullptr;
  page_->setEnabled(isChosen);
  rule_->setEnabled(isChosen);
}

}  // namespace vanzet::window
