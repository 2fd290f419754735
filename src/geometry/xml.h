#pragma once

#include "geometry/kurveex.h"

/// Geometry in a small dialect of XML, docs/formats/geometry-xml.md. Writer and reader are not symmetric:
/// several things that can be written cannot be read back. Tools rely on both as they are.
namespace geometry {

/// Writes elements, attributes and geometry to a file.
///
/// Order   `startElement`, its attributes, its children or text, `endElement`
/// Units   coordinates and lengths are multiplied by `scale`; directions and counts are not
/// Text    is written as it is; the caller escapes quotes and angle brackets
/// Errors  a message reports a file that cannot be opened; the writer then writes nothing. Unbalanced
///         elements throw
class XmlWriter {
 public:
  /// With `toMillimetres` the scale is 1000 while metres are the unit.
  explicit XmlWriter(const std::wstring& path, bool toMillimetres = false);
  /// Writes to a stream of bytes, which has to outlive the writer.
  explicit XmlWriter(std::ostream& bytes, bool toMillimetres = false);
  /// Closes the file, then throws L"Unmatched startElement/endElement - data still in list" if an element is
  /// open. It does not throw while another exception is on its way.
  ~XmlWriter() noexcept(false);
  XmlWriter(const XmlWriter&) = delete;
  XmlWriter& operator=(const XmlWriter&) = delete;

  bool IsOpen() const;
  /// Whether everything written so far has reached the file. False when no file is open.
  bool Flush();

  double scale = 1.0;
  bool tagClosed = true;  ///< whether the last start tag has its ">"

  void startElement(const std::wstring& name);
  /// Throws L"Element not started or unmatched startElement/endElement".
  void endElement();
  void Attribute(const wchar_t* name, int v);
  void Attribute(const wchar_t* name, bool v);  ///< "TRUE" or "FALSE"
  void Attribute(const wchar_t* name, double v, bool scaled = false);
  void Attribute(const wchar_t* name, const wchar_t* v);
  void Comment(const std::wstring& text);
  void Raw(const std::wstring& text);

  /// Writes the unit, inches also for metres, and the tolerance without a scale.
  void WriteSystem();
  void Write(const wchar_t* name, const Point& p);
  void Write(const wchar_t* name, const Point3d& p);
  void Write(const wchar_t* name, const Vector2d& v);
  void Write(const wchar_t* name, const Vector3d& v);
  void Write(const wchar_t* name, const CLine& s);
  void Write(const wchar_t* name, const Circle& c);
  void Write(const wchar_t* elementName, const Matrix& m);
  void Write(const wchar_t* name, const Kurve& k);
  void Write(const wchar_t* name, const KurveEx& k);
  void Write(const wchar_t* name, const spVertex& v);
  /// Radius and length come after the children, outside of any tag.
  void Write(const wchar_t* name, const Span& s);

 private:
  struct State;

  void CloseTag();

  std::unique_ptr<State> state;
};

/// Finds tags and attributes by scanning forwards; it does not parse.
///
/// Scanning  a name is searched from the position on, up to the end of the line, and what is in between is
///           skipped. When it is not found, the position goes back to one character before where the search
///           began
/// Units     values that are scaled are multiplied by `scale`, which `ReadSystem` sets
/// Errors    a message reports a file that cannot be opened or has more than 256 MB; every reading then
///           returns false. A reading returns false at the first element that is missing, and never throws.
///           Text that is not a number is 0
class XmlReader {
 public:
  explicit XmlReader(const std::wstring& path);
  /// Reads from bytes; the whole stream is read at once.
  explicit XmlReader(std::istream& bytes);
  ~XmlReader();
  XmlReader(const XmlReader&) = delete;
  XmlReader& operator=(const XmlReader&) = delete;

  bool IsOpen() const;
  bool AtEnd() const;
  /// The line of the position, from 1.
  int Line() const;
  /// Moves before the next tag, or to the end, and returns whether the tag has exactly that name.
  bool NextTagIs(std::wstring_view name);

  double scale = 1.0;

  /// Moves after the next tag and returns whether it has that name. "KURVE" is also found in "KURVEEX", and
  /// "POINT" in "MIDPOINT".
  bool FindTag(const wchar_t* name);
  /// Moves after the next ">" that follows a "/".
  bool EndElement();
  bool Attribute(const wchar_t* name, std::wstring& v);
  bool Attribute(const wchar_t* name, int& v);
  bool Attribute(const wchar_t* name, bool& v);  ///< true for "TRUE" only
  bool Attribute(const wchar_t* name, double& v, bool scaled);

  /// Sets `scale`, `TOLERANCE` and `CLOSED_TOLERANCE`. Returns false, with all of them as they were, when the
  /// element is missing, its unit is unknown, or its tolerance is not a number above 0.
  bool ReadSystem();
  bool Read(std::wstring& name, Point& p);
  /// A matrix in the form of the writer is skipped; the contour then has the identity.
  bool Read(std::wstring& name, Kurve& k);
  bool Read(std::wstring& name, spVertex& v);  ///< its ID is 0
  /// Reads an empty contour: its spans are not read.
  bool Read(std::wstring& name, KurveEx& k);
  bool Read(std::wstring& name, Span& s);  ///< its ID is 0

 private:
  struct State;

  bool Match(std::wstring_view wanted);
  bool ReadVertexHead(std::wstring& name, const wchar_t* tag, std::int32_t& type);
  void ReadMatrix(Matrix& m);

  std::unique_ptr<State> state;
};

/// Writes a single element for debugging: all its members as attributes, or ok="false". Numbers have the
/// digits of the stream's precision.
std::wostream& WriteDebug(std::wostream& os, const wchar_t* name, const Circle& c);
std::wostream& WriteDebug(std::wostream& os, const wchar_t* name, const CLine& s);

}  // namespace geometry
