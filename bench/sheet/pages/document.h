#pragma once

#include <QTextCursor>
#include <QTextDocument>
#include <vector>

#include "sheet/pages/picture_object.h"
#include "sheet/sheet.h"

namespace vanzet::sheet {

/// A sheet as a text document with the pages of a device.
///
/// Owns   its text; the sheet and the device have to live as long
/// Units  those of the device
class Document {
 public:
  Document(const Sheet& sheet, QPaintDevice& device, double unitsOfMillimetre);

  int Pages() const { return document_.pageCount(); }

  /// Draws a page, from 1, with its footer. The painter's origin is the corner of the paper.
  void Draw(QPainter& painter, int page);

 private:
  /// A heading and what has to be on its page.
  struct Group {
    int first, last;  ///< positions in the text
  };

  void Add(const Heading& heading);
  void Add(const Paragraph& paragraph);
  void Add(const Table& table);
  void Add(const Picture& picture);
  void Add(const Beside& beside);
  void Add(const Space& space);
  static void AddTable(const Table& table, QTextCursor cursor);
  void AddLine(const QString& text, double points, bool isBold, double above);

  /// Has each heading on the page of what follows it, and does not break what fits on one page.
  void KeepTogether();
  int PageAt(double y) const;
  double Height() const { return document_.pageSize().height(); }

  /// The extents of all paragraphs of a group.
  QRectF FrameOf(const Group& group) const;

  const Sheet& sheet_;
  double units_;
  QTextDocument document_;
  PictureObject pictures_;
  QTextCursor cursor_;
  std::vector<Group> groups_;
};

}  // namespace vanzet::sheet
