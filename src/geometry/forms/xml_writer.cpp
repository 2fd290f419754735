#include <exception>
#include <fstream>
#include <ostream>

#include "base/number_text.h"
#include "base/path_map.h"
#include "geometry/forms/wide_text.h"
#include "geometry/xml.h"

/// Writing: tags, attributes and text first, then each kind of geometry as an element.
namespace geometry {

struct XmlWriter::State {
  std::ofstream file;
  std::ostream* bytes = nullptr;  ///< null when no file is open
  std::vector<std::wstring> elements;
  int exceptions = std::uncaught_exceptions();  ///< in flight when the writer was constructed

  void Put(const std::wstring& text) const {
    if (bytes != nullptr) *bytes << Narrow(text);
  }
};

namespace {

constexpr std::int32_t kMillimetres = 0, kMetres = 2;
constexpr double kMillimetresInMetre = 1000.0;

double ScaleFor(bool toMillimetres) {
  return toMillimetres && Units == kMetres ? kMillimetresInMetre : 1.0;
}

/// Only these exact values have words; the ID of a mark with a number is written as a number.
std::wstring IdText(std::uint32_t ID) {
  switch (ID) {
    case UNMARKED: return L"UNMARKED";
    case ROLL_AROUND: return L"ROLL_AROUND RADIUS";
    case INTERSECTION: return L"INTERSECTION";
    default: return std::to_wstring(static_cast<std::int32_t>(ID));
  }
}

const wchar_t* TypeText(int type) {
  if (type == LINEAR) return L"LINEAR";
  return type == CW ? L"CW" : L"ACW";
}

struct MatrixAttribute {
  const wchar_t* name;
  int element;
  bool scaled;
};

// clang-format off
constexpr MatrixAttribute kMatrixAttributes[] = {
    {L"cx - e[0]", 0, false}, {L"e[4]", 4, false}, {L"e[8]",   8, false},
    {L"cy - e[1]", 1, false}, {L"e[5]", 5, false}, {L"e[9]",   9, false},
    {L"cz - e[2]", 2, false}, {L"e[6]", 6, false}, {L"e[10]", 10, false},
    {L"Tr - e[3]", 3, true }, {L"e[7]", 7, true }, {L"e[11]", 11, true },
};
// clang-format on

/// An attribute of the debug form: the number has the precision of the stream, but not its locale.
std::wstring DebugNumber(const std::wostream& os, const wchar_t* name, double value) {
  return std::wstring(L" ") + name + L"=\"" +
         Widen(vanzet::GeneralText(value, static_cast<int>(os.precision()))) + L"\"";
}

}  // namespace

XmlWriter::XmlWriter(const std::wstring& path, bool toMillimetres)
    : scale(ScaleFor(toMillimetres)), state(std::make_unique<State>()) {
  state->file.open(vanzet::PathMap::OfProcess().Resolve(Narrow(path)), std::ios::trunc);
  if (state->file) {
    state->bytes = &state->file;
  } else {
    ShowMessage(L"Cannot open output XML file - " + path, L"XML error - ", false);
  }
}

XmlWriter::XmlWriter(std::ostream& bytes, bool toMillimetres)
    : scale(ScaleFor(toMillimetres)), state(std::make_unique<State>()) {
  state->bytes = &bytes;
}

XmlWriter::~XmlWriter() noexcept(false) {
  state->file.close();
  const bool mayThrow = std::uncaught_exceptions() == state->exceptions;
  if (mayThrow && !state->elements.empty()) {
    ThrowError(L"Unmatched startElement/endElement - data still in list", 0, 0);
  }
}

bool XmlWriter::IsOpen() const {
  return state->bytes != nullptr;
}

bool XmlWriter::Flush() {
  return IsOpen() && state->bytes->flush().good();
}

/// Ends a start tag before the content of its element.
void XmlWriter::CloseTag() {
  if (!tagClosed) state->Put(L">\n");
  tagClosed = true;
}

void XmlWriter::startElement(const std::wstring& name) {
  state->elements.push_back(name);
  CloseTag();
  state->Put(L"<" + name);
  tagClosed = false;
}

void XmlWriter::endElement() {
  if (state->elements.empty()) {
    ThrowError(L"Element not started or unmatched startElement/endElement", 0, 0);
  }
  const std::wstring name = state->elements.back();
  state->elements.pop_back();
  state->Put(tagClosed ? L"</" + name + L">\n" : L"/>\n");
  tagClosed = true;
}

void XmlWriter::Attribute(const wchar_t* name, int v) {
  Attribute(name, std::to_wstring(v).c_str());
}

void XmlWriter::Attribute(const wchar_t* name, bool v) {
  Attribute(name, v ? L"TRUE" : L"FALSE");
}

void XmlWriter::Attribute(const wchar_t* name, double v, bool scaled) {
  constexpr int kDigits = 14;
  Attribute(name, Widen(vanzet::GeneralText(scaled ? v * scale : v, kDigits)).c_str());
}

void XmlWriter::Attribute(const wchar_t* name, const wchar_t* v) {
  state->Put(std::wstring(L" ") + name + L"=\"" + v + L"\"");
}

void XmlWriter::Comment(const std::wstring& text) {
  CloseTag();
  state->Put(L"<!--" + text + L"-->\n");
}

void XmlWriter::Raw(const std::wstring& text) {
  CloseTag();
  state->Put(text);
}

void XmlWriter::WriteSystem() {
  startElement(L"SYSTEM");
  Attribute(L"UNITS", Units == kMillimetres ? L"mm" : L"inches");
  Attribute(L"TOLERANCE", TOLERANCE);
  endElement();
}

void XmlWriter::Write(const wchar_t* name, const Point& p) {
  startElement(L"POINT");
  Attribute(L"name", name);
  Attribute(L"x", p.x, true);
  Attribute(L"y", p.y, true);
  endElement();
}

void XmlWriter::Write(const wchar_t* name, const Point3d& p) {
  startElement(L"POINT3D");
  Attribute(L"name", name);
  Attribute(L"x", p.x, true);
  Attribute(L"y", p.y, true);
  Attribute(L"z", p.z, true);
  endElement();
}

void XmlWriter::Write(const wchar_t* name, const Vector2d& v) {
  startElement(L"VECTOR");
  Attribute(L"name", name);
  Attribute(L"dx", v.dx);
  Attribute(L"dy", v.dy);
  endElement();
}

void XmlWriter::Write(const wchar_t* name, const Vector3d& v) {
  startElement(L"VECTOR3D");
  Attribute(L"name", name);
  Attribute(L"dx", v.dx);
  Attribute(L"dy", v.dy);
  Attribute(L"dz", v.dz);
  endElement();
}

void XmlWriter::Write(const wchar_t* name, const CLine& s) {
  startElement(L"CLINE");
  Attribute(L"name", name);
  Attribute(L"x", s.p.x, true);
  Attribute(L"y", s.p.y, true);
  Attribute(L"dx", s.v.dx);
  Attribute(L"dy", s.v.dy);
  endElement();
}

void XmlWriter::Write(const wchar_t* name, const Circle& c) {
  startElement(L"CIRCLE");
  Attribute(L"name", name);
  Attribute(L"xc", c.pc.x, true);
  Attribute(L"yc", c.pc.y, true);
  Attribute(L"radius", c.radius, true);
  endElement();
}

void XmlWriter::Write(const wchar_t* elementName, const Matrix& m) {
  startElement(elementName);
  Attribute(L"UnitMatrix", m.unit);
  if (!m.unit) {
    Matrix checked = m;
    Attribute(L"Mirrored", checked.IsMirrored());
    for (const MatrixAttribute& row : kMatrixAttributes) Attribute(row.name, m.e[row.element], row.scaled);
  }
  endElement();
}

void XmlWriter::Write(const wchar_t* name, const Kurve& k) {
  startElement(L"KURVE");
  Attribute(L"name", name);
  // A contour without vertices counts as one with a single vertex.
  Attribute(L"nVertices", k.SpanCount() + 1);
  Write(L"MATRIX", static_cast<const Matrix&>(k));
  spVertex v;
  for (int i = 0; i < k.nVertices; ++i) {
    k.Get(i, v);
    Write(L"", v);
  }
  endElement();
}

void XmlWriter::Write(const wchar_t* name, const KurveEx& k) {
  startElement(L"KURVEEX");
  Attribute(L"name", name);
  Attribute(L"nVertices", k.SpanCount() + 1);
  Span span;
  for (int i = 1; k.Get(i, span); ++i) Write(L"", span);
  endElement();
}

void XmlWriter::Write(const wchar_t* name, const spVertex& v) {
  startElement(L"SPVERTEX");
  Attribute(L"name", name);
  Attribute(L"ID", IdText(v.ID).c_str());
  Attribute(L"type", TypeText(v.type));
  Write(L"", v.p);
  if (v.type != LINEAR) Write(L"centre", v.pc);
  endElement();
}

void XmlWriter::Write(const wchar_t* name, const Span& s) {
  startElement(L"SPAN");
  Attribute(L"name", name);
  Attribute(L"ID", IdText(s.ID).c_str());
  Attribute(L"type", TypeText(s.dir));
  Write(L"", s.p0);
  Write(L"", s.p1);
  if (s.dir != LINEAR) {
    Write(L"centre", s.pc);
    Attribute(L"radius", s.radius, true);
  }
  Attribute(L"length", s.length, true);
  endElement();
}

std::wostream& WriteDebug(std::wostream& os, const wchar_t* name, const Circle& c) {
  os << L"<CIRCLE name=\"" << name << L"\"";
  if (!c.ok) return os << L" ok=\"false\"/>\n";
  return os << DebugNumber(os, L"x", c.pc.x) << DebugNumber(os, L"y", c.pc.y)
            << DebugNumber(os, L"radius", c.radius) << L"/>\n";
}

std::wostream& WriteDebug(std::wostream& os, const wchar_t* name, const CLine& s) {
  os << L"<CLINE name=\"" << name << L"\"";
  if (!s.ok) return os << L" ok=\"false\"/>\n";
  return os << DebugNumber(os, L"x", s.p.x) << DebugNumber(os, L"y", s.p.y) << DebugNumber(os, L"dx", s.v.dx)
            << DebugNumber(os, L"dy", s.v.dy) << L"/>\n";
}

}  // namespace geometry
