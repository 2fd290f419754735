#pragma once

#include <cstdint>
#include <deque>
#include <functional>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "host/host_functions.h"
#include "platform/message_box.h"
#include "support/fake_bodies.h"

namespace vanzet::test {

/// A host in memory, in force while it lives. It has every function that the tests need, keeps what it was
/// asked, and can be told to lack or to refuse things.
class FakeHost : private platform::BoxPresenter {
 public:
  using Record = std::vector<std::string>;
  struct Vdm {
    std::vector<Record> records;
    std::uint32_t handle = 0;  ///< while open
    std::int32_t record = 0;   ///< the position
    std::int32_t item = 0;
    bool openElsewhere = false;
  };

  /// A vertex of a contour, with what the host's raw store says of the span that ends there.
  struct Vertex {
    double x, y;
    double centreX = 0, centreY = 0;
    std::int32_t direction = 0;
  };

  FakeHost();
  ~FakeHost() override;
  FakeHost(const FakeHost&) = delete;
  FakeHost& operator=(const FakeHost&) = delete;

  /// The one in force.
  static FakeHost& Current();

  // What the host holds.
  std::map<std::string, std::string> environment;
  std::map<std::string, std::int32_t> integers;
  std::map<std::string, double> reals;
  std::map<std::string, std::string> texts;
  std::map<std::int32_t, std::string> translations;
  std::map<std::uint32_t, Vdm> vdms;
  std::map<std::int32_t, std::vector<Vertex>> kurves;
  FakeBodies bodies;
  void* structure = nullptr;              ///< what `OrvoGetStructPtr` gives, whatever is asked for
  std::vector<std::string> layers;        ///< names by number
  std::optional<std::int32_t> spanCount;  ///< what is told of any contour instead of the truth
  std::int32_t currentLayer = 0;

  // What it lacks or refuses.
  std::set<std::string> missing;
  std::int32_t existsFlag = 1;                ///< what a VDM that is there is told by
  std::optional<std::int32_t> checkOpenFlag;  ///< what is told of any VDM instead of the truth
  bool refusesCreate = false;
  bool refusesOpen = false;

  /// What a line of the macro language does, and a macro with its arguments; nothing at first.
  std::function<void(const std::string&)> onCommand;
  std::function<void(const std::string&, const std::string&)> onMacro;

  /// Called for every function before it does anything; it may throw.
  std::function<void(const std::string& name)> onCall;

  bool keepsCalls = true;  ///< false: `calls` stays empty, for work that is repeated very often

  // What it was asked, in order.
  std::vector<std::string> lookUps;         ///< names of functions
  std::vector<std::string> calls;           ///< "OrvoMacroVdmSeek(1, 0, 0)"
  std::vector<platform::MessageBox> boxes;  ///< all that were shown
  std::deque<std::int32_t> answers;         ///< to the boxes to come; without one: the safe answer
  std::int32_t missingCalls = 0;            ///< how often the fallback was called

  /// The boxes as "caption|text|type", and none is kept.
  std::vector<std::string> TakeBoxes();

  /// The calls whose names begin with `prefix`, and none is kept.
  std::vector<std::string> TakeCalls(const std::string& prefix = "");

  /// The items of one record; empty when there is no such record.
  Record ItemsOf(std::uint32_t vdm, std::size_t record);

  /// The open VDM behind a handle, or null.
  Vdm* Open(std::uint32_t handle);

  /// The record at the position of an open VDM, or null.
  static Record* Current(Vdm* vdm);

  /// Where the window of `OrvoGetWnd` with that selector lies.
  static void* WindowOf(std::int32_t selector);

  std::uint32_t nextHandle = 41;

  /// A contour that is read: its number, and the vertices that were.
  struct KurveReading {
    std::int32_t kurve;
    std::size_t read = 0;
  };
  std::map<std::int32_t, KurveReading> kurveReadings;  ///< by handle, those not closed yet

 private:
  std::int32_t Present(const platform::MessageBox& message) override;

  host::HostFunctionCache formerFunctions_;
  host::SymbolFinder formerFinder_;
  FakeHost* former_;
  platform::PresenterScope presenter_;
};

}  // namespace vanzet::test
