#pragma once

#include <QAbstractNativeEventFilter>
#include <QObject>
#include <QTimer>
#include <qwindowdefs.h>

#include <memory>

/// Tells when cameras may have come or gone, once for the many messages that the system sends about it. User-interface
/// thread.
class DeviceChanges : public QObject, private QAbstractNativeEventFilter {
  Q_OBJECT

 public:
  /// Listens at this window, which must outlive the listener.
  explicit DeviceChanges(WId window);
  ~DeviceChanges() override;

 signals:
  void changed();

 private:
  bool nativeEventFilter(const QByteArray& type, void* message, qintptr* result) override;

  struct Registration;
  std::unique_ptr<Registration> registration;
  QTimer settled;
};
