#pragma once

#include <cstdint>
#include <cstdio>
#include <set>
#include <string>

#include "Paper.h"

namespace drawing {

/// Writes the results of the scenes. Each picture has a line in "scenes.txt": its name, the results
/// of the calls that drew it, and a checksum of its pixels. Pictures asked for are also written as
/// "<name>.raw": a line with width, height and bits a pixel, then the rows from the top.
class Album {
 public:
  /// `wanted`: pictures whose pixels are written. `spoilt`: a picture with one pixel changed, to
  /// test the comparison; empty for none.
  Album(std::string folder, std::set<std::string> wanted, std::string spoilt);
  ~Album();
  Album(const Album&) = delete;
  Album& operator=(const Album&) = delete;

  /// False when the folder cannot be written to.
  bool IsOpen() const { return list != nullptr; }

  void Add(const std::string& name, std::uint32_t answers, const Paper& paper);

 private:
  void WritePixels(const std::string& name, const Paper& paper, const std::string& pixels) const;

  const std::string folder;
  const std::set<std::string> wanted;
  const std::string spoilt;
  std::FILE* const list;
};

}  // namespace drawing
