#pragma once

#include <Standard_Failure.hxx>
#include <TopoDS_Shape.hxx>
#include <memory>
#include <new>

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
  SilenceKernel();
  try {
    return work();
  } catch (const Standard_Failure& failure) {
    return KernelFault(failure);
  } catch (const std::bad_alloc&) {
    return Fault{.text = "out of memory", .kind = FaultKind::kSystem};
  }
}

/// A body of facets is one or more faces with triangles and without a surface.
struct Shape {
  TopoDS_Shape shape;
  bool fromStl = false;
};

inline Body BodyOf(const TopoDS_Shape& shape, bool fromStl = false) {
  return Body(std::make_shared<const Shape>(Shape{shape, fromStl}));
}

}  // namespace vanzet::modeller
