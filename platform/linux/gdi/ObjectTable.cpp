#include "gdi/ObjectTable.h"

#include <utility>

namespace handheld::gdi {

namespace {

constexpr std::uint32_t INDEX_BITS = 16;
constexpr std::uint32_t INDEX_MASK = (1U << INDEX_BITS) - 1;
/// Index 0 stays unused, so no handle is null.
constexpr std::size_t MAX_SLOTS = INDEX_MASK;
/// Wraps the count before a handle could equal an error value.
constexpr std::uint32_t USES_MASK = 0x3FFF;
constexpr int STOCK_COUNT = 20;

HGDIOBJ HandleOf(std::uint32_t index, std::uint32_t uses) {
  const std::uintptr_t value =
      (static_cast<std::uintptr_t>(uses & USES_MASK) << INDEX_BITS) | index;
  return reinterpret_cast<HGDIOBJ>(value);
}

}  // namespace

ObjectTable& ObjectTable::Instance() {
  // Never destroyed: other threads may draw until the very end of the process.
  static ObjectTable& table = *new ObjectTable;
  return table;
}

ObjectTable::ObjectTable() : slots(1), stock(STOCK_COUNT, nullptr) {
  const auto brush = [&](COLORREF color, bool isNull) {
    return AddStock(std::make_shared<Brush>(color, isNull));
  };
  const auto pen = [&](int style, COLORREF color) {
    return AddStock(std::make_shared<Pen>(style, 1, color));
  };
  stock[WHITE_BRUSH] = brush(RGB(255, 255, 255), false);
  stock[BLACK_BRUSH] = brush(RGB(0, 0, 0), false);
  stock[NULL_BRUSH] = brush(RGB(0, 0, 0), true);
  stock[WHITE_PEN] = pen(PS_SOLID, RGB(255, 255, 255));
  stock[BLACK_PEN] = pen(PS_SOLID, RGB(0, 0, 0));
  stock[NULL_PEN] = pen(PS_NULL, RGB(0, 0, 0));
  LOGFONTW system = {};
  system.lfHeight = 16;
  system.lfWeight = FW_NORMAL;
  stock[SYSTEM_FONT] = AddStock(std::make_shared<Font>(system));

  defaultBitmap = MakeBitmap(1, 1, PixelFormat::ARGB8888, true);
  defaultBitmap->bitsPerPixel = 1;
  AddStock(defaultBitmap);
}

HGDIOBJ ObjectTable::AddStock(std::shared_ptr<Object> object) {
  object->isStock = true;
  const HGDIOBJ handle = Add(std::move(object));
  count = 0;
  return handle;
}

HGDIOBJ ObjectTable::Add(std::shared_ptr<Object> object) {
  const std::lock_guard lock(mutex);
  std::uint32_t index;
  if (!vacant.empty()) {
    index = vacant.back();
    vacant.pop_back();
  } else {
    if (slots.size() > MAX_SLOTS) {
      return nullptr;
    }
    index = static_cast<std::uint32_t>(slots.size());
    slots.emplace_back();
  }
  Slot& slot = slots[index];
  ++slot.uses;
  object->handle = HandleOf(index, slot.uses);
  slot.object = std::move(object);
  ++count;
  return slot.object->handle;
}

const ObjectTable::Slot* ObjectTable::FindSlot(HGDIOBJ handle) const {
  const auto value = reinterpret_cast<std::uintptr_t>(handle);
  const std::size_t index = value & INDEX_MASK;
  if (index >= slots.size()) {
    return nullptr;
  }
  const Slot& slot = slots[index];
  if (slot.object == nullptr || slot.object->handle != handle) {
    return nullptr;
  }
  return &slot;
}

ObjectTable::Slot* ObjectTable::FindSlot(HGDIOBJ handle) {
  return const_cast<Slot*>(std::as_const(*this).FindSlot(handle));
}

std::shared_ptr<Object> ObjectTable::Find(HGDIOBJ handle) const {
  const std::lock_guard lock(mutex);
  const Slot* slot = FindSlot(handle);
  return slot == nullptr ? nullptr : slot->object;
}

std::shared_ptr<Bitmap> ObjectTable::FindBitmap(const void* pixels) const {
  const std::lock_guard lock(mutex);
  for (const Slot& slot : slots) {
    if (slot.object != nullptr && slot.object->kind == ObjectKind::BITMAP) {
      auto bitmap = std::static_pointer_cast<Bitmap>(slot.object);
      if (bitmap->memory.get() == pixels) {
        return bitmap;
      }
    }
  }
  return nullptr;
}

HGDIOBJ ObjectTable::GetStock(int index) const {
  return index < 0 || index >= STOCK_COUNT ? nullptr : stock[static_cast<std::size_t>(index)];
}

std::shared_ptr<Object> ObjectTable::Vacate(Slot& slot) {
  const auto value = reinterpret_cast<std::uintptr_t>(slot.object->handle);
  vacant.push_back(static_cast<std::uint32_t>(value & INDEX_MASK));
  --count;
  return std::exchange(slot.object, nullptr);
}

bool ObjectTable::Delete(HGDIOBJ handle) {
  std::shared_ptr<Object> doomed;
  const std::lock_guard lock(mutex);
  Slot* slot = FindSlot(handle);
  if (slot == nullptr) {
    return false;
  }
  if (slot->object->isStock) {
    return true;
  }
  if (slot->object->selections > 0) {
    slot->object->isDeletePending = true;
  } else {
    doomed = Vacate(*slot);
  }
  return true;
}

bool ObjectTable::Select(Object& object, bool isExclusive) {
  const std::lock_guard lock(mutex);
  const Slot* slot = FindSlot(object.handle);
  if (slot == nullptr || slot->object.get() != &object) {
    return false;
  }
  if (isExclusive && object.selections > 0 && !object.isStock) {
    return false;
  }
  ++object.selections;
  return true;
}

void ObjectTable::Deselect(Object& object) {
  std::shared_ptr<Object> doomed;
  const std::lock_guard lock(mutex);
  --object.selections;
  if (object.isDeletePending && object.selections == 0) {
    doomed = Vacate(*FindSlot(object.handle));
  }
}

int ObjectTable::GetCount() const {
  const std::lock_guard lock(mutex);
  return count;
}

}  // namespace handheld::gdi
