#include "geometry/host_matrix_vdm.h"

#include <gtest/gtest.h>

#include <cstring>
#include <map>
#include <string>

#include "geometry/matrix.h"
#include "geometry/support.h"
#include "host/host_functions.h"

namespace geometry {
namespace {

/// The exports of a host that stores matrices, one VDM at a time being open.
struct StoringHost {
  std::map<std::int32_t, std::string> records;
  std::int32_t open = 0;
  std::string calls;
};
StoringHost host;

std::int32_t Make(std::int32_t number, std::int32_t two, std::int32_t zero) {
  host.calls += "make" + std::to_string(two) + std::to_string(zero) + " ";
  host.open = number;
  return number > 0 ? 5 : -1;
}
std::int32_t Open(std::int32_t number, std::int32_t mode, std::int32_t two) {
  host.calls += "open" + std::to_string(mode) + std::to_string(two) + " ";
  host.open = number;
  return host.records.contains(number) ? 5 : -1;
}
std::int32_t Write(std::int32_t, const void* record) {
  host.calls += "write ";
  host.records[host.open].assign(static_cast<const char*>(record), 144);
  return 0;
}
std::int32_t Read(std::int32_t, void* record) {
  host.calls += "read ";
  std::memcpy(record, host.records[host.open].data(), 128);
  return 0;
}
std::int32_t Close(std::int32_t) {
  host.calls += "close ";
  return 0;
}

void* FindExport(void*, const char* name) {
  const std::map<std::string, void*> exports = {{"OrvoVdmMake", reinterpret_cast<void*>(Make)},
                                                {"OrvoVdmOpen", reinterpret_cast<void*>(Open)},
                                                {"OrvoVdmWriteTmx", reinterpret_cast<void*>(Write)},
                                                {"OrvoVdmReadTmx", reinterpret_cast<void*>(Read)},
                                                {"OrvoVdmClose", reinterpret_cast<void*>(Close)}};
  return exports.at(name);
}

TEST(HostMatrixVdm, GoesThroughTheExportsOfTheHost) {
  const auto former = vanzet::host::symbolFinder;
  vanzet::host::symbolFinder = FindExport;
  UseHostForMatrixVdm();
  host = StoringHost();
  Matrix m;
  Matrix back;
  m.Rotate(0.4, 1);
  m.Translate(1, 2, 3);
  m.ToVdm(77);
  back.FromVdm(77);
  EXPECT_TRUE(back == m);
  EXPECT_EQ(host.calls, "make20 write close open22 read close ");
  EXPECT_EQ(testing::ThrownText([&] { m.ToVdm(0); }), L"Failed to create Matrix VDM");
  EXPECT_EQ(testing::ThrownText([&] { m.FromVdm(78); }), L"Failed to open Matrix VDM");
  vanzet::host::symbolFinder = former;
}

}  // namespace
}  // namespace geometry
