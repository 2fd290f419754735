#include "api/module.h"

#include <dlfcn.h>
#include <cstdlib>

#include <memory>

#include "base/path_map.h"
#include "process/own_library.h"
#include "project/length_unit.h"

namespace vanzet::api {
namespace {

namespace fs = std::filesystem;

constexpr const char* kModuleFile = "libvanzet.so";

Fault LoaderFault(const fs::path& module) {
  const char* const reason = dlerror();
  return Fault{.text = reason == nullptr ? "cannot be loaded" : reason,
               .file = module.string(),
               .kind = FaultKind::kSystem};
}

}  // namespace

Result<fs::path> FindModule(const fs::path& program) {
  const char* const named = getenv("VANZET_MODULE");
  if (named != nullptr && *named != '\0') return fs::path(named);
  auto found = process::FindLibrary(program, kModuleFile);
  if (found) return found;
  Fault fault = found.fault();
  fault.text += "; VANZET_MODULE can name its place";
  return fault;
}

Result<void> CallModule(const fs::path& module, const char* function, Host& host) {
  // The module maps paths as the project does, and its view uses the language and the unit of the project.
  VANZET_TRY(const auto unit, project::LengthUnitOf(host.project));
  setenv("VANZET_UNIT", std::string(WordOf(unit)).c_str(), 1);
  setenv("VANZET_DRIVES", DrivesText(host.project.paths().drives()).c_str(), 1);
  setenv("VANZET_LANGUAGE", host.project.Language().c_str(), 1);
  const std::unique_ptr<void, int (*)(void*)> loaded(dlopen(module.c_str(), RTLD_NOW | RTLD_LOCAL), dlclose);
  if (!loaded) return LoaderFault(module);
  auto* const entry = reinterpret_cast<void (*)()>(dlsym(loaded.get(), function));
  if (entry == nullptr) return LoaderFault(module);
  const HostScope scope(host);
  entry();
  for (const vdm::Number number : host.store.LeftOpen()) {
    host.panel.TellOfCall(Fault{vdm::NameOf(number) + " was left open; what was changed in it is lost"});
  }
  return {};
}

}  // namespace vanzet::api
