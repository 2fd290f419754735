#include "modeller/exchange/named_places.h"

#include <Geom_Axis2Placement.hxx>
#include <StepBasic_ProductDefinition.hxx>
#include <StepGeom_Axis2Placement3d.hxx>
#include <StepRepr_NextAssemblyUsageOccurrence.hxx>
#include <StepRepr_PropertyDefinition.hxx>
#include <StepRepr_Representation.hxx>
#include <StepRepr_RepresentationRelationship.hxx>
#include <StepRepr_RepresentationRelationshipWithTransformation.hxx>
#include <StepShape_ShapeDefinitionRepresentation.hxx>
#include <StepToGeom.hxx>
#include <algorithm>
#include <set>

#include "base/one_line.h"

namespace vanzet::modeller {
namespace {

using Entities = std::set<const Standard_Transient*>;

/// Calls `visit` for each entity of a type, in the order of the model.
template <class Entity, class Visit>
void Each(const Handle(StepData_StepModel) & model, const Visit& visit) {
  for (int i = 1; i <= model->NbEntities(); ++i) {
    const auto entity = opencascade::handle<Entity>::DownCast(model->Value(i));
    if (!entity.IsNull()) visit(entity);
  }
}

/// The product definitions that are parts of an assembly.
Entities PartsOf(const Handle(StepData_StepModel) & model) {
  Entities parts;
  Each<StepRepr_NextAssemblyUsageOccurrence>(
      model, [&](const auto& use) { parts.insert(use->RelatedProductDefinition().get()); });
  return parts;
}

/// The representations of parts, and those that are the same as one of them.
Entities RepresentationsOfParts(const Handle(StepData_StepModel) & model) {
  const Entities parts = PartsOf(model);
  Entities representations;
  Each<StepShape_ShapeDefinitionRepresentation>(model, [&](const auto& shape) {
    const auto property = shape->Definition().PropertyDefinition();
    if (property.IsNull()) return;
    const auto product = property->Definition().ProductDefinition();
    if (!product.IsNull() && parts.contains(product.get())) {
      representations.insert(shape->UsedRepresentation().get());
    }
  });
  Each<StepRepr_RepresentationRelationship>(model, [&](const auto& same) {
    if (same->IsKind(STANDARD_TYPE(StepRepr_RepresentationRelationshipWithTransformation))) return;
    const auto *const one = same->Rep1().get(), *const other = same->Rep2().get();
    if (representations.contains(one)) representations.insert(other);
    if (representations.contains(other)) representations.insert(one);
  });
  return representations;
}

std::string NameOf(const Handle(StepRepr_RepresentationItem) & item) {
  return item->Name().IsNull() ? std::string() : OneLine(item->Name()->ToCString());
}

NamedPlace PlaceOf(const std::string& name, const Handle(Geom_Axis2Placement) & made) {
  const gp_Pnt at = made->Location();
  const gp_Dir along = made->Direction(), upwards = made->XDirection();
  return {name,
          {at.X(), at.Y(), at.Z()},
          {along.X(), along.Y(), along.Z()},
          {upwards.X(), upwards.Y(), upwards.Z()}};
}

}  // namespace

std::vector<NamedPlace> NamedPlacesOf(const Handle(StepData_StepModel) & model) {
  const Entities ofParts = RepresentationsOfParts(model);
  std::vector<NamedPlace> places;
  Each<StepRepr_Representation>(model, [&](const auto& representation) {
    if (representation->Items().IsNull() || ofParts.contains(representation.get())) return;
    for (int i = 1; i <= representation->NbItems(); ++i) {
      const auto item = Handle(StepGeom_Axis2Placement3d)::DownCast(representation->ItemsValue(i));
      if (item.IsNull()) continue;
      const std::string name = NameOf(item);
      if (name.empty() || std::ranges::find(places, name, &NamedPlace::name) != places.end()) continue;
      const auto made = StepToGeom::MakeAxis2Placement(item);
      if (!made.IsNull()) places.push_back(PlaceOf(name, made));
    }
  });
  return places;
}

}  // namespace vanzet::modeller
