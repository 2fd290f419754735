#include "modeller/exchange/document.h"

#include <TDataStd_Name.hxx>
#include <XCAFApp_Application.hxx>
#include <XCAFDoc_ColorTool.hxx>
#include <XCAFDoc_DocumentTool.hxx>
#include <XCAFDoc_ShapeTool.hxx>
#include <algorithm>

namespace vanzet::modeller {
namespace {

void SetName(const TDF_Label& label, const std::string& name) {
  TDataStd_Name::Set(label, TCollection_ExtendedString(name.c_str(), Standard_True));
}

/// Adds a body to the document, and returns its label.
TDF_Label AddBody(const ParcelBody& body, const Handle(TDocStd_Document) & document) {
  const auto colours = XCAFDoc_DocumentTool::ColorTool(document->Main());
  const TDF_Label label =
      XCAFDoc_DocumentTool::ShapeTool(document->Main())->AddShape(body.shape, Standard_False);
  SetName(label, body.name);
  colours->SetColor(label, ColourOf(body.appearance), XCAFDoc_ColorGen);
  colours->SetColor(label, ColourOf(body.appearance), XCAFDoc_ColorSurf);
  return label;
}

}  // namespace

Quantity_ColorRGBA ColourOf(const Appearance& appearance) {
  const auto part = [](double value) { return std::clamp(value, 0.0, 1.0); };
  const Colour& colour = appearance.colour;
  const Quantity_Color opaque(part(colour.red), part(colour.green), part(colour.blue), Quantity_TOC_sRGB);
  return {opaque, appearance.isSeenThrough ? static_cast<float>(1 - kTransparency) : 1.0F};
}

Document::Document(const std::vector<ParcelBody>& bodies, const std::string& assembly) {
  XCAFApp_Application::GetApplication()->NewDocument("BinXCAF", handle_);
  XCAFDoc_DocumentTool::SetLengthUnit(handle_, kMillimetre);
  std::vector<TDF_Label> parts;
  parts.reserve(bodies.size());
  for (const ParcelBody& body : bodies) parts.push_back(AddBody(body, handle_));
  if (assembly.empty()) return;
  const auto shapes = XCAFDoc_DocumentTool::ShapeTool(handle_->Main());
  const TDF_Label root = shapes->NewShape();
  SetName(root, assembly);
  for (std::size_t i = 0; i < parts.size(); ++i) {
    SetName(shapes->AddComponent(root, parts[i], TopLoc_Location()), bodies[i].name);
  }
  shapes->UpdateAssemblies();
}

Document::~Document() {
  XCAFApp_Application::GetApplication()->Close(handle_);
}

}  // namespace vanzet::modeller
