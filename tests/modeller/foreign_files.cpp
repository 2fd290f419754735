#include "modeller/foreign_files.h"

#include <BRepMesh_IncrementalMesh.hxx>
#include <BRepTools.hxx>
#include <Interface_Static.hxx>
#include <STEPControl_Controller.hxx>
#include <STEPControl_Writer.hxx>
#include <Standard_CLocaleSentry.hxx>
#include <StlAPI_Writer.hxx>
#include <stdexcept>

#include "modeller/kernel.h"
#include "support/vdm_values.h"

namespace vanzet::test {
namespace {

void Expect(bool written) {
  if (!written) throw std::runtime_error("Open CASCADE could not write a file for the test");
}

}  // namespace

void WriteStep(const TopoDS_Shape& shape, const std::filesystem::path& file, const char* unit) {
  WriteStep(std::vector<TopoDS_Shape>{shape}, file, unit);
}

void WriteStep(const std::vector<TopoDS_Shape>& roots, const std::filesystem::path& file, const char* unit) {
  modeller::SilenceKernel();
  const Standard_CLocaleSentry point;
  // A writer takes the unit that is set when it is made.
  STEPControl_Controller::Init();
  Interface_Static::SetCVal("write.step.unit", unit);
  STEPControl_Writer writer;
  for (const TopoDS_Shape& root : roots) {
    Expect(writer.Transfer(root, STEPControl_AsIs) == IFSelect_RetDone);
  }
  Expect(writer.Write(file.c_str()) == IFSelect_RetDone);
}

void WriteBrep(const TopoDS_Shape& shape, const std::filesystem::path& file) {
  const Standard_CLocaleSentry point;
  Expect(BRepTools::Write(shape, file.c_str()));
}

void WriteStl(const TopoDS_Shape& shape, const std::filesystem::path& file, StlForm form) {
  const Standard_CLocaleSentry point;
  const BRepMesh_IncrementalMesh mesh(shape, 0.05);
  StlAPI_Writer writer;
  writer.ASCIIMode() = form == StlForm::kText;
  Expect(writer.Write(shape, file.c_str()));
}

modeller::Exchange TestExchange() {
  modeller::Exchange exchange = modeller::Exchange::OfProcess();
  exchange.limits.seconds = 60;
  return exchange;
}

std::string ImportFault(const std::filesystem::path& file) {
  return Told(modeller::ImportBody(file, TestExchange()));
}

}  // namespace vanzet::test
