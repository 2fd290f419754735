#include "api/call.h"
#include "api/exports.h"

using namespace vanzet;
using namespace vanzet::api;

extern "C" {

std::int32_t OrvoGetCurrentLayer() {
  return Answer("OrvoGetCurrentLayer", Json::array(), [](Host& host, Json&) {
    Told(host, host.board.Load());
    return host.board.LayerNumber(host.board.layer());
  });
}

const char* OrvoGetLayerName(std::int32_t number) {
  const char* text = Answer("OrvoGetLayerName", {number}, [&](Host& host, Json&) {
    return Returned(host, host.board.LayerName(number).value_or(""));
  });
  return text == nullptr ? "" : text;
}
}
