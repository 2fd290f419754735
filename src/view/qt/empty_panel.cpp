#include "view/qt/empty_panel.h"

#include <QLabel>
#include <QPushButton>
#include <QRegularExpression>
#include <QStringList>
#include <QVBoxLayout>
#include <utility>

#include "view/ids.h"
#include "view/qt/icons.h"
#include "view/qt/labels.h"
#include "view/qt/texts.h"
#include "view/shared/lengths.h"

namespace vanzet::view::qt {
namespace {

constexpr const char* kHint = Translatable("Choose what to define. Bold entries are defined already.");

constexpr const char* kCatalogueHint =
    Translatable("Choose the kind of device to add to the catalogue, to change or to delete.");
constexpr int kSummaryIndent = 36;

QString TitleOf(const DialogState& state) {
  for (const TreeNode& node : state.tree) {
    if (node.id == state.selectedNode) return QString::fromStdString(node.text);
  }
  return QString::fromStdString(state.caption);
}

/// The name of what is defined at a node, or its values: "Chuck 210", "A 80, B 120". The name of a device of
/// the user's own is a path.
QString Content(const TreeNode& node) {
  if (!node.name.empty()) {
    const QString name = QString::fromStdString(node.name);
    return name.section(QRegularExpression(QStringLiteral("[/\\\\]")), -1);
  }
  QStringList values;
  for (const NodeValue& each : node.values)
    values.append(QString::fromStdString(each.sign) + QLatin1Char(' ') +
                  QString::fromStdString(LengthLabel(each.value)));
  return values.join(QStringLiteral(", "));
}

/// A line for each defined node at `top` and below it.
QStringList LinesBelow(const DialogState& state, const TreeNode& top) {
  QStringList lines;
  const QString content = Content(top);
  if (top.isBold && !content.isEmpty()) lines.append(content);
  for (const TreeNode& node : state.tree) {
    if (node.parent != top.id) continue;
    const QString text = QString::fromStdString(node.text);
    const QStringList below = LinesBelow(state, node);
    if (node.isBold && Content(node).isEmpty()) lines.append(text);
    for (const QString& line : below) lines.append(text + QStringLiteral(": ") + line);
  }
  return lines;
}

/// True for nodes of the catalogue, where nothing of a definition is made.
bool IsOfCatalogue(const DialogState& state) {
  for (const TreeNode& node : state.tree) {
    if (node.id == state.selectedNode)
      return node.id == node::kNewDevices || node.parent == node::kNewDevices;
  }
  return false;
}

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
  title_->setText(TitleOf(state));
  hint_->setText(Translate(IsOfCatalogue(state) ? kCatalogueHint : kHint));
  while (QLayoutItem* const item = buttons_->takeAt(0)) {
    // The button may be the one that was just pressed.
    item->widget()->hide();
    item->widget()->deleteLater();
    delete item;
  }
  chain_.clear();
  for (const TreeNode& node : state.tree) {
    if (node.parent != state.selectedNode) continue;
    AddButton(node);
    AddSummary(state, node);
  }
}

void EmptyPanel::AddSummary(const DialogState& state, const TreeNode& node) {
  const QStringList lines = LinesBelow(state, node);
  if (lines.isEmpty()) return;
  auto* const summary = new QLabel(lines.join(QLatin1Char('\n')), this);
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
