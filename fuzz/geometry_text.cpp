#include <cstdio>

#include "fuzz/fuzz.h"
#include "geometry/kurveex.h"

namespace {

/// What was read is written in every form, to nowhere.
void WriteAll(const geometry::KurveEx& k) {
  std::FILE* const nowhere = std::fopen("/dev/null", "w");
  if (nowhere == nullptr) return;
  k.Write(nowhere, 1);
  k.Print(nowhere);
  k.WriteSourceVertices(nowhere, "k");
  k.WriteSourceSpans(nowhere, "k");
  std::fclose(nowhere);
}

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  std::FILE* const stream = std::tmpfile();
  if (stream == nullptr) return 0;
  std::fwrite(data, 1, size, stream);
  std::rewind(stream);
  geometry::KurveEx k;
  try {
    while (k.Read(stream)) WriteAll(k);
  } catch (const wchar_t*) {
    // An arc that is none.
  }
  std::fclose(stream);
  return 0;
}
