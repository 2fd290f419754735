#include <cstdlib>
#include <sstream>
#include <vector>

#include "catalogue/catalogue_lines.h"
#include "devices/outline.h"
#include "fuzz/fuzz.h"
#include "macro/device_record.h"

namespace {

using Lines = std::vector<std::string>;

Lines LinesOf(const std::string& text) {
  std::istringstream stream(text);
  Lines lines;
  vanzet::ReadCatalogueLines(stream, lines);
  return lines;
}

void Expect(bool holds) {
  if (!holds) std::abort();
}

/// A value line as it is kept: read, and written in its full form.
std::string Kept(const std::string& line) {
  vanzet::DeviceParams params;
  vanzet::UnpackDeviceParams(params, line);
  static_cast<void>(vanzet::OutlineOf(params));
  std::string kept;
  vanzet::PackDeviceParams(params, kept);
  return kept;
}

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const Lines lines = LinesOf(vanzet::fuzz::TextOf(data, size));
  Expect(LinesOf(vanzet::CatalogueText(lines)) == lines);
  for (const std::string& line : lines) {
    Expect(vanzet::OneCatalogueLine(line) == line);
    const std::string kept = Kept(line);
    Expect(Kept(kept) == kept);
  }
  return 0;
}
