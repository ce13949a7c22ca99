#include "standalone/virtual_camera/media_source/frame_pacer.h"

#include <chrono>
#include <thread>
#include <vector>

#include <gtest/gtest.h>

namespace {

using namespace std::chrono_literals;

// The numbers of the frames in 0.5 s at 50 frames a second.
std::vector<quint64> framesOf(const FramePacer::Callback& atFrame, const FramePacer::Lateness& lateness) {
  std::vector<quint64> numbers;
  FramePacer pacer;
  for (int start = 0; start < 2; ++start) {
    pacer.stop();
    numbers.clear();
    pacer.start(
        50,
        [&](quint64 number, double seconds) {
          EXPECT_DOUBLE_EQ(seconds, static_cast<double>(number) / 50);
          numbers.push_back(number);
          atFrame(number, seconds);
        },
        lateness);
    std::this_thread::sleep_for(500ms);
  }
  pacer.stop();
  const std::size_t count = numbers.size();
  std::this_thread::sleep_for(50ms);
  EXPECT_EQ(numbers.size(), count) << "nothing comes after the stop";
  return numbers;
}

TEST(FramePacer, KeepsTheTimeAndLeavesOutTheFramesThatNobodyHasTimeFor) {
  const auto none = [](quint64, double) { return 0.0; };
  const auto nothing = [](quint64, double) {};
  const std::vector<quint64> all = framesOf(nothing, none);
  EXPECT_EQ(all.front(), 0U) << "the second start begins anew";
  EXPECT_GT(all.size(), 10U);
  EXPECT_GE(all.back(), 15U);
  EXPECT_LE(all.back(), 26U);

  const std::vector<quint64> busy = framesOf([](quint64, double) { std::this_thread::sleep_for(110ms); }, none);
  EXPECT_LE(busy.size(), 6U);
  EXPECT_GE(busy.back(), 15U) << "the time goes on meanwhile";

  const std::vector<quint64> late = framesOf(nothing, [](quint64, double) { return 0.11; });
  EXPECT_LE(late.size(), 6U);
  EXPECT_GE(late.size(), 2U);
}

TEST(FramePacer, StopsWhileALateFrameIsWaitedFor) {
  FramePacer pacer;
  pacer.start(
      10, [](quint64, double) { ADD_FAILURE(); }, [](quint64, double) { return 60.0; });
  const auto begin = std::chrono::steady_clock::now();
  pacer.stop();
  EXPECT_LT(std::chrono::steady_clock::now() - begin, 30s);
}

}  // namespace
