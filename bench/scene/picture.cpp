#include "scene/picture.h"

#include <algorithm>
#include <atomic>
#include <thread>

#include "scene/painter.h"

namespace vanzet::scene {
namespace {

constexpr int kMostSamples = 250'000;  // of a band
constexpr int kBandsForThread = 4;     // at least, so that threads end at the same time
constexpr unsigned kMostThreads = 8;

/// Calls `work(next)` on each processor; `next()` gives each number below `count` to one of them. Numbers at
/// or above `count` end the work.
template <class Work>
void Share(int count, Work work) {
  std::atomic<int> next = 0;
  const auto take = [&next] { return next++; };
  const unsigned processors = std::clamp(std::thread::hardware_concurrency(), 1U, kMostThreads);
  std::vector<std::jthread> others;
  for (unsigned i = 1; i < processors && static_cast<int>(i) < count; ++i)
    others.emplace_back([&] { work(take); });
  work(take);
}

/// Makes each pixel the mean of its samples.
void Reduce(Raster& raster, int samples, Picture& picture) {
  const int rows = raster.range().Height() / samples, first = raster.range().top / samples;
  const int ofPixel = samples * samples;
  for (int y = 0; y < rows; ++y) {
    for (int x = 0; x < picture.width; ++x) {
      std::array<int, 3> sum{};
      for (int i = 0; i < ofPixel; ++i) {
        const Raster::Sample& sample =
            raster.At(x * samples + i % samples, raster.range().top + y * samples + i / samples);
        for (std::size_t k = 0; k < 3; ++k) sum[k] += sample.colour[k];
      }
      const auto pixel = (static_cast<std::size_t>(first + y) * static_cast<std::size_t>(picture.width) +
                          static_cast<std::size_t>(x)) *
                         3;
      for (std::size_t k = 0; k < 3; ++k) {
        picture.bytes[pixel + k] = static_cast<std::uint8_t>((sum[k] + ofPixel / 2) / ofPixel);
      }
    }
  }
}

void PaintBands(const std::vector<ProjectedBody>& bodies, const Camera& camera, const Model& model,
                const DrawOptions& options, Picture& picture) {
  const int samples = options.samples, least = kBandsForThread * static_cast<int>(kMostThreads);
  const int height =
      std::clamp(kMostSamples / (options.width * samples * samples), 1, std::max(1, options.height / least));
  const int bands = (options.height + height - 1) / height;
  Share(bands, [&](auto next) {
    Painter painter(camera, model.section, options);
    for (int band = next(); band < bands; band = next()) {
      const int top = band * height, bottom = std::min(top + height, options.height);
      Raster& raster = painter.Begin({0, top * samples, options.width * samples, bottom * samples});
      painter.Paint(bodies, model.marks);
      Reduce(raster, samples, picture);
    }
  });
}

}  // namespace

Picture Draw(const Model& model, const PictureOptions& options) {
  const auto points = options.fitted.empty() ? PointsOf(model) : PointsOf(model, options.fitted);
  const Look look = LookFrom(options.view, options.isPerspective, points, options.width, options.height);
  return Draw(model, look, {.width = options.width, .height = options.height});
}

Picture Draw(const Model& model, const Look& look, const DrawOptions& options) {
  const Camera camera(look);
  Picture picture{options.width, options.height, {}};
  picture.bytes.resize(static_cast<std::size_t>(options.width) * static_cast<std::size_t>(options.height) *
                       3);
  const std::vector<Drawn> drawn = DrawnBodies(model, options);
  std::vector<ProjectedBody> bodies(drawn.size());
  const int bodyCount = static_cast<int>(drawn.size());
  Share(bodyCount, [&](auto next) {
    for (int i = next(); i < bodyCount; i = next()) {
      const auto number = static_cast<std::size_t>(i);
      bodies[number] = ProjectBody(drawn[number], camera, options.samples);
    }
  });
  PaintBands(bodies, camera, model, options, picture);
  return picture;
}

}  // namespace vanzet::scene
