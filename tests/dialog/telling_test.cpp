#include "dialog/dialog_fixture.h"
#include "dialog/dlg_main.h"
#include "view/ids.h"

namespace vanzet::test {
namespace {

using testing::ElementsAre;

/// A view that notes what it is told: of a state the page and what stands in outer diameter and length.
class NotingView final : public view::DialogView {
 public:
  std::int32_t Serve(view::Dialog& dialog, void* /*parent*/, std::int32_t /*flags*/) override {
    told.emplace_back("serve");
    return dialog.Result();
  }
  void StateChanged(const view::DialogState& state) override {
    std::string line = state.page;
    for (const view::Control& control : state.controls) {
      if (control.id == control::kOuterDiameter || control.id == control::kCylinderLength)
        line += " " + control.text;
    }
    told.push_back(line);
  }
  void SetVisible(bool isVisible) override { told.emplace_back(isVisible ? "show" : "hide"); }
  void Focus(std::int32_t control, bool /*selectsAll*/) override {
    told.push_back("focus " + std::to_string(control));
  }
  std::optional<std::int32_t> Popup(std::int32_t /*node*/,
                                    const std::vector<view::PopupEntry>& /*entries*/) override {
    return std::nullopt;
  }
  void* Window() override { return nullptr; }

  std::vector<std::string> told;
};

class Telling : public DialogTest {
 protected:
  NotingView view;
};

TEST_F(Telling, AViewKnowsTheStateBeforeItServes) {
  dialog::CDlgMain dialog(nullptr, view);
  EXPECT_TRUE(view.told.empty());
  dialog.RunModalLoop(4);
  EXPECT_THAT(view.told, ElementsAre("CPageEmpty", "serve"));
}

TEST_F(Telling, AViewKnowsThePageBeforeTheFocusMovesAndTheStateWhenAnEventIsOver) {
  dialog::CDlgMain dialog(nullptr, view);
  dialog.SelectNode(node::kBilletCylindricMain);
  EXPECT_THAT(view.told, ElementsAre("CPageBilletCylindric 0 0", "focus 2158", "CPageBilletCylindric 0 0"));
}

TEST_F(Telling, AViewShowsWhatWasPickedAsSoonAsItIsBack) {
  dialog::CDlgMain dialog(nullptr, view);
  dialog.SelectNode(node::kBilletCylindricMain);
  dialog.SetText(control::kOuterDiameter, "5,5");
  world.positions = {{0, 7, 1}};
  view.told.clear();
  dialog.Press(control::kPickCylinderLength);
  EXPECT_THAT(view.told, ElementsAre("CPageBilletCylindric 5,5 0", "hide", "CPageBilletCylindric 5.5 7",
                                     "show", "CPageBilletCylindric 5.5 7"));
}

TEST_F(Telling, CombosForChoicesTakeNoTyping) {
  dialog::CDlgMain dialog(nullptr, view);
  const auto isList = [&](const std::vector<view::Control>& controls, std::int32_t id) {
    return std::ranges::find(controls, id, &view::Control::id)->isList;
  };
  EXPECT_TRUE(isList(dialog.State().dialog, control::kSpurs));
  dialog.SelectNode(node::kChuckMain);
  EXPECT_TRUE(isList(dialog.State().controls, control::kDeviceList));
  dialog.SelectNode(node::kNewChuck);
  EXPECT_FALSE(isList(dialog.State().controls, control::kNameList)) << "the name of a new device is typed";
}

}  // namespace
}  // namespace vanzet::test
