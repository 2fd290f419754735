#include "modeller/exchange/named_places.h"

#include <Geom_Axis2Placement.hxx>
#include <StepBasic_ProductDefinition.hxx>
#include <StepRepr_HArray1OfRepresentationItem.hxx>
#include <StepRepr_ItemDefinedTransformation.hxx>
#include <StepRepr_NextAssemblyUsageOccurrence.hxx>
#include <StepRepr_PropertyDefinition.hxx>
#include <StepRepr_Representation.hxx>
#include <StepRepr_RepresentationRelationship.hxx>
#include <StepRepr_RepresentationRelationshipWithTransformation.hxx>
#include <StepShape_ShapeDefinitionRepresentation.hxx>
#include <StepShape_ShellBasedSurfaceModel.hxx>
#include <StepShape_SolidModel.hxx>
#include <StepShape_TopologicalRepresentationItem.hxx>
#include <StepToGeom.hxx>
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

/// The coordinate systems between which assemblies move their parts.
Entities PlacementsOfAssemblies(const Handle(StepData_StepModel) & model) {
  Entities placements;
  Each<StepRepr_ItemDefinedTransformation>(model, [&](const auto& move) {
    placements.insert(move->TransformItem1().get());
    placements.insert(move->TransformItem2().get());
  });
  return placements;
}

bool IsShape(const Handle(StepRepr_RepresentationItem) & item) {
  return item->IsKind(STANDARD_TYPE(StepShape_TopologicalRepresentationItem)) ||
         item->IsKind(STANDARD_TYPE(StepShape_SolidModel)) ||
         item->IsKind(STANDARD_TYPE(StepShape_ShellBasedSurfaceModel));
}

/// Takes the items for which `isAside` is true out of a representation with a shape, but the first item.
template <class IsAside>
void SetAside(const Handle(StepRepr_Representation) & representation, const IsAside& isAside) {
  std::vector<Handle(StepRepr_RepresentationItem)> kept;
  bool hasShape = false;
  for (int i = 1; i <= representation->NbItems(); ++i) {
    const auto item = representation->ItemsValue(i);
    hasShape = hasShape || IsShape(item);
    if (i == 1 || !isAside(item)) kept.push_back(item);
  }
  if (!hasShape || static_cast<int>(kept.size()) == representation->NbItems()) return;
  const Handle(StepRepr_HArray1OfRepresentationItem) items =
      new StepRepr_HArray1OfRepresentationItem(1, static_cast<int>(kept.size()));
  int next = 0;
  for (const auto& item : kept) items->SetValue(++next, item);
  representation->SetItems(items);
}

}  // namespace

NamedPlacements TakeNamedPlacements(const Handle(StepData_StepModel) & model) {
  const Entities ofParts = RepresentationsOfParts(model), ofAssemblies = PlacementsOfAssemblies(model);
  NamedPlacements placements;
  std::set<std::string> names;
  Each<StepRepr_Representation>(model, [&](const auto& representation) {
    if (representation->Items().IsNull() || ofParts.contains(representation.get())) return;
    const auto isNamed = [&](const Handle(StepRepr_RepresentationItem) & item) {
      return item->IsKind(STANDARD_TYPE(StepGeom_Axis2Placement3d)) && !NameOf(item).empty() &&
             !ofAssemblies.contains(item.get());
    };
    for (int i = 1; i <= representation->NbItems(); ++i) {
      const auto item = representation->ItemsValue(i);
      if (isNamed(item) && names.insert(NameOf(item)).second) {
        placements.push_back(Handle(StepGeom_Axis2Placement3d)::DownCast(item));
      }
    }
    SetAside(representation, isNamed);
  });
  return placements;
}

std::vector<NamedPlace> PlacesOf(const NamedPlacements& placements) {
  std::vector<NamedPlace> places;
  for (const auto& placement : placements) {
    const auto made = StepToGeom::MakeAxis2Placement(placement);
    if (made.IsNull()) continue;
    const gp_Pnt at = made->Location();
    const gp_Dir along = made->Direction(), upwards = made->XDirection();
    places.push_back({NameOf(placement),
                      {at.X(), at.Y(), at.Z()},
                      {along.X(), along.Y(), along.Z()},
                      {upwards.X(), upwards.Y(), upwards.Z()}});
  }
  return places;
}

}  // namespace vanzet::modeller
