#include "window/commands/body_marks.h"

#include <algorithm>

namespace vanzet::window {

BodyMarks::BodyMarks(const Workplace& workplace, Parts parts, QObject* parent)
    : QObject(parent), workplace_(workplace), parts_(parts) {
  connect(&parts.drawing, &DrawingView::BodyHovered, this, &BodyMarks::Point);
  connect(&parts.equipment, &EquipmentView::BodyHovered, this, &BodyMarks::Point);
  connect(&parts.bodies, &BodyDock::BodyHovered, this, &BodyMarks::Point);
  connect(&parts.drawing, &DrawingView::BodySelected, this, &BodyMarks::Select);
  connect(&parts.equipment, &EquipmentView::BodySelected, this, &BodyMarks::Select);
  connect(&parts.bodies, &BodyDock::BodySelected, this, &BodyMarks::Select);
}

void BodyMarks::Point(const QString& name) {
  parts_.drawing.Mark(name);
  parts_.equipment.Mark(name);
  parts_.bodies.Mark(name);
  parts_.definition.Mark(workplace_.spur, BodyNamed(name));
}

void BodyMarks::Select(const QString& name) {
  parts_.drawing.Select(name);
  parts_.equipment.Select(name);
  parts_.bodies.Select(name);
  parts_.definition.Select(workplace_.spur, BodyNamed(name));
}

/// Null for a body that the equipment does not have.
const scene::SceneBody* BodyMarks::BodyNamed(const QString& name) const {
  if (workplace_.scene == nullptr) return nullptr;
  const auto& bodies = workplace_.scene->bodies;
  const auto found = std::ranges::find(bodies, name.toStdString(), &scene::SceneBody::name);
  return found == bodies.end() ? nullptr : &*found;
}

}  // namespace vanzet::window
