// A settings file: loaded, shown in every view, saved, and loaded again.
#include "FuzzedEngine.h"
#include "TryInput.h"

void TryInput(const unsigned char* data, std::size_t size) {
  const fuzz::FuzzedEngine engine({reinterpret_cast<const char*>(data), size});
  engine.ShowViews(43200);
}
