#pragma once

#include <QString>

#include <stdexcept>

/// What the user must put right before anything can run: a whole sentence, shown as it is.
class HostError : public std::runtime_error {
 public:
  explicit HostError(const QString& sentence) : std::runtime_error(sentence.toStdString()) {}
  QString sentence() const { return QString::fromUtf8(what()); }
};
