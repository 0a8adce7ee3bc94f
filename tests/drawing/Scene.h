// Small drawings made of the calls that the engine draws with.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "Album.h"
#include "Paper.h"
#include "Random.h"

namespace drawing {

/// One drawing under way: the random numbers for it, and the album for its pictures.
class Scene {
 public:
  Scene(Album& album, const std::string& family, int index);

  const int index;
  Random random;

  /// Notes the result of a call.
  void Note(std::int64_t answer) {
    answers = (answers ^ static_cast<std::uint32_t>(answer)) * 16777619U;
  }

  /// The kinds of paper take turns.
  Paper::Kind GetKind() const { return static_cast<Paper::Kind>(index % Paper::KINDS); }

  /// Puts the picture into the album. A scene with several pictures names each.
  void Keep(const Paper& paper, const char* part = "");

 private:
  Album& album;
  const std::string name;
  std::uint32_t answers = 2166136261U;
};

/// Drawings of one kind, numbered from 0.
struct Family {
  std::string name;
  int count;
  std::function<void(Scene& scene)> draw;
};

std::vector<Family> LineFamilies();
std::vector<Family> ShapeFamilies();
std::vector<Family> BlitFamilies();
/// Starts an engine that lives as long as the process. It loads the display font.
std::vector<Family> ViewFamilies();
/// Uses the display font if that is loaded.
std::vector<Family> TextFamilies();

}  // namespace drawing
