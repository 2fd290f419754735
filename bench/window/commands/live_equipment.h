#pragma once

#include <QObject>
#include <QTimer>
#include <QVariantMap>
#include <functional>
#include <optional>

#include "window/actions.h"
#include "window/commands/workplace.h"
#include "window/views/drawing_view.h"
#include "window/views/equipment_view.h"

namespace vanzet::window {

/// Shows in both views what the module's dialog has stored so far, and paler what its page holds beside that,
/// while the dialog is up.
class LiveEquipment final : public QObject {
  Q_OBJECT
 public:
  struct Parts {
    DrawingView& drawing;
    EquipmentView& equipment;
    std::function<Result<void>()> showScene;  ///< shows the scene of the workplace
  };
  LiveEquipment(Workplace& workplace, Parts parts, QObject* parent);

  void Begin();  ///< a call of the module begins
  void End();

  /// An event was handled: what is stored may have changed. Shows it soon.
  void Refresh() { redraw_.start(); }

  /// A body has come: makes what is shown again, soon.
  void Renew() { shown_.reset(), redraw_.start(); }

 private:
  bool eventFilter(QObject* watched, QEvent* event) override;
  void Redraw();
  Result<void> Show(const Session::Live& stored, const scene::Equipment& held);

  Workplace& workplace_;
  Parts parts_;
  QTimer redraw_;
  QVariantMap page_;  ///< that the dialog shows
  struct Shown {
    int spur;
    scene::Equipment stored, held;
    bool operator==(const Shown&) const = default;
  };
  std::optional<Shown> shown_;
};

/// The section of the equipment that a scene shows, prepared for the drawing; null when it cannot be made.
std::shared_ptr<const ShownSection> SectionToShow(const Workplace& workplace,
                                                  const scene::Equipment& equipment,
                                                  const scene::Scene& scene);

}  // namespace vanzet::window
