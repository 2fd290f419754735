// Makes definitions with equipment to look at: make_example_equipment DIR

#include <cstdio>

#include "api/host_fixture.h"
#include "scene/defined_equipment.h"
#include "vdm/vdm_file.h"

namespace {

class Maker : public vanzet::test::HostTest {
 public:
  void TestBody() override {}

  bool Save(const std::filesystem::path& file) {
    const auto content = host->store.Snapshot(project->DefinitionOf(0));
    return panel.lines.empty() && content && vanzet::vdm::WriteVdmFile(file, *content);
  }
};

struct Example {
  const char* file;
  void (*define)();
};
constexpr Example kExamples[] = {
    {"two_spindles.vdm", vanzet::test::DefineTwoSpindles},
    {"with_center.vdm", vanzet::test::DefineWithCenter},
};

}  // namespace

int main(int argc, char** argv) {
  if (argc != 2) return 2;
  for (const auto& [file, define] : kExamples) {
    Maker maker;
    define();
    if (maker.Save(std::filesystem::path(argv[1]) / file)) continue;
    std::fprintf(stderr, "%s could not be made\n", file);
    return 1;
  }
}
