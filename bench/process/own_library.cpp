#include "process/own_library.h"

#include <dlfcn.h>

#include <map>
#include <mutex>
#include <string>
#include <system_error>

#include "base/places.h"
#include "process/last_words.h"

namespace vanzet::process {
namespace {

namespace fs = std::filesystem;

Fault LoaderFault(const fs::path& library) {
  const char* const reason = dlerror();
  return Fault{.text = reason == nullptr ? "cannot be loaded" : reason,
               .file = library.string(),
               .kind = FaultKind::kSystem};
}

/// Names the library in the last line of the program while it lives.
struct Loading {
  explicit Loading(const fs::path& library) { SetLoading(library.c_str()); }
  ~Loading() { SetLoading(nullptr); }
  Loading(const Loading&) = delete;
  Loading& operator=(const Loading&) = delete;
};

/// Opens a library. What the initialisation of one from outside throws has one cause, and is none of the
/// standard's exceptions. The system's header says that nothing is thrown, which the pointer hides.
Result<void*> Open(const fs::path& library) {
  void* (*volatile const open)(const char*, int) = dlopen;
  const Loading loading(library);
  try {
    if (void* const loaded = open(library.c_str(), RTLD_NOW | RTLD_LOCAL | RTLD_NODELETE)) return loaded;
  } catch (...) {
    return Fault{.text = "out of memory", .file = library.string(), .kind = FaultKind::kSystem};
  }
  return LoaderFault(library);
}

/// The way in which a library could not be loaded. Without a text while that is being tried, and where
/// memory ran out for the text.
struct Attempt {
  bool hasFailed = false;
  std::string reason = "could not be loaded before";
};

/// Notes what becomes of the first attempt. The note is made before, since it takes memory.
Attempt& AttemptAt(const std::string& file) {
  static std::map<std::string, Attempt> attempts;
  return attempts[file];
}

}  // namespace

Result<fs::path> FindLibrary(const fs::path& program, const char* file) {
  const fs::path beside = program.parent_path() / file;
  const fs::path lib = program.parent_path().parent_path() / "lib";
  const fs::path installed = lib / "vanzet" / file, built = lib / file;
  std::error_code error;
  for (const fs::path& place : {beside, installed, built}) {
    if (fs::exists(place, error)) return place;
  }
  return Fault{.text = std::string(file) + " is neither at " + beside.string() + " nor at " +
                       installed.string() + " nor at " + built.string(),
               .kind = FaultKind::kMissing};
}

Result<const void*> LoadOwnLibrary(const char* file, const char* function) {
  VANZET_TRY(const auto library, FindLibrary(ProgramFile(), file));
  static std::mutex isLoading;
  const std::lock_guard lock(isLoading);
  Attempt& attempt = AttemptAt(file);
  if (attempt.hasFailed) {
    return Fault{.text = attempt.reason, .file = library.string(), .kind = FaultKind::kSystem};
  }
  attempt.hasFailed = true;
  const auto loaded = Open(library);
  if (!loaded) {
    DistrustLibraries();
    attempt.reason = loaded.fault().text;
    return loaded.fault();
  }
  auto* const entry = reinterpret_cast<const void* (*)()>(dlsym(*loaded, function));
  if (entry == nullptr) return LoaderFault(library);
  attempt.hasFailed = false;
  return entry();
}

}  // namespace vanzet::process
