#include <RWGltf_CafWriter.hxx>
#include <TColStd_IndexedDataMapOfStringString.hxx>
#include <TDF_LabelSequence.hxx>
#include <XCAFDoc_DocumentTool.hxx>
#include <XCAFDoc_ShapeTool.hxx>
#include <XCAFDoc_VisMaterial.hxx>
#include <XCAFDoc_VisMaterialTool.hxx>

#include "modeller/exchange/document.h"
#include "modeller/exchange/process.h"
#include "modeller/exchange/write_file.h"
#include "modeller/facets.h"

namespace vanzet::modeller {
namespace {

namespace fs = std::filesystem;

/// A material for viewers that draw by physics: without it they take a body for polished metal.
Handle(XCAFDoc_VisMaterial) MaterialOf(const ParcelBody& body) {
  constexpr float kRoughness = 0.6F, kSteel = 0.3F;
  XCAFDoc_VisMaterialPBR look;
  look.BaseColor = ColourOf(body.appearance);
  look.Metallic = body.appearance.isSteel ? kSteel : 0;
  look.Roughness = kRoughness;
  Handle(XCAFDoc_VisMaterial) material = new XCAFDoc_VisMaterial();
  material->SetPbrMaterial(look);
  if (body.appearance.isSeenThrough) material->SetAlphaMode(Graphic3d_AlphaMode_Blend);
  return material;
}

/// Gives each body of a document its material.
void AddMaterials(const std::vector<ParcelBody>& bodies, const Handle(TDocStd_Document) & document) {
  const auto materials = XCAFDoc_DocumentTool::VisMaterialTool(document->Main());
  TDF_LabelSequence labels;
  XCAFDoc_DocumentTool::ShapeTool(document->Main())->GetFreeShapes(labels);
  for (std::size_t i = 0; i < bodies.size(); ++i) {
    const TDF_Label made = materials->AddMaterial(MaterialOf(bodies[i]), bodies[i].name.c_str());
    materials->SetShapeMaterial(labels.Value(static_cast<int>(i) + 1), made);
  }
}

}  // namespace

Result<void> PrepareMeshes(std::vector<ParcelBody>& bodies, const MeshTolerance& tolerance) {
  for (ParcelBody& body : bodies) {
    if (HasFacetsOnly(body.shape)) continue;
    VANZET_TRY(body.shape, TriangulateSurfaces(body.shape, tolerance));
  }
  return {};
}

Result<void> WriteGltf(const std::vector<ParcelBody>& bodies, const fs::path& file) {
  RWGltf_CafWriter writer(file.c_str(), Standard_True);
  writer.ChangeCoordinateSystemConverter().SetInputLengthUnit(kMillimetre);
  writer.ChangeCoordinateSystemConverter().SetInputCoordinateSystem(RWMesh_CoordinateSystem_Yup);
  const Document document(bodies);
  AddMaterials(bodies, document.handle());
  if (!writer.Perform(document.handle(), {}, Message_ProgressRange())) {
    return Fault{"Open CASCADE could not write it" + FirstKernelMessage()};
  }
  return {};
}

}  // namespace vanzet::modeller
