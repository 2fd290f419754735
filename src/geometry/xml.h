#pragma once

#include "geometry/kurveex.h"

/// Geometry in a small dialect of XML, docs/formats/geometry-xml.md. Writer and reader are not symmetric:
/// several things that can be written cannot be read back, and tools rely on what they are.
namespace geometry {

/// Writes elements, attributes and geometry to a file.
///
/// Order   `startElement`, its attributes, its children or text, `endElement`
/// Units   coordinates and lengths are multiplied by `scale`; directions and counts are not
/// Text    goes to the file as it is: quotes and angle brackets in it are the caller's affair
/// Errors  a file that cannot be opened is told by a message; the writer then writes nowhere.
///         Unbalanced elements throw
class XmlWriter {
 public:
  /// With `toMillimetres` the scale is 1000 while metres are the unit.
  explicit XmlWriter(const std::wstring& path, bool toMillimetres = false);
  /// The same to a stream of bytes, which has to outlive the writer.
  explicit XmlWriter(std::ostream& bytes, bool toMillimetres = false);
  /// Closes the file, then throws L"Unmatched startElement/endElement - data still in list" if an element is
  /// open. It does not throw while another exception is on its way.
  ~XmlWriter() noexcept(false);
  XmlWriter(const XmlWriter&) = delete;
  XmlWriter& operator=(const XmlWriter&) = delete;

  bool IsOpen() const;
  /// Whether all that was written so far has reached the file. False when none is open.
  bool Flush();

  double scale = 1.0;
  bool tagClosed = true;  ///< the last start tag has its ">"

  void startElement(const std::wstring& name);
  /// Throws L"Element not started or unmatched startElement/endElement".
  void endElement();
  void Attribute(const wchar_t* name, int v);
  void Attribute(const wchar_t* name, bool v);  ///< "TRUE" or "FALSE"
  void Attribute(const wchar_t* name, double v, bool scaled = false);
  void Attribute(const wchar_t* name, const wchar_t* v);
  void Comment(const std::wstring& text);
  void Raw(const std::wstring& text);

  /// Tells inches also for metres, and the tolerance as it is.
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
  /// Radius and length stand behind the children, outside of any tag.
  void Write(const wchar_t* name, const Span& s);

 private:
  struct State;

  void CloseTag();

  std::unique_ptr<State> state;
};

/// Finds tags and attributes by scanning forwards; it is no parser.
///
/// Scanning  a name is looked for from the position on, up to the end of the line; what is in between is
///           passed over. When it is not there, the position goes back to one character before where the
///           search began
/// Units     values that are scaled are multiplied by `scale`, which `ReadSystem` sets
/// Errors    a file that cannot be opened, or has more than 256 MB, is told by a message; every reading then
///           is false. A reading is false at the first element that is not there; nothing throws. Text
///           that is no number is 0
class XmlReader {
 public:
  explicit XmlReader(const std::wstring& path);
  /// From bytes. What a stream holds is read at once.
  explicit XmlReader(std::istream& bytes);
  ~XmlReader();
  XmlReader(const XmlReader&) = delete;
  XmlReader& operator=(const XmlReader&) = delete;

  bool IsOpen() const;
  bool AtEnd() const;
  /// The line of the position, from 1.
  int Line() const;
  /// Goes before the next tag, or to the end when there is none; whether it has that whole name.
  bool NextTagIs(std::wstring_view name);

  double scale = 1.0;

  /// Whether the next tag has that name. "KURVE" is found in "KURVEEX" too, and "POINT" in "MIDPOINT".
  bool FindTag(const wchar_t* name);
  /// Goes behind the next ">" that follows a "/".
  bool EndElement();
  bool Attribute(const wchar_t* name, std::wstring& v);
  bool Attribute(const wchar_t* name, int& v);
  bool Attribute(const wchar_t* name, bool& v);  ///< true for "TRUE" only
  bool Attribute(const wchar_t* name, double& v, bool scaled);

  /// Sets `scale`, `TOLERANCE` and `CLOSED_TOLERANCE`. False, with all of them as they were, when the element
  /// is not there, its unit is not known, or its tolerance is not a number above 0.
  bool ReadSystem();
  bool Read(std::wstring& name, Point& p);
  /// A matrix in the form of the writer is passed over: the contour then has the identity.
  bool Read(std::wstring& name, Kurve& k);
  bool Read(std::wstring& name, spVertex& v);  ///< its ID is 0
  /// Gives an empty contour: spans are not looked for.
  bool Read(std::wstring& name, KurveEx& k);
  bool Read(std::wstring& name, Span& s);  ///< its ID is 0

 private:
  struct State;

  bool Match(std::wstring_view wanted);
  bool ReadVertexHead(std::wstring& name, const wchar_t* tag, std::int32_t& type);
  void ReadMatrix(Matrix& m);

  std::unique_ptr<State> state;
};

/// The direct form of single elements, for debugging: `x`, `y` and, when valid, what else there is; otherwise
/// ok="false". Numbers have the digits of the stream's precision.
std::wostream& WriteDebug(std::wostream& os, const wchar_t* name, const Circle& c);
std::wostream& WriteDebug(std::wostream& os, const wchar_t* name, const CLine& s);

}  // namespace geometry
