#include "PeImage.h"

#include <sys/mman.h>

#include <cstring>
#include <fstream>
#include <iterator>
#include <stdexcept>

namespace {

constexpr std::uint16_t MACHINE_ARM = 0x01C0;
constexpr std::uint16_t MAGIC_PE32 = 0x010B;
constexpr std::uint16_t SUBSYSTEM_WINDOWS_CE = 9;
constexpr std::uint32_t EXECUTE = 0x20000000;
constexpr std::uint32_t WRITE = 0x80000000;
constexpr std::uint16_t FIXUP_NOTHING = 0;
constexpr std::uint16_t FIXUP_WORD = 3;
constexpr std::size_t EXPORTS = 0;
constexpr std::size_t IMPORTS = 1;
constexpr std::size_t RELOCATIONS = 5;
constexpr std::size_t COFF_SIZE = 24;
constexpr std::size_t SECTION_HEADER_SIZE = 40;

std::vector<char> ReadFile(const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  if (!file) {
    throw std::runtime_error("cannot be opened");
  }
  return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

template <class Value>
Value ReadFrom(const std::vector<char>& file, std::size_t offset) {
  Value value;
  if (offset + sizeof value > file.size()) {
    throw std::runtime_error("is cut short");
  }
  std::memcpy(&value, file.data() + offset, sizeof value);
  return value;
}

}  // namespace

template <class Value>
Value PeImage::Read(std::size_t offset) const {
  Value value;
  if (offset + sizeof value > size) {
    throw std::runtime_error("points outside of itself");
  }
  std::memcpy(&value, base + offset, sizeof value);
  return value;
}

template <class Value>
void PeImage::Write(std::size_t offset, Value value) {
  if (offset + sizeof value > size) {
    throw std::runtime_error("points outside of itself");
  }
  std::memcpy(base + offset, &value, sizeof value);
}

std::string PeImage::ReadText(std::size_t offset) const {
  std::string text;
  while (const char letter = Read<char>(offset++)) {
    text += letter;
  }
  return text;
}

PeImage::Directory PeImage::GetDirectory(std::size_t index) const {
  return {Read<std::uint32_t>(header + 96 + 8 * index),
          Read<std::uint32_t>(header + 100 + 8 * index)};
}

PeImage::PeImage(const std::string& path, const Binder& bind) {
  const std::vector<char> file = ReadFile(path);
  header = ReadFrom<std::uint32_t>(file, 0x3C) + COFF_SIZE;
  size = ReadFrom<std::uint32_t>(file, header + 56);
  void* memory = mmap(nullptr, size, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
  if (memory == MAP_FAILED) {
    throw std::runtime_error("finds no room");
  }
  base = static_cast<std::uint8_t*>(memory);
  try {
    CopySections(file);
    CheckHeaders();
    Relocate();
    Bind(bind);
    Protect();
  } catch (...) {
    munmap(base, size);
    throw;
  }
}

PeImage::~PeImage() {
  munmap(base, size);
}

void PeImage::CopySections(const std::vector<char>& file) {
  const auto headerSize = ReadFrom<std::uint32_t>(file, header + 60);
  const auto count = ReadFrom<std::uint16_t>(file, header - COFF_SIZE + 6);
  const auto optionalSize = ReadFrom<std::uint16_t>(file, header - COFF_SIZE + 20);
  if (headerSize > file.size() || headerSize > size) {
    throw std::runtime_error("is cut short");
  }
  std::memcpy(base, file.data(), headerSize);
  for (std::size_t index = 0; index < count; ++index) {
    const std::size_t section = header + optionalSize + SECTION_HEADER_SIZE * index;
    const auto virtualSize = ReadFrom<std::uint32_t>(file, section + 8);
    const auto address = ReadFrom<std::uint32_t>(file, section + 12);
    const auto length = std::min(virtualSize, ReadFrom<std::uint32_t>(file, section + 16));
    const auto offset = ReadFrom<std::uint32_t>(file, section + 20);
    if (address + virtualSize > size || offset + length > file.size()) {
      throw std::runtime_error("has a section outside of itself");
    }
    std::memcpy(base + address, file.data() + offset, length);
  }
}

void PeImage::CheckHeaders() const {
  if (std::memcmp(base, "MZ", 2) != 0 || std::memcmp(base + header - COFF_SIZE, "PE\0", 4) != 0 ||
      Read<std::uint16_t>(header - COFF_SIZE + 4) != MACHINE_ARM ||
      Read<std::uint16_t>(header) != MAGIC_PE32 ||
      Read<std::uint16_t>(header + 68) != SUBSYSTEM_WINDOWS_CE) {
    throw std::runtime_error("is no library for Windows CE on ARM");
  }
}

void PeImage::Relocate() {
  const auto preferred = Read<std::uint32_t>(header + 28);
  const std::uint32_t shift = reinterpret_cast<std::uintptr_t>(base) - preferred;
  const Directory table = GetDirectory(RELOCATIONS);
  if (shift == 0) {
    throw std::runtime_error("happens to lie where it was linked, which proves nothing");
  }
  for (std::uint32_t block = 0; block < table.size;) {
    const auto page = Read<std::uint32_t>(table.address + block);
    const auto blockSize = Read<std::uint32_t>(table.address + block + 4);
    for (std::uint32_t entry = 8; entry < blockSize; entry += 2) {
      const auto fixup = Read<std::uint16_t>(table.address + block + entry);
      const std::uint32_t place = page + (fixup & 0xFFF);
      if (fixup >> 12 == FIXUP_WORD) {
        Write(place, Read<std::uint32_t>(place) + shift);
      } else if (fixup >> 12 != FIXUP_NOTHING) {
        throw std::runtime_error("has an unknown kind of fix-up");
      }
    }
    block += blockSize;
  }
}

void PeImage::Bind(const Binder& bind) {
  std::size_t entry = GetDirectory(IMPORTS).address;
  for (; Read<std::uint32_t>(entry + 16) != 0; entry += 20) {
    const std::string library = ReadText(Read<std::uint32_t>(entry + 12));
    std::size_t slot = Read<std::uint32_t>(entry + 16);
    while (const auto hint = Read<std::uint32_t>(slot)) {
      const std::string name = ReadText(hint + 2);
      void* function = bind(library, name);
      if (function == nullptr) {
        throw std::runtime_error("imports " + name + " from " + library +
                                 ", which has no such function");
      }
      Write(slot, function);
      slot += 4;
    }
  }
}

void PeImage::Protect() {
  const auto count = Read<std::uint16_t>(header - COFF_SIZE + 6);
  const auto optionalSize = Read<std::uint16_t>(header - COFF_SIZE + 20);
  for (std::size_t index = 0; index < count; ++index) {
    const std::size_t section = header + optionalSize + SECTION_HEADER_SIZE * index;
    const auto flags = Read<std::uint32_t>(section + 36);
    const int access = PROT_READ | ((flags & WRITE) != 0 ? PROT_WRITE : 0) |
                       ((flags & EXECUTE) != 0 ? PROT_EXEC : 0);
    const auto address = Read<std::uint32_t>(section + 12);
    const auto length = Read<std::uint32_t>(section + 8);
    if (length > 0 && mprotect(base + address, length, access) != 0) {
      throw std::runtime_error("cannot be protected");
    }
  }
  mprotect(base, Read<std::uint32_t>(header + 60), PROT_READ);
  __builtin___clear_cache(reinterpret_cast<char*>(base), reinterpret_cast<char*>(base + size));
}

void* PeImage::GetEntry() const {
  return base + Read<std::uint32_t>(header + 16);
}

void* PeImage::FindExport(const std::string& name) const {
  const std::size_t table = GetDirectory(EXPORTS).address;
  std::size_t low = 0;
  std::size_t high = Read<std::uint32_t>(table + 24);
  const auto functions = Read<std::uint32_t>(table + 28);
  const auto names = Read<std::uint32_t>(table + 32);
  const auto ordinals = Read<std::uint32_t>(table + 36);
  // By halves, as the device does it: this finds nothing in a table out of order.
  while (low < high) {
    const std::size_t middle = (low + high) / 2;
    const std::string candidate = ReadText(Read<std::uint32_t>(names + 4 * middle));
    if (candidate == name) {
      const auto ordinal = Read<std::uint16_t>(ordinals + 2 * middle);
      return base + Read<std::uint32_t>(functions + 4 * ordinal);
    }
    (candidate < name ? low : high) = candidate < name ? middle + 1 : middle;
  }
  return nullptr;
}
