#pragma once

#include <QTimer>
#include <QWidget>
#include <memory>

#include "window/definition_words.h"
#include "window/views/body_canvas.h"
#include "window/views/measure.h"
#include "window/views/mouse_style.h"

namespace vanzet::window {

/// Shows equipment in space: turned and moved by dragging, by the buttons of the mouse style, zoomed at the
/// cursor by the wheel, fitted by a double click beside all bodies. The body under the
/// cursor is named and marked; a click selects it.
///
/// The bodies are drawn by a canvas that fills the view, by OpenGL or by the painter.
class EquipmentView final : public QWidget {
  Q_OBJECT
 public:
  enum class By { kPainter, kOpenGl };

  explicit EquipmentView(By by, QWidget* parent = nullptr);

  /// Shows a scene, null for none; the first one is fitted. Fails when a body cannot be meshed.
  Result<void> Show(std::shared_ptr<const scene::Scene> scene);
  void SetHint(const QString& hint) { hint_ = hint, Repaint(); }  ///< shown while there is nothing to see
  const QString& hint() const { return hint_; }

  void LookFrom(scene::View view);
  void LookFrom(const geometry::Vector3d& toward);  ///< `toward` leads to the eye
  void Fit();
  void SetPerspective(bool isPerspective);
  void SetMouseStyle(MouseStyle style) { mouseStyle_ = style; }
  MouseStyle mouseStyle() const { return mouseStyle_; }

  /// Cuts everything open by a plane, that through the axis at first.
  void SetSection(bool isSection);
  void SetSectionPlane(const scene::Plane& plane);
  bool isSection() const { return isSection_; }

  /// How far the bodies reach along a direction, before and behind the origin; 0 without bodies.
  std::pair<double, double> ExtentAlong(const geometry::Vector3d& direction) const;

  // Bodies by their names in the scene. A look stays while scenes change; a name that no scene has does
  // nothing.

  QStringList BodyNames() const;
  void NameBodiesBy(BodyNamer namer) { nameOfBody_ = std::move(namer), Repaint(); }
  scene::BodyLook LookOf(const QString& body) const;
  void Hide(const QString& body, bool isHidden);
  void SetSeenThrough(const QString& body, bool isSeenThrough);

  /// Clicks measure on the bodies while no solid is asked for.
  void SetMeasuring(bool isOn);
  void SetUnit(LengthUnit unit) { unit_ = unit, Repaint(); }
  const Measure& measure() const { return measure_; }

  /// The cursor is over something that covers the bodies.
  void LeaveBodies();

  /// Keeps the names of bodies out of a part of the view that something covers.
  void KeepFree(const QRect& covered) { covered_ = covered; }

  /// Marks a body that is pointed at elsewhere; empty: none.
  void Mark(const QString& body);

  /// Marks bodies and has them fill the view, with a ring at a place, until others are pointed at; none:
  /// nothing is marked.
  void PointOut(const std::optional<geometry::Point3d>& place, const QStringList& bodies);
  /// The middle of the ring in the view; nothing without a ring.
  std::optional<QPointF> PointedPlace() const;
  const QStringList& pointedAt() const { return pointedAt_; }

  /// Selects a body as a click does; empty: none.
  void Select(const QString& body);
  const QString& selected() const { return selected_; }

  /// While solids are asked for, a click picks one.
  void AskForSolid(bool isAsked);

  const scene::Look& look() const { return look_; }
  /// The bodies as they are drawn, with the section; null without a scene.
  const std::shared_ptr<const scene::Model>& model() const { return model_; }
  /// The bodies as they are drawn while something moves: with fewer facets where they have very many.
  const std::shared_ptr<const scene::Model>& coarseModel() const { return coarse_; }
  bool isSmooth() const { return canvas_->isSmooth(); }
  QSize sizeHint() const override { return {640, 360}; }

 signals:
  void SolidPicked(const QString& name);
  void SectionSwitched(bool isOn);
  void LookChanged();                       ///< the equipment is seen from elsewhere
  void BodiesChanged();                     ///< there is another scene, or none
  void BodyHovered(const QString& body);    ///< empty: no body is under the cursor
  void BodySelected(const QString& body);   ///< by a click; empty: beside all bodies
  void BodyActivated(const QString& body);  ///< by a double click

 protected:
  void resizeEvent(QResizeEvent*) override;
  void wheelEvent(QWheelEvent*) override;
  void mousePressEvent(QMouseEvent*) override;
  void mouseMoveEvent(QMouseEvent*) override;
  void mouseReleaseEvent(QMouseEvent*) override;
  void mouseDoubleClickEvent(QMouseEvent*) override;
  void leaveEvent(QEvent*) override;
  void changeEvent(QEvent*) override;

 private:
  Result<void> MakeModel();
  scene::PointSource Points() const;  ///< of the model, as long as it stays
  void CutModel();
  void Invalidate();  ///< the bodies have to be drawn again
  void Repaint();     ///< what is over the bodies has to be painted again
  void PaintOverlay(QPainter& painter);
  void Drag(DragDeed deed, const QPointF& by);
  scene::DrawOptions Options() const;
  QString SolidAt(const QPointF& place) const;
  QString BodyAt(const QPointF& place) const;
  void Hover();
  void SetHovered(const QString& body);
  void PaintName(QPainter& painter) const;
  std::optional<geometry::Point3d> PointAt(const QPointF& place) const;
  void PaintMeasured(QPainter& painter) const;

  std::shared_ptr<const scene::Scene> scene_;
  std::shared_ptr<const scene::Model> whole_, model_;         ///< without and with the section
  std::shared_ptr<const scene::Model> coarseWhole_, coarse_;  ///< the same for what is drawn in motion
  bool isSection_ = false;
  scene::Plane plane_;
  MouseStyle mouseStyle_ = MouseStyle::kLeftTurns;
  scene::Look look_;
  bool isFitted_ = true;  ///< until the user moves or zooms
  BodyCanvas* canvas_;
  QTimer rest_;  ///< until the cursor has stayed where it is
  scene::BodyLooks looks_;
  QString hovered_, marked_, selected_;
  std::optional<geometry::Point3d> pointedPlace_;
  QStringList pointedAt_;
  BodyNamer nameOfBody_ = [](const QString& name) { return name; };
  bool isMeasuring_ = false;
  Measure measure_;
  LengthUnit unit_ = LengthUnit::kMillimetre;
  bool isAsked_ = false;
  QRectF covered_;
  QPointF cursor_, pressed_;
  bool hasMoved_ = false;
  QString hint_;
};

}  // namespace vanzet::window
