#pragma once

#include <QEventLoop>
#include <functional>

#include "drawing/picks.h"
#include "window/commands/choice_previews.h"
#include "window/docks/choice_dock.h"
#include "window/texts.h"
#include "window/views/bars.h"
#include "window/views/drawing_view.h"
#include "window/views/equipment_view.h"

namespace vanzet::window {

/// Lets the user answer a pick in the window: a position in the drawing, a figure in the drawing or from a
/// list, a solid in the equipment view or from a list. A position can be typed as well. The name that is
/// marked in a list is shown. Escape and the button of the hint cancel the pick.
class PickSession final : public QObject {
  Q_OBJECT
 public:
  struct Desk {
    const Texts& texts;
    HintBar& hint;
    DrawingView& drawing;
    EquipmentView& equipment;
    ChoiceDock& choice;
    std::function<void()> refresh;                   ///< shows the current drawing
    std::function<QStringList()> figures;            ///< names
    std::function<QStringList()> solids;             ///< names
    std::function<void(const QString&)> showFigure;  ///< with the drawing
    std::function<void(const QString&)> showSolid;   ///< in the place of the equipment
    std::function<void()> showEquipment;             ///< again
    std::function<LengthUnit()> unit;                ///< of typed positions
    ChoicePreviews& previews;
  };
  explicit PickSession(Desk desk);

  /// Returns when the user has answered or cancelled.
  drawing::Pick Ask(const drawing::PickQuestion& question);

  bool IsAsking() const { return loop_.isRunning(); }
  void Cancel() { loop_.quit(); }

 private:
  void Begin(const drawing::PickQuestion& question);
  void OfferNames();
  void End();
  QString PromptOf(const drawing::PickQuestion& question) const;
  QString TypedName() const;
  void Answer(drawing::Pick pick);
  void AnswerTyped(const QString& text);
  void ShowMarked(const QString& name);
  bool eventFilter(QObject* watched, QEvent* event) override;

  Desk desk_;
  QEventLoop loop_;
  drawing::Pick::Kind asked_ = drawing::Pick::Kind::kCancel;
  drawing::Pick answer_;
  /// The button that was pressed last in the dialog of the module, which asks for the pick: "Pick in the
  /// drawing: Outer diameter (mm)". Empty where a script asks.
  QString pressed_;
  QString marked_;  ///< the figure or solid that is shown
};

/// The picks of a module's call, answered in the window.
class WindowPicks final : public drawing::PickSource {
 public:
  explicit WindowPicks(PickSession& session) : session_(session) {}

  Result<drawing::Pick> Next(const drawing::PickQuestion& asked) override { return session_.Ask(asked); }
  Fault At(const drawing::Pick&, std::string text) const override { return Fault{std::move(text)}; }

 private:
  PickSession& session_;
};

}  // namespace vanzet::window
