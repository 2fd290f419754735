#pragma once

#include <QImage>
#include <QTimer>
#include <QWidget>
#include <memory>

#include "scene/picture.h"
#include "window/views/measure.h"

namespace vanzet::window {

/// Shows equipment in space: turned by dragging, moved by dragging with the right or middle button or with
/// Shift, zoomed at the cursor by the wheel, fitted by a double click beside all bodies. The body under the
/// cursor is named and marked; a click selects it.
///
/// Pictures   a quick one at once, coarser when the last one took long; a smooth one follows from another
///            thread when nothing has moved for a moment
class EquipmentView final : public QWidget {
  Q_OBJECT
 public:
  explicit EquipmentView(QWidget* parent = nullptr);
  ~EquipmentView() override;

  /// Shows a scene, null for none; the first one is fitted. Fails when a body cannot be meshed.
  Result<void> Show(std::shared_ptr<const scene::Scene> scene);
  void SetHint(const QString& hint) { hint_ = hint, update(); }  ///< shown while there is nothing to see

  void LookFrom(scene::View view);
  void Fit();
  void SetPerspective(bool isPerspective);
  Result<void> SetSection(bool isSection);

  // Bodies by their names in the scene. A look stays while scenes change; a name that no scene has does
  // nothing.

  QStringList BodyNames() const;
  scene::BodyLook LookOf(const QString& body) const;
  void Hide(const QString& body, bool isHidden);
  void SetSeenThrough(const QString& body, bool isSeenThrough);

  /// Clicks measure on the bodies while no solid is asked for.
  void SetMeasuring(bool isOn);
  void SetUnit(LengthUnit unit) { unit_ = unit, update(); }
  const Measure& measure() const { return measure_; }

  /// Marks a body that is pointed at elsewhere; empty: none.
  void Mark(const QString& body);

  /// Selects a body as a click does; empty: none.
  void Select(const QString& body);
  const QString& selected() const { return selected_; }

  /// While solids are asked for, a click picks one.
  void AskForSolid(bool isAsked);

  const scene::Look& look() const { return look_; }
  bool isSection() const { return isSection_; }
  bool isSmooth() const { return isSmooth_; }
  QSize sizeHint() const override { return {640, 360}; }

 signals:
  void SolidPicked(const QString& name);
  void BodiesChanged();                     ///< there is another scene, or none
  void BodyHovered(const QString& body);    ///< empty: no body is under the cursor
  void BodySelected(const QString& body);   ///< by a click; empty: beside all bodies
  void BodyActivated(const QString& body);  ///< by a double click

 protected:
  void paintEvent(QPaintEvent*) override;
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
  void Invalidate();  ///< the picture has to be drawn again
  void DrawQuickly();
  void DrawSmoothly();
  void ShowSmooth(int generation, const QImage& picture);
  scene::DrawOptions Options() const;
  QString SolidAt(const QPointF& place) const;
  QString BodyAt(const QPointF& place) const;
  void Hover();
  void SetHovered(const QString& body);
  void PaintName(QPainter& painter) const;
  std::optional<geometry::Point3d> PointAt(const QPointF& place) const;
  void PaintMeasured(QPainter& painter) const;

  std::shared_ptr<const scene::Scene> scene_;
  std::shared_ptr<const scene::Model> model_;
  bool isSection_ = false;
  scene::Look look_;
  bool isFitted_ = true;  ///< until the user moves or zooms
  QImage picture_;
  bool isDue_ = false;  ///< the picture is out of date
  bool isSmooth_ = false;
  int generation_ = 0;      ///< counts changes, so that a smooth picture that is out of date is dropped
  double pixelMillis_ = 0;  ///< how long a million pixels took
  QTimer stillness_;
  QTimer rest_;  ///< until the cursor has stayed where it is
  scene::BodyLooks looks_;
  QString hovered_, marked_, selected_;
  bool isMeasuring_ = false;
  Measure measure_;
  LengthUnit unit_ = LengthUnit::kMillimetre;
  bool isAsked_ = false;
  QPointF cursor_, pressed_;
  bool hasMoved_ = false;
  QString hint_;
};

/// The same look at a picture that is `factor` times as large.
scene::Look ScaleLook(scene::Look look, double factor);

}  // namespace vanzet::window
