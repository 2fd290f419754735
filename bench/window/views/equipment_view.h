#pragma once

#include <QImage>
#include <QTimer>
#include <QWidget>
#include <memory>

#include "scene/picture.h"

namespace vanzet::window {

/// Shows equipment in space: turned by dragging, moved by dragging with the right or middle button or with
/// Shift, zoomed at the cursor by the wheel, fitted by a double click.
///
/// Pictures   a quick one at once, coarser when the last one took long; a smooth one follows from another
///            thread when nothing has moved for a moment
class EquipmentView final : public QWidget {
  Q_OBJECT
 public:
  explicit EquipmentView(QWidget* parent = nullptr);
  ~EquipmentView() override;

  /// What is to be seen; the first equipment is fitted. A fault when a body cannot be meshed.
  Result<void> Show(std::shared_ptr<const scene::Scene> scene);
  void SetHint(const QString& hint) { hint_ = hint, update(); }  ///< told while nothing is to be seen

  void LookFrom(scene::View view);
  void Fit();
  void SetPerspective(bool isPerspective);
  Result<void> SetSection(bool isSection);

  /// While solids are asked for a click takes one.
  void AskForSolid(bool isAsked);

  const scene::Look& look() const { return look_; }
  bool isSmooth() const { return isSmooth_; }
  QSize sizeHint() const override { return {640, 360}; }

 signals:
  void SolidPicked(const QString& name);

 protected:
  void paintEvent(QPaintEvent*) override;
  void resizeEvent(QResizeEvent*) override;
  void wheelEvent(QWheelEvent*) override;
  void mousePressEvent(QMouseEvent*) override;
  void mouseMoveEvent(QMouseEvent*) override;
  void mouseReleaseEvent(QMouseEvent*) override;
  void mouseDoubleClickEvent(QMouseEvent*) override;
  void changeEvent(QEvent*) override;

 private:
  Result<void> MakeModel();
  void Changed();  ///< what is seen is another
  void DrawQuickly();
  void DrawSmoothly();
  void TakeSmooth(int generation, const QImage& picture);
  scene::DrawOptions Options() const;
  QString SolidAt(const QPointF& place) const;

  std::shared_ptr<const scene::Scene> scene_;
  std::shared_ptr<const scene::Model> model_;
  bool isSection_ = false;
  scene::Look look_;
  bool isFitted_ = true;  ///< until the user moves or zooms
  QImage picture_;
  bool isDue_ = false;  ///< the picture is not of what is to be seen
  bool isSmooth_ = false;
  int generation_ = 0;      ///< counts what was seen, so that a smooth picture of the past is let go
  double pixelMillis_ = 0;  ///< how long a million pixels took
  QTimer stillness_;
  bool isAsked_ = false;
  QPointF cursor_, pressed_;
  bool hasMoved_ = false;
  QString hint_;
};

}  // namespace vanzet::window
