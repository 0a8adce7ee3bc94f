#include "gdi/DeviceContext.h"

#include "gdi/ObjectTable.h"
#include "gdi/Twins.h"

namespace handheld::gdi {

DeviceContext::DeviceContext(std::shared_ptr<WindowSurface> surface)
    : Object(KIND), window(std::move(surface)) {
  const ObjectTable& table = ObjectTable::Instance();
  bitmap = table.GetDefaultBitmap();
  pen = table.FindStock<Pen>(BLACK_PEN);
  brush = table.FindStock<Brush>(WHITE_BRUSH);
  font = table.FindStock<Font>(SYSTEM_FONT);
}

namespace {

/// Replaces the selected object of this kind and returns the handle of the former one.
template <typename Kind>
HGDIOBJ Exchange(std::shared_ptr<Kind>& place, const std::shared_ptr<Object>& object) {
  ObjectTable& table = ObjectTable::Instance();
  const HGDIOBJ previous = place->handle;
  if (place == object) {
    return previous;
  }
  // A bitmap can be selected into one context only.
  if (!table.Select(*object, Kind::KIND == ObjectKind::BITMAP)) {
    return nullptr;
  }
  table.Deselect(*place);
  place = std::static_pointer_cast<Kind>(object);
  return previous;
}

HGDIOBJ ExchangeBitmap(DeviceContext& context, const std::shared_ptr<Object>& object) {
  const std::weak_ptr<Bitmap> former = context.bitmap;
  const HGDIOBJ previous = Exchange(context.bitmap, object);
  if (previous != nullptr) {
    context.formerBitmap = former;
  }
  return previous;
}

}  // namespace

Target DeviceContext::GetDrawingTarget() const {
  const Raster& raster = GetRaster();
  Target target = {raster, raster.GetBounds()};
  for (const std::optional<RECT>& limit : {visible, clip}) {
    if (limit) {
      target.clip = Intersect(target.clip, *limit);
    }
  }
  if (IsEmpty(target.clip)) {
    target.clip = {0, 0, 0, 0};
  }
  return target;
}

namespace {

/// A twin begins with what its bitmap shows, so it is made before the bitmap is drawn into.
void PrepareDrawing(const DeviceContext& context) {
  if (context.window != nullptr) {
    ++context.window->version;
  } else {
    TwinOf(context);
  }
}

}  // namespace

UsedContext::UsedContext(HDC handle, Purpose purpose)
    : context(ObjectTable::Instance().Find<DeviceContext>(handle)) {
  if (context == nullptr) {
    return;
  }
  lock = std::unique_lock(context->GetMutex());
  if (purpose == Purpose::DRAWING) {
    PrepareDrawing(*context);
  }
}

UsedPair::UsedPair(HDC targetHandle, HDC sourceHandle)
    : target(ObjectTable::Instance().Find<DeviceContext>(targetHandle)),
      source(ObjectTable::Instance().Find<DeviceContext>(sourceHandle)) {
  if (target == nullptr || source == nullptr) {
    return;
  }
  targetLock = std::unique_lock(target->GetMutex(), std::defer_lock);
  if (&target->GetMutex() == &source->GetMutex()) {
    targetLock.lock();
  } else {
    sourceLock = std::unique_lock(source->GetMutex(), std::defer_lock);
    std::lock(targetLock, sourceLock);
  }
  PrepareDrawing(*target);
}

HDC AddContext(std::shared_ptr<WindowSurface> surface) {
  return static_cast<HDC>(
      ObjectTable::Instance().Add(std::make_shared<DeviceContext>(std::move(surface))));
}

HGDIOBJ SelectInto(DeviceContext& context, const std::shared_ptr<Object>& object) {
  switch (object->kind) {
    case ObjectKind::BITMAP:
      return context.IsMemory() ? ExchangeBitmap(context, object) : nullptr;
    case ObjectKind::PEN:
      return Exchange(context.pen, object);
    case ObjectKind::BRUSH:
      return Exchange(context.brush, object);
    case ObjectKind::FONT:
      return Exchange(context.font, object);
    case ObjectKind::REGION: {
      const RECT& rect = static_cast<const Region&>(*object).rect;
      context.clip = rect;
      return reinterpret_cast<HGDIOBJ>(
          static_cast<LONG_PTR>(IsEmpty(rect) ? NULLREGION : SIMPLEREGION));
    }
    case ObjectKind::DEVICE_CONTEXT:
      break;
  }
  return nullptr;
}

bool DeleteContext(HDC handle) {
  ObjectTable& table = ObjectTable::Instance();
  const std::shared_ptr<DeviceContext> context = table.Find<DeviceContext>(handle);
  if (context == nullptr) {
    return false;
  }
  const std::lock_guard lock(context->GetMutex());
  table.Delete(handle);
  for (Object* object : std::initializer_list<Object*>{context->bitmap.get(), context->pen.get(),
                                                       context->brush.get(), context->font.get()}) {
    table.Deselect(*object);
  }
  return true;
}

}  // namespace handheld::gdi
