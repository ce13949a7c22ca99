#pragma once

#include <QByteArray>
#include <QColor>
#include <QHash>
#include <QString>

#include <cstdint>

/// What Windows tells the dialogs about the user, as the tests script it. On Windows the product's own code asks, and
/// the system functions that it calls answer this; elsewhere the product's functions themselves do.
struct FakePlatform {
  bool narratorRuns = false;
  bool highContrast = false;
  /// Effective dots per inch of the monitor at the place of the first Qt screen; 0 lets the query fail. On Windows two
  /// others, which share one edge with it and answer 333, come first.
  std::int32_t monitorDpi = 0;
  /// What the process told Windows of its awareness; -1 for nothing.
  int dpiAwareness = -1;
  /// What the system colours are made of that the theme does not set: the colour numbered k is shade + k in each part.
  int shade = 0;
  /// Colours by their numbers.
  QHash<int, QColor> theme = {};
  /// The folder for the programs' common data; without one Windows does not say where it is.
  QString programData = {};
};

/// The one scripted platform; reset it at the start of a test.
FakePlatform& fakePlatform();

/// The colour that the system has at place `number`.
QColor fakeSystemColor(int number);

/// Sends a native message through the application's filters, as Qt's event dispatcher does; whether one took it.
bool sendNativeMessage(const QByteArray& eventType, std::uint32_t number);

/// Sends a message to all open windows, on Windows through the system.
void sendToWindows(std::uint32_t number);
