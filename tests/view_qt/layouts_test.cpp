#include "view/ids.h"
#include "view/shared/page_layouts.h"

#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>
#include <algorithm>
#include <map>

#include "dialog/dlg_main.h"
#include "dialog/tree_nodes.h"
#include "view/qt/page_panel.h"
#include "view/qt/tree_panel.h"
#include "view_qt/window_fixture.h"

namespace vanzet::test {
namespace {

using view::Control;
using view::ControlKind;
using view::qt::DialogWindow;

class Layouts : public WindowTest {
 protected:
  /// Calls `look` with the state and the window of each page that has controls.
  void OnEachPage(const std::function<void(const view::DialogState&, DialogWindow&)>& look) {
    Serve([&](DialogWindow& window) {
      for (const int node : kNodesOfPages) {
        Do(window, "select " + std::to_string(node) + "\n");
        look(window.TheDialog().State(), window);
      }
    });
  }
};

/// True for the edit and the label of a letter that cannot be given: the pages leave their row out.
bool IsOfUnusedLetter(const view::DialogState& state, const Control& control) {
  for (const view::FieldGroup& group : view::FindPageLayout(state.page)->groups) {
    for (const view::FieldRow& row : group.rows) {
      const bool isOfRow = row.control == control.id || row.label == control.id;
      if (isOfRow && row.letter != 0) return !control.isEnabled;
    }
  }
  return false;
}

TEST_F(Layouts, PlaceEveryControlOfEveryPageOnce) {
  OnEachPage([](const view::DialogState& state, DialogWindow& /*window*/) {
    const view::PageLayout* const layout = view::FindPageLayout(state.page);
    ASSERT_NE(layout, nullptr) << state.page;
    std::vector<std::int32_t> placed = ControlsOf(*layout);
    std::vector<std::int32_t> there;
    for (const Control& control : state.controls) there.push_back(control.id);
    EXPECT_THAT(placed, testing::UnorderedElementsAreArray(there)) << state.page;
  });
}

TEST_F(Layouts, AreThereForEveryPageButTheEmptyOne) {
  std::set<std::string> pages;
  OnEachPage([&](const view::DialogState& state, DialogWindow&) { pages.insert(state.page); });
  EXPECT_EQ(pages.size(), dialog::kPages - 1);
  EXPECT_EQ(view::PageLayouts().size(), pages.size());
}

TEST_F(Layouts, GiveEveryControlOneWidgetThatShowsItsState) {
  OnEachPage([](const view::DialogState& state, DialogWindow& window) {
    for (const Control& control : state.controls) {
      const QString name = QString::number(control.id);
      ASSERT_EQ(window.Page()->findChildren<QWidget*>(name).size(), 1) << state.page << " " << control.id;
      const QWidget* const widget = window.WidgetOf(control.id);
      const bool isShown = control.isVisible && !IsOfUnusedLetter(state, control);
      EXPECT_EQ(widget->isVisibleTo(&window), isShown) << state.page << " " << control.id;
      EXPECT_EQ(widget->isEnabled(), control.isEnabled) << state.page << " " << control.id;
    }
  });
}

TEST_F(Layouts, NameEveryControlThatIsUsed) {
  OnEachPage([](const view::DialogState& state, DialogWindow& window) {
    for (const Control& control : state.controls) {
      if (control.kind == ControlKind::kLabel || IsOfUnusedLetter(state, control)) continue;
      EXPECT_FALSE(window.WidgetOf(control.id)->accessibleName().isEmpty())
          << state.page << " " << control.id;
    }
  });
}

TEST_F(Layouts, LetTheTabKeyReachEveryControlThatIsOpen) {
  OnEachPage([](const view::DialogState& state, DialogWindow& window) {
    std::set<int> reached;
    window.Tree().setFocus();
    for (int step = 0; step < 60; ++step) {
      QTest::keyClick(window.focusWidget(), Qt::Key_Tab);
      reached.insert(window.focusWidget()->objectName().toInt());
    }
    for (const auto* controls : {&state.controls, &state.dialog}) {
      for (const Control& control : *controls) {
        const bool isUsed = control.kind != ControlKind::kLabel && control.kind != ControlKind::kPicture;
        // The edit of a spin is reached as the spin.
        if (!isUsed || !control.isVisible || !control.isEnabled || control.id == control::kJawsEdit) continue;
        EXPECT_TRUE(reached.contains(control.id)) << state.page << " " << control.id;
      }
    }
    EXPECT_TRUE(reached.contains(control::kTree)) << "and back to the tree";
  });
}

TEST_F(Layouts, LetTheTabKeyGoFromTreeAndSpurOverThePageToTheButtons) {
  OnEachPage([](const view::DialogState& state, DialogWindow& window) {
    window.Tree().setFocus();
    std::vector<int> way;
    do {
      way.push_back(window.focusWidget()->objectName().toInt());
      QTest::keyClick(window.focusWidget(), Qt::Key_Tab);
    } while (window.focusWidget() != &window.Tree() && way.size() < 60);
    ASSERT_GT(way.size(), 6U) << state.page;
    EXPECT_EQ(std::vector(way.begin(), way.begin() + 2), (std::vector{control::kTree, control::kSpurs}));
    EXPECT_EQ(std::vector(way.end() - 4, way.end()),
              (std::vector{control::kLoad, control::kSave, control::kOk, control::kHelp}))
        << state.page;
  });
}

TEST_F(Layouts, GiveTheButtonsOfEveryPageALetter) {
  OnEachPage([](const view::DialogState& state, DialogWindow& window) {
    for (const std::int32_t id : ActionsOf(*view::FindPageLayout(state.page))) {
      const auto* const button = qobject_cast<QPushButton*>(window.WidgetOf(id));
      EXPECT_TRUE(button->text().contains(QLatin1Char('&'))) << state.page << " " << id;
    }
  });
}

TEST_F(Layouts, ReachTheValueOfALetterByThatLetter) {
  Serve([&](DialogWindow& window) {
    Do(window, "select 19\n");
    const auto captions = window.Page()->findChildren<QLabel*>();
    for (const char* caption : {"&A", "&B", "&C", "&D", "&E", "&F"}) {
      EXPECT_TRUE(std::ranges::any_of(captions, [&](const QLabel* label) {
        return label->text() == QLatin1String(caption) && label->buddy() != nullptr;
      })) << caption;
    }
  });
}

}  // namespace
}  // namespace vanzet::test
