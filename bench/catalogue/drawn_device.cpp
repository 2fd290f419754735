#include "catalogue/drawn_device.h"

#include <algorithm>

#include "base/number_text.h"
#include "catalogue/dimension_lines.h"
#include "devices/kinds.h"

namespace vanzet::catalogue {
namespace {

constexpr const char* kCut = "fill=\"#c3ced8\" stroke=\"#2f3b46\" stroke-width=\"1.6\"";
constexpr const char* kSeen = "fill=\"#e8edf1\" stroke=\"#5c6873\" stroke-width=\"1.1\"";

std::string Number(double value) {
  return ShortDecimalText(value, 2);
}

/// The lanes that the measures of a device take on one side.
int LanesAt(const devices::Device& device, devices::Where where) {
  int lanes = 0;
  for (const devices::Measure& measure : device.measures) {
    if (measure.where == where) lanes = std::max(lanes, measure.lane + 1);
  }
  return lanes;
}

}  // namespace

DrawnDevice::DrawnDevice(const DeviceParams& params, const Frame& frame, double lane)
    : params_(params), outline_(OutlineOf(params)), isSpun_(!devices::IsJaw(params.type)), lane_(lane) {
  const auto [leftmost, rightmost] = std::ranges::minmax(outline_, {}, &OutlineVertex::x);
  const auto [lowest, highest] = std::ranges::minmax(outline_, {}, &OutlineVertex::y);
  minX_ = leftmost.x, maxX_ = rightmost.x, maxY_ = highest.y;
  minY_ = isSpun_ ? -highest.y : lowest.y;
  FitInto(frame);
}

void DrawnDevice::FitInto(const Frame& frame) {
  using devices::Where;
  const devices::Device& device = *devices::Find(params_.type);
  const auto room = [&](Where where) { return (LanesAt(device, where) + 0.6) * lane_; };
  constexpr double kWide = 1.7;  // the lanes at the sides, of which the labels are wider than high
  const double before = room(Where::kLeft) * kWide, after = room(Where::kRight) * kWide;
  const double above = room(Where::kAbove), below = room(Where::kBelow);
  const double width = frame.width - before - after, height = frame.height - above - below;
  scale_ = std::min(width / (maxX_ - minX_), height / (maxY_ - minY_));
  left_ = frame.x + before + (width - (maxX_ - minX_) * scale_) / 2;
  top_ = frame.y + above + (height - (maxY_ - minY_) * scale_) / 2;
}

OutlineVertex DrawnDevice::OnPaper(double x, double y) const {
  return {left_ + (x - minX_) * scale_, top_ + (maxY_ - y) * scale_};
}

std::string DrawnDevice::PathOf(double sign, const char* style) const {
  std::string path;
  for (const OutlineVertex& vertex : outline_) {
    const OutlineVertex point = OnPaper(vertex.x, sign * vertex.y);
    path += (path.empty() ? "M" : " L") + Number(point.x) + " " + Number(point.y);
  }
  return "<path d=\"" + path + " Z\" stroke-linejoin=\"round\" " + style + "/>\n";
}

std::string DrawnDevice::Axis() const {
  constexpr double kBeyond = 10;
  const OutlineVertex from = OnPaper(minX_, 0), to = OnPaper(maxX_, 0);
  return "<path d=\"M" + Number(from.x - kBeyond) + " " + Number(from.y) + " L" + Number(to.x + kBeyond) +
         " " + Number(to.y) +
         "\" fill=\"none\" stroke=\"#7d868f\" stroke-width=\"0.8\" stroke-dasharray=\"14 3 3 3\"/>\n";
}

std::string DrawnDevice::Svg() const {
  std::string svg = isSpun_ ? PathOf(-1, kSeen) : "";
  svg += PathOf(1, kCut);
  if (isSpun_) svg += Axis();
  if (lane_ == 0) return svg;
  const OutlineVertex first = OnPaper(minX_, maxY_), last = OnPaper(maxX_, minY_);
  const DevicePlace place{
      [this](double x, double y) { return OnPaper(x, y); }, first.x, first.y, last.x, last.y, lane_};
  for (const devices::Measure& measure : devices::Find(params_.type)->measures) {
    svg += DimensionOf(measure, params_, place);
  }
  return svg;
}

}  // namespace vanzet::catalogue
