#pragma once

#include <Standard_Failure.hxx>
#include <TopoDS_Shape.hxx>
#include <exception>
#include <memory>
#include <new>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "base/result.h"
#include "modeller/body.h"

/// The adapter to Open CASCADE: its view of a body, its exceptions as faults, and no output of its own. For
/// this folder and for tests alone.
namespace vanzet::modeller {

/// Removes the printer that writes the kernel's messages to standard output. The messages are one for the
/// process; may be called any number of times.
void SilenceKernel();

/// An exception of the kernel as a fault: "Open CASCADE: ...".
Fault KernelFault(const Standard_Failure& failure);

/// Runs `work`, which returns a `Result`; an exception of the kernel becomes a fault.
template <class Work>
auto CatchKernelFailures(Work work) -> decltype(work()) {
  try {
    SilenceKernel();
    return work();
  } catch (const Standard_Failure& failure) {
    return KernelFault(failure);
  } catch (const std::bad_alloc&) {
    return Fault{.text = "out of memory", .kind = FaultKind::kSystem};
  } catch (const std::exception& error) {
    return Fault{std::string("Open CASCADE: ") + error.what()};
  }
}

struct Origin;
struct MadeMesh;

/// The meshes of a solid that were made so far, which its copies at other places share.
using MadeMeshes = std::vector<MadeMesh>;

/// A body of facets is one or more faces with triangles and without a surface. The surfaces of a file's body
/// are in its origin: its shape is an empty group, which only has the place.
struct Shape {
  TopoDS_Shape shape;
  bool fromStl = false;
  std::shared_ptr<const Origin> origin = nullptr;             ///< of a file's surfaces; foreign.h
  std::shared_ptr<MadeMeshes> meshes = nullptr;               ///< mesh.cpp; null: none are kept
  mutable std::optional<geometry::Box3d> box = std::nullopt;  ///< what `Extents` found
};

inline Body BodyOf(const TopoDS_Shape& shape, bool fromStl = false,
                   std::shared_ptr<const Origin> origin = nullptr) {
  return Body(std::make_shared<const Shape>(Shape{shape, fromStl, std::move(origin)}));
}

}  // namespace vanzet::modeller
