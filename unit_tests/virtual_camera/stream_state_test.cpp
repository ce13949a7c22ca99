#include "standalone/virtual_camera/description/stream_state.h"

#include <algorithm>
#include <vector>

#include <gtest/gtest.h>

namespace {

TEST(StreamState, FollowsTheTimeLine) {
  using Kind = StreamState::Kind;
  using View = StreamState::View;
  struct Case {
    std::vector<Fault> faults;
    double seconds;
    StreamState state;
  };
  const std::vector<Fault> stallWithTick{{FaultKind::kTick, 1}, {FaultKind::kStall, 1, 2}};
  const std::vector<Fault> views{{FaultKind::kBlack, 1, 3}, {FaultKind::kCovered, 2, 1}, {FaultKind::kFrozen, 4}};
  const std::vector<Fault> ends{{FaultKind::kRemoved, 1}, {FaultKind::kReturns, 2}, {FaultKind::kError, 3}};
  Fault half{FaultKind::kShort, 1, 1};
  half.share = 0.5;
  const Case cases[] = {{stallWithTick, 0.9, {}},
                        {stallWithTick, 1, {.kind = Kind::kSilence, .ticks = 1}},
                        {stallWithTick, 3, {.ticks = 1}},
                        {views, 1.5, {.view = View::kBlack}},
                        {views, 2.5, {.view = View::kCovered}},
                        {views, 3.5, {.view = View::kBlack}},
                        {views, 9, {.frozenAt = 4}},
                        {ends, 5, {.kind = Kind::kSilence}},
                        {{half}, 1.5, {.share = 0.5}},
                        {{half}, 2.0, {}},
                        {{{FaultKind::kUnlockable, 1}, {FaultKind::kUnlockable, 2}, {FaultKind::kOtherRemoved, 2}},
                         2,
                         {.unlockables = 2, .othersRemoved = 1}},
                        {{{FaultKind::kFirstReadFails}, {FaultKind::kSizeChange, 0, 1, {64, 64}}},
                         0,
                         {.kind = Kind::kFailing, .cause = FaultKind::kFirstReadFails}}};
  for (const Case& expected : cases) {
    EXPECT_EQ(streamStateAt(expected.faults, 0, expected.seconds), expected.state)
        << &expected - cases << " at " << expected.seconds;
  }
}

TEST(StreamState, LeavesToChanceWhatTheSeedDecides) {
  constexpr quint64 kFrames = 2000;
  const auto fault = [](FaultKind kind, int seed) {
    return std::vector<Fault>{{.kind = kind, .share = 0.25, .lateness = 0.1, .seed = seed}};
  };
  std::vector<bool> dropped[3];
  double sum = 0;
  double sumOfDropped = 0;
  for (quint64 frame = 0; frame < kFrames; ++frame) {
    for (const int seed : {1, 2}) {
      const bool isDropped =
          streamStateAt(fault(FaultKind::kDropped, seed), frame, 0).kind == StreamState::Kind::kSilence;
      dropped[seed].push_back(isDropped);
    }
    const double lateness = streamStateAt(fault(FaultKind::kJitter, 1), frame, 0).lateness;
    EXPECT_TRUE(lateness >= 0 && lateness <= 0.1) << lateness;
    sum += lateness;
    if (dropped[1].back()) sumOfDropped += lateness;
  }
  const auto drops = static_cast<double>(std::ranges::count(dropped[1], true));
  EXPECT_NEAR(drops / kFrames, 0.25, 0.04);
  EXPECT_NEAR(sum / kFrames, 0.05, 0.005);
  EXPECT_NEAR(sumOfDropped / drops, 0.05, 0.005) << "what is dropped decides what is late";
  EXPECT_NE(dropped[1], dropped[2]);
}

}  // namespace
