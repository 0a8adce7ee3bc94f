// All drawing objects of the process by handle, and their lifetimes.
#pragma once

#include <memory>
#include <mutex>
#include <vector>

#include "gdi/Objects.h"

namespace handheld::gdi {

/// A handle is an index and the number of uses of that index, so a stale handle stays invalid.
class ObjectTable {
 public:
  static ObjectTable& Instance();

  /// Null when the table is full.
  HGDIOBJ Add(std::shared_ptr<Object> object);

  /// Null for an unknown handle or another kind of object.
  std::shared_ptr<Object> Find(HGDIOBJ handle) const;
  template <typename Kind>
  std::shared_ptr<Kind> Find(HGDIOBJ handle) const {
    std::shared_ptr<Object> object = Find(handle);
    if (object == nullptr || object->kind != Kind::KIND) {
      return nullptr;
    }
    return std::static_pointer_cast<Kind>(std::move(object));
  }

  /// The bitmap that keeps its pixels there; null when none does.
  std::shared_ptr<Bitmap> FindBitmap(const void* pixels) const;

  /// The system's object with this index (WHITE_BRUSH and so on); null for an unknown index.
  HGDIOBJ GetStock(int index) const;
  template <typename Kind>
  std::shared_ptr<Kind> FindStock(int index) const {
    return Find<Kind>(GetStock(index));
  }
  /// 1 x 1 bitmap of new memory contexts.
  const std::shared_ptr<Bitmap>& GetDefaultBitmap() const { return defaultBitmap; }

  /// Removes the object; a selected one is removed after its last deselection. False for an unknown
  /// object.
  bool Delete(HGDIOBJ handle);

  /// Adds one selection. False when the object is removed already, or selected already and
  /// `isExclusive`.
  bool Select(Object& object, bool isExclusive);
  void Deselect(Object& object);

  /// Number of objects without the system's own.
  int GetCount() const;

 private:
  struct Slot {
    std::shared_ptr<Object> object;
    std::uint32_t uses = 0;
  };

  ObjectTable();
  HGDIOBJ AddStock(std::shared_ptr<Object> object);
  Slot* FindSlot(HGDIOBJ handle);
  const Slot* FindSlot(HGDIOBJ handle) const;
  /// Empties the slot and returns its object, to be destroyed outside the lock.
  std::shared_ptr<Object> Vacate(Slot& slot);

  mutable std::mutex mutex;
  std::vector<Slot> slots;
  std::vector<std::uint32_t> vacant;
  int count = 0;
  std::vector<HGDIOBJ> stock;
  std::shared_ptr<Bitmap> defaultBitmap;
};

}  // namespace handheld::gdi
