#pragma once

#include <QDockWidget>
#include <deque>

#include "project/message_panel.h"
#include "window/texts.h"

class QPlainTextEdit;
class QToolButton;

namespace vanzet::window {

/// The message panel of the window: faults, the lines that a module sends and the answers that it reads, and,
/// when it is asked for, every other call. The latest lines stay; they can be selected, copied and cleared.
class MessageDock final : public QDockWidget, public project::MessagePanel {
  Q_OBJECT
 public:
  enum class Kind { kFault, kNote, kLine, kAnswer, kCall };

  explicit MessageDock(const Texts& texts, QWidget* parent = nullptr);

  void Add(Kind kind, const QString& text);
  void Clear();

  /// All that is shown, a line each.
  QString Content() const;

 signals:
  void FaultAdded(const QString& text);

 private:
  struct Line {
    Kind kind;
    QString text;
  };

  void Show(const std::string& line) override { Add(Kind::kFault, QString::fromStdString(line)); }
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

}  // namespace vanzet::window
