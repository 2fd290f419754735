#include "view/view_library.h"

#include <gmock/gmock.h>

#include <cstdlib>

#include "platform/symbols.h"
#include "support/child.h"
#include "support/places.h"
#include "view/view_entry.h"

namespace vanzet::view {
namespace {

using testing::HasSubstr;

/// The library of the view on a display, in processes that have no application of Qt.
class ViewLibrary : public testing::Test {
 protected:
  ~ViewLibrary() override {
    for (const char* name : {"QT_QPA_PLATFORM", "DISPLAY", "WAYLAND_DISPLAY"}) unsetenv(name);
  }

  static std::string Refusal(const std::filesystem::path& file) {
    const auto view = ViewFromLibrary(file);
    return view ? "" : view.fault().Message();
  }
};

TEST_F(ViewLibrary, ThatIsMissingIsToldByItsName) {
  EXPECT_THAT(Refusal("/nowhere/view.so"), HasSubstr("/nowhere/view.so"));
}

TEST_F(ViewLibrary, OfSomethingElseIsRefused) {
  EXPECT_EQ(Refusal("libm.so.6"), "libm.so.6: not a library of a view");
}

TEST_F(ViewLibrary, OfAnotherVersionIsRefused) {
  const auto library = platform::LoadLibraryFile(VANZET_VIEW_QT_FILE);
  ASSERT_TRUE(library) << library.fault().Message();
  const auto entry = reinterpret_cast<ViewEntry>(platform::FindSymbol(*library, kViewEntryName));
  ASSERT_NE(entry, nullptr);
  const ViewAnswer answer = entry(kViewVersion + 1);
  EXPECT_EQ(answer.view, nullptr);
  EXPECT_THAT(answer.reason, HasSubstr("versions"));
}

TEST_F(ViewLibrary, SurvivesADisplayThatDoesNotAnswer) {
  setenv("DISPLAY", ":4711", 1);
  EXPECT_EQ(Refusal(VANZET_VIEW_QT_FILE), "no answer from the display ':4711' of DISPLAY");
  setenv("DISPLAY", "nowhere.invalid:0", 1);
  EXPECT_THAT(Refusal(VANZET_VIEW_QT_FILE), HasSubstr("nowhere.invalid"));
  setenv("QT_QPA_PLATFORM", "xcb", 1);
  EXPECT_THAT(Refusal(VANZET_VIEW_QT_FILE), HasSubstr("nowhere.invalid"));
}

TEST_F(ViewLibrary, SurvivesAWaylandDisplayThatDoesNotAnswer) {
  setenv("WAYLAND_DISPLAY", "wayland-4711", 1);
  EXPECT_EQ(Refusal(VANZET_VIEW_QT_FILE), "no answer from the display 'wayland-4711' of WAYLAND_DISPLAY");
}

TEST_F(ViewLibrary, SurvivesAPlatformThatQtDoesNotHave) {
  setenv("QT_QPA_PLATFORM", "nonsense", 1);
  EXPECT_THAT(Refusal(VANZET_VIEW_QT_FILE), HasSubstr("nonsense"));
}

TEST_F(ViewLibrary, GivesAViewThatHasADialog) {
  // In a process of its own: an application of Qt stays until the process ends.
  test::Child child([](test::Child::Line&) {
    setenv("QT_QPA_PLATFORM", "nonsense;offscreen", 1);
    for (int time = 0; time < 2; ++time) {
      const auto view = ViewFromLibrary(VANZET_VIEW_QT_FILE);
      if (!view || (*view)->ForDialog() == nullptr) return false;
    }
    return true;
  });
  EXPECT_TRUE(child.End());
}

}  // namespace
}  // namespace vanzet::view
