// The path as it is drawn, compared with the plain way: every point projected, one polyline through
// all of them with its last pixel, clipped to the area. Not one pixel may differ.

#include <gtest/gtest.h>

#include <cstring>
#include <limits>
#include <random>
#include <vector>

#include "render/FrameBitmap.h"
#include "render/Selection.h"
#include "support/FailingMemory.h"
#include "support/Rounds.h"
#include "widgets/path/PathLayer.h"
#include "widgets/path/PathTrack.h"

namespace ferolin {

namespace {

constexpr COLORREF BACKGROUND = RGB(0, 0, 0);
constexpr COLORREF PATH_COLOR = RGB(0, 255, 255);

/// A picture to draw into, of the form that frames have.
class Sheet {
 public:
  explicit Sheet(SIZE sheetSize) : size(sheetSize) {
    surface.EnsureDC(nullptr);
    surface.SetBitmap(CreateFrameBitmap(surface.GetDC(), size.cx, size.cy, &bits));
    Clear();
  }
  ~Sheet() { surface.Release(); }
  Sheet(const Sheet&) = delete;
  Sheet& operator=(const Sheet&) = delete;

  void Clear() { std::memset(bits, 0, ByteCount()); }
  HDC GetDC() const { return surface.GetDC(); }
  bool operator==(const Sheet& other) const {
    return std::memcmp(bits, other.bits, ByteCount()) == 0;
  }
  bool IsEmpty() const {
    const auto* bytes = static_cast<const char*>(bits);
    return std::all_of(bytes, bytes + ByteCount(), [](char byte) { return byte == 0; });
  }

 private:
  std::size_t ByteCount() const {
    return static_cast<std::size_t>((size.cx + 1) / 2 * 4 * size.cy);
  }

  SIZE size;
  Surface surface;
  void* bits = nullptr;
};

void DrawPlainly(HDC dc, const PathPoints& points, const PathProjection& projection) {
  std::vector<POINT> line;
  for (int number = points.GetFirst(); number < points.GetEnd(); ++number) {
    line.push_back(projection.Project(points[number]));
  }
  const RECT area = projection.GetArea();
  const HRGN region = CreateRectRgn(area.left, area.top, area.right, area.bottom);
  const HPEN pen = CreatePen(PS_SOLID, 1, PATH_COLOR);
  SelectClipRgn(dc, region);
  {
    const Selection selection(dc, pen);
    Polyline(dc, line.data(), static_cast<int>(line.size()));
    SetPixel(dc, line.back().x, line.back().y, PATH_COLOR);
  }
  SelectClipRgn(dc, nullptr);
  DeleteObject(pen);
  DeleteObject(region);
}

class PathLayerTest : public testing::Test {
 protected:
  ~PathLayerTest() override { failing_memory::RefuseRealloc(false); }

  int Pick(int low, int high) { return std::uniform_int_distribution(low, high)(random); }
  float Shift(float most) { return std::uniform_real_distribution(-most, most)(random); }

  /// Goes on from the last point: stops, small and large steps, repeated roads, gaps, jumps over
  /// the date line and to the other side of the equator.
  void Wander(int count) {
    const float step = std::pow(10.0F, Shift(2.5F) - 1.5F);
    for (int added = 0; added < count; ++added) {
      switch (Pick(0, 40)) {
        case 0:
          latitude += Shift(50 * step);
          longitude += Shift(50 * step);
          break;
        case 1:
          longitude = longitude > 0 ? -17959 : 17959;
          break;
        case 2:
          latitude = -latitude;
          break;
        case 3:
        case 4:
          if (!points.empty()) {
            latitude = points[points.size() / 2].latitude;
            longitude = points[points.size() / 2].longitude;
          }
          break;
        default:
          break;
      }
      if (Pick(0, 3) != 0) {
        latitude += Shift(step);
        longitude += Shift(step);
      }
      points.push_back(PathPointAt(latitude, longitude, 10, 0));
    }
  }

