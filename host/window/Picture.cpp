#include "window/Picture.h"

#include "window/ViewNames.h"

namespace host {

void ApplyPicture(const EngineLibrary::Functions& engine, const Options::Picture& picture) {
  engine.SetInvertHorz(picture.mirror.value_or(false) ? 1 : 0);
  engine.SetInvertVert(picture.flip.value_or(false) ? 1 : 0);
  engine.SetInvertOrient(picture.rotate.value_or(false) ? 1 : 0);
  engine.SetInvertColor(picture.invert.value_or(false) ? 1 : 0);
}

int GetChosenView(const EngineLibrary::Functions& engine, const Options::Picture& picture) {
  return ParseViewNumber(engine, picture.view).value_or(FEROLIN_VIEW_SPEEDOMETER);
}

Options::Picture DescribePicture(const EngineLibrary::Functions& engine, int view) {
  Options::Picture picture;
  picture.view = std::to_string(view);
  picture.mirror = engine.GetInvertHorz() != 0;
  picture.flip = engine.GetInvertVert() != 0;
  picture.rotate = engine.GetInvertOrient() != 0;
  picture.invert = engine.GetInvertColor() != 0;
  return picture;
}

}  // namespace host
