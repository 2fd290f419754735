#include "api/module.h"

#include <dlfcn.h>
#include <cstdlib>

#include <memory>

#include "base/path_map.h"
#include "catalogue/shared_files.h"
#include "process/own_library.h"
#include "project/catalogue.h"
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

/// The catalogue that is brought to the module from a server and back; none in a run that has one of its own.
Result<catalogue::SharedFiles> SharedFilesOf(Host& host) {
  if (!host.catalogue.empty()) return catalogue::SharedFiles({});
  VANZET_TRY(const auto setting, host.Setting(project::kCatalogueSetting));
  return catalogue::SharedFiles(catalogue::PlaceOf(host.project, setting));
}

void Announce(const Host& host, const std::vector<std::string>& sentences) {
  for (const std::string& sentence : sentences) {
    if (host.announce) host.announce(sentence);
  }
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
  VANZET_TRY(auto shared, SharedFilesOf(host));
  VANZET_TRY(const auto brought, shared.Begin());
  Announce(host, brought);
  {
    const HostScope scope(host);
    entry();
  }
  VANZET_TRY(const auto merged, shared.Merge("dialog"));
  Announce(host, merged);
  for (const vdm::Number number : host.store.LeftOpen()) {
    host.panel.TellOfCall(Fault{vdm::NameOf(number) + " was left open; what was changed in it is lost"});
  }
  return {};
}

}  // namespace vanzet::api
