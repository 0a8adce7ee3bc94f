#include <gtest/gtest.h>

#include "base/GrowingArray.h"
#include "support/FailingMemory.h"

namespace ferolin {

namespace {

class GrowingArrayTest : public testing::Test {
 protected:
  GrowingArrayTest() { failing_memory::ForgetReallocs(); }
  ~GrowingArrayTest() override { failing_memory::RefuseRealloc(false); }

  void Fill(int count) {
    for (int number = 0; number < count; ++number) {
      EXPECT_TRUE(values.Add(number));
    }
  }

  GrowingArray<int> values;
};

TEST_F(GrowingArrayTest, GrowsByAThousand) {
  Fill(1000);
  EXPECT_EQ(1, failing_memory::CountReallocs());
  EXPECT_EQ(1000 * sizeof(int), failing_memory::LastReallocSize());
  Fill(1);
  EXPECT_EQ(2, failing_memory::CountReallocs());
  EXPECT_EQ(2000 * sizeof(int), failing_memory::LastReallocSize());
}

TEST_F(GrowingArrayTest, KeepsItsMemoryWhenCleared) {
  Fill(1000);
  values.Clear();
  EXPECT_TRUE(values.Get().empty());
  Fill(1000);
  EXPECT_EQ(1, failing_memory::CountReallocs());
}

TEST_F(GrowingArrayTest, StartsAfreshWhenReleased) {
  Fill(3);
  values.Release();
  EXPECT_TRUE(values.Get().empty());
  Fill(2);
  EXPECT_EQ(2U, values.Get().size());
  EXPECT_EQ(2, failing_memory::CountReallocs());
}

TEST_F(GrowingArrayTest, StaysAsItIsWithoutMemory) {
  Fill(1000);
  failing_memory::RefuseRealloc(true);
  EXPECT_FALSE(values.Add(1000));
  EXPECT_EQ(1000U, values.Get().size());
  EXPECT_EQ(999, values.Get().back());
  failing_memory::RefuseRealloc(false);
  EXPECT_TRUE(values.Add(1000));
  EXPECT_EQ(1000, values.Get().back());
}

}  // namespace

}  // namespace ferolin
