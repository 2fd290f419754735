#pragma once

#include <Standard_Failure.hxx>
#include <new>

#include "base/result.h"

/// The manners of Open CASCADE: it throws its own kind of failure and talks on standard output.
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

}  // namespace vanzet::modeller
