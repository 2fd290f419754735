#include <atomic>
#include <vector>

#include "check/parallel.h"
#include "project_fixture.h"

namespace vanzet::test {
namespace {

TEST(ForEachInParallel, TakesEachNumberOnce) {
  std::vector<std::atomic<int>> times(1000);
  check::ForEachInParallel(times.size(), [&](std::size_t number) { ++times[number]; });
  for (const auto& each : times) EXPECT_EQ(each, 1);
  check::ForEachInParallel(0, [](std::size_t) { FAIL(); });
}

using SeveralSpurs = CheckedProject;

TEST_F(SeveralSpurs, AreReportedInTheirOrder) {
  constexpr int kSpurs = 12;
  ASSERT_EQ(Vanzet("new many --set NR_SPINDEL_SPUR=12").status, 0);
  std::string spurs;
  for (int spur = 0; spur < kSpurs; ++spur) {
    // The clamped lengths differ: 10 mm less 0.1 mm for each spur.
    spurs += (spur > 0 ? ", " : "") + std::string(R"({"spur": )") + std::to_string(spur) +
             R"(, "main": {"chuck": {"name": "Chuck 160"}, "jaw": {"name": "Soft jaw 160"},
               "billet": {"kind": "cylinder", "outer_diameter": 42, "part_length": 100}},
               "datum": {"main": {"origin": 20, "clamping_out": )" +
             std::to_string(90 + 0.1 * spur) + "}}}";
  }
  WriteBytes(folder / "form.json", R"({"version": 1, "spurs": [)" + spurs + "]}");
  const Outcome defined = Vanzet("define form.json many");
  ASSERT_EQ(defined.status, 0) << defined.err;
  const Json found = Json::parse(Vanzet("check many --json").out)["findings"];
  ASSERT_EQ(found.size(), static_cast<std::size_t>(kSpurs));
  for (int spur = 0; spur < kSpurs; ++spur) {
    const Json& finding = found[static_cast<std::size_t>(spur)];
    EXPECT_EQ(finding["spur"], spur);
    EXPECT_EQ(finding["rule"], "EQ-302");
    EXPECT_NEAR(finding["values"]["length"].get<double>(), 10 - 0.1 * spur, 1e-3);
  }
}

}  // namespace
}  // namespace vanzet::test
