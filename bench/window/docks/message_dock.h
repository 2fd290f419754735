#pragma once

#include <QDockWidget>
#include <deque>
#include <functional>

#include "api/trace.h"
#include "project/message_panel.h"
#include "window/texts.h"

class QPlainTextEdit;
class QToolButton;

namespace vanzet::window {

/// The message panel of the window: faults and notes; if switched on, the lines that a module sends with the
/// answers that it reads, and every other call. It keeps the latest lines, which can be selected, copied and
/// cleared.
class MessageDock final : public QDockWidget, public project::MessagePanel {
  Q_OBJECT
 public:
  enum class Kind { kFault, kNote, kLine, kAnswer, kCall };

  explicit MessageDock(const Texts& texts, QWidget* parent = nullptr);

  void Add(Kind kind, const QString& text);
  void Clear();

  /// Shows or hides the lines of a module and its answers.
  void ShowLines(bool isOn);

  /// The lines that are shown.
  QString Content() const;

 signals:
  void FaultAdded(const QString& text);

 private:
  struct Line {
    Kind kind;
    QString text;
  };

  void Show(const Fault& fault) override { Add(Kind::kFault, QString::fromStdString(fault.Message())); }
  void Retranslate();
  void Append(const Line& line);
  bool IsShown(Kind kind) const;
  void Refill();
  void changeEvent(QEvent* event) override;

  const Texts& texts_;
  std::deque<Line> lines_;
  QPlainTextEdit* text_;
  QToolButton* moduleLines_;
  QToolButton* calls_;
  QToolButton* copy_;
  QToolButton* clear_;
};

/// Writes the calls of a module to the message panel as they come.
class CallListener final : public api::CallLog {
 public:
  /// `afterCall` is called after each call; one with a line can have changed the drawing.
  CallListener(MessageDock& messages, std::function<void(bool isLine)> afterCall)
      : messages_(messages), afterCall_(std::move(afterCall)) {}

  Result<void> Write(const char* call, const api::Json& arguments, const api::Json& result,
                     const api::Json& out) override;

 private:
  MessageDock& messages_;
  std::function<void(bool isLine)> afterCall_;
};

}  // namespace vanzet::window
