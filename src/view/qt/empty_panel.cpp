#include "view/qt/empty_panel.h"

#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>
#include <utility>

#include "view/qt/fonts.h"
#include "view/qt/icons.h"
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
  SetFont(*title_, Type::kTitle);
  hint_->setWordWrap(true);
  rows->addWidget(title_);
  rows->addWidget(hint_);
  ways_ = new QVBoxLayout;
  ways_->setSpacing(6);
  rows->addLayout(ways_);
  rows->addStretch(1);
}

void EmptyPanel::Show(const DialogState& state) {
  title_->setText(TitleOf(state));
  while (QLayoutItem* const item = ways_->takeAt(0)) {
    // A way may be what was just pressed.
    item->widget()->hide();
    item->widget()->deleteLater();
    delete item;
  }
  for (const TreeNode& node : state.tree) {
    if (node.parent == state.selectedNode) AddWay(node);
  }
}

void EmptyPanel::AddWay(const TreeNode& node) {
  auto* const way = new QPushButton(
      IconOfNode(node.bitmap, node.selectedBitmap),
      QString::fromStdString(node.text).replace(QLatin1Char('&'), QStringLiteral("&&")), this);
  way->setIconSize({24, 24});
  way->setAutoDefault(false);
  way->setStyleSheet(QStringLiteral("text-align: left; padding: 8px 12px;"));
  QFont font = way->font();
  font.setBold(node.isBold);
  way->setFont(font);
  way->setMaximumWidth(420);
  const std::int32_t id = node.id;
  connect(way, &QPushButton::clicked, this,
          [this, id] { send_([id](Dialog& dialog) { dialog.SelectNode(id); }); });
  ways_->addWidget(way);
}

}  // namespace vanzet::view::qt
