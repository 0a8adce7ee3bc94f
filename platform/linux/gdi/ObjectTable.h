// All drawing objects of the process by handle, and the rules of their lives.
#pragma once

#include <memory>
#include <mutex>
#include <vector>

#include "gdi/Objects.h"

namespace handheld::gdi {

/// Handles are an index and a count of how often the index was used, so that a handle of the past names nothing.
class ObjectTable {
 public:
  static ObjectTable& Instance();

  /// Null when the table is full.
  HGDIOBJ Add(std::shared_ptr<Object> object);

  /// Null when the handle names nothing, or something of another kind.
  std::shared_ptr<Object> Find(HGDIOBJ handle) const;
  template <typename Kind>
  std::shared_ptr<Kind> Find(HGDIOBJ handle) const {
    std::shared_ptr<Object> object = Find(handle);
    if (object == nullptr || object->kind != Kind::KIND) {
      return nullptr;
    }
    return std::static_pointer_cast<Kind>(std::move(object));
  }

  /// System's own object with this index (WHITE_BRUSH and so on); null when there is none.
  HGDIOBJ GetStock(int index) const;
  template <typename Kind>
  std::shared_ptr<Kind> FindStock(int index) const {
    return Find<Kind>(GetStock(index));
  }
  /// Bitmap of 1 x 1 that new memory contexts hold.
  const std::shared_ptr<Bitmap>& GetDefaultBitmap() const { return defaultBitmap; }

  /// Takes the object out; one that is selected goes when it is selected no more. False when there is none.
  bool Delete(HGDIOBJ handle);

  /// Counts one more device context that has it selected. False when it is no more, or `isExclusive` and it is
  /// selected already.
  bool Select(Object& object, bool isExclusive);
  void Deselect(Object& object);

  /// Objects alive, without the system's own.
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
  /// Empties the slot; what was in it is handed out to die outside the lock.
  std::shared_ptr<Object> Vacate(Slot& slot);

  mutable std::mutex mutex;
  std::vector<Slot> slots;
  std::vector<std::uint32_t> vacant;
  int count = 0;
  std::vector<HGDIOBJ> stock;
  std::shared_ptr<Bitmap> defaultBitmap;
};

}  // namespace handheld::gdi
