#pragma once

#include <QWidget>

#include "window/texts.h"
#include "window/views/equipment_view.h"

class QComboBox;
class QSlider;

namespace vanzet::window {

/// Chooses the plane by which the equipment is cut open, and moves it. It is shown while the section is.
class SectionBar final : public QWidget {
  Q_OBJECT
 public:
  SectionBar(const Texts& texts, EquipmentView& view, QWidget* parent = nullptr);

 private:
  void Retranslate();
  void Move();

  const Texts& texts_;
  EquipmentView& view_;
  QComboBox* planes_;
  QSlider* place_;
};

}  // namespace vanzet::window
