#pragma once

#include <QWidget>
#include <memory>
#include <optional>
#include <set>
#include <string>

#include "base/length_unit.h"
#include "drawing/shown.h"
#include "window/definition_words.h"
#include "window/views/measure.h"
#include "window/views/section_painter.h"
#include "window/views/snap.h"
#include "window/views/view_frame.h"

namespace vanzet::window {

/// Shows the display window of a drawing: vectors at every scale, zoomed at the cursor by the wheel, moved by
/// dragging, fitted by a double click. While a pick is asked for, a click answers.
class DrawingView final : public QWidget {
  Q_OBJECT
 public:
  enum class Picking { kNone, kPosition, kFigure };

  explicit DrawingView(QWidget* parent = nullptr);

  /// Shows a drawing. The first one that is not empty is fitted.
  void Show(const drawing::Drawing& drawing);
  void Hide(const std::string& layer, bool isHidden);

  /// Shows the half section of the equipment below the drawing, null for none; positions snap to it.
  void ShowSection(std::shared_ptr<const ShownSection> section);
  void SetSectionVisible(bool isVisible);

  /// Hides a part of the section, also in sections that are shown later.
  void HidePart(const std::string& part, bool isHidden);

  /// The visible section, without hidden parts; null for none.
  const ShownSection* section() const { return isSectionVisible_ ? section_.get() : nullptr; }

  /// All parts of the section, the hidden ones too; none while it is not shown.
  std::vector<SectionPart> parts() const;

  /// Marks the body of that name in the section; empty: none.
  void Mark(const QString& body);

  /// The same of a body that stays marked while none is pointed at.
  void Select(const QString& body);
  void NameBodiesBy(BodyNamer namer) { nameOfBody_ = std::move(namer); }

  /// Marks bodies of the section and puts a ring about a place, which comes into the middle of the view,
  /// until others are pointed at; none: nothing is marked.
  void PointOut(const std::optional<geometry::Point>& place, const QStringList& bodies);
  const std::optional<geometry::Point>& pointedAt() const { return pointedAt_; }
  void Fit();
  void Ask(Picking picking);
  void SetUnit(LengthUnit unit) { unit_ = unit, update(); }  ///< of the grid, the ruler and rounded picks
  void SetMeasuring(bool isOn);                              ///< clicks measure while nothing is asked for
  const Measure& measure() const { return measure_; }
  void SnapToGrid(bool isOn) { isOnGrid_ = isOn, update(); }
  void SetHint(const QString& hint) { hint_ = hint, update(); }  ///< shown while there is nothing to see

  const ViewFrame& frame() const { return frame_; }
  const std::optional<Snap>& snap() const { return snap_; }
  QSize sizeHint() const override { return {640, 320}; }

 signals:
  void PartsChanged();
  /// The cursor is at that place; while a position is asked for, at the one that a click there picks.
  void CursorMoved(double x, double y);
  void CursorLeft();
  void PositionPicked(double x, double y);
  void FigurePicked(const QString& name);
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

 private:
  void SelectShown();
  void SelectParts();
  void Hover(const QPointF& place);
  bool WantsPosition() const;
  void PaintMeasured(QPainter& painter) const;
  std::set<std::string> MarkedBodies() const;
  void HoverBody(const QPointF& place);
  QString BodyAt(const QPointF& place) const;
  const QString& MarkedBody() const;
  geometry::Box BoxOfAll() const;
  geometry::Box WithDimensions(geometry::Box box, double scale) const;
  void FitDimensions();
  void AnswerPick();
  geometry::Point PickAt(const QPointF& place) const;
  std::string FigureAt(const QPointF& place) const;

  drawing::ShownLayers all_, shown_;
  std::set<std::string> hidden_;
  std::shared_ptr<const ShownSection> whole_, section_;  ///< with and without hidden parts
  std::set<std::string> hiddenParts_;
  bool isSectionVisible_ = true;
  QString hoveredBody_, marked_, selected_;
  QStringList pointedBodies_;
  std::optional<geometry::Point> pointedAt_;
  BodyNamer nameOfBody_ = [](const QString& name) { return name; };
  SnapPlaces places_;
  ViewFrame frame_;
  bool isFitted_ = true;  ///< until the user moves or zooms
  Picking picking_ = Picking::kNone;
  LengthUnit unit_ = LengthUnit::kMillimetre;
  bool isOnGrid_ = false;
  bool isMeasuring_ = false;
  Measure measure_;
  std::optional<Snap> snap_;
  std::string hovered_;  ///< figure
  QPointF cursor_, pressed_;
  bool hasMoved_ = false;
  QString hint_;
};

}  // namespace vanzet::window
