#include "modeller/solids_library.h"

#include "geometry/units.h"

/// The only function of the library that others see. The contours that it is given are in millimetres; the
/// library has a geometry library of its own.
extern "C" const void* vanzetSolids() {
  using namespace vanzet::modeller;
  geometry::SetUnits(0);
  static const Solids solids{
      .isStl = [](const Body& body) { return body.IsStl(); },
      .moveBody = MoveBody,
      .scaleFacets = ScaleFacets,
      .turnBody = TurnBody,
      .placeBody = PlaceBody,
      .cutBodies = CutBodies,
      .joinBodies = JoinBodies,
      .importBody = ImportBody,
      .importBodyInSteps = ImportBodyInSteps,
      .importBodies = ImportBodies,
      .rootsOf = RootsOf,
      .describeFile = DescribeFile,
      .readDevicePackage = ReadDevicePackage,
      .checkModel = CheckModel,
      .importVrml = ImportVrml,
      .factsOf = FactsOf,
      .makeFiles = MakeFiles,
      .vrmlOf = VrmlOf,
      .measuresOf = MeasuresOf,
      .extents = Extents,
      .meshOf = MeshOf,
      .spin = Spin,
      .extrude = Extrude,
  };
  return &solids;
}
