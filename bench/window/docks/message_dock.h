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

/// The message panel of the window: faults, the lines that a module sends, the answers that it reads and, if
/// switched on, every other call. It keeps the latest lines, which can be selected, copied and cleared.
class MessageDock final : public QDockWidget, public project::MessagePanel {
  Q_OBJECT
 public:
  enum class Kind { kFault, kNote, kLine, kAnswer, kCall };

  explicit MessageDock(const Texts& texts, QWidget* parent = nullptr);

  void Add(Kind kind, const QString& text);
  void Clear();

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
  void Refill();
  void changeEvent(QEvent* event) override;

  const Texts& texts_;
  std::deque<Line> lines_;
  QPlainTextEdit* text_;
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
