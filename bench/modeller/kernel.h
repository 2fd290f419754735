#pragma once

#include <Standard_Failure.hxx>
#include <TopoDS_Shape.hxx>
#include <memory>
#include <new>

#include "base/result.h"
#include "modeller/body.h"

/// The adapter to Open CASCADE: its view of a body, its exceptions as faults, and no output of its own. For this
/// folder and for tests alone.
namespace vanzet::modeller {

/// Takes away the printer that writes the kernel's messages to standard output. The messages belong to the
/// process; called before all work, any number of times.
void QuietKernel();

/// The kernel's failure as a fault: "Open CASCADE: ...".
Fault KernelFault(const Standard_Failure& failure);

/// What `work` gives, a `Result`; what the kernel throws meanwhile becomes a fault.
template <class Work>
auto Guarded(Work work) -> decltype(work()) {
  QuietKernel();
  try {
    return work();
  } catch (const Standard_Failure& failure) {
    return KernelFault(failure);
  } catch (const std::bad_alloc&) {
    return Fault{"there is not enough memory"};
  }
}

/// A body of facets is a face without a surface that carries its triangles, or several of them.
struct Shape {
  TopoDS_Shape shape;
  bool fromStl = false;
};

inline Body BodyOf(const TopoDS_Shape& shape, bool fromStl = false) {
  return Body(std::make_shared<const Shape>(Shape{shape, fromStl}));
}

}  // namespace vanzet::modeller
