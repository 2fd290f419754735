#include "define/form_fixture.h"

namespace vanzet::test {
namespace {

/// A name is there when it begins with "ok".
Result<void> Found(const std::string& name) {
  return name.starts_with("ok") ? Result<void>() : Fault{"is not there", name};
}

std::vector<std::string> Below(const std::vector<std::string>& lines, const std::string& path) {
  std::vector<std::string> below;
  for (const std::string& line : lines)
    below.push_back(line.starts_with(path) ? line.substr(path.size()) : line);
  return below;
}

}  // namespace

FormTest::FormTest() {
  surroundings.catalogue = {
      {"Chuck 160", {.type = 1, .A = 80, .B = 90, .C = 22.5}},
      {"Collet D42", {.type = 2, .A = 33, .B = 94, .C = 12, .D = 21, .E = 38, .F = 2.5}},
      {"Soft jaw 160", {.type = 9, .A = 38, .B = 62, .C = 12, .D = 24}},
      {"Center MT3", {.type = 13, .A = 110, .B = 55, .C = 32, .D = 10, .E = 30, .F = 22, .G = 60}}};
  surroundings.spurs = 2;
  surroundings.hasSubSpindle = surroundings.hasTailStock = surroundings.hasSteadyRest = true;
  surroundings.ownDevice = [](const std::string& file) -> Result<scene::DeviceClass> {
    const auto found = scene::DeviceClassNamed(file.substr(0, file.find('.')));
    return found ? Result<scene::DeviceClass>(*found) : Fault{"cannot be read", file};
  };
  surroundings.figure = Found;
  surroundings.solid = Found;
}

std::vector<std::string> FormTest::RefusedOf(const std::string& json) {
  define::Json form = *define::ReadJson(json, "form.json");
  std::vector<std::string> lines;
  for (const define::Refusal& refusal : CheckForm(form, surroundings)) {
    lines.push_back(refusal.path + ": " + refusal.reason);
  }
  return lines;
}

std::vector<std::string> FormTest::RefusedOfSpur(const std::string& keys) {
  return Below(RefusedOf(R"({"spurs": [{"spur": 0, )" + keys + "}]}"), "$.spurs[0].");
}

std::vector<std::string> FormTest::RefusedOfMain(const std::string& keys) {
  return Below(RefusedOfSpur(R"("main": {)" + keys + "}"), "main.");
}

define::Json FormTest::Completed(const std::string& json) {
  define::Json form = *define::ReadJson(json, "form.json");
  EXPECT_TRUE(CheckForm(form, surroundings).empty());
  return form;
}

}  // namespace vanzet::test
