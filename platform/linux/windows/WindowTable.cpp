#include "windows/WindowTable.h"

#include <algorithm>
#include <utility>

namespace handheld {

namespace {

bool IsEmpty(const RECT& rect) {
  return rect.left >= rect.right || rect.top >= rect.bottom;
}

RECT Intersect(const RECT& one, const RECT& other) {
  return {std::max(one.left, other.left), std::max(one.top, other.top),
          std::min(one.right, other.right), std::min(one.bottom, other.bottom)};
}

/// Smallest rectangle around both, of which the second is not empty.
RECT Unite(const RECT& one, const RECT& other) {
  if (IsEmpty(one)) {
    return other;
  }
  return {std::min(one.left, other.left), std::min(one.top, other.top),
          std::max(one.right, other.right), std::max(one.bottom, other.bottom)};
}

/// Takes note that nothing is to be drawn.
void Settle(Window& window) {
  window.invalid = {};
  window.isEraseDue = false;
  window.queue->CancelPaint(window.handle);
}

}  // namespace

WindowTable& WindowTable::Instance() {
  static WindowTable& table = *new WindowTable;
  return table;
}

HWND WindowTable::Add(Window window) {
  const std::lock_guard lock(mutex);
  lastNumber += 2;
  const HWND handle = reinterpret_cast<HWND>(lastNumber);
  window.handle = handle;
  windows.emplace(handle, std::move(window));
  return handle;
}

bool WindowTable::Remove(HWND handle) {
  const std::lock_guard lock(mutex);
  const auto found = windows.find(handle);
  if (found == windows.end()) {
    return false;
  }
  found->second.queue->DropWindow(handle);
  windows.erase(found);
  return true;
}

void WindowTable::RemoveOfQueue(const MessageQueue& queue) {
  const std::lock_guard lock(mutex);
  std::erase_if(windows, [&](const auto& entry) { return entry.second.queue.get() == &queue; });
}

std::optional<Window> WindowTable::Find(HWND handle) const {
  const std::lock_guard lock(mutex);
  const auto found = windows.find(handle);
  return found == windows.end() ? std::nullopt : std::optional(found->second);
}

std::vector<HWND> WindowTable::GetChildren(HWND parent) const {
  const std::lock_guard lock(mutex);
  std::vector<HWND> children;
  for (const auto& [handle, window] : windows) {
    if (window.parent == parent) {
      children.push_back(handle);
    }
  }
  return children;
}

std::vector<HWND> WindowTable::GetAll() const {
  const std::lock_guard lock(mutex);
  std::vector<HWND> handles;
  for (const auto& [handle, window] : windows) {
    handles.push_back(handle);
  }
  return handles;
}

bool WindowTable::Post(const MSG& message) {
  // Posted under the lock: no message may reach the queue after its window was removed.
  const std::lock_guard lock(mutex);
  const auto found = windows.find(message.hwnd);
  if (found == windows.end()) {
    return false;
  }
  found->second.queue->Post(message);
  return true;
}

void WindowTable::NoteDrawing(HWND handle) {
  const std::lock_guard lock(mutex);
  const auto found = windows.find(handle);
  if (found != windows.end()) {
    found->second.queue->WakeWaiter();
  }
}

bool WindowTable::SetVisible(HWND handle, bool isVisible) {
  const std::lock_guard lock(mutex);
  const auto found = windows.find(handle);
  if (found == windows.end()) {
    return false;
  }
  found->second.isVisible = isVisible;
  found->second.wasShown |= isVisible;
  if (!isVisible) {
    Settle(found->second);
  }
  return true;
}

bool WindowTable::SetRect(HWND handle, const RECT& rect) {
  const std::lock_guard lock(mutex);
  const auto found = windows.find(handle);
  if (found == windows.end()) {
    return false;
  }
  found->second.rect = rect;
  return true;
}

bool WindowTable::Invalidate(HWND handle, const std::optional<RECT>& part, bool erase) {
  const std::lock_guard lock(mutex);
  const auto found = windows.find(handle);
  if (found == windows.end()) {
    return false;
  }
  Window& window = found->second;
  const RECT client = {0, 0, window.rect.right - window.rect.left,
                       window.rect.bottom - window.rect.top};
  const RECT added = Intersect(part.value_or(client), client);
  if (window.isVisible && !IsEmpty(added)) {
    window.invalid = Unite(window.invalid, added);
    window.isEraseDue |= erase;
    window.queue->RequestPaint(handle);
  }
  return true;
}

std::optional<Window> WindowTable::Validate(HWND handle) {
  const std::lock_guard lock(mutex);
  const auto found = windows.find(handle);
  if (found == windows.end()) {
    return std::nullopt;
  }
  const Window before = found->second;
  Settle(found->second);
  return before;
}

}  // namespace handheld
