#include "Scene.h"

namespace drawing {

namespace {

std::uint32_t SeedOf(const std::string& family, int index) {
  std::uint32_t seed = (static_cast<std::uint32_t>(index) * 7919U + 1) * 2654435761U;
  for (const char letter : family)
    seed = (seed ^ static_cast<std::uint8_t>(letter)) * 16777619U;
  return seed;
}

}  // namespace

Scene::Scene(Album& sceneAlbum, const std::string& family, int sceneIndex)
    : index(sceneIndex),
      random(SeedOf(family, sceneIndex)),
      album(sceneAlbum),
      name(family + '-' + std::to_string(sceneIndex)) {}

void Scene::Keep(const Paper& paper, const char* part) {
  album.Add(*part == '\0' ? name : name + '-' + part, answers, paper);
}

}  // namespace drawing
