#include "modeller/exchange/document.h"

#include <Quantity_Color.hxx>
#include <TDataStd_Name.hxx>
#include <XCAFApp_Application.hxx>
#include <XCAFDoc_ColorTool.hxx>
#include <XCAFDoc_DocumentTool.hxx>
#include <XCAFDoc_ShapeTool.hxx>
#include <algorithm>

namespace vanzet::modeller {
namespace {

constexpr double kMillimetre = 0.001;  // in metres

Quantity_Color ColourOf(const Colour& colour) {
  const auto part = [](double value) { return std::clamp(value, 0.0, 1.0); };
  return {part(colour.red), part(colour.green), part(colour.blue), Quantity_TOC_sRGB};
}

}  // namespace

Handle(TDocStd_Document) DocumentOf(const std::vector<ParcelBody>& bodies) {
  Handle(TDocStd_Document) document;
  XCAFApp_Application::GetApplication()->NewDocument("BinXCAF", document);
  XCAFDoc_DocumentTool::SetLengthUnit(document, kMillimetre);
  const auto shapes = XCAFDoc_DocumentTool::ShapeTool(document->Main());
  const auto colours = XCAFDoc_DocumentTool::ColorTool(document->Main());
  for (const ParcelBody& body : bodies) {
    const TDF_Label label = shapes->AddShape(body.shape, Standard_False);
    TDataStd_Name::Set(label, TCollection_ExtendedString(body.name.c_str(), Standard_True));
    colours->SetColor(label, ColourOf(body.colour), XCAFDoc_ColorGen);
    colours->SetColor(label, ColourOf(body.colour), XCAFDoc_ColorSurf);
  }
  return document;
}

}  // namespace vanzet::modeller
