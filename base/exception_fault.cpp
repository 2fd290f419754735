#include "base/exception_fault.h"

#include <exception>
#include <new>

namespace vanzet {

Fault FaultOfException() {
  try {
    throw;
  } catch (const std::bad_alloc&) {
    return {.text = "out of memory", .kind = FaultKind::kSystem};
  } catch (const std::exception& error) {
    return {error.what()};
  } catch (...) {
    return {"internal error (unknown exception)"};
  }
}

}  // namespace vanzet
