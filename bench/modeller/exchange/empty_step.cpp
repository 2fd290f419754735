#include "modeller/exchange/empty_step.h"

#include <APIHeaderSection_MakeHeader.hxx>
#include <StepBasic_DocumentFile.hxx>
#include <StepData_UndefinedEntity.hxx>
#include <TCollection_HAsciiString.hxx>
#include <cstring>

namespace vanzet::modeller {
namespace {

std::string TextOf(const Handle(TCollection_HAsciiString) & text) {
  return text.IsNull() ? std::string() : std::string(text->ToCString());
}

/// The name of a file that a model refers to; empty for another entity.
std::string FileNamedBy(const Handle(Standard_Transient) & entity) {
  const auto document = Handle(StepBasic_DocumentFile)::DownCast(entity);
  if (document.IsNull()) return "";
  const std::string id = TextOf(document->Id());
  return id.empty() ? TextOf(document->StepBasic_Document::Name()) : id;
}

/// An entity of triangles without surfaces, as the newer schemas have them.
bool IsOfTriangles(const Handle(Standard_Transient) & entity) {
  const auto unknown = Handle(StepData_UndefinedEntity)::DownCast(entity);
  if (unknown.IsNull()) return false;
  const char* const type = unknown->StepType();
  return std::strstr(type, "TESSELLATED_") != nullptr || std::strstr(type, "TRIANGULATED_") != nullptr;
}

bool IsOfAnalysis(const Handle(StepData_StepModel) & model) {
  const APIHeaderSection_MakeHeader head(model);
  for (int i = 1; i <= head.NbSchemaIdentifiers(); ++i) {
    if (TextOf(head.SchemaIdentifiersValue(i)).starts_with("STRUCTURAL_ANALYSIS")) return true;
  }
  return false;
}

}  // namespace

std::string ReasonForNoBody(const Handle(StepData_StepModel) & model) {
  bool hasTriangles = false;
  for (int i = 1; i <= model->NbEntities(); ++i) {
    const std::string file = FileNamedBy(model->Value(i));
    if (!file.empty()) return ": its parts are in other files, the first in '" + file + "'";
    hasTriangles = hasTriangles || IsOfTriangles(model->Value(i));
  }
  if (hasTriangles)
    return ": it has triangles without surfaces, which are not read from STEP; export it as STL";
  if (IsOfAnalysis(model)) return ": it is a model for analysis, of nodes and elements";
  return "";
}

}  // namespace vanzet::modeller
