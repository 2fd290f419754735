#pragma once

#include <QObject>

#include "window/commands/workplace.h"
#include "window/docks/body_dock.h"
#include "window/docks/definition_dock.h"
#include "window/views/drawing_view.h"
#include "window/views/equipment_view.h"

namespace vanzet::window {

/// Keeps the views and the trees together: a body under the cursor of one is marked in all, and so is the one
/// that is selected by a click.
class BodyMarks final : public QObject {
  Q_OBJECT
 public:
  struct Parts {
    DrawingView& drawing;
    EquipmentView& equipment;
    BodyDock& bodies;
    DefinitionDock& definition;
  };

  BodyMarks(const Workplace& workplace, Parts parts, QObject* parent);

 private:
  void Point(const QString& name);
  void Select(const QString& name);
  const scene::SceneBody* BodyNamed(const QString& name) const;

  const Workplace& workplace_;
  Parts parts_;
};

}  // namespace vanzet::window
