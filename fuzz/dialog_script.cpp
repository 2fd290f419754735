#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>

#include "dialog/dlg_main.h"
#include "fuzz/fuzz.h"
#include "platform/file_dialog.h"
#include "store/billet_vdm.h"
#include "support/fake_host.h"
#include "view/script/script_view.h"

namespace {

using namespace vanzet;

/// A machine that has all, with a definition; every pick is broken off.
void SetUp(test::FakeHost& host) {
  host.environment = {{"ppdefini", "/dev/null"},    {"clampmdb", "/dev/null"},   {"TMP", "/no/such/folder"},
                      {"SubSpindleAvailable", "1"}, {"TailStockAvailable", "1"}, {"LunAvailable", "1"}};
  host.integers = {{"i_billet_vdm", 1000},
                   {"i_billet_vdm_spispur", 2000},
                   {"i_tool_collect_vdm", 1900},
                   {"i_return", 27},
                   {"i_return2", 0},
                   {"i_ret", -1}};
  host.texts = {{"$_return", ""},
                {"$_helptopic", ""},
                {"$_COUNTRY", ""},
                {"$_USER_DATA_SETTINGS", ""},
                {"$_root_dir", "/no/such/folder/"}};
  BilletVdm(1000).ReOrg([](BilletVdm&, bool) {});
}

/// The bytes as a file, in a folder of the process's own that goes with it.
class ScriptFile {
 public:
  explicit ScriptFile(const std::string& bytes) {
    std::string name = std::filesystem::temp_directory_path() / "vanzet-fuzz-XXXXXX";
    if (mkdtemp(name.data()) != nullptr) folder_ = name;
    std::ofstream(folder_ / "script.txt", std::ios::binary) << bytes;
  }
  ~ScriptFile() {
    std::error_code ignored;
    std::filesystem::remove_all(folder_, ignored);
  }
  ScriptFile(const ScriptFile&) = delete;
  ScriptFile& operator=(const ScriptFile&) = delete;

  std::string path() const { return (folder_ / "script.txt").string(); }

 private:
  std::filesystem::path folder_;
};

}  // namespace

/// Any bytes as a script: the dialog has to end, with every VDM closed.
int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  test::FakeHost host;
  SetUp(host);
  const ScriptFile file(fuzz::TextOf(data, size));
  {
    view::ScriptView view(file.path(), std::make_shared<view::Transcript>("/dev/null"));
    // File dialogs stay cancelled, whatever the script says: its paths are any.
    const platform::PresenterScope boxes(view.Boxes());
    dialog::CDlgMain dialog(nullptr, view);
    dialog.RunModalLoop(4);
    if (dialog.IsOpen()) std::abort();
  }
  for (const auto& [number, vdm] : host.vdms) {
    if (vdm.handle != 0) std::abort();
  }
  return 0;
}
