#include "view/qt/empty_panel.h"

#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>
#include <utility>

#include "view/qt/icons.h"
#include "view/qt/labels.h"
#include "view/shared/texts.h"
#include "view/shared/tree_model.h"

namespace vanzet::view::qt {
namespace {

constexpr int kSummaryIndent = 36;

}  // namespace

EmptyPanel::EmptyPanel(Send send, QWidget* parent)
    : QWidget(parent), send_(std::move(send)), title_(new QLabel(this)), hint_(new QLabel(this)) {
  auto* const rows = new QVBoxLayout(this);
  rows->setContentsMargins(0, 0, 0, 0);
  rows->setSpacing(8);
  SetFont(*title_, TextRank::kTitle);
  hint_->setWordWrap(true);
  rows->addWidget(title_);
  rows->addWidget(hint_);
  buttons_ = new QVBoxLayout;
  buttons_->setSpacing(6);
  rows->addLayout(buttons_);
  rows->addStretch(1);
}

void EmptyPanel::Show(const DialogState& state) {
  const FolderPage page = FolderPageOf(state);
  title_->setText(QString::fromStdString(page.title));
  hint_->setText(QString::fromStdString(page.hint));
  while (QLayoutItem* const item = buttons_->takeAt(0)) {
    // The button may be the one that was just pressed.
    item->widget()->hide();
    item->widget()->deleteLater();
    delete item;
  }
  chain_.clear();
  for (const FolderEntry& entry : page.entries) {
    AddButton(*entry.node);
    if (!entry.lines.empty()) AddSummary(entry.lines);
  }
}

void EmptyPanel::AddSummary(const std::vector<std::string>& lines) {
  auto* const summary = new QLabel(QString::fromStdString(Joined(lines, "\n")), this);
  summary->setObjectName(QStringLiteral("summary"));
  summary->setTextFormat(Qt::PlainText);
  summary->setWordWrap(true);
  summary->setIndent(kSummaryIndent);
  buttons_->addWidget(summary);
}

void EmptyPanel::AddButton(const TreeNode& node) {
  auto* const button = new QPushButton(
      IconOfNode(node.bitmap, node.selectedBitmap),
      QString::fromStdString(node.text).replace(QLatin1Char('&'), QStringLiteral("&&")), this);
  button->setIconSize({24, 24});
  button->setAutoDefault(false);
  button->setStyleSheet(QStringLiteral("text-align: left; padding: 8px 12px;"));
  QFont font = button->font();
  font.setBold(node.isBold);
  button->setFont(font);
  button->setMaximumWidth(420);
  const std::int32_t id = node.id;
  connect(button, &QPushButton::clicked, this,
          [this, id] { send_([id](Dialog& dialog) { dialog.SelectNode(id); }); });
  buttons_->addWidget(button);
  chain_.push_back(button);
}

}  // namespace vanzet::view::qt
