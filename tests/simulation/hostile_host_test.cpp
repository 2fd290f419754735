#include <algorithm>
#include <limits>
#include <map>
#include <stdexcept>

#include "platform/host_extensions.h"
#include "simulation/device_contours.h"
#include "simulation/simulation_fixture.h"
#include "store/device_import.h"
#include "support/fake_host_functions.h"

namespace vanzet::test {
namespace {

using testing::Lt;

/// More calls than this are a loop without end.
constexpr std::int64_t kManyCalls = 10'000'000;

/// Functions that take the place of those of the host in memory, and the number of their calls.
std::map<std::string, void*> lies;
std::int64_t calls = 0;

void* FindLie(void* /*module*/, const char* name) {
  const auto lie = lies.find(name);
  return lie == lies.end() ? FakeFunction(name) : lie->second;
}

std::int32_t FewerThanNone(std::uint32_t /*handle*/) {
  return std::numeric_limits<std::int32_t>::min();
}
std::int32_t SpansWithoutEnd(std::int32_t /*kurve*/) {
  return std::numeric_limits<std::int32_t>::max();
}
std::int32_t NeverAtTheEnd(std::int32_t /*handle*/) {
  if (++calls > kManyCalls) throw std::runtime_error("a loop without end");
  return 0;
}
void GiveZeros(std::int32_t /*handle*/, void* buffer, std::int32_t bytes) {
  std::fill_n(static_cast<unsigned char*>(buffer), bytes, 0);
}
void GiveOrigin(double* x, double* y, double* z, double* centreX, double* centreY, std::int32_t* direction,
                std::int32_t /*handle*/) {
  if (++calls > kManyCalls) throw std::runtime_error("a loop without end");
  *x = *y = *z = *centreX = *centreY = 0;
  *direction = 1;
}
void TakeNoItem(std::uint32_t /*handle*/, const char* /*text*/, std::int32_t /*count*/) {}

/// The items of the host in memory at first, then the facts of a jaw without end.
void GiveItemsWithoutEnd(std::uint32_t handle, char* buffer, std::int32_t count) {
  constexpr std::int64_t kTrueItems = 100;
  if (++calls > kManyCalls) throw std::runtime_error("a loop without end");
  if (calls < kTrueItems) {
    reinterpret_cast<decltype(&GiveItemsWithoutEnd)>(FakeFunction("OrvoMacroVdmSingleGet$"))(handle, buffer,
                                                                                             count);
  }
  if (calls < kTrueItems && *buffer != '\0') return;
  std::ranges::copy(std::string_view("3 1 0 0\0", 8), buffer);
}

std::string reported;

void KeepReport(const char* text, const char* /*file*/, std::int32_t /*line*/, std::int32_t /*column*/,
                const char* /*source*/, std::int32_t /*kind*/) {
  reported = text;
}

/// A host that gives numbers that no store and no contour has.
class HostileHost : public SimulationTest {
 protected:
  HostileHost() {
    calls = 0;
    host::symbolFinder = FindLie;
    host::hostFunctions = {};
  }
  ~HostileHost() override { lies.clear(); }

  template <class Function>
  static void Lie(const std::string& name, Function* function) {
    lies[name] = reinterpret_cast<void*>(function);
  }
};

TEST_F(HostileHost, OfFewerOperationsThanNoneIsNotAskedForEachOfThem) {
  Lie("OrvoMacroVdmSize", FewerThanNone);
  host.TakeCalls();
  BilletVdm(kVdm).ReOrg([](BilletVdm&, bool) {});
  EXPECT_THAT(host.calls.size(), Lt(1000U));
}

TEST_F(HostileHost, ThatGivesItemsWithoutEndIsNotReadWithoutEnd) {
  constexpr std::uint32_t kSource = 1900;
  host.vdms[kSource].records = {{"1 1 0"}, {"2 1 4 1 2147483647 1 0", "Own jaw", "#VRML V2.0"}};
  Lie("OrvoMacroVdmSingleGet$", GiveItemsWithoutEnd);
  Lie("OrvoMacroVdmSingleAdd$", TakeNoItem);
  EXPECT_EQ(ImportDevice(0, 0, true, kSource), 0);
  EXPECT_GT(calls, 1'000'000) << "as many as any device has are taken";
}

TEST_F(HostileHost, ThatNeverEndsAContourIsNotReadWithoutEnd) {
  host.kurves[30000] = {{0, 0}};
  Lie("OrvoVdmEoi", NeverAtTheEnd);
  Lie("OrvoVdmRead", GiveZeros);
  Lie("OrvoMacroVdmSingleAdd$", TakeNoItem);
  BilletVdm definition(kVdm);
  ASSERT_TRUE(definition.Open());
  EXPECT_TRUE(StoreKurveGeometry(definition, false, 1, 30000));
}

TEST_F(HostileHost, OfSpansWithoutEndIsNotAskedForAllOfThem) {
  host.kurves[30001] = {{0, 0}};
  Lie("OrvoFindNoOfSpansFromKurveNo", SpansWithoutEnd);
  Lie("OrvoGetSpn", GiveOrigin);
  Lie("OrvoMacroVdmSingleAdd$", TakeNoItem);
  BilletVdm definition(kVdm);
  ASSERT_TRUE(definition.Open());
  EXPECT_TRUE(StoreJawD2t(definition, false));
}

TEST_F(HostileHost, ThatThrowsWhileAStoreGoesDoesNotEndTheProgram) {
  const auto former = std::exchange(platform::extensionFinder, [](void*, const char* name) -> void* {
    return std::string_view(name) == "VanzetReportFault" ? reinterpret_cast<void*>(KeepReport) : nullptr;
  });
  {
    BilletVdm definition(kVdm);
    ASSERT_TRUE(definition.Open());
    host.onCall = [](const std::string& name) {
      if (name.starts_with("OrvoMacroVdm")) throw std::runtime_error("the host has gone");
    };
  }
  platform::extensionFinder = former;
  EXPECT_EQ(reported, "the host has gone");
}

}  // namespace
}  // namespace vanzet::test
