#pragma once

#include <string>

enum class DriverVersionRead {
  /// The driver key holds no version text.
  kAbsent,
  /// There is a version, but reading it failed: the text is empty.
  kUnreadable,
  kRead,
};

/// Reads the "DriverVersion" of a driver from the registry. `driverKey` is the driver's subkey below the device class
/// key. `version` is left alone when the version is absent.
DriverVersionRead readDriverVersion(const std::string& driverKey, std::string& version);
