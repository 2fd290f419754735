#include "view/script/names.h"

#include <set>

#include "dialog/dialog_fixture.h"
#include "dialog/tree_nodes.h"
#include "support/golden.h"

namespace vanzet::test {
namespace {

using nlohmann::json;

/// The page that a node shows, as the state of the dialog has it.
struct Shown {
  std::int32_t node;
  json state;
};

std::string Cell(std::string_view text) {
  return "| " + std::string(text) + " ";
}

std::string Code(std::string_view text) {
  return Cell("`" + std::string(text) + "`");
}

const view::NameRow& RowOf(std::int32_t id, std::span<const view::NameRow> rows) {
  const auto row = std::ranges::find(rows, id, &view::NameRow::id);
  if (row == rows.end()) ADD_FAILURE() << id << " has no name";
  return row == rows.end() ? rows.front() : *row;
}

/// A table of controls by their ids.
std::string ControlTable(const json& controls) {
  std::string table = "| Name | Id | Kind | Meaning |\n|---|---|---|---|\n";
  for (const auto& [id, control] : controls.items()) {
    const view::NameRow& row = RowOf(std::stoi(id), view::ControlNames());
    table += Code(row.name) + Cell(id) + Cell(std::string(control["kind"])) + Cell(row.meaning) + "|\n";
  }
  return table;
}

constexpr const char* kHead = R"(# Names in scripts

[Scripts](script.md) call the nodes of the tree and the controls of the dialog by these names, or by their ids:
`select main/chuck`, `choose device "Chuck 160"`, `press Select` and `select 3`, `choose 2124 "Chuck 160"`, `press 2154` are
the same. Capital letters count as small ones. The name of a control is that of the page in front, or of the dialog
around it. A name that is not known fails, with the names that are near.

This page is made from the tables of the program; a test renews it.

)";

class ScriptNames : public DialogTest {
 protected:
  ScriptNames() { world.SetMachine({.sub = true, .tail = true, .lun = true, .spurs = 2}); }

  /// The state of the dialog after each node was selected.
  std::vector<Shown> AllPages() {
    std::string script;
    for (const auto& row : dialog::TreeNodes()) script += "select " + std::to_string(row.id) + "\nstate\n";
    const Ran ran = Run(script);
    std::vector<Shown> pages;
    for (const json& state : ran.states) pages.push_back({state["selected"], state});
    return pages;
  }

  static std::string NodeTable(const std::vector<Shown>& pages) {
    std::string table = "## Nodes\n\n| Name | Id | Meaning | Page |\n|---|---|---|---|\n";
    for (const auto& [node, state] : pages) {
      const view::NameRow& row = RowOf(node, view::NodeNames());
      table += Code(row.name) + Cell(std::to_string(node)) + Cell(row.meaning) +
               Code(std::string(state["page"])) + "|\n";
    }
    return table;
  }

  static std::string PageTables(const std::vector<Shown>& pages) {
    std::map<std::string, json> controls;
    for (const auto& [node, state] : pages) controls[state["page"]] = state["controls"];
    std::string tables;
    for (const auto& [page, list] : controls) {
      if (!list.empty()) tables += "\n## Page " + page + "\n\n" + ControlTable(list);
    }
    return tables;
  }

  static std::string CommandTable() {
    std::string table = "\n## Commands of the context menu\n\n| Name | Id | Meaning |\n|---|---|---|\n";
    for (const view::NameRow& row : view::CommandNames()) {
      table += Code(row.name) + Cell(std::to_string(row.id)) + Cell(row.meaning) + "|\n";
    }
    return table;
  }
};

TEST_F(ScriptNames, AreThoseOfTheirPage) {
  const std::vector<Shown> pages = AllPages();
  ASSERT_EQ(pages.size(), dialog::TreeNodes().size());
  EXPECT_GOLDEN(kHead + NodeTable(pages) + CommandTable() + "\n## The dialog\n\n" +
                    ControlTable(pages.front().state["dialog"]) + PageTables(pages),
                "../../docs/formats/script-names.md");
}

TEST_F(ScriptNames, AreUniqueOnEachPageWithTheDialogAroundIt) {
  std::set<std::string_view> nodes;
  for (const view::NameRow& row : view::NodeNames()) EXPECT_TRUE(nodes.insert(row.name).second) << row.name;
  for (const auto& [node, state] : AllPages()) {
    std::set<std::string> names;
    for (const char* part : {"dialog", "controls"}) {
      for (const auto& [id, control] : state[part].items()) {
        const std::string name = view::NameOf(std::stoi(id), view::ControlNames());
        EXPECT_TRUE(names.insert(name).second) << name << " of page " << state["page"];
      }
    }
  }
}

TEST_F(ScriptNames, DoWhatTheIdsDo) {
  Run("select 19\nset 2022 80\nset 2023 100\npress 2016\nselect 34\nset 2207 40\npress 2015\npress 1\n");
  const auto byIds = world.Stored();
  world.SetMachine({.sub = true, .tail = true, .lun = true});
  const Ran ran =
      Run("select Main/Billet/Cylinder\nset outer_diameter 80\nset part_length 100\npress Select\n"
          "select datum\nset main_origin 40\npress select\ncontext sub\npress OK\n");
  EXPECT_EQ(ran.events.back(), "closed ok");
  EXPECT_FALSE(byIds.empty());
  EXPECT_EQ(world.Stored(), byIds);
}

TEST_F(ScriptNames, ThatAreUnknownFailWithTheNearOnes) {
  EXPECT_EQ(Run("select main/chuk\n").events.front(),
            "error 1 node 'main/chuk' is not in the tree; did you mean 'main/chuck'?");
  EXPECT_THAT(Run("select main/billet/cylinder\nset outer_diametre 5\n").events,
              testing::Contains("error 2 unknown control 'outer_diametre'; did you mean 'outer_diameter'?"));
  EXPECT_EQ(Run("context main remove\n").events.front(), "error 1 'remove' is not a command");
  EXPECT_THAT(Run("context main delete\n").events, testing::Contains("popup 2 51000 Delete -> 51000"));
  world.SetMachine({});
  EXPECT_EQ(Run("select sub/chuck\n").events.front().find("error 1 node 'sub/chuck' is not in the tree"), 0U);
}

}  // namespace
}  // namespace vanzet::test
