#include "modeller/exchange/write_file.h"

#include <Interface_Static.hxx>
#include <RWGltf_CafWriter.hxx>
#include <STEPCAFControl_Writer.hxx>
#include <STEPControl_Controller.hxx>
#include <TColStd_IndexedDataMapOfStringString.hxx>

#include "modeller/exchange/document.h"
#include "modeller/exchange/facet_shell.h"
#include "modeller/exchange/process.h"
#include "modeller/facets.h"

namespace vanzet::modeller {
namespace {

namespace fs = std::filesystem;

constexpr double kMillimetre = 0.001;  // in metres

}  // namespace

Result<void> WriteStep(std::vector<ParcelBody> bodies, const fs::path& file) {
  for (ParcelBody& body : bodies) {
    if (HasFacetsOnly(body.shape)) body.shape = FacetShell(body.shape);
  }
  // A writer takes what is set when it is made.
  STEPControl_Controller::Init();
  Interface_Static::SetCVal("write.step.unit", "MM");
  STEPCAFControl_Writer writer;
  writer.SetNameMode(Standard_True);
  writer.SetColorMode(Standard_True);
  const bool isDone = writer.Transfer(DocumentOf(bodies), STEPControl_AsIs) == Standard_True &&
                      writer.Write(file.c_str()) == IFSelect_RetDone;
  if (!isDone) return Fault{"Open CASCADE could not write it" + FirstComplaint()};
  return {};
}

Result<void> WriteGltf(const std::vector<ParcelBody>& bodies, const fs::path& file,
                       const MeshTolerance& tolerance) {
  for (const ParcelBody& body : bodies) {
    if (!HasFacetsOnly(body.shape)) Triangulate(body.shape, tolerance);
  }
  RWGltf_CafWriter writer(file.c_str(), Standard_True);
  writer.ChangeCoordinateSystemConverter().SetInputLengthUnit(kMillimetre);
  writer.ChangeCoordinateSystemConverter().SetInputCoordinateSystem(RWMesh_CoordinateSystem_Zup);
  if (!writer.Perform(DocumentOf(bodies), {}, Message_ProgressRange())) {
    return Fault{"Open CASCADE could not write it" + FirstComplaint()};
  }
  return {};
}

}  // namespace vanzet::modeller
