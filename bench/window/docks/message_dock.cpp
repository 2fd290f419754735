#include "window/docks/message_dock.h"

#include <QApplication>
#include <QClipboard>
#include <QEvent>
#include <QFontDatabase>
#include <QHBoxLayout>
#include <QPlainTextEdit>
#include <QToolButton>
#include <algorithm>
#include <string_view>

#include <nlohmann/json.hpp>

#include "window/qt_text.h"
#include "window/theme.h"

namespace vanzet::window {
namespace {

using api::Json;

constexpr std::size_t kMostLines = 5000;

/// The mark before the text of a kind, and its colour.
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
  button->setIcon(MakeIcon(icon));
  button->setAutoRaise(true);
  return button;
}

std::string TextOf(const Json& value) {
  return value.is_string() ? value.get<std::string>()
                           : value.dump(-1, ' ', false, Json::error_handler_t::replace);
}

std::string Join(const Json& values, const char* between) {
  std::string text;
  for (const Json& value : values) text += (text.empty() ? "" : between) + TextOf(value);
  return text;
}

std::string LineText(const Json& arguments, const Json&, const Json&) {
  return Join(arguments, " ");
}

std::string NumberText(const Json& arguments, const Json& result, const Json&) {
  return TextOf(arguments.at(0)) + " = " + TextOf(result);
}

std::string FirstOutText(const Json& arguments, const Json&, const Json& out) {
  return TextOf(arguments.at(0)) + " = '" + (out.empty() ? "" : TextOf(out.at(0))) + "'";
}

/// The calls that have a form of their own in the panel.
struct CallRow {
  std::string_view call;
  MessageDock::Kind kind;
  std::string (*text)(const Json& arguments, const Json& result, const Json& out);
};
constexpr CallRow kCalls[] = {
    {"OrvoCommand", MessageDock::Kind::kLine, LineText},
    {"OrvoMacroExec", MessageDock::Kind::kLine, LineText},
    {"OrvoReadGlobalI", MessageDock::Kind::kAnswer, NumberText},
    {"OrvoReadGlobalW", MessageDock::Kind::kAnswer, NumberText},
    {"OrvoReadGlobal$", MessageDock::Kind::kAnswer, FirstOutText},
};

}  // namespace

MessageDock::MessageDock(const Texts& texts, QWidget* parent)
    : QDockWidget(parent),
      texts_(texts),
      text_(new QPlainTextEdit),
      moduleLines_(Button("drawing")),
      calls_(Button("calls")),
      copy_(Button("copy")),
      clear_(Button("clear")) {
  setObjectName("messages");
  text_->setReadOnly(true);
  text_->setMaximumBlockCount(kMostLines);
  text_->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
  text_->setLineWrapMode(QPlainTextEdit::NoWrap);
  for (QToolButton* const toggle : {moduleLines_, calls_}) {
    toggle->setCheckable(true);
    connect(toggle, &QToolButton::toggled, this, &MessageDock::Refill);
  }
  auto* const content = new QWidget;
  auto* const layout = new QHBoxLayout(content);
  layout->setContentsMargins(4, 0, 4, 4);
  auto* const buttons = new QVBoxLayout;
  for (QToolButton* button : {moduleLines_, calls_, copy_, clear_}) buttons->addWidget(button);
  buttons->addStretch();
  layout->addWidget(text_, 1);
  layout->addLayout(buttons);
  setWidget(content);
  connect(copy_, &QToolButton::clicked, this, [this] { QApplication::clipboard()->setText(Content()); });
  connect(clear_, &QToolButton::clicked, this, &MessageDock::Clear);
  connect(&texts_, &Texts::Changed, this, &MessageDock::Retranslate);
  Retranslate();
}

void MessageDock::Retranslate() {
  setWindowTitle(texts_(Text::kMessages));
  text_->setAccessibleName(texts_(Text::kMessages));
  for (const auto& [button, text] : {std::pair{moduleLines_, Text::kLines},
                                     {calls_, Text::kAllCalls},
                                     {copy_, Text::kCopyAll},
                                     {clear_, Text::kClear}}) {
    button->setToolTip(texts_(text));
    button->setAccessibleName(texts_(text));
  }
}

void MessageDock::Add(Kind kind, const QString& text) {
  lines_.push_back({kind, text});
  if (lines_.size() > kMostLines) lines_.pop_front();
  Append(lines_.back());
  if (kind == Kind::kFault) emit FaultAdded(text);
}

void MessageDock::ShowLines(bool isOn) {
  moduleLines_->setChecked(isOn);
}

bool MessageDock::IsShown(Kind kind) const {
  switch (kind) {
    case Kind::kFault:
    case Kind::kNote: return true;
    case Kind::kLine:
    case Kind::kAnswer: return moduleLines_->isChecked();
    case Kind::kCall: return calls_->isChecked();
  }
  return true;
}

void MessageDock::Append(const Line& line) {
  if (!IsShown(line.kind)) return;
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

Result<void> CallListener::Write(const char* call, const Json& arguments, const Json& result,
                                 const Json& out) {
  const auto* const row = std::ranges::find(kCalls, std::string_view(call), &CallRow::call);
  const bool hasForm = row != std::end(kCalls);
  const std::string answer = result.is_null() ? "" : " = " + TextOf(result);
  messages_.Add(hasForm ? row->kind : MessageDock::Kind::kCall,
                ToQString(hasForm ? row->text(arguments, result, out)
                                  : std::string(call) + "(" + Join(arguments, ", ") + ")" + answer));
  afterCall_(hasForm && row->kind == MessageDock::Kind::kLine);
  return {};
}

}  // namespace vanzet::window
