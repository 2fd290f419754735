#include "drawing/picture_view.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "base/number_text.h"

namespace vanzet::drawing {
namespace {

using geometry::Box;
using geometry::Point;

/// In pixels.
constexpr double kMargin = 32, kUsualWidth = 800, kUsualHeight = 560;
/// A long drawing, such as that of a bar, gets a larger picture, which is never longer than this for its
/// width.
constexpr double kLongSide = 1600, kLongestRatio = 4;
/// The largest share of a picture that its margin takes.
constexpr double kLargestMargin = 0.1;
/// The extent that is assumed for a drawing without one, in millimetres.
constexpr double kUsualExtent = 100;
constexpr int kDigits = 10, kLengthDigits = 5;

/// The box with an extent in at least one direction.
Box Usable(Box box) {
  if (box.min.x > box.max.x) box = Box(Point(0, 0), Point(0, 0));
  if (std::max(box.Width(), box.Height()) > 0) return box;
  box.Grow(kUsualExtent / 2);
  return box;
}

double MarginOf(double size) {
  return std::min(kMargin, size * kLargestMargin);
}

/// The number of pixels per millimetre at which the extent fits, with margins.
double ScaleFor(double extent, double size) {
  return extent > 0 ? (size - 2 * MarginOf(size)) / extent : std::numeric_limits<double>::infinity();
}

/// The pixels that an extent takes at that scale, with margins; not too few beside the other side.
int SizeFor(double extent, double scale, double otherSide) {
  const double size = std::max(std::ceil(extent * scale + 2 * kMargin), std::ceil(otherSide / kLongestRatio));
  return static_cast<int>(std::clamp<double>(size, kSmallestPicture, kLargestPicture));
}

/// The usual largest size of a side, when the other side of the drawing is `across` long.
double UsualSize(double usual, double extent, double across) {
  return extent > kLongestRatio * across ? kLongSide : usual;
}

}  // namespace

PictureView::PictureView(const Box& content, const PictureOptions& options) {
  const Box box = Usable(content);
  // A size that was not given is the usual one and shrinks to the size that the drawing needs. When only one
  // was given, the other becomes as large as necessary.
  const double largestWidth = options.width    ? *options.width
                              : options.height ? kLargestPicture
                                               : UsualSize(kUsualWidth, box.Width(), box.Height());
  const double largestHeight = options.height  ? *options.height
                               : options.width ? kLargestPicture
                                               : UsualSize(kUsualHeight, box.Height(), box.Width());
  scale_ = std::min(ScaleFor(box.Width(), largestWidth), ScaleFor(box.Height(), largestHeight));
  const double width = options.width.value_or(0), height = options.height.value_or(0);
  width_ = options.width.value_or(
      SizeFor(box.Width(), scale_, std::max(height, box.Height() * scale_ + 2 * kMargin)));
  height_ = options.height.value_or(
      SizeFor(box.Height(), scale_, std::max(width, box.Width() * scale_ + 2 * kMargin)));
  const Point middle = box.Mid();
  const double halfWidth = width_ / scale_ / 2, halfHeight = height_ / scale_ / 2;
  seen_ = Box(Point(middle.x - halfWidth, middle.y - halfHeight),
              Point(middle.x + halfWidth, middle.y + halfHeight));
}

std::string PictureView::Transform() const {
  const std::string scale = NumberText(scale_);
  return "matrix(" + scale + " 0 0 -" + scale + " " + NumberText(-seen_.min.x * scale_) + " " +
         NumberText(seen_.max.y * scale_) + ")";
}

std::string PictureView::Pixels(double pixels) const {
  return vanzet::NumberText(pixels / scale_, kLengthDigits);
}

std::optional<PictureView::Segment> PictureView::VisiblePartOf(const geometry::CLine& line) const {
  double from = -std::numeric_limits<double>::infinity(), to = -from;
  struct Slab {
    double start, direction, low, high;
  };
  for (const auto& [start, direction, low, high] : {Slab{line.p.x, line.v.dx, seen_.min.x, seen_.max.x},
                                                    Slab{line.p.y, line.v.dy, seen_.min.y, seen_.max.y}}) {
    if (direction == 0) {
      if (start < low || start > high) return std::nullopt;
      continue;
    }
    const double a = (low - start) / direction, b = (high - start) / direction;
    from = std::max(from, std::min(a, b));
    to = std::min(to, std::max(a, b));
  }
  if (!(from < to)) return std::nullopt;
  return Segment{line.At(from), line.At(to)};
}

std::string NumberText(double number) {
  return vanzet::NumberText(number, kDigits);
}

}  // namespace vanzet::drawing
