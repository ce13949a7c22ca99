#pragma once

#include <QString>

#include <stdexcept>

/// What the user must put right before anything can run: a whole sentence, shown as it is.
class HostError : public std::runtime_error {
 public:
  explicit HostError(const QString& sentence) : std::runtime_error(sentence.toStdString()) {}
  QString sentence() const { return QString::fromUtf8(what()); }
};

/// A report that could not be written.
class ReportError : public HostError {
 public:
  using HostError::HostError;
};

/// A fault of the module, of which nobody can put anything right.
class ModuleFault : public HostError {
 public:
  using HostError::HostError;
};
