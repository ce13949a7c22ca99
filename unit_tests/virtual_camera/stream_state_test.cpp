#include "standalone/virtual_camera/description/stream_state.h"

#include <vector>

#include <gtest/gtest.h>

namespace {

using Kind = StreamState::Kind;

Fault stall(double at, double duration) {
  Fault fault{FaultKind::Stall, at};
  fault.duration = duration;
  return fault;
}

Fault sizeChange(double at, QSize size) {
  Fault fault{FaultKind::SizeChange, at};
  fault.size = size;
  return fault;
}

struct Case {
  const char* name;
  std::vector<Fault> faults;
  double seconds;
  StreamState expected;
};

class StreamStateAt : public testing::TestWithParam<Case> {};

TEST_P(StreamStateAt, FollowsTheTimeLine) {
  const Case& c = GetParam();
  EXPECT_EQ(streamStateAt(c.faults, c.seconds), c.expected);
}

const Fault tick1{FaultKind::Tick, 1};
const Fault tick2{FaultKind::Tick, 2};
const Fault removed1{FaultKind::Removed, 1};
const Fault end1{FaultKind::EndOfStream, 1};

INSTANTIATE_TEST_SUITE_P(
    , StreamStateAt,
    testing::Values(Case{"NoFault", {}, 5, {}},
                    Case{
                        "FaultsOfTheOpeningDoNotConcernTheStream", {{FaultKind::NoOpen}, {FaultKind::NotRgb32}}, 5, {}},
                    Case{"FirstReadFails",
                         {{FaultKind::FirstReadFails}},
                         0,
                         {.kind = Kind::Failing, .cause = FaultKind::FirstReadFails}},
                    Case{"BeforeAStall", {stall(1, 2)}, 0.99, {}},
                    Case{"InAStall", {stall(1, 2)}, 1, {.kind = Kind::Silence}},
                    Case{"AfterAStall", {stall(1, 2)}, 3, {}},
                    Case{"AStallWithoutAnEnd", {{FaultKind::Stall, 1}}, 80000, {.kind = Kind::Silence}},
                    Case{"TicksAdd", {tick1, tick2}, 2, {.ticks = 2}},
                    Case{"SizeChanges", {sizeChange(1, {64, 64}), sizeChange(2, {80, 80})}, 2, {.size = QSize(80, 80)}},
                    Case{"RemovedBeforeItsTime", {removed1}, 0.9, {}},
                    Case{"Removed", {removed1}, 1, {.kind = Kind::Silence, .removed = true}},
                    Case{"TheFirstEndStays", {end1, {FaultKind::Error, 2}}, 3, {.kind = Kind::Ended}},
                    Case{"AnEndWithinAStall", {stall(0, 9), end1}, 1, {.kind = Kind::Ended}},
                    Case{"Invalidated",
                         {tick1, {FaultKind::Invalidated, 1}},
                         1,
                         {.kind = Kind::Failing, .cause = FaultKind::Invalidated, .ticks = 1}}),
    [](const auto& parameter) { return parameter.param.name; });

}  // namespace
