#pragma once

#include <QJsonArray>
#include <QJsonObject>
#include <QSize>
#include <QTemporaryDir>

#include "discovery/camera_component_manager.h"

class CameraComponent;

/// A camera of the given name and size, as the virtual camera's description has it; `more` is added.
[[nodiscard]] QJsonObject cameraOf(const QString& name, QSize size, const QJsonObject& more = {});

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
