#pragma once

#include <QAbstractNativeEventFilter>
#include <QColor>
#include <QList>
#include <QObject>

#include <cstdint>

namespace vexa::utils::event_filters {

/// Turns Windows' theme-change message into a signal, and reads what the theme consists of. Once installed on the
/// application it sees every native message of the user-interface thread.
class HighContrastEventFilter : public QObject, public QAbstractNativeEventFilter {
  Q_OBJECT

 public:
  explicit HighContrastEventFilter(QObject* parent);
  ~HighContrastEventFilter() override;

  /// Answers true, so that nobody else handles the message, only for WM_THEMECHANGED in a "windows_generic_MSG"; all
  /// filters then emit ThemeChanged.
  bool nativeEventFilter(const QByteArray& eventType, void* message, qintptr* result) override;

  /// Whether the user has high contrast switched on; false when Windows does not say.
  [[nodiscard]] bool IsHighContrastOn() const;

  /// The 30 system colours 0 to 24 and 26 to 30 in this order. Windows defines no colour 25, so that from 26 on a
  /// colour's position is one less than its number.
  [[nodiscard]] QList<QColor> ReadSystemColors() const;

 signals:
  void ThemeChanged();

 private:
  /// The number of a native message, which `message` points to.
  static std::uint32_t messageNumber(const void* message);
};

}  // namespace vexa::utils::event_filters
