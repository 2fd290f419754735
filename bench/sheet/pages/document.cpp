#include "sheet/pages/document.h"

#include <QAbstractTextDocumentLayout>
#include <QPainter>
#include <QTextBlock>
#include <QTextTable>
#include <algorithm>

#include "sheet/paper.h"

namespace vanzet::sheet {
namespace {

constexpr double kTitle = 16, kLarge = 13, kSmall = 11, kText = 9, kFooter = 7.5;  // points
constexpr double kFooterRoom = 6;                                                  // millimetres

const QColor kInk("#20262c"), kPale("#4a555f"), kLine("#9aa4ad"), kGround("#e8edf1");

QString TextOf(const std::string& text) {
  return QString::fromStdString(text);
}

QTextCharFormat LettersOf(double points, bool isBold) {
  QTextCharFormat format;
  format.setFontPointSize(points);
  format.setFontWeight(isBold ? QFont::Bold : QFont::Normal);
  format.setForeground(kInk);
  return format;
}

QTextTableFormat FrameOfTables() {
  QTextTableFormat format;
  format.setBorder(0);
  format.setCellPadding(3);
  format.setCellSpacing(0);
  format.setWidth(QTextLength(QTextLength::PercentageLength, 100));
  format.setHeaderRowCount(1);
  format.setBottomMargin(6);
  return format;
}

/// Each cell has a line below it.
QTextTableCellFormat FormatOfCells(bool isHeading) {
  QTextTableCellFormat format;
  format.setPadding(3);
  format.setBottomBorder(0.6);
  format.setBottomBorderBrush(kLine);
  format.setBottomBorderStyle(QTextFrameFormat::BorderStyle_Solid);
  if (isHeading) format.setBackground(kGround);
  return format;
}

/// The first column takes a third, the others share the rest.
QList<QTextLength> WidthsFor(std::size_t columns) {
  constexpr double kFirst = 34;
  QList<QTextLength> widths = {QTextLength(QTextLength::PercentageLength, kFirst)};
  for (std::size_t i = 1; i < columns; ++i)
    widths.append(
        QTextLength(QTextLength::PercentageLength, (100 - kFirst) / static_cast<double>(columns - 1)));
  return widths;
}

}  // namespace

Document::Document(const Sheet& sheet, QPaintDevice& device, double unitsOfMillimetre)
    : sheet_(sheet), units_(unitsOfMillimetre), pictures_(unitsOfMillimetre), cursor_(&document_) {
  const PaperFormat& paper = FormatOf(sheet.paper);
  document_.setDocumentMargin(0);
  document_.setUseDesignMetrics(true);
  document_.setDefaultFont(QFont("sans-serif"));
  document_.documentLayout()->registerHandler(PictureObject::kType, &pictures_);
  document_.documentLayout()->setPaintDevice(&device);
  document_.setPageSize(QSizeF(RoomOn(sheet.paper), paper.height - 2 * kPaperMargin - kFooterRoom) * units_);
  AddLine(TextOf(sheet.title), kTitle, true, 0);
  for (const Block& block : sheet.blocks) {
    std::visit([this](const auto& each) { Add(each); }, block);
  }
  KeepTogether();
}

/// A paragraph at the end. `above` is the room before it, in points.
void Document::AddLine(const QString& text, double points, bool isBold, double above) {
  cursor_.movePosition(QTextCursor::End);
  QTextBlockFormat block;
  block.setTopMargin(above);
  block.setBottomMargin(2);
  if (cursor_.position() > 0) cursor_.insertBlock();
  cursor_.setBlockFormat(block);
  cursor_.setCharFormat(LettersOf(points, isBold));
  cursor_.insertText(text);
}

void Document::Add(const Heading& heading) {
  const int first = cursor_.position() + 1;
  AddLine(TextOf(heading.text), heading.level == 2 ? kLarge : kSmall, true, heading.level == 2 ? 12 : 8);
  if (!groups_.empty() && groups_.back().last < 0) return;  // a heading below a heading
  groups_.push_back({first, -1});
}

void Document::Add(const Paragraph& paragraph) {
  AddLine(TextOf(paragraph.text), kText, false, 2);
}

void Document::Add(const Picture& picture) {
  AddLine("", kText, false, 2);
  cursor_.insertText(QString(QChar::ObjectReplacementCharacter),
                     pictures_.FormatOf(picture, RoomOn(sheet_.paper)));
  if (!groups_.empty() && groups_.back().last < 0) groups_.back().last = cursor_.position();
}

void Document::Add(const Space& space) {
  Add(space.still);
}

void Document::Add(const Table& table) {
  AddLine(TextOf(table.caption), kText, true, 6);
  const int first = cursor_.block().position();
  AddTable(table, cursor_);
  cursor_.movePosition(QTextCursor::End);
  groups_.push_back({first, cursor_.position() - 1});
}

void Document::AddTable(const Table& table, QTextCursor cursor) {
  QTextTableFormat format = FrameOfTables();
  format.setColumnWidthConstraints(WidthsFor(table.headings.size()));
  const auto rows = static_cast<int>(table.rows.size()), columns = static_cast<int>(table.headings.size());
  QTextTable* const made = cursor.insertTable(rows + 1, columns, format);
  const auto write = [&](int row, int column, const std::string& text, bool isHeading) {
    QTextTableCell cell = made->cellAt(row, column);
    cell.setFormat(FormatOfCells(isHeading));
    cell.firstCursorPosition().insertText(TextOf(text), LettersOf(kText, isHeading));
  };
  for (int column = 0; column < columns; ++column)
    write(0, column, table.headings.at(static_cast<std::size_t>(column)), true);
  for (int row = 0; row < rows; ++row) {
    const auto& cells = table.rows.at(static_cast<std::size_t>(row));
    for (std::size_t column = 0; column < cells.size(); ++column)
      write(row + 1, static_cast<int>(column), cells[column].text, false);
  }
}

/// A row of two cells without lines: the picture, and the tables.
void Document::Add(const Beside& beside) {
  constexpr double kGap = 4;  // millimetres
  const bool hasTwo = beside.picture && !beside.tables.empty();
  AddLine("", 1, false, 0);
  QTextTableFormat format;
  format.setBorder(0);
  format.setCellPadding(0);
  format.setCellSpacing(0);
  format.setWidth(QTextLength(QTextLength::PercentageLength, 100));
  const double share = beside.picture ? 100 * (beside.picture->width + kGap) / RoomOn(sheet_.paper) : 0;
  if (hasTwo)
    format.setColumnWidthConstraints({QTextLength(QTextLength::PercentageLength, share),
                                      QTextLength(QTextLength::PercentageLength, 100 - share)});
  QTextTable* const frame = cursor_.insertTable(1, hasTwo ? 2 : 1, format);
  if (beside.picture) {
    frame->cellAt(0, 0).firstCursorPosition().insertText(
        QString(QChar::ObjectReplacementCharacter),
        pictures_.FormatOf(*beside.picture, RoomOn(sheet_.paper)));
  }
  QTextCursor cell = frame->cellAt(0, hasTwo ? 1 : 0).firstCursorPosition();
  for (const Table& table : beside.tables) {
    cell = frame->cellAt(0, hasTwo ? 1 : 0).lastCursorPosition();
    cell.insertText(TextOf(table.caption), LettersOf(kText, true));
    AddTable(table, cell);
  }
  cursor_.movePosition(QTextCursor::End);
  if (!groups_.empty() && groups_.back().last < 0) groups_.back().last = cursor_.position() - 1;
}

int Document::PageAt(double y) const {
  return static_cast<int>(y / Height());
}

QRectF Document::FrameOf(const Group& group) const {
  const int last = std::max(group.first, group.last);
  QRectF frame;
  for (QTextBlock block = document_.findBlock(group.first); block.isValid() && block.position() <= last;
       block = block.next()) {
    frame |= document_.documentLayout()->blockBoundingRect(block);
  }
  return frame;
}

void Document::KeepTogether() {
  for (const Group& group : groups_) {
    const QRectF frame = FrameOf(group);
    if (PageAt(frame.top()) == PageAt(frame.bottom() - 1) || frame.height() > Height()) continue;
    const QTextBlock first = document_.findBlock(group.first);
    QTextBlockFormat format = first.blockFormat();
    format.setPageBreakPolicy(QTextFormat::PageBreak_AlwaysBefore);
    QTextCursor(first).setBlockFormat(format);
  }
}

void Document::Draw(QPainter& painter, int page) {
  const QSizeF room = document_.pageSize();
  const QRectF view(0, (page - 1) * room.height(), room.width(), room.height());
  painter.save();
  painter.translate(kPaperMargin * units_, kPaperMargin * units_ - view.top());
  QAbstractTextDocumentLayout::PaintContext context;
  context.clip = view;
  context.palette.setColor(QPalette::Text, kInk);
  painter.setClipRect(view);
  document_.documentLayout()->draw(&painter, context);
  painter.setClipping(false);
  QFont font = document_.defaultFont();
  font.setPointSizeF(kFooter);
  painter.setFont(font);
  painter.setPen(kPale);
  const QRectF footer(0, view.bottom() + 2 * units_, view.width(), (kFooterRoom - 2) * units_);
  painter.drawText(footer, Qt::AlignLeft | Qt::AlignBottom, TextOf(sheet_.footer));
  painter.drawText(footer, Qt::AlignRight | Qt::AlignBottom, QString("%1 / %2").arg(page).arg(Pages()));
  painter.restore();
}

}  // namespace vanzet::sheet
