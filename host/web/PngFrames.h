// Frames that follow each other, as PNG.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "handheld.h"

namespace host {

/// Compresses anew only the bands of rows in which a frame differs from the one before; most of a
/// view stands still between two updates. For one thread, any.
class PngFrames {
 public:
  /// `next` has at least one pixel. True when it differs from the frame before.
  bool Take(handheld::Pixels next);

  /// Pixels of the frame taken last; 0 before the first one.
  int GetWidth() const { return pixels.width; }
  int GetHeight() const { return pixels.height; }

  /// The frame taken last as a file of its own, made at the first call for each frame; empty before
  /// the first one. Throws HostError.
  const std::string& GetPng();

 private:
  struct Band {
    bool isStale = true;
    /// Whole bytes of a DEFLATE stream that refer to nothing before them.
    std::string deflated;
    /// Of what was deflated.
    std::size_t size = 0;
    std::uint32_t adler = 0;
  };

  /// Bytes of the band's rows, each after the number of its filter.
  std::string ListBytes(std::size_t band) const;
  void DeflateStaleBands();
  std::string JoinBands() const;

  handheld::Pixels pixels;
  std::vector<Band> bands;
  /// Empty while the frame has not been asked for.
  std::string png;
};

}  // namespace host
