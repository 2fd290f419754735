#include "project/bench_ini.h"
#include "fuzz/fuzz.h"

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static_cast<void>(vanzet::project::ReadBenchIni(vanzet::fuzz::TextOf(data, size), "bench.ini"));
  return 0;
}
