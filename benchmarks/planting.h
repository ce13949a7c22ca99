#pragma once

#include <QJsonArray>
#include <QJsonObject>
#include <QSize>
#include <QTemporaryDir>

#include "discovery/camera_component_manager.h"

class CameraComponent;

/// A camera of the given name and size, as the virtual camera's description has it; `more` is added.
[[nodiscard]] QJsonObject cameraOf(const QString& name, QSize size, const QJsonObject& more = {});

/// The same, with a camera that falls silent some time after its start. What reads a camera is best ended in silence:
/// where a frame is on its way the last reference to a source reader may be one of the reader's own thread, which then
/// waits for itself under Wine.
[[nodiscard]] QJsonObject silentCamera(double afterSeconds, QSize size, const QJsonObject& more = {});

/// Virtual cameras in the registry of the run's Wine prefix, for as long as the object lives.
class Planting {
 public:
  /// Throws std::runtime_error.
  explicit Planting(const QJsonArray& cameras);
  ~Planting();
  Planting(const Planting&) = delete;
  Planting& operator=(const Planting&) = delete;

 private:
  QTemporaryDir folder;
};

/// One virtual camera, planted and found by the module.
class FoundCamera {
 public:
  /// Throws std::runtime_error.
  explicit FoundCamera(const QJsonObject& camera);

  [[nodiscard]] CameraComponent& component() const { return *found; }
  [[nodiscard]] const std::string& path() const { return devicePath; }

 private:
  Planting planting;
  CameraComponentManager manager;
  CameraComponent* found = nullptr;
  std::string devicePath;
};
