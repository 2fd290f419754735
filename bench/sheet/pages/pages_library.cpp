#include "sheet/pages_library.h"

#include <QBuffer>
#include <QHashFunctions>
#include <QPainter>
#include <QPdfWriter>
#include <QSvgGenerator>
#include <algorithm>

#include "results/font_use.h"
#include "sheet/pages/document.h"
#include "sheet/paper.h"

namespace vanzet::sheet {
namespace {

constexpr double kUnits = 50;      // of the devices, in a millimetre
constexpr int kResolution = 1270;  // the same, in an inch
constexpr const char* kCreator = "vanzet";

/// The order of Qt's hash tables is another one in each process, unless it is fixed: that of the fonts in a
/// PDF file.
class FixedOrder {
 public:
  FixedOrder() { QHashSeed::setDeterministicGlobalSeed(); }
  ~FixedOrder() { QHashSeed::resetRandomGlobalSeed(); }
  FixedOrder(const FixedOrder&) = delete;
  FixedOrder& operator=(const FixedOrder&) = delete;
};

/// The writer puts the time of the writing into the file. That of the generation takes its place, so that the
/// same project gives the same bytes; the file stays as long as it was, as its table of places demands.
void PutTime(std::string time, std::string& pdf) {
  constexpr std::string_view kKey = "/CreationDate (D:";
  constexpr std::size_t kDigits = 14;
  const auto at = pdf.find(kKey);
  if (at == std::string::npos) return;
  std::erase_if(time, [](char c) { return c < '0' || c > '9'; });
  if (time.size() != kDigits) time = "19700101000000";
  const auto from = at + kKey.size(), end = pdf.find(')', from);
  const std::string zone = end - from - kDigits == 1 ? "Z" : "+00'00'";
  pdf.replace(from, end - from, (time + zone).substr(0, end - from));
}

Result<std::string> PdfOfSheet(const Sheet& sheet) {
  const FixedOrder order;
  const results::FontUse fonts;
  const PaperFormat& paper = FormatOf(sheet.paper);
  QBuffer bytes;
  bytes.open(QIODevice::WriteOnly);
  {
    QPdfWriter writer(&bytes);
    writer.setResolution(kResolution);
    writer.setPageSize(QPageSize(QSizeF(paper.width, paper.height), QPageSize::Millimeter));
    writer.setPageMargins(QMarginsF());
    writer.setTitle(QString::fromStdString(sheet.title));
    writer.setCreator(kCreator);
    Document document(sheet, writer, kUnits);
    QPainter painter(&writer);
    for (int page = 1; page <= document.Pages(); ++page) {
      if (page > 1) writer.newPage();
      document.Draw(painter, page);
    }
  }
  std::string pdf = bytes.data().toStdString();
  PutTime(sheet.time, pdf);
  return pdf;
}

Result<std::string> FirstPageOfSheet(const Sheet& sheet) {
  const FixedOrder order;
  const results::FontUse fonts;
  const PaperFormat& paper = FormatOf(sheet.paper);
  const QSizeF size(paper.width, paper.height);
  QBuffer bytes;
  bytes.open(QIODevice::WriteOnly);
  QSvgGenerator svg;
  svg.setOutputDevice(&bytes);
  svg.setResolution(kResolution);
  svg.setSize((size * kUnits).toSize());
  svg.setViewBox(QRectF(QPointF(), size));
  svg.setTitle(QString::fromStdString(sheet.title));
  Document document(sheet, svg, kUnits);
  QPainter painter(&svg);
  painter.scale(1 / kUnits, 1 / kUnits);
  document.Draw(painter, 1);
  painter.end();
  return bytes.data().toStdString();
}

}  // namespace
}  // namespace vanzet::sheet

/// The only function of the library that others see.
extern "C" const void* vanzetPages() {
  using namespace vanzet::sheet;
  static const PagesLibrary library{.pdf = PdfOfSheet, .firstPage = FirstPageOfSheet};
  return &library;
}
