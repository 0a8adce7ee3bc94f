#pragma once

#include <cstddef>
#include <cstdlib>
#include <span>
#include <type_traits>

namespace ferolin {

/// Plain values in one block of memory that is kept from use to use and grows by 1000 at a time.
/// Without memory it stays as large as it is.
template <class Value>
class GrowingArray {
  static_assert(std::is_trivially_copyable_v<Value>);

 public:
  GrowingArray() = default;
  ~GrowingArray() { std::free(values); }
  GrowingArray(const GrowingArray&) = delete;
  GrowingArray& operator=(const GrowingArray&) = delete;

  void Clear() { count = 0; }

  void Release() {
    std::free(values);
    values = nullptr;
    count = 0;
    capacity = 0;
  }

  /// False when there is no room and no memory for more.
  bool Add(const Value& value) {
    if (count == capacity && !Grow()) {
      return false;
    }
    values[count++] = value;
    return true;
  }

  std::span<const Value> Get() const { return {values, count}; }
  /// Valid until the next `Add`.
  std::span<Value> Get() { return {values, count}; }

 private:
  static constexpr std::size_t GROWTH = 1000;

  bool Grow() {
    void* grown = std::realloc(values, (capacity + GROWTH) * sizeof(Value));
    if (grown == nullptr) {
      return false;
    }
    values = static_cast<Value*>(grown);
    capacity += GROWTH;
    return true;
  }

  Value* values = nullptr;
  std::size_t count = 0;
  std::size_t capacity = 0;
};

}  // namespace ferolin
