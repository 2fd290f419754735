#include "modeller/read_back.h"

#include <BRep_Builder.hxx>
#include <Quantity_Color.hxx>
#include <RWGltf_CafReader.hxx>
#include <STEPCAFControl_Reader.hxx>
#include <Standard_CLocaleSentry.hxx>
#include <TDF_LabelSequence.hxx>
#include <TDataStd_Name.hxx>
#include <TopoDS_Compound.hxx>
#include <XCAFApp_Application.hxx>
#include <XCAFDoc_ColorTool.hxx>
#include <XCAFDoc_DocumentTool.hxx>
#include <XCAFDoc_ShapeTool.hxx>
#include <XCAFPrs_DocumentExplorer.hxx>
#include <array>
#include <cstdint>
#include <cstring>
#include <nlohmann/json.hpp>
#include <stdexcept>

#include "modeller/kernel.h"
#include "support/temporary_folder.h"

namespace vanzet::test {
namespace {

Handle(TDocStd_Document) NewDocument() {
  modeller::SilenceKernel();
  Handle(TDocStd_Document) document;
  XCAFApp_Application::GetApplication()->NewDocument("BinXCAF", document);
  return document;
}

std::string NameOf(const TDF_Label& label) {
  Handle(TDataStd_Name) name;
  if (!label.FindAttribute(TDataStd_Name::GetID(), name)) return "";
  std::string text(static_cast<std::size_t>(name->Get().LengthOfCString()), ' ');
  char* bytes = text.data();
  name->Get().ToUTF8CString(bytes);
  return text;
}

std::string HexOf(const Quantity_Color& colour) {
  return Quantity_Color::ColorToHex(colour, false).ToCString();
}

/// The colours of the materials of a binary glTF file, which are linear there.
std::vector<std::string> MaterialsOf(const std::string& bytes) {
  constexpr std::size_t kLengthAt = 12, kTextAt = 20;
  std::uint32_t length = 0;
  std::memcpy(&length, bytes.data() + kLengthAt, sizeof(length));
  std::vector<std::string> colours;
  const auto text = nlohmann::json::parse(bytes.substr(kTextAt, length));
  for (const auto& material : text.at("materials")) {
    const auto parts = material.at("pbrMetallicRoughness").at("baseColorFactor").get<std::array<double, 4>>();
    colours.push_back(HexOf({parts[0], parts[1], parts[2], Quantity_TOC_RGB}));
  }
  return colours;
}

ReadBack Read(const Handle(TDocStd_Document) & document) {
  ReadBack read;
  TDF_LabelSequence roots;
  XCAFDoc_DocumentTool::ShapeTool(document->Main())->GetFreeShapes(roots);
  TopoDS_Compound all;
  BRep_Builder().MakeCompound(all);
  for (const TDF_Label& root : roots) {
    BRep_Builder().Add(all, XCAFDoc_ShapeTool::GetShape(root));
    read.roots.push_back(NameOf(root));
  }
  read.shape = all;
  for (XCAFPrs_DocumentExplorer nodes(document, XCAFPrs_DocumentExplorerFlags_OnlyLeafNodes); nodes.More();
       nodes.Next()) {
    read.names.push_back(NameOf(nodes.Current().RefLabel));
    read.colours.push_back(HexOf(nodes.Current().Style.GetColorSurf()));
  }
  return read;
}

}  // namespace

ReadBack ReadStepDocument(const std::filesystem::path& file) {
  const Standard_CLocaleSentry point;
  Handle(TDocStd_Document) document = NewDocument();
  STEPCAFControl_Reader reader;
  reader.SetNameMode(Standard_True);
  reader.SetColorMode(Standard_True);
  const bool isRead = reader.ReadFile(file.c_str()) == IFSelect_RetDone && reader.Transfer(document);
  if (!isRead) throw std::runtime_error(file.string() + " cannot be read back");
  return Read(document);
}

ReadBack ReadGltfDocument(const std::filesystem::path& file) {
  const Standard_CLocaleSentry point;
  const auto document = NewDocument();
  RWGltf_CafReader reader;
  reader.SetDocument(document);
  reader.SetSystemLengthUnit(1);
  reader.SetFileLengthUnit(1);
  reader.SetSystemCoordinateSystem(RWMesh_CoordinateSystem_Yup);
  reader.SetFileCoordinateSystem(RWMesh_CoordinateSystem_Yup);
  if (!reader.Perform(file.c_str(), Message_ProgressRange())) {
    throw std::runtime_error(file.string() + " cannot be read back");
  }
  ReadBack read = Read(document);
  read.colours = MaterialsOf(ReadBytes(file));
  return read;
}

}  // namespace vanzet::test