  /// Forth and back on one winding road of an hour's length, with the receiver's noise.
  void DriveAllDay(int count) {
    constexpr int PLACES = 4000;
    constexpr float STEP = 0.005F;
    std::vector<std::pair<float, float>> road = {{latitude, longitude}};
    float heading = Shift(3);
    while (road.size() < PLACES) {
      heading += Shift(0.2F);
      road.emplace_back(road.back().first + STEP * std::sin(heading),
                        road.back().second + STEP * std::cos(heading));
    }
    for (int second = 0; second < count; ++second) {
      const int place = std::abs(second % (2 * PLACES) - PLACES);
      const auto [north, east] = road[static_cast<std::size_t>(std::min(place, PLACES - 1))];
      points.push_back(PathPointAt(north + Shift(0.004F), east + Shift(0.004F), 50, second));
    }
  }

  /// The points that a full track still has.
  PathPoints Points() const {
    return PathPoints(std::span(points).subspan(static_cast<std::size_t>(lost)), lost);
  }

  PathBox Box() const {
    PathBox box;
    for (const TrackPoint& point : points) {
      box.Widen(point.latitude, point.longitude);
    }
    return box;
  }

  RECT RandomArea() {
    const LONG left = Pick(0, 100);
    const LONG top = Pick(0, 80);
    return {left, top, Pick(left + 10, FRAME.cx), Pick(top + 10, FRAME.cy)};
  }

  void ExpectPlainPicture(const PathProjection& projection) {
    index.Update(Points());
    Sheet fast(FRAME);
    layer.Draw(fast.GetDC(), Points(), index, projection, {BACKGROUND, PATH_COLOR});
    Sheet plain(FRAME);
    DrawPlainly(plain.GetDC(), Points(), projection);
    EXPECT_TRUE(fast == plain) << points.size() << " points, " << lost << " lost";
    picturesWithInk += plain.IsEmpty() ? 0 : 1;
  }

  static constexpr SIZE FRAME = {200, 160};

