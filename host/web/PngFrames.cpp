#include "web/PngFrames.h"

#include <zlib.h>

#include <algorithm>
#include <string_view>
#include <utility>

#include "base/HostError.h"

namespace host {

namespace {

/// Fewer rows change less often with their neighbours, more compress better.
constexpr std::size_t BAND_ROWS = 16;

constexpr std::string_view SIGNATURE = "\x89PNG\r\n\x1A\n";
/// Eight bits a sample, red, green and blue; one way each to compress, filter and interlace.
constexpr std::string_view RGB_FORMAT("\x08\x02\x00\x00\x00", 5);
constexpr char NO_FILTER = 0;

/// Window of 32 KB, fastest compression.
constexpr std::string_view ZLIB_HEADER = "\x78\x01";
/// A last block without content.
constexpr std::string_view DEFLATE_END("\x03\x00", 2);

std::uint32_t Adler(const std::string& bytes) {
  return static_cast<std::uint32_t>(
      adler32(1, reinterpret_cast<const Bytef*>(bytes.data()), static_cast<uInt>(bytes.size())));
}

/// The highest byte first.
std::string NumberBytes(std::uint32_t number) {
  std::string bytes;
  for (int shift = 24; shift >= 0; shift -= 8) {
    bytes += static_cast<char>(number >> shift);
  }
  return bytes;
}

std::string Chunk(std::string_view type, std::string_view content) {
  const std::string checked = std::string(type).append(content);
  const uLong sum =
      crc32(0, reinterpret_cast<const Bytef*>(checked.data()), static_cast<uInt>(checked.size()));
  return NumberBytes(static_cast<std::uint32_t>(content.size())) + checked +
         NumberBytes(static_cast<std::uint32_t>(sum));
}

/// Makes independent pieces of one DEFLATE stream.
class Deflater {
 public:
  Deflater() {
    // Negative: without zlib's header and checksum.
    constexpr int WINDOW_BITS = -15;
    constexpr int MEMORY_LEVEL = 8;
    if (deflateInit2(&stream, Z_BEST_SPEED, Z_DEFLATED, WINDOW_BITS, MEMORY_LEVEL,
                     Z_DEFAULT_STRATEGY) != Z_OK) {
      throw HostError("cannot make a picture: out of memory");
    }
  }
  Deflater(const Deflater&) = delete;
  Deflater& operator=(const Deflater&) = delete;
  ~Deflater() { deflateEnd(&stream); }

  std::string Deflate(std::string& bytes) {
    // zlib's bound is that of a stream without flushes.
    constexpr uLong FLUSH_SIZE = 16;
    room.resize(deflateBound(&stream, bytes.size()) + FLUSH_SIZE);
    stream.next_in = reinterpret_cast<Bytef*>(bytes.data());
    stream.avail_in = static_cast<uInt>(bytes.size());
    stream.next_out = reinterpret_cast<Bytef*>(room.data());
    stream.avail_out = static_cast<uInt>(room.size());
    deflate(&stream, Z_FULL_FLUSH);
    return room.substr(0, room.size() - stream.avail_out);
  }

 private:
  z_stream stream = {};
  std::string room;
};

}  // namespace

bool PngFrames::Take(handheld::Pixels next) {
  const bool hasOtherSize = next.width != pixels.width || next.height != pixels.height;
  if (hasOtherSize) {
    const auto rows = static_cast<std::size_t>(next.height);
    bands.assign((rows + BAND_ROWS - 1) / BAND_ROWS, Band());
  }
  bool isOther = hasOtherSize;
  const std::size_t step = BAND_ROWS * static_cast<std::size_t>(next.width);
  for (std::size_t i = 0; i < bands.size() && !hasOtherSize; ++i) {
    const std::uint32_t* const begin = next.rows.data() + i * step;
    const std::uint32_t* const end = next.rows.data() + std::min((i + 1) * step, next.rows.size());
    if (!std::equal(begin, end, pixels.rows.data() + i * step)) {
      bands[i].isStale = true;
      isOther = true;
    }
  }
  if (isOther) {
    pixels = std::move(next);
    png.clear();
  }
  return isOther;
}

const std::string& PngFrames::GetPng() {
  if (png.empty() && !bands.empty()) {
    DeflateStaleBands();
    const std::string size = NumberBytes(static_cast<std::uint32_t>(pixels.width)) +
                             NumberBytes(static_cast<std::uint32_t>(pixels.height));
    png = std::string(SIGNATURE) + Chunk("IHDR", size + std::string(RGB_FORMAT)) +
          Chunk("IDAT", JoinBands()) + Chunk("IEND", "");
  }
  return png;
}

std::string PngFrames::ListBytes(std::size_t band) const {
  const auto width = static_cast<std::size_t>(pixels.width);
  const std::size_t firstRow = band * BAND_ROWS;
  const std::size_t rows = std::min(BAND_ROWS, static_cast<std::size_t>(pixels.height) - firstRow);
  std::string bytes(rows * (1 + 3 * width), NO_FILTER);
  char* next = bytes.data();
  const std::uint32_t* pixel = pixels.rows.data() + firstRow * width;
  for (std::size_t row = 0; row < rows; ++row) {
    ++next;
    for (const std::uint32_t* const end = pixel + width; pixel != end; ++pixel) {
      *next++ = static_cast<char>(*pixel >> 16);
      *next++ = static_cast<char>(*pixel >> 8);
      *next++ = static_cast<char>(*pixel);
    }
  }
  return bytes;
}

void PngFrames::DeflateStaleBands() {
  Deflater deflater;
  for (std::size_t i = 0; i < bands.size(); ++i) {
    if (bands[i].isStale) {
      std::string bytes = ListBytes(i);
      bands[i] = {false, deflater.Deflate(bytes), bytes.size(), Adler(bytes)};
    }
  }
}

std::string PngFrames::JoinBands() const {
  std::string joined(ZLIB_HEADER);
  uLong sum = Adler("");
  for (const Band& band : bands) {
    joined += band.deflated;
    sum = adler32_combine(sum, band.adler, static_cast<z_off_t>(band.size));
  }
  return joined.append(DEFLATE_END) + NumberBytes(static_cast<std::uint32_t>(sum));
}

}  // namespace host
