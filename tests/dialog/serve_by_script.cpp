#include "dialog/dialog_fixture.h"
#include "dialog/dlg_main.h"
#include "view/script/script_view.h"

namespace vanzet::test {

void ServeDialog(const std::filesystem::path& script, const std::filesystem::path& transcript, void* parent) {
  view::ScriptView view(script.string(), std::make_shared<view::Transcript>(transcript.string()));
  const platform::PresenterScope boxes(view.Boxes());
  const platform::FilePresenterScope fileDialogs(view.Files());
  dialog::CDlgMain dialog(parent, view);
  dialog.RunModalLoop(4);
}

}  // namespace vanzet::test
