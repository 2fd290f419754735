#pragma once

#include <QPainter>
#include <QPalette>
#include <memory>
#include <set>
#include <vector>

#include "section/layout.h"
#include "window/views/view_frame.h"

namespace vanzet::window {

/// A half section as the drawing shows it: its contours made once, its texts.
struct ShownSection {
  section::Section section;
  section::SectionTexts texts;
  std::vector<std::vector<geometry::Kurve>> contours;  ///< of each body
  std::vector<bool> isPale;                            ///< of each body: it is not stored yet
};

/// Prepares a section for painting. Bodies with these names are pale.
std::shared_ptr<const ShownSection> ShownOf(section::Section section, section::SectionTexts texts,
                                            const std::vector<std::string>& paleBodies = {});

// The names of the parts of a section that are not bodies.
inline constexpr const char *kDatumPart = "datum", *kDimensionPart = "dimensions";

/// The part that a body is: itself, also while it is not stored yet.
std::string PartOf(const std::string& body);

/// A part of a section that can be hidden.
struct SectionPart {
  std::string name;
  QColor colour;  ///< as on white paper
};

/// The parts of a section, in the order in which they are painted.
std::vector<SectionPart> PartsOf(const ShownSection& shown);

/// The section without some of its parts. Dimensions stay, also those of a hidden body.
std::shared_ptr<const ShownSection> Without(const std::set<std::string>& parts, const ShownSection& shown);

/// The height of the lines of dimensions, in millimetres of a section that is painted at that scale.
double TextHeight(const QFont& font, double scale);

/// The contours of all bodies, for picks.
std::vector<geometry::Kurve> ContoursOf(const ShownSection& shown);

/// Paints sections of a set-up: bodies below a drawing, dimensions above it.
class SectionPainter {
 public:
  SectionPainter(QPainter& painter, const ViewFrame& frame, const QSizeF& size, const QPalette& palette);

  void PaintBodies(const ShownSection& shown, const std::set<std::string>& marked);

  /// Those whose text would be cut by the lower edge are left out, and their number is painted there: "+2".
  /// Returns that number.
  int PaintDimensions(const ShownSection& shown);

 private:
  void PaintBody(const ShownSection& shown, std::size_t body, bool isMarked);
  void PaintLines(const section::DimensionLines& lines, const QColor& colour);
  void PaintLabel(const section::Label& label, double height, const QColor& colour);
  void PaintCount(int count, const QColor& colour);

  QPainter& painter_;
  const ViewFrame& frame_;
  QSizeF size_;
  QRectF seen_;
  const QPalette& palette_;
};

/// The body of a section at a place of the plane; the one that is painted last. Null without one.
const section::SectionBody* BodyAt(const ShownSection& shown, const geometry::Point& place);

}  // namespace vanzet::window
