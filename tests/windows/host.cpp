#include <cstdio>
#include <cstdlib>
#include <filesystem>

#include "base/files/windows_api.h"
#include "platform/symbols.h"
#include "support/fake_host.h"

/// A host for Windows to try the module with: the host in memory of the tests, whose functions it exports.
///
/// usage    host.exe MODULE FOLDER EXPORT [TIMES]
///          loads MODULE, calls EXPORT (mstart, ReOrgVdm) and frees the module, TIMES times, and prints
///          the calls of its functions. FOLDER has machine.ini and clampdevice.cld, and takes temporary files
/// dialog   VANZET_SCRIPT in the environment names a script that serves it
/// status   1: the module cannot be loaded, or has no such export
namespace {

using vanzet::test::FakeHost;

void SetUp(FakeHost& host, const std::filesystem::path& folder) {
  host.environment = {{"ppdefini", (folder / "machine.ini").string()},
                      {"clampmdb", (folder / "clampdevice.cld").string()},
                      {"TMP", folder.string()}};
  host.integers = {{"i_billet_vdm", 1000}, {"i_billet_vdm_spispur", 2000}, {"i_return", 0}, {"i_ret", 0}};
  host.reals = {{"w_return", 0}, {"w_return2", 0}};
  host.texts = {{"$_return", ""}, {"$_COUNTRY", ""}, {"$_USER_DATA_SETTINGS", folder.string()}};
  host.layers = {"0"};
}

}  // namespace

int main(int argc, char** argv) {
  if (argc < 4) {
    std::fprintf(stderr, "usage: host.exe MODULE FOLDER EXPORT [TIMES]\n");
    return 2;
  }
  FakeHost host;
  SetUp(host, std::filesystem::absolute(argv[2]));
  const int times = argc > 4 ? std::atoi(argv[4]) : 1;
  host.keepsCalls = times == 1;
  for (int i = 0; i < times; ++i) {
    const HMODULE module = LoadLibraryA(argv[1]);
    auto* const function = reinterpret_cast<void (*)()>(vanzet::platform::FindSymbol(module, argv[3]));
    if (module == nullptr || function == nullptr) {
      std::fprintf(stderr, "%s: cannot be loaded, or has no %s\n", argv[1], argv[3]);
      return 1;
    }
    function();
    FreeLibrary(module);
  }
  for (const std::string& call : host.calls) std::printf("%s\n", call.c_str());
  return 0;
}
