#include "utils/event_filters/high_contrast_event_filter.h"

#include <QCoreApplication>

#include <tuple>
#include <utility>

#include <gtest/gtest.h>

#include "unit_tests/fakes/fake_platform.h"

using vexa::utils::event_filters::HighContrastEventFilter;

namespace {

TEST(HighContrastEventFilterTest, TakesOnlyTheThemeChange) {
  constexpr std::tuple<const char*, std::uint32_t, bool> kCases[] = {{"windows_generic_MSG", 794, true},
                                                                     {"windows_generic_MSG", 793, false},
                                                                     {"windows_generic_MSG", 0x10000794, false},
                                                                     {"windows_dispatcher_MSG", 794, false},
                                                                     {"windows_generic_MS", 794, false}};
  HighContrastEventFilter filter(nullptr);
  int changes = 0;
  QObject::connect(&filter, &HighContrastEventFilter::ThemeChanged, [&] { ++changes; });
  QCoreApplication::instance()->installNativeEventFilter(&filter);
  for (const auto& [type, number, taken] : kCases) {
    EXPECT_EQ(sendNativeMessage(type, number), taken) << type << number;
    EXPECT_EQ(std::exchange(changes, 0), taken ? 1 : 0);
  }
}

TEST(HighContrastEventFilterTest, ReadsTheThemeOfTheSystem) {
  HighContrastEventFilter filter(nullptr);
  fakePlatform() = {.highContrast = true, .shade = 7};
  EXPECT_TRUE(filter.IsHighContrastOn());
  fakePlatform().highContrast = false;
  EXPECT_FALSE(filter.IsHighContrastOn());

  const QList<QColor> colors = filter.ReadSystemColors();
  ASSERT_EQ(colors.size(), 30);
  for (int k = 0; k <= 24; ++k) EXPECT_EQ(colors[k], fakeSystemColor(k)) << k;
  for (int k = 26; k <= 30; ++k) EXPECT_EQ(colors[k - 1], fakeSystemColor(k)) << k;
}

}  // namespace
