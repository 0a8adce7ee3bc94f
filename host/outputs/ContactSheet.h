// All views at a glance.
#pragma once

#include <string>
#include <vector>

#include "engine/EngineLibrary.h"
#include "window/RenderWindow.h"

namespace host {

/// Takes pictures of every view, upright (240 x 320) and across (320 x 240), each with its buttons
/// and without, one update after the other, and puts them together: a row for each view. For the
/// host's thread.
class ContactSheet {
 public:
  /// The engine outlives it. `updatesBefore` pass until the first picture.
  ContactSheet(const EngineLibrary::Functions& engineToUse, int updatesBefore);
  ~ContactSheet();

  /// An update was read by the host. True when all pictures are there.
  bool OnUpdate();

  /// Throws HostError, also when pictures are missing.
  void Write(const std::string& path) const;

 private:
  void Prepare();
  int GetView() const;
  RenderWindow& GetWindow();

  const EngineLibrary::Functions& engine;
  RenderWindow portrait;
  RenderWindow landscape;
  int updatesToSkip;
  std::size_t wanted;
  std::vector<handheld::Pixels> pictures;
};

}  // namespace host
