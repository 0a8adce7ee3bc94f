#include "outputs/ContactSheet.h"

#include <algorithm>

#include "base/HostError.h"
#include "outputs/PngWriter.h"

namespace host {

namespace {

constexpr int SHORT_SIDE = 240;
constexpr int LONG_SIDE = 320;
constexpr int PICTURE_GAP = 12;
constexpr std::uint32_t BACKGROUND = 0x606060;

/// Portrait and landscape, each with and without buttons.
constexpr std::size_t PER_VIEW = 4;

struct Place {
  int x;
  int y;
};

constexpr int PlaceOfColumn(std::size_t column) {
  const int portraits = std::min(static_cast<int>(column), 2);
  const int landscapes = static_cast<int>(column) - portraits;
  return PICTURE_GAP + portraits * (SHORT_SIDE + PICTURE_GAP) +
         landscapes * (LONG_SIDE + PICTURE_GAP);
}

Place PlaceOf(std::size_t picture) {
  const int row = static_cast<int>(picture / PER_VIEW);
  return {PlaceOfColumn(picture % PER_VIEW), PICTURE_GAP + row * (LONG_SIDE + PICTURE_GAP)};
}

void Paste(const handheld::Pixels& picture, Place place, handheld::Pixels& sheet) {
  for (int y = 0; y < picture.height; ++y) {
    std::copy_n(
        picture.rows.begin() + static_cast<std::ptrdiff_t>(y) * picture.width, picture.width,
        sheet.rows.begin() + static_cast<std::ptrdiff_t>(place.y + y) * sheet.width + place.x);
  }
}

}  // namespace

ContactSheet::ContactSheet(const EngineLibrary::Functions& engine, std::string file,
                           int updatesBefore)
    : engine(engine),
      file(std::move(file)),
      portrait(SHORT_SIDE, LONG_SIDE),
      landscape(LONG_SIDE, SHORT_SIDE),
      updatesToSkip(updatesBefore),
      wanted(static_cast<std::size_t>(engine.GetWidgetsCount()) * PER_VIEW) {
  CheckPngPath(this->file);
  engine.SetRenderWindow(portrait.GetHandle());
  engine.SetCurRenderWidget(FEROLIN_VIEW_SPEEDOMETER);
}

ContactSheet::~ContactSheet() {
  engine.SetRenderWindow(nullptr);
}

int ContactSheet::GetView() const {
  return static_cast<int>(pictures.size() / PER_VIEW);
}

RenderWindow& ContactSheet::GetWindow() {
  return pictures.size() % PER_VIEW < 2 ? portrait : landscape;
}

/// Makes the engine draw the next picture. Arriving at a view shows its buttons; otherwise a double
/// click shows and hides them in turn. They have vanished by themselves before the first picture.
void ContactSheet::Prepare() {
  const bool arrives = engine.GetCurRenderWidget() != GetView();
  engine.SetRenderWindow(GetWindow().GetHandle());
  engine.SetCurRenderWidget(GetView());
  if (!arrives) {
    engine.OnDoubleClick();
  }
}

/// Waits for the frame of every update, the skipped ones included: a frame drawn while the view
/// changes would be neither the old nor the new one.
bool ContactSheet::OnUpdate() {
  if (pictures.size() == wanted) {
    return true;
  }
  std::optional<handheld::Pixels> frame = GetWindow().AwaitFrame();
  if (!frame) {
    throw HostError("the engine draws nothing");
  }
  if (updatesToSkip > 0) {
    --updatesToSkip;
  } else {
    pictures.push_back(std::move(*frame));
  }
  if (pictures.size() == wanted) {
    return true;
  }
  if (updatesToSkip == 0) {
    Prepare();
  }
  return false;
}

void ContactSheet::Finish() {
  if (pictures.size() < wanted) {
    throw HostError("no contact sheet: positions ended before all views were drawn");
  }
  handheld::Pixels sheet;
  sheet.width = PlaceOfColumn(PER_VIEW);
  sheet.height = PlaceOf(wanted).y;
  sheet.rows.assign(static_cast<std::size_t>(sheet.width) * static_cast<std::size_t>(sheet.height),
                    BACKGROUND);
  for (std::size_t i = 0; i < pictures.size(); ++i) {
    Paste(pictures[i], PlaceOf(i), sheet);
  }
  WritePng(file, sheet);
}

}  // namespace host
