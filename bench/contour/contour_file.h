#pragma once

#include <iosfwd>
#include <string>
#include <vector>

#include "base/result.h"
#include "contour/contour.h"

/// Contours in files. docs/formats/contour.md describes the text form and the drawings, geometry-xml.md and
/// geometry-text.md the forms of the geometry library.
///
/// Errors   the readers fail with the file and, where it is known, the line and the column; kMissing for a
///          file that cannot be opened, kRefused for content that is not of the form
namespace vanzet::contour {

/// Ends of pieces that are not farther apart belong together, in millimetres.
inline constexpr double kJoinTolerance = 0.001;

/// How a drawing is read.
struct DxfOptions {
  std::string layer = {};        ///< takes this layer alone, in any case of letters; empty: all layers
  double join = kJoinTolerance;  ///< joins pieces whose ends are not farther apart, in millimetres
  std::string unit = {};         ///< "mm", "inch" or "m"; empty: the drawing's own unit, or millimetres
  double tolerance = 0.001;      ///< of the arcs that splines and ellipses become, in millimetres
};

/// A line about a file that was read.
struct Remark {
  std::string text;              ///< with the name of the file
  bool isLoss = false;           ///< something was not read, or not as it is drawn
  bool isKeptByRegions = false;  ///< regions, which are made of `Contour::drawn`, do not lose it
};

/// The contours of a file.
struct DxfContent {
  Contours contours;
  std::vector<Remark> remarks = {};
  bool isDrawing = false;
};

/// Reads a file of contours. Its first bytes say of which form it is: a drawing in DXF, the library's XML or
/// the contour text form; the ending of its name, where they do not. "-" is standard input.
Result<DxfContent> ReadContourFile(const std::string& file, const DxfOptions& options);

/// Reads all contours of a text. Fails for a line that is not of the form, a contour that is cut short or has
/// no span, an arc that is not one, and a text without a contour.
Result<Contours> ReadText(std::istream& text, const std::string& name);

/// Writes the contours one after the other. They read back the same to 14 digits.
std::string TextForm(const Contours& contours);

/// Reads the contours of a drawing in DXF, as text or binary. Fails with a line, or a byte, for a file that
/// is not a drawing or is cut short, an entity that lacks a number, blocks without end, and an arc or a
/// coordinate that is not one; without a line for a drawing or a layer without a contour, and for an unknown
/// unit.
Result<DxfContent> ReadDxf(std::istream& bytes, const std::string& name, const DxfOptions& options);

/// Writes the contours as polylines of a drawing in DXF, in millimetres, all on one layer; arcs are bulges.
/// `ReadDxf` reads them back one by one, and so do programs that know release 12 of the format or a later
/// one.
std::string DxfForm(const Contours& contours, const std::string& layer);

/// The two kinds of contour in XML. Compact ones can be read back; working ones, which have lengths and
/// radii, cannot.
enum class XmlKind { kKurve, kKurveEx };

/// Writes the contours as the library's XML.
std::string XmlForm(const Contours& contours, XmlKind kind);

/// Reads the compact contours of a file in XML. Their names are their numbers; contours whose names are not
/// numbers are numbered from 1. Fails for an element that is not a contour, a contour that is cut short, an
/// arc that is not one, and an unknown unit.
Result<Contours> ReadXml(std::istream& bytes, const std::string& name);

/// The text forms of the geometry library.
enum class LibraryText { kContour, kReport, kVertices, kSpans };

/// Writes the contours one after the other in that form. The forms of source code call them contour1,
/// contour2, ...
std::string LibraryTextForm(const Contours& contours, LibraryText form);

/// Reads the contours of a file as the library does, which skips what it does not know, and numbers them from
/// 1. Fails for a path that is not a file, a contour without a span, and an arc that is not one.
Result<Contours> ReadLibraryText(const std::string& file);

}  // namespace vanzet::contour
