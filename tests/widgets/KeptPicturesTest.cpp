// Pictures that views keep from frame to frame, in a window that goes to another resolution.
#include "gps/FixRecord.h"
#include "track/TrackStore.h"
#include "widgets/ViewTest.h"
#include "widgets/path/PathTrack.h"

namespace ferolin {

namespace {

/// The view is 320 x 240 logical pixels at both resolutions, so nothing but these differ.
class KeptPictures : public ViewTest, public testing::WithParamInterface<int> {
 protected:
  KeptPictures() { handheld::SetFineDrawing(true); }
  ~KeptPictures() override {
    handheld::SetFineDrawing(false);
    handheld::SetScreen(240, 320, 96);
  }

  void OpenCoarse() { Open(320, 240, 96); }
  void OpenFine() { Open(640, 480, 192); }

  void DriveAWay() {
    Drive("120000", 50);
    TrackStore& track = engine->GetFix().GetTrack();
    track.Append(PathPointAt(5544, 3736, 36, 0));
    track.Append(PathPointAt(5546, 3739, 36, 100));
    ShowBars(GetParam(), false);
  }

  std::vector<std::uint32_t> Frame() {
    Draw(GetParam());
    return Shown().rows;
  }
};

TEST_P(KeptPictures, AreDrawnAnewForAnotherResolution) {
  OpenCoarse();
  DriveAWay();
  Frame();
  OpenFine();
  const std::vector<std::uint32_t> later = Frame();
  Unload();
  OpenFine();
  DriveAWay();
  EXPECT_EQ(Frame(), later);
}

INSTANTIATE_TEST_SUITE_P(Views, KeptPictures,
                         testing::Values(FEROLIN_VIEW_SPEEDOMETER, FEROLIN_VIEW_SATELLITES,
                                         FEROLIN_VIEW_PATH));

}  // namespace

}  // namespace ferolin
