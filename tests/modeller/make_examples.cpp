// Makes the files of examples/bodies: a casting as STEP, and the same as a scanner would give it, as STL.
// usage: make_example_bodies FOLDER

#include <cstdlib>

#include "modeller/foreign_files.h"
#include "modeller/solids.h"

int main(int argc, char** argv) {
  using namespace vanzet::test;
  if (argc != 2) return EXIT_FAILURE;
  const std::filesystem::path folder = argv[1];
  WriteStep(Casting(), folder / "casting.step");
  WriteStl(Casting(), folder / "scan.stl", StlForm::kBinary);
  return EXIT_SUCCESS;
}
