#include <algorithm>
#include <fstream>
#include <optional>

#include "base/numbers.h"
#include "base/path_map.h"
#include "geometry/forms/wide_text.h"
#include "geometry/xml.h"

/// Scanning. What is read out of the elements stands in xml_read_forms.cpp.
namespace geometry {
namespace {

constexpr std::size_t kMostBytes = std::size_t{256} << 20;

/// All of a stream; nothing when it cannot be read or has too much.
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
  /// Goes behind the next such character, or to the end.
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

/// Looks for the text on this line. The ends of lines before it are passed over, since attributes may stand
/// behind a child.
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

}  // namespace geometry
