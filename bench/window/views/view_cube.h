#pragma once

#include <QPainterPath>
#include <QWidget>
#include <optional>
#include <vector>

#include "scene/look.h"
#include "window/texts.h"

namespace vanzet::window {

/// A cube in the corner of the equipment that turns with it. A click on a side looks from there, one on a
/// corner from the corner. The commands of the sides do the same by keys.
class ViewCube final : public QWidget {
  Q_OBJECT
 public:
  ViewCube(const Texts& texts, QWidget* parent);

  /// Shows from where the equipment is seen.
  void Turn(const scene::Look& look);

  /// The middle of a side or corner that is seen, by its direction from the middle of the cube; nothing for
  /// one at the back.
  std::optional<QPointF> PlaceOf(const geometry::Vector3d& direction) const;

  /// The texts of the sides that are seen.
  QStringList Names() const;

  QSize sizeHint() const override;

 signals:
  void Entered();  ///< the cursor came from the equipment
  /// `toward` leads to the eye.
  void DirectionChosen(const geometry::Vector3d& toward);

 protected:
  void paintEvent(QPaintEvent*) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent*) override {}      ///< not one of the equipment
  void mouseDoubleClickEvent(QMouseEvent*) override {}  ///< the same: the first press has acted
  void mouseMoveEvent(QMouseEvent* event) override;
  void enterEvent(QEnterEvent*) override;
  void leaveEvent(QEvent*) override;

 private:
  /// A side or a corner that is seen.
  struct Part {
    geometry::Vector3d direction;
    QPolygonF outline;
    QPointF middle;
    QString name;  ///< empty: a corner
    QString tip = {};
  };

  void MakeParts();
  void AddSide(const geometry::Vector3d& side, const geometry::Vector3d& up, const QString& text);
  QPointF Place(const geometry::Vector3d& point) const;
  const Part* PartAt(const QPointF& place) const;
  void PaintSide(QPainter& painter, const Part& part) const;

  const Texts& texts_;
  scene::Look look_;
  std::vector<Part> parts_;  ///< the corners after the sides, which they are over
  std::optional<geometry::Vector3d> hovered_;
};

}  // namespace vanzet::window