  std::mt19937 random{1};
  std::vector<TrackPoint> points;
  int lost = 0;
  float latitude = 5540;
  float longitude = 3730;
  PathIndex index;
  PathLayer layer;
  int picturesWithInk = 0;
};

class RandomPaths : public PathLayerTest, public testing::WithParamInterface<int> {
 protected:
  RandomPaths() { random.seed(static_cast<unsigned>(GetParam())); }
};

TEST_P(RandomPaths, LookAsThePlainWayHasThem) {
  const RECT area = RandomArea();
  Wander(Pick(2, 3000));
  for (int view = 0; view < 12; ++view) {
    // Up to where most pixels lie beyond what device contexts count to.
    const float zoom = std::pow(2.0F, static_cast<float>(Pick(-3, 26)));
    POINT pan = {Pick(-300, 300), Pick(-300, 300)};
    if (Pick(0, 1) != 0) {
      // Somewhere on the path, so that there is something to see.
      const TrackPoint& point =
          points[static_cast<std::size_t>(Pick(lost, static_cast<int>(points.size()) - 1))];
      pan = PathProjection(Box(), area, zoom, {0, 0}).PanTo(point, {area.left + 5, area.top + 5});
    }
    const PathProjection projection(Box(), area, zoom, pan);
    ExpectPlainPicture(projection);
    // Go on driving, seen in the same way.
    for (int update = 0; update < 4; ++update) {
      Wander(Pick(0, 20));
      ExpectPlainPicture(projection);
    }
    // Follow a finger, now and then while driving on.
    for (int move = 0; move < 6; ++move) {
      pan.x += Pick(-12, 12) * Pick(0, 1);
      pan.y += Pick(-12, 12) * Pick(0, 1);
      Wander(Pick(0, 3) == 0 ? 1 : 0);
      ExpectPlainPicture(PathProjection(Box(), area, zoom, pan));
    }
    // Memory has run out: the oldest points go.
    if (Pick(0, 2) == 0) {
      ExpectPlainPicture(projection);
      lost = std::min(lost + Pick(1, 40), static_cast<int>(points.size()) - 2);
      ExpectPlainPicture(projection);
    }
  }
  EXPECT_GT(picturesWithInk, 0);
}

INSTANTIATE_TEST_SUITE_P(Seeds, RandomPaths, testing::Range(0, testing_support::Rounds(10, 40)));

class RandomRoads : public RandomPaths {};

TEST_P(RandomRoads, DrivenAllDayLookAsThePlainWayHasThem) {
  DriveAllDay(60000);
  for (int view = 0; view < 40; ++view) {
    const RECT area = view % 2 == 0 ? RandomArea() : RECT{0, 0, FRAME.cx, FRAME.cy};
    const float zoom = std::pow(2.0F, static_cast<float>(Pick(-2, 9)) / 2);
    const TrackPoint& point = points[static_cast<std::size_t>(Pick(0, 59999))];
    const POINT pan =
        PathProjection(Box(), area, zoom, {0, 0}).PanTo(point, {area.left + 5, area.top + 5});
    ExpectPlainPicture(PathProjection(Box(), area, zoom, pan));
  }
  // A jump, and on with steps of pixels.
  latitude += 3;
  Wander(300);
  for (int view = 0; view < 10; ++view) {
    const RECT area = RandomArea();
    ExpectPlainPicture(PathProjection(Box(), area, 1, {0, 0}));
  }
  EXPECT_EQ(50, picturesWithInk);
}

INSTANTIATE_TEST_SUITE_P(Seeds, RandomRoads, testing::Range(0, testing_support::Rounds(2, 12)));

TEST_F(PathLayerTest, DrawsATrackThatSpreadsOverACountryLikeThePlainWay) {
  for (int second = 0; second < 100000; ++second) {
    latitude += Shift(0.2F);
    longitude += Shift(0.2F);
    points.push_back(PathPointAt(latitude, longitude, 50, second));
  }
  const RECT area = {1, 1, 199, 159};
  for (float zoom = 0.25F; zoom < 500; zoom *= 2) {
    const POINT pan = PathProjection(Box(), area, zoom, {0, 0}).PanTo(points[300], {50, 60});
    ExpectPlainPicture(PathProjection(Box(), area, zoom, pan));
  }
  EXPECT_EQ(11, picturesWithInk);
}

TEST_F(PathLayerTest, GrowsWithItsBox) {
  const RECT area = {1, 1, 199, 159};
  Wander(300);
  for (int update = 0; update < 200; ++update) {
    latitude += 0.1F;
    longitude += 0.1F;
    Wander(1);
    ExpectPlainPicture(PathProjection(Box(), area, 1, {0, 0}));
  }
}

TEST_F(PathLayerTest, FollowsItsColours) {
  const RECT area = {1, 1, 199, 159};
  points = {PathPointAt(5540, 3730, 0, 0), PathPointAt(5541, 3731, 0, 1)};
  index.Update(Points());
  const PathProjection projection(Box(), area, 1, {0, 0});
  Sheet sheet(FRAME);
  layer.Draw(sheet.GetDC(), Points(), index, projection, {BACKGROUND, PATH_COLOR});
  const POINT start = projection.Project(5540, 3730);
  EXPECT_EQ(PATH_COLOR, GetPixel(sheet.GetDC(), start.x, start.y));
  layer.Draw(sheet.GetDC(), Points(), index, projection, {RGB(0, 0, 255), RGB(255, 0, 0)});
  EXPECT_EQ(RGB(255, 0, 0), GetPixel(sheet.GetDC(), start.x, start.y));
  EXPECT_EQ(RGB(0, 0, 255), GetPixel(sheet.GetDC(), 2, 2));
}

TEST_F(PathLayerTest, NeedsNoMemoryForAnIndex) {
  const RECT area = {1, 1, 199, 159};
  failing_memory::RefuseRealloc(true);
  Wander(500);
  // Also the last pixel, which lines leave out.
  points.push_back(PathPointAt(latitude + 1, longitude + 1, 10, 0));
  ExpectPlainPicture(PathProjection(Box(), area, 1, {0, 0}));
  Wander(5);
  ExpectPlainPicture(PathProjection(Box(), area, 4, {0, 0}));
}

TEST_F(PathLayerTest, DrawsTheLineThatLeadsOutOfTheLastBlockWithABox) {
  // The index grows by 1000 blocks of 64 points at a time.
  constexpr int POINTS_OF_FULL_INDEX = 64'000;
  const RECT area = {1, 1, 199, 159};
  PathBox view;
  view.Widen(10, 21);
  view.Widen(11, 22);
  for (int second = 0; second < POINTS_OF_FULL_INDEX; ++second) {
    points.push_back(PathPointAt(10.4F, 15 + Shift(0.1F), 10, second));
  }
  index.Update(Points());
  failing_memory::RefuseRealloc(true);
  points.push_back(PathPointAt(10.6F, 29, 10, 0));
  ExpectPlainPicture(PathProjection(view, area, 1, {0, 0}));
  EXPECT_EQ(1, picturesWithInk);
}

TEST_F(PathLayerTest, DrawsPositionsThatAreNoNumbersLikeThePlainWay) {
  // The lines to and from it leave the frame at the upper edge, those to its neighbours do not.
  const RECT area = {1, 1, 199, 159};
  Wander(150);
  points.push_back(PathPointAt(std::numeric_limits<float>::quiet_NaN(), longitude, 10, 0));
  Wander(150);
  ExpectPlainPicture(PathProjection(Box(), area, 1, {0, 0}));
  EXPECT_EQ(1, picturesWithInk);
}

TEST_F(PathLayerTest, NeedsNoMemoryForAPicture) {
  // No picture can be this large.
  const RECT area = {1, 1, 50001, 50001};
  Wander(700);
  const PathBox box = Box();
  const POINT pan = PathProjection(box, area, 0.001F, {0, 0}).PanTo(points[350], {50, 60});
  ExpectPlainPicture(PathProjection(box, area, 0.001F, pan));
  Wander(5);
  ExpectPlainPicture(PathProjection(box, area, 0.002F, pan));
  EXPECT_GT(picturesWithInk, 0);
}

TEST_F(PathLayerTest, DrawsAllAgainAfterAFrameWithoutMemoryForAPicture) {
  Wander(300);
  const PathProjection projection(Box(), {1, 1, 199, 159}, 1, {0, 0});
  ExpectPlainPicture(projection);
  ExpectPlainPicture(PathProjection(Box(), {1, 1, 50001, 50001}, 0.001F, {0, 0}));
  ExpectPlainPicture(projection);
  EXPECT_GE(picturesWithInk, 2);
}

TEST_F(PathLayerTest, TakesPointsThatTheTrackDropsOutOfThePicture) {
  const RECT area = {1, 1, 199, 159};
  points = {PathPointAt(10, 20, 0, 0), PathPointAt(11, 20, 0, 1), PathPointAt(11, 21, 0, 2)};
  const PathProjection projection(Box(), area, 1, {0, 0});
  ExpectPlainPicture(projection);
  lost = 1;
  points.push_back(PathPointAt(10, 21, 0, 3));
  ExpectPlainPicture(projection);
  EXPECT_EQ(2, picturesWithInk);
}

TEST_F(PathLayerTest, StartsAgainWithAShorterTrack) {
  const RECT area = {1, 1, 199, 159};
  Wander(500);
  ExpectPlainPicture(PathProjection(Box(), area, 1, {0, 0}));
  points.resize(100);
  ExpectPlainPicture(PathProjection(Box(), area, 1, {0, 0}));
}

}  // namespace

}  // namespace ferolin
