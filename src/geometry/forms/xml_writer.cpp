#include <exception>
#include <fstream>

#include "base/path_map.h"
#include "geometry/forms/number_form.h"
#include "geometry/forms/wide_text.h"
#include "geometry/xml.h"

/// Tags, attributes and text. What the geometry looks like stands in xml_forms.cpp.
namespace geometry {

struct XmlWriter::State {
  std::ofstream file;
  std::ostream* bytes = nullptr;  ///< null: there is no file
  std::vector<std::wstring> elements;
  int exceptions = std::uncaught_exceptions();  ///< on their way when the writer was made

  void Put(const std::wstring& text) const {
    if (bytes != nullptr) *bytes << Narrow(text);
  }
};

namespace {

constexpr std::int32_t kMetres = 2;
constexpr double kMillimetresInMetre = 1000.0;

double ScaleFor(bool toMillimetres) {
  return toMillimetres && Units == kMetres ? kMillimetresInMetre : 1.0;
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

/// Ends a start tag before what stands between its element's tags.
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
  Attribute(name, Widen(General(scaled ? v * scale : v, kDigits)).c_str());
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

}  // namespace geometry
