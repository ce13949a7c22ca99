#pragma once

#include <QDir>
#include <QString>

/// Saves pictures of the screen, as a person sees it. User-interface thread.
class Pictures {
 public:
  /// Makes the folder if need be; without one, nothing is ever saved. Throws HostError.
  explicit Pictures(const QString& folder);

  /// Saves the whole screen as `name`.png. False when it could not be written.
  bool save(const QString& name) const;
  bool isWanted() const { return wanted; }

 private:
  QDir directory;
  bool wanted;
};
