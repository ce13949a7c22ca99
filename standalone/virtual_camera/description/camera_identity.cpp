#include "standalone/virtual_camera/description/camera_identity.h"

namespace {

// The device part of an instance id: the hardware id without its enumerator and revision, in the characters that
// Windows allows there.
QString devicePart(const CameraDescription& camera) {
  QString part = camera.hardwareId.section(QLatin1Char('\\'), -1).toUpper();
  part = part.left(part.indexOf(QStringLiteral("&REV_")));
  for (QChar& character : part) {
    const bool allowed = (character >= u'A' && character <= u'Z') || (character >= u'0' && character <= u'9') ||
                         character == u'_' || character == u'&';
    if (!allowed) character = u'_';
  }
  if (!part.isEmpty()) return part;
  return camera.connection == Connection::kUsb ? QStringLiteral("VID_1BCF&PID_2C99") : QStringLiteral("VCAM0001");
}

}  // namespace

QString cameraInterfaceClass() {
  return QStringLiteral("{e5323777-f976-4f5b-9b55-b94699c46e44}");
}

CameraIdentity identityOf(const CameraDescription& camera, std::size_t position) {
  const QString enumerator = camera.connection == Connection::kUsb ? QStringLiteral("USB") : QStringLiteral("DISPLAY");
  const QString instanceId = QStringLiteral("%1\\%2\\VCAM&%3")
                                 .arg(enumerator, devicePart(camera))
                                 .arg(static_cast<qulonglong>(position), 4, 10, QLatin1Char('0'));
  QString link = instanceId.toLower();
  link.replace(QLatin1Char('\\'), QLatin1Char('#'));
  return {instanceId, QStringLiteral("\\\\?\\%1#%2").arg(link, cameraInterfaceClass())};
}
