#include "window/docks/message_dock.h"

#include <QApplication>
#include <QClipboard>
#include <QEvent>
#include <QFontDatabase>
#include <QHBoxLayout>
#include <QPlainTextEdit>
#include <QToolButton>

#include "window/icons.h"
#include "window/theme.h"

namespace vanzet::window {
namespace {

constexpr std::size_t kMostLines = 5000;

/// How a kind is shown: before the text, and in which of the view's colours.
struct KindRow {
  MessageDock::Kind kind;
  const char* mark;
  QColor ViewColours::*colour;
};
constexpr KindRow kKinds[] = {
    {MessageDock::Kind::kFault, "!", &ViewColours::warning},
    {MessageDock::Kind::kNote, "·", &ViewColours::accent},
    {MessageDock::Kind::kLine, ">", &ViewColours::text},
    {MessageDock::Kind::kAnswer, "<", &ViewColours::faint},
    {MessageDock::Kind::kCall, " ", &ViewColours::faint},
};

QToolButton* Button(const char* icon) {
  auto* const button = new QToolButton;
  button->setIcon(IconNamed(icon));
  button->setAutoRaise(true);
  return button;
}

}  // namespace

MessageDock::MessageDock(const Texts& texts, QWidget* parent)
    : QDockWidget(parent),
      texts_(texts),
      text_(new QPlainTextEdit),
      calls_(Button("calls")),
      copy_(Button("copy")),
      clear_(Button("clear")) {
  setObjectName("messages");
  text_->setReadOnly(true);
  text_->setMaximumBlockCount(kMostLines);
  text_->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
  text_->setLineWrapMode(QPlainTextEdit::NoWrap);
  calls_->setCheckable(true);
  auto* const content = new QWidget;
  auto* const layout = new QHBoxLayout(content);
  layout->setContentsMargins(4, 0, 4, 4);
  auto* const buttons = new QVBoxLayout;
  for (QToolButton* button : {calls_, copy_, clear_}) buttons->addWidget(button);
  buttons->addStretch();
  layout->addWidget(text_, 1);
  layout->addLayout(buttons);
  setWidget(content);
  connect(calls_, &QToolButton::toggled, this, &MessageDock::Refill);
  connect(copy_, &QToolButton::clicked, this, [this] { QApplication::clipboard()->setText(Content()); });
  connect(clear_, &QToolButton::clicked, this, &MessageDock::Clear);
  connect(&texts_, &Texts::Changed, this, &MessageDock::Retranslate);
  Retranslate();
}

void MessageDock::Retranslate() {
  setWindowTitle(texts_(Text::kMessages));
  calls_->setToolTip(texts_(Text::kAllCalls));
  copy_->setToolTip(texts_(Text::kCopyAll));
  clear_->setToolTip(texts_(Text::kClear));
}

void MessageDock::Add(Kind kind, const QString& text) {
  lines_.push_back({kind, text});
  if (lines_.size() > kMostLines) lines_.pop_front();
  Append(lines_.back());
  if (kind == Kind::kFault) emit FaultAdded(text);
}

void MessageDock::Append(const Line& line) {
  if (line.kind == Kind::kCall && !calls_->isChecked()) return;
  for (const KindRow& row : kKinds) {
    if (row.kind != line.kind) continue;
    const QColor colour = ColoursFor(palette()).*row.colour;
    text_->appendHtml("<pre style=\"margin:0; color:" + colour.name() + "\">" +
                      (QString::fromUtf8(row.mark) + " " + line.text).toHtmlEscaped() + "</pre>");
  }
}

void MessageDock::Refill() {
  text_->clear();
  for (const Line& line : lines_) Append(line);
}

void MessageDock::Clear() {
  lines_.clear();
  text_->clear();
}

QString MessageDock::Content() const {
  return text_->toPlainText();
}

void MessageDock::changeEvent(QEvent* event) {
  QDockWidget::changeEvent(event);
  if (event->type() == QEvent::PaletteChange) Refill();
}

}  // namespace vanzet::window
