#pragma once

#include <set>
#include <string>
#include <vector>

#include "discovery/camera_scanner.h"
#include "discovery/win_device_interface_scanner.h"

/// Joins what Media Foundation lists as video capture sources with what SetupAPI tells about the devices. A camera is a
/// device interface that is in both, and attached by USB or built in.
class WinCameraScanner : public CameraScanner {
 public:
  std::uint32_t scan() override;
  bool hasCameras() override;
  std::uint32_t clear() override;
  std::vector<CameraInfo> getCameras() override;

 private:
  /// Refills `captureLinks`; false when Media Foundation failed. Needs a MediaSession.
  bool enumerateCaptureLinks();
  /// Refills `cameras`; false when no search succeeded.
  bool buildCameraList();
  /// The cameras among the devices of one search.
  std::vector<CameraInfo> buildBatch(const DeviceMap& devices);
  /// Leaves `field` alone when the device has no such property.
  void readProperty(std::uint32_t deviceIndex, std::uint32_t property, std::string& field);
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
