#pragma once

#include <QWidget>
#include <memory>

#include "window/views/section_painter.h"

namespace vanzet::window {

/// A small picture of a set-up: its half section under a title, as large as there is room.
class SectionPicture final : public QWidget {
  Q_OBJECT
 public:
  explicit SectionPicture(QWidget* parent = nullptr);

  void SetTitle(const QString& title);

  /// Null: there is nothing to draw, and `hint` is shown.
  void Show(std::shared_ptr<const ShownSection> section, const QString& hint);
  const ShownSection* section() const { return section_.get(); }

  QSize sizeHint() const override { return {220, 150}; }

 protected:
  void paintEvent(QPaintEvent*) override;

 private:
  std::shared_ptr<const ShownSection> section_;
  QString title_, hint_;
};

}  // namespace vanzet::window
