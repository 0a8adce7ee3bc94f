#include "windows/WindowTable.h"

#include <utility>

namespace handheld {

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

bool WindowTable::SetVisible(HWND handle, bool isVisible) {
  const std::lock_guard lock(mutex);
  const auto found = windows.find(handle);
  if (found == windows.end()) {
    return false;
  }
  found->second.isVisible = isVisible;
  found->second.wasShown |= isVisible;
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

}  // namespace handheld
