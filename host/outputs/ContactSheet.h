// All views at a glance.
#pragma once

#include <string>
#include <vector>

#include "engine/EngineLibrary.h"
#include "outputs/Pictures.h"
#include "window/RenderWindow.h"

namespace host {

/// Takes pictures of every view, portrait (240 x 320) and landscape (320 x 240), each with and
/// without its buttons, one at each update, and writes them as one picture with a row for each
/// view.
class ContactSheet : public Pictures {
 public:
  /// The engine outlives it. `updatesBefore` updates pass until the first picture. Throws
  /// HostError when the file cannot be written.
  ContactSheet(const EngineLibrary::Functions& engine, std::string file, int updatesBefore);
  ContactSheet(const ContactSheet&) = delete;
  ContactSheet& operator=(const ContactSheet&) = delete;
  ~ContactSheet() override;

  bool OnUpdate() override;
  void Finish() override;

 private:
  void Prepare();
  int GetView() const;
  RenderWindow& GetWindow();

  const EngineLibrary::Functions& engine;
  const std::string file;
  RenderWindow portrait;
  RenderWindow landscape;
  int updatesToSkip;
  std::size_t wanted;
  std::vector<handheld::Pixels> pictures;
};

}  // namespace host
