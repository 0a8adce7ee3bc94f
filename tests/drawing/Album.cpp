#include "Album.h"

#include <utility>

namespace drawing {

namespace {

std::uint32_t Checksum(const std::string& bytes) {
  std::uint32_t sum = 2166136261U;
  for (const char byte : bytes)
    sum = (sum ^ static_cast<std::uint8_t>(byte)) * 16777619U;
  return sum;
}

}  // namespace

Album::Album(std::string albumFolder, std::set<std::string> wantedPictures,
             std::string spoiltPicture)
    : folder(std::move(albumFolder)),
      wanted(std::move(wantedPictures)),
      spoilt(std::move(spoiltPicture)),
      list(std::fopen((folder + "/scenes.txt").c_str(), "wb")) {}

Album::~Album() {
  if (list != nullptr)
    std::fclose(list);
}

void Album::Add(const std::string& name, std::uint32_t answers, const Paper& paper) {
  std::string pixels = paper.GetPixels();
  if (name == spoilt)
    pixels[pixels.size() / 2] = static_cast<char>(pixels[pixels.size() / 2] ^ 0x10);
  std::fprintf(list, "%s %08x %08x\n", name.c_str(), answers, Checksum(pixels));
  if (wanted.contains(name))
    WritePixels(name, paper, pixels);
}

void Album::WritePixels(const std::string& name, const Paper& paper,
                        const std::string& pixels) const {
  std::FILE* const file = std::fopen((folder + "/" + name + ".raw").c_str(), "wb");
  if (file == nullptr)
    return;
  std::fprintf(file, "%d %d %d\n", paper.GetWidth(), paper.GetHeight(), paper.GetBitsPerPixel());
  std::fwrite(pixels.data(), 1, pixels.size(), file);
  std::fclose(file);
}

}  // namespace drawing
