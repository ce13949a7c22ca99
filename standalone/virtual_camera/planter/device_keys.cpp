#include "standalone/virtual_camera/planter/device_keys.h"

#include "standalone/virtual_camera/description/camera_identity.h"

std::wstring interfaceKey(const std::wstring& symbolicLink) {
  // A link \\?\usb#... has the key ##?#usb#...
  return L"SYSTEM\\CurrentControlSet\\Control\\DeviceClasses\\" + cameraInterfaceClass().toStdWString() + L"\\##?#" +
         symbolicLink.substr(std::wstring(L"\\\\?\\").size());
}

std::wstring interfaceControlKey(const std::wstring& symbolicLink) {
  return interfaceKey(symbolicLink) + L"\\#\\Control";
}
