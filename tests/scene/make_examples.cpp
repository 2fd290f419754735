// Makes the definitions of examples/equipment: make_example_equipment DIR

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
    return content && vanzet::vdm::WriteVdmFile(file, *content);
  }
};

}  // namespace

int main(int argc, char** argv) {
  if (argc != 2) return 2;
  const std::filesystem::path folder = argv[1];
  for (const auto& [name, define] : {std::pair{"two_spindles.vdm", vanzet::test::DefineTwoSpindles},
                                     {"with_center.vdm", vanzet::test::DefineWithCenter}}) {
    Maker maker;
    define();
    if (maker.Save(folder / name) && maker.panel.lines.empty()) continue;
    std::fprintf(stderr, "%s could not be made\n", name);
    return 1;
  }
}
