#include "dialog/pages/picks.h"

#include <array>

#include "dialog/texts.h"
#include "host/bridge.h"
#include "host/host_functions.h"
#include "host/macro_variables.h"
#include "host/message_ids.h"
#include "platform/host_text.h"

namespace vanzet::dialog {
namespace {

using host::hostFunctions;
using host::SendCommand;

/// The status of a pick, from the host.
namespace status {
constexpr std::int32_t kBrokenOff = 27;
constexpr std::int32_t kFigurePicked = 151;
}  // namespace status

/// The host's filter masks: bodies; solids and meshes.
constexpr std::int32_t kBodies = 2048;
constexpr std::int32_t kSolids = 18432;

constexpr double kMillimetres = 1000;

std::int32_t SelectObject(std::int32_t filterMask, const std::string& prompt) {
  std::int32_t object = 0;
  hostFunctions.OrvoClearSelection();
  hostFunctions.OrvoSelectOneObject(0, filterMask, prompt, &object);
  return object;
}

bool IsFigurePickOver(std::int32_t pick) {
  return pick == status::kBrokenOff || pick == 101 || pick == 13;
}

void ReadFigureName(std::int32_t number, std::string& figure) {
  SendCommand("i1215=" + std::to_string(number));
  SendCommand("dfm inf i1215");
  SendCommand("$_return=$_misc");
  OrvoApi::GetGlobalStrVar("$_return", figure);
}

}  // namespace

bool PickPosition() {
  host::RunMacro("vbpickel", "POS");
  return OrvoApi::GetGlobalIntVar("i_return") != status::kBrokenOff;
}

void ReadPickedLength(double& length) {
  OrvoApi::GetGlobalRealVar("w_return", length);
}

void ReadPickedRadius(double& radius) {
  OrvoApi::GetGlobalRealVar("w_return2", radius);
}

void PickFigure(std::string& figure) {
  const std::string prompt = TextByMessage(message::kSelectFigure);
  for (;;) {
    SendCommand("dfm pick i_return i_return2 '" + prompt + "' 20");
    bool isRead = false;
    const std::int32_t pick = OrvoApi::GetGlobalIntVar("i_return", isRead);
    if (pick == status::kFigurePicked) {
      const std::int32_t number = OrvoApi::GetGlobalIntVar("i_return2");
      if (number >= 0) return ReadFigureName(number, figure);
    }
    // When the status cannot be read, asking again would never end.
    if (IsFigurePickOver(pick) || !isRead) return SendCommand("dfm umark -1");
  }
}

std::int32_t PickBody() {
  const std::int32_t object = SelectObject(kBodies, platform::HostText("W\xC3\xA4hlen Sie einen Body"));
  const std::int32_t body = hostFunctions.OrvoGetObjectParasolidEntityNumber(object);
  hostFunctions.OrvoClearSelection();
  return body;
}

std::int32_t PickSolid() {
  const std::int32_t object = SelectObject(kSolids, Text(message::kSelectSolid));
  hostFunctions.OrvoClearSelection();
  return hostFunctions.OrvoGetObjectParasolidEntityNumber(object);
}

BodyExtents ExtentsOf(std::int32_t body) {
  // Minimum X, Y, Z, maximum X, Y, Z.
  std::array<double, 6> box = {};
  hostFunctions.OrvoPsGetExtents(body, box.data());
  return {(box[3] - box[0]) * kMillimetres, (box[4] - box[1]) * kMillimetres};
}

}  // namespace vanzet::dialog
