#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

/// A dynamic library of the device, brought into memory as the device's loader does it: mapped,
/// moved to where there is room, bound to the functions it imports, and then no more writable than
/// its sections say. Gone with the object.
class PeImage {
 public:
  /// Address of a function that the image imports; null when there is none, which keeps it from
  /// loading.
  using Binder = std::function<void*(const std::string& library, const std::string& name)>;

  /// Throws std::runtime_error with the reason when the file cannot be loaded.
  PeImage(const std::string& path, const Binder& bind);
  ~PeImage();
  PeImage(const PeImage&) = delete;
  PeImage& operator=(const PeImage&) = delete;

  void* GetBase() const { return base; }
  std::size_t GetSize() const { return size; }
  void* GetEntry() const;
  /// Null when the image exports no such name.
  void* FindExport(const std::string& name) const;

 private:
  struct Directory {
    std::uint32_t address;
    std::uint32_t size;
  };

  template <class Value>
  Value Read(std::size_t offset) const;
  template <class Value>
  void Write(std::size_t offset, Value value);
  std::string ReadText(std::size_t offset) const;
  Directory GetDirectory(std::size_t index) const;

  void CheckHeaders() const;
  void CopySections(const std::vector<char>& file);
  void Relocate();
  void Bind(const Binder& bind);
  void Protect();

  std::uint8_t* base = nullptr;
  std::size_t size = 0;
  /// Offset of the optional header.
  std::size_t header = 0;
};
