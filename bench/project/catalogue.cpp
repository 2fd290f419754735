#include "project/catalogue.h"

namespace vanzet::project {
namespace {

/// A shorter setting does not name a file.
constexpr std::size_t kShortestPath = 3;

}  // namespace

std::filesystem::path CatalogueFile(const Project& project, std::string_view setting) {
  const bool isPath = setting.size() >= kShortestPath;
  return project.paths().Resolve(isPath ? std::string(setting) : project.Environment("clampmdb"));
}

}  // namespace vanzet::project
