#pragma once

#include <cstddef>
#include <cstdint>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

/// A device that a search found.
struct DeviceEntry {
  /// What the by-index operations of the scanner take, until its next search.
  std::uint32_t deviceIndex = 0;
  /// In enumeration order, as the system writes them.
  std::vector<std::string> interfacePaths;
};

/// Device instance id to device.
using DeviceMap = std::map<std::string, DeviceEntry>;

/// Says which devices to look for. Each kind of scanner has its own kind of filter.
class DeviceScanFilter {
 public:
  virtual ~DeviceScanFilter() = default;
};

/// Answers questions about the devices of the last search, by index or by path. Not thread-safe. The camera scanner
/// asks for registry properties alone; the other operations are carried for the module family.
///
/// Unless an operation says otherwise it returns 0 for success and 1 for failure, and leaves its out arguments alone on
/// failure. A text handed out through `char**` is UTF-8, was allocated with new[] and is the caller's (`takeText` wraps
/// this).
class DeviceInterfaceScanner {
 public:
  virtual ~DeviceInterfaceScanner() = default;

  /// Appends "\\?\" + name for every DOS device name of at most 261 bytes that begins with `prefix`, case-sensitively.
  [[nodiscard]] virtual std::uint32_t getDosDevicePaths(const std::string& prefix, std::vector<std::string>& paths) = 0;
  /// Replaces `found` by the interfaces of one device of the last search, under its instance id; empty on failure.
  [[nodiscard]] virtual std::uint32_t getInterfacePaths(std::uint32_t index, DeviceMap& found) = 0;
  /// `property` is an SPDRP number. Of a list property the first text is returned; an empty property is absent.
  [[nodiscard]] virtual std::uint32_t getRegistryProperty(std::uint32_t index, std::uint32_t property, char** text) = 0;
  /// The path of the first interface, of the filter's interface class, of the device's parent.
  [[nodiscard]] virtual std::uint32_t getParentInterfacePath(const DeviceScanFilter& filter, std::uint32_t index,
                                                             char** path) = 0;
  /// `getRegistryProperty` of the device's parent, looked up among the present devices of the filter's device class.
  [[nodiscard]] virtual std::uint32_t getParentRegistryProperty(const DeviceScanFilter& filter, std::uint32_t index,
                                                                std::uint32_t property, char** text) = 0;
  /// An empty version counts as absent.
  [[nodiscard]] virtual std::uint32_t getDriverVersion(std::uint32_t index, char** text) = 0;
  virtual std::size_t getDeviceCount() = 0;
  /// Opens a device for overlapped reading and writing. `handle` goes back to `closeDevice`. On failure it returns the
  /// system's error code and leaves INVALID_HANDLE_VALUE in `handle`.
  [[nodiscard]] virtual std::uint32_t openDevice(const std::string& path, void** handle) = 0;
  /// Waits until the volume is locked or refused.
  [[nodiscard]] virtual std::uint32_t lockVolume(void* handle) = 0;
  [[nodiscard]] virtual std::uint32_t unlockVolume(void* handle) = 0;
  [[nodiscard]] virtual std::uint32_t closeDevice(void* handle) = 0;
  /// A constant, whose meaning lies with the host.
  virtual std::uint32_t getScannerKind() = 0;
};

/// The text of a reading operation, which answers 0 when it has allocated one through its `char**`.
template <class ReadingOperation>
std::optional<std::string> takeText(ReadingOperation read) {
  char* text = nullptr;
  if (read(&text) != 0) return std::nullopt;
  const std::unique_ptr<char[]> owner(text);
  return std::string(text);
}
