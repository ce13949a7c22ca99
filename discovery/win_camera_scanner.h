#pragma once

#include <optional>
#include <set>
#include <string>
#include <vector>

#include "discovery/camera_scanner.h"
#include "discovery/win_device_interface_scanner.h"

/// Joins what Media Foundation lists as video capture sources with what SetupAPI tells about the devices. A camera is a
/// device interface that is in both, and attached by USB or built in.
class WinCameraScanner : public CameraScanner {
 public:
  [[nodiscard]] std::uint32_t scan() override;
  bool hasCameras() override;
  [[nodiscard]] std::uint32_t clear() override;
  std::vector<CameraInfo> getCameras() override;

 private:
  /// Refills `captureLinks`; they stay empty when Media Foundation fails. Needs a MediaSession.
  void enumerateCaptureLinks();
  /// Fills `cameras`, which are empty before; false when no search succeeded.
  [[nodiscard]] bool buildCameraList();
  /// The cameras among the devices of one search.
  std::vector<CameraInfo> buildBatch(const DeviceMap& devices);
  /// An SPDRP text of a device of the last search; nothing when it has none.
  std::optional<std::string> property(std::uint32_t deviceIndex, std::uint32_t number);
  /// Needs the record's manufacturer and type.
  std::string cameraName(const CameraInfo& record, std::uint32_t deviceIndex, const std::string& path);

  WinDeviceInterfaceScanner deviceScanner;
  /// The result of the last scan.
  std::vector<CameraInfo> cameras;
  /// Symbolic links of the video capture sources, normalised by the host.
  std::set<std::string> captureLinks;
  /// The driver version that was read last.
  std::string driverVersionScratch;
};
