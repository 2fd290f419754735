#include <dlfcn.h>

#include <cerrno>
#include <cstddef>

#include "faults/shim/plan.h"

// The memory of the C library, which the operators of C++ ask too. Its own names for the same functions are
// called directly: looking up a function by name may ask for memory.
extern "C" {
void* __libc_malloc(std::size_t bytes);
void* __libc_calloc(std::size_t count, std::size_t bytes);
void* __libc_realloc(void* block, std::size_t bytes);
void* __libc_memalign(std::size_t alignment, std::size_t bytes);

void* FaultyMalloc(std::size_t bytes) __asm__("malloc");
void* FaultyCalloc(std::size_t count, std::size_t bytes) __asm__("calloc");
void* FaultyRealloc(void* block, std::size_t bytes) __asm__("realloc");
void* FaultyAlignedAlloc(std::size_t alignment, std::size_t bytes) __asm__("aligned_alloc");
}

namespace {

using Main = int(int, char**, char**);
using Start = int(Main*, int, char**, void (*)(), void (*)(), void (*)(), void*);

/// The program's own; null until it is called. What libraries do when they are loaded is not the program's
/// work.
Main* programsMain = nullptr;
bool hasBegun = false;

int BeginMain(int count, char** arguments, char** environment) {
  hasBegun = true;
  return programsMain(count, arguments, environment);
}

/// True when this call shall get no memory.
bool IsRefused() {
  if (!hasBegun) return false;
  const int error = vanzet::faults::Judge(vanzet::faults::Family::kMemory, {}).error;
  if (error != 0) errno = ENOMEM;
  return error != 0;
}

}  // namespace

extern "C" int FaultyStart(Main* main, int count, char** arguments, void (*init)(), void (*fini)(),
                           void (*end)(), void* stack) __asm__("__libc_start_main");
int FaultyStart(Main* main, int count, char** arguments, void (*init)(), void (*fini)(), void (*end)(),
                void* stack) {
  programsMain = main;
  const auto start = reinterpret_cast<Start*>(dlsym(RTLD_NEXT, "__libc_start_main"));
  return start(BeginMain, count, arguments, init, fini, end, stack);
}

void* FaultyMalloc(std::size_t bytes) {
  return IsRefused() ? nullptr : __libc_malloc(bytes);
}

void* FaultyCalloc(std::size_t count, std::size_t bytes) {
  return IsRefused() ? nullptr : __libc_calloc(count, bytes);
}

void* FaultyRealloc(void* block, std::size_t bytes) {
  return IsRefused() ? nullptr : __libc_realloc(block, bytes);
}

void* FaultyAlignedAlloc(std::size_t alignment, std::size_t bytes) {
  return IsRefused() ? nullptr : __libc_memalign(alignment, bytes);
}
