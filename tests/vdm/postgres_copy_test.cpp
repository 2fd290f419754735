#include "support/memory_engine.h"
#include "vdm/embedded/engine.h"
#include "vdm/server_store.h"

namespace vanzet::vdm {
namespace {

/// One line for each VDM of each generation, with its records.
std::vector<std::string> LinesOf(StoreEngine& engine) {
  std::vector<std::string> lines;
  EXPECT_EQ(Told(engine.Visit({},
                              [&](const PastGeneration& past) -> Result<void> {
                                const Generation& by = past.generation;
                                for (const auto& [number, vdm] : past.vdms) {
                                  std::string line = std::to_string(by.number) + by.time + by.user + by.host +
                                                     by.program + by.occasion;
                                  line += std::to_string(past.cut.size()) + NameOf(number);
                                  for (std::size_t i = 0; vdm && i < vdm->Size(); ++i)
                                    line += "|" + BytesOf(*Get(vdm->Read(i)));
                                  lines.push_back(vdm ? line : line + " removed");
                                }
                                return {};
                              })),
            "");
  return lines;
}

GenerationSource SourceOf(StoreEngine& engine) {
  return [&engine](const GenerationVisitor& visitor) { return engine.Visit({}, visitor); };
}

/// Twelve generations of two VDMs, of which the first ones are no longer kept.
void WriteHistory(StoreEngine& engine) {
  const std::string occasion = "test";
  for (int i = 1; i <= 12; ++i) {
    Changes changes;
    changes.emplace(Number{1}, VdmOf({{"same"}, {std::to_string(i)}, {"a\xFF", ""}}));
    if (i % 2 == 1) changes.emplace(Number{2}, i == 9 ? std::nullopt : std::optional(VdmOf({{"x"}})));
    ASSERT_EQ(Told(engine.Apply({changes, nullptr, occasion, {}, 5})), "");
  }
}

TEST_F(ServerStore, IsTheSameAfterACopyThereAndBack) {
  SqliteEngine from(folder / "from.db"), back(folder / "back.db");
  WriteHistory(from);
  PostgresEngine engine = Engine();
  ASSERT_EQ(Told(engine.Fill(SourceOf(from))), "");
  ASSERT_EQ(Told(back.Fill(SourceOf(engine))), "");
  EXPECT_EQ(LinesOf(engine), LinesOf(from));
  EXPECT_EQ(LinesOf(back), LinesOf(from));
  EXPECT_EQ(LinesOf(back).empty(), false);
  EXPECT_THAT(Told(engine.Fill(SourceOf(from))), HasSubstr("has generations already"));
  Write(1, {{"next"}});
  EXPECT_EQ(Get(engine.ListChanges(Number{1})).back().generation.number, 13);
}

TEST_F(ServerStore, IsCopiedWhollyOrNotAtAllWhereverTheConnectionBreaks) {
  test::MemoryEngine from;
  WriteHistory(from);
  ServerProxy proxy(text);
  for (const Cut cut : {Cut::kBeforeCommit, Cut::kAfterCommit}) {
    const std::string project = "copy " + std::to_string(static_cast<int>(cut));
    PostgresEngine engine(proxy.Text(), project), after = Engine(project);
    Get(engine.Locks()->AcquireProject(milliseconds(0)));
    proxy.CutOnce(cut);
    const auto filled = engine.Fill(SourceOf(from));
    EXPECT_EQ(bool(filled), cut == Cut::kAfterCommit);
    EXPECT_EQ(LinesOf(after), filled ? LinesOf(from) : std::vector<std::string>());
  }
}

TEST_F(ServerStore, TakesTheProjectAwayThatACopyLeftEmpty) {
  PostgresEngine engine = Engine();
  const auto locks = engine.Locks();
  const auto project = Get(locks->AcquireProject(milliseconds(0)));
  EXPECT_EQ(Told(engine.Fill([](const GenerationVisitor&) { return Fault{"no"}; })), "no");
  locks->RemoveOwnFile();
  EXPECT_EQ(Count("SELECT count(*) FROM vanzet.project"), 0);
}

}  // namespace
}  // namespace vanzet::vdm
