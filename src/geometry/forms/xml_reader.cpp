#include <algorithm>
#include <cmath>
#include <fstream>
#include <optional>

#include "base/numbers.h"
#include "base/path_map.h"
#include "geometry/forms/wide_text.h"
#include "geometry/xml.h"

/// Reading: scanning first, then each kind of geometry. Writer and reader disagree in places, see xml.h; that
/// is the format.
namespace geometry {
namespace {

constexpr std::size_t kMostBytes = std::size_t{256} << 20;

/// The whole content of a stream, unless it cannot be read or is too large.
std::optional<std::string> AllOf(std::istream& stream) {
  std::string bytes;
  char block[1 << 16];
  while (stream.read(block, sizeof block) || stream.gcount() > 0) {
    bytes.append(block, static_cast<std::size_t>(stream.gcount()));
    if (bytes.size() > kMostBytes) return {};
  }
  if (stream.bad() || !stream.eof()) return {};
  return bytes;
}

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

struct XmlReader::State {
  bool isOpen = false;
  std::wstring text;
  std::size_t at = 0;
  std::size_t countedTo = 0;  ///< ends of lines
  int counted = 0;

  void Take(std::istream& stream) {
    const auto bytes = AllOf(stream);
    isOpen = bytes.has_value();
    if (isOpen) text = Widen(*bytes);
    text.erase(std::remove(text.begin(), text.end(), L'\r'), text.end());
  }
  bool AtEnd() const { return at >= text.size(); }
  void Skip(wchar_t c) {
    while (!AtEnd() && text[at] == c) ++at;
  }
  /// Moves after the next such character, or to the end.
  bool Pass(wchar_t c) {
    at = std::min(text.find(c, at), text.size());
    if (AtEnd()) return false;
    ++at;
    return true;
  }
};

XmlReader::XmlReader(const std::wstring& path) : state(std::make_unique<State>()) {
  std::ifstream file(vanzet::PathMap::OfProcess().Resolve(Narrow(path)), std::ios::binary);
  if (file) state->Take(file);
  if (!state->isOpen) ShowMessage(L"Cannot open input XML file - " + path, L"XML error - ", false);
}

XmlReader::XmlReader(std::istream& bytes) : state(std::make_unique<State>()) {
  state->Take(bytes);
}

XmlReader::~XmlReader() = default;

bool XmlReader::IsOpen() const {
  return state->isOpen;
}

bool XmlReader::AtEnd() const {
  return state->AtEnd();
}

bool XmlReader::NextTagIs(std::wstring_view name) {
  State& s = *state;
  s.at = std::min(s.text.find(L'<', s.at), s.text.size());
  const std::wstring_view tag = std::wstring_view(s.text).substr(std::min(s.at + 1, s.text.size()));
  return tag.substr(0, tag.find_first_of(L" >/\n", 1)) == name;
}

int XmlReader::Line() const {
  State& s = *state;
  if (s.at < s.countedTo) {
    s.countedTo = 0;
    s.counted = 0;
  }
  const auto place = [&](std::size_t i) { return s.text.begin() + static_cast<std::ptrdiff_t>(i); };
  s.counted += static_cast<int>(std::count(place(s.countedTo), place(s.at), L'\n'));
  s.countedTo = s.at;
  return s.counted + 1;
}

/// Searches the text on this line. Ends of lines before it are skipped, since attributes may come after a
/// child.
bool XmlReader::Match(std::wstring_view wanted) {
  State& s = *state;
  const std::size_t back = s.at > 0 ? s.at - 1 : 0;
  s.Skip(L'"');
  while (!s.AtEnd() && (s.text[s.at] == L' ' || s.text[s.at] == L'\n')) ++s.at;
  std::size_t matched = 0;
  while (matched < wanted.size()) {
    if (s.AtEnd()) return false;
    const wchar_t c = s.text[s.at++];
    if (c == wanted[matched]) {
      ++matched;
    } else if (matched > 0 || c == L'\n') {
      s.at = back;
      return false;
    }
  }
  return true;
}

bool XmlReader::FindTag(const wchar_t* name) {
  return state->Pass(L'<') && Match(name);
}

bool XmlReader::EndElement() {
  return state->Pass(L'/') && state->Pass(L'>');
}

bool XmlReader::Attribute(const wchar_t* name, std::wstring& v) {
  if (!Match(std::wstring(name) + L"=\"")) return false;
  const std::size_t from = state->at;
  const bool ended = state->Pass(L'"');
  v = state->text.substr(from, state->at - from - (ended ? 1 : 0));
  return ended;
}

bool XmlReader::Attribute(const wchar_t* name, int& v) {
  std::wstring text;
  if (!Attribute(name, text)) return false;
  v = vanzet::IntegerOrZero(Narrow(text));
  return true;
}

bool XmlReader::Attribute(const wchar_t* name, bool& v) {
  std::wstring text;
  if (!Attribute(name, text)) return false;
  v = text == L"TRUE";
  return true;
}

bool XmlReader::Attribute(const wchar_t* name, double& v, bool scaled) {
  std::wstring text;
  if (!Attribute(name, text)) return false;
  v = vanzet::RealOrZero(Narrow(text)) * (scaled ? scale : 1.0);
  return true;
}

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
/// "UnitMatrix" and is skipped, so that a contour that is written and read back loses its matrix.
void XmlReader::ReadMatrix(Matrix& m) {
  constexpr int kElements = 12;
  std::wstring unitMatrix;
  if (Attribute(L"UnitMatrix", unitMatrix)) return;
  for (int i = 0; i < kElements; ++i) Attribute((L"M" + std::to_wstring(i)).c_str(), m.e[i], false);
  EndElement();
  m.IsUnit();
  m.IsMirrored();
}

/// Reads the attributes that vertices and spans begin with. The ID is required and not used.
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
  // The format reads as many spans as the contour already has, which is none; so this ends in the first
  // child.
  EndElement();
  return true;
}

bool XmlReader::Read(std::wstring& name, Span& s) {
  s = Span();
  s.ID = 0;
  std::wstring pointName;
  if (!ReadVertexHead(name, L"SPAN", s.dir) || !Read(pointName, s.p0) || !Read(pointName, s.p1)) return false;
  double unused = 0;  // radius and length follow from the points
  if (s.dir != LINEAR) {
    if (!Read(pointName, s.pc)) return false;
    Attribute(L"radius", unused, true);
  }
  Attribute(L"length", unused, true);
  EndElement();
  try {
    s.SetProperties();
  } catch (const wchar_t*) {
    return false;  // an arc with a wrong centre
  }
  return true;
}

}  // namespace geometry
