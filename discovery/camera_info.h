#pragma once

#include <cstdint>
#include <string>

/// How a camera is attached, judged from the prefix of its device path.
enum class CameraType : std::uint32_t {
  kUsb = 0,
  kInternal = 1,
  /// Only while a record is being built.
  kNotDetermined = 2,
};

/// What a scan finds out about one camera. Texts are empty where the device gives no answer.
struct CameraInfo {
  /// The device interface path as enumerated; what the frame capturer opens.
  std::string devicePath;
  std::string name;
  std::string manufacturer;
  std::string description;
  /// The first of the device's hardware ids.
  std::string hardwareId;
  std::string classGuid;
  /// The driver's subkey below the device class key: class GUID in braces, backslash, four-digit instance number.
  std::string driverKey;
  std::string driverVersion;
  CameraType type = CameraType::kNotDetermined;
};
