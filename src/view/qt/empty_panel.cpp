#include "view/qt/empty_panel.h"

#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>
#include <utility>

#include "view/qt/icons.h"
#include "view/qt/labels.h"
#include "view/qt/texts.h"

namespace vanzet::view::qt {
namespace {

constexpr const char* kHint = Translatable("Choose what to define. Bold entries are defined already.");

QString TitleOf(const DialogState& state) {
  for (const TreeNode& node : state.tree) {
    if (node.id == state.selectedNode) return QString::fromStdString(node.text);
  }
  return QString::fromStdString(state.caption);
}

}  // namespace

EmptyPanel::EmptyPanel(Send send, QWidget* parent)
    : QWidget(parent),
      send_(std::move(send)),
      title_(new QLabel(this)),
      hint_(new QLabel(Translate(kHint), this)) {
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
  title_->setText(TitleOf(state));
  while (QLayoutItem* const item = buttons_->takeAt(0)) {
    // The button may be the one that was just pressed.
    item->widget()->hide();
    item->widget()->deleteLater();
    delete item;
  }
  chain_.clear();
  for (const TreeNode& node : state.tree) {
    if (node.parent == state.selectedNode) AddButton(node);
  }
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
