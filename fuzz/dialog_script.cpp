#include <cstdlib>
#include <string>

#include "dialog/dlg_main.h"
#include "fuzz/fuzz.h"
#include "fuzz/input_file.h"
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

/// The host of all inputs; its definition is made once.
class World {
 public:
  World() {
    host_.keepsCalls = false;
    SetUp(host_);
    vdms_ = host_.vdms;
    integers_ = host_.integers;
    texts_ = host_.texts;
  }

  /// The host as it was at first.
  test::FakeHost& Fresh() {
    host_.vdms = vdms_;
    host_.integers = integers_;
    host_.texts = texts_;
    host_.lookUps.clear();
    host_.boxes.clear();
    return host_;
  }

 private:
  test::FakeHost host_;
  decltype(host_.vdms) vdms_;
  decltype(host_.integers) integers_;
  decltype(host_.texts) texts_;
};

}  // namespace

/// Any bytes as a script: the dialog has to end, with every VDM closed.
int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static World world;
  static const fuzz::InputFile file("script.txt");
  const test::FakeHost& host = world.Fresh();
  {
    view::ScriptView view(file.Of(fuzz::TextOf(data, size)).string(),
                          std::make_shared<view::Transcript>("/dev/null"));
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
