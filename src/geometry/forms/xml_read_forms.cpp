#include <cmath>

#include "geometry/xml.h"

/// What is read out of the elements. Writer and reader disagree in places, see xml.h; that is the format.
namespace geometry {
namespace {

struct UnitRow {
  const wchar_t* name;
  double millimetres, inches, metres;  ///< the factor into the library's unit
};

// clang-format off
constexpr UnitRow kUnits[] = {
    // in the file    to mm            to inches  to metres
    {L"mm",          1.0, 0.03937007874015748,  0.001 },
    {L"inches",     25.4,                 1.0,  0.0254},
    {L"metres",   1000.0,   39.37007874015748,  1.0   },
};
// clang-format on

double FactorOf(const UnitRow& row) {
  if (Units == 0) return row.millimetres;
  return Units == 1 ? row.inches : row.metres;
}

std::int32_t TypeOf(const std::wstring& text) {
  if (text == L"LINEAR") return LINEAR;
  return text == L"CW" ? CW : ACW;
}

}  // namespace

bool XmlReader::ReadSystem() {
  std::wstring unit;
  double tolerance = 0;
  if (!FindTag(L"SYSTEM") || !Attribute(L"UNITS", unit) || !Attribute(L"TOLERANCE", tolerance, true)) {
    return false;
  }
  for (const UnitRow& row : kUnits) {
    if (unit != row.name) continue;
    // Within one unit the factor is 1, so that the tolerance stays as it was read.
    const double factor = FactorOf(row);
    if (!(tolerance * factor > 0) || !std::isfinite(tolerance * factor)) return false;
    scale = factor;
    TOLERANCE = tolerance * factor;
    CLOSED_TOLERANCE = TOLERANCE * 10.0;
    EndElement();
    return true;
  }
  return false;
}

bool XmlReader::Read(std::wstring& name, Point& p) {
  p.ok = false;
  if (FindTag(L"POINT")) {
    Attribute(L"name", name);
    const bool hasX = Attribute(L"x", p.x, true);
    const bool hasY = Attribute(L"y", p.y, true);
    p.ok = hasX && hasY;
  }
  EndElement();
  return p.ok;
}

bool XmlReader::Read(std::wstring& name, Kurve& k) {
  k = Kurve();
  int vertices = 0;
  if (!FindTag(L"KURVE") || !Attribute(L"name", name) || !Attribute(L"nVertices", vertices)) return false;
  if (FindTag(L"MATRIX")) ReadMatrix(k);
  for (int i = 0; i < vertices; ++i) {
    std::wstring vertexName;
    spVertex v;
    if (!Read(vertexName, v)) return false;
    k.Add(v, true);
  }
  EndElement();
  return true;
}

/// The elements "M0" to "M11", as an older writer named them. What the present one writes begins with
/// "UnitMatrix" and is passed over, so that a contour loses its matrix on the way through a file.
void XmlReader::ReadMatrix(Matrix& m) {
  constexpr int kElements = 12;
  std::wstring unitMatrix;
  if (Attribute(L"UnitMatrix", unitMatrix)) return;
  for (int i = 0; i < kElements; ++i) Attribute((L"M" + std::to_wstring(i)).c_str(), m.e[i], false);
  EndElement();
  m.IsUnit();
  m.IsMirrored();
}

/// What vertices and spans begin with. The ID has to be there and is not used.
bool XmlReader::ReadVertexHead(std::wstring& name, const wchar_t* tag, std::int32_t& type) {
  std::wstring ID;
  std::wstring typeText;
  if (!FindTag(tag) || !Attribute(L"name", name) || !Attribute(L"ID", ID) || !Attribute(L"type", typeText)) {
    return false;
  }
  type = TypeOf(typeText);
  return true;
}

bool XmlReader::Read(std::wstring& name, spVertex& v) {
  v = spVertex();
  v.ID = 0;
  std::wstring pointName;
  if (!ReadVertexHead(name, L"SPVERTEX", v.type) || !Read(pointName, v.p)) return false;
  if (v.type != LINEAR && !Read(pointName, v.pc)) return false;
  EndElement();
  return true;
}

bool XmlReader::Read(std::wstring& name, KurveEx& k) {
  k.Clear();
  int vertices = 0;
  if (!FindTag(L"KURVEEX") || !Attribute(L"name", name) || !Attribute(L"nVertices", vertices)) return false;
  // As many spans are read as the contour has already, and that is none: this ends in the first child.
  EndElement();
  return true;
}

bool XmlReader::Read(std::wstring& name, Span& s) {
  s = Span();
  s.ID = 0;
  std::wstring pointName;
  if (!ReadVertexHead(name, L"SPAN", s.dir) || !Read(pointName, s.p0) || !Read(pointName, s.p1)) return false;
  double told = 0;  // they follow from the points
  if (s.dir != LINEAR) {
    if (!Read(pointName, s.pc)) return false;
    Attribute(L"radius", told, true);
  }
  Attribute(L"length", told, true);
  EndElement();
  try {
    s.SetProperties();
  } catch (const wchar_t*) {
    return false;  // an arc with its centre amiss
  }
  return true;
}

}  // namespace geometry
