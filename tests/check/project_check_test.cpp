#include "check/project_check.h"

#include <gmock/gmock.h>

namespace vanzet::test {
namespace {

Result<check::Severities> SeveritiesOf(const std::string& text) {
  const auto ini = project::ReadBenchIni(text, "bench.ini");
  if (!ini) return ini.fault();
  return check::SeveritiesOf(*ini);
}

std::string RefusalOf(const std::string& text) {
  const auto read = SeveritiesOf(text);
  return read ? "" : read.fault().Message();
}

TEST(SeveritiesOfAProject, AreThoseOfItsSettings) {
  const auto read = SeveritiesOf("[check]\nEQ-305=off\neq-103 = Error\n");
  ASSERT_TRUE(read) << read.fault().Message();
  ASSERT_EQ(read->size(), 2U);
  EXPECT_EQ(read->at("EQ-305"), std::nullopt);
  EXPECT_EQ(read->at("EQ-103"), check::Severity::kError);
}

TEST(SeveritiesOfAProject, AreRefusedWithTheirLine) {
  EXPECT_THAT(RefusalOf("[check]\nEQ-999=off\n"),
              testing::AllOf(testing::StartsWith("bench.ini:2:"),
                             testing::HasSubstr("the rule 'EQ-999' does not exist")));
  EXPECT_THAT(
      RefusalOf("[check]\n\nEQ-305=loud\n"),
      testing::AllOf(testing::StartsWith("bench.ini:3:"),
                     testing::HasSubstr("a severity is 'off', 'note', 'warning' or 'error', not 'loud'")));
}

TEST(JobOfAProject, IsReadWithItsLimits) {
  const auto ini = project::ReadBenchIni("[job]\nspeed=3000\nforce = 45.5\n", "bench.ini");
  ASSERT_TRUE(ini) << ini.fault().Message();
  EXPECT_EQ(ini->job.speed, 3000);
  EXPECT_EQ(ini->job.force, 45.5);
  EXPECT_EQ(ini->job.density, 7.85);
  EXPECT_THAT(RefusalOf("[job]\ndensity=0\n"), testing::HasSubstr("'density' is a number above 0"));
  EXPECT_THAT(RefusalOf("[job]\nmass=3\n"),
              testing::HasSubstr("unknown setting 'mass' in [job]: expected 'speed', 'force' or 'density'"));
}

}  // namespace
}  // namespace vanzet::test
