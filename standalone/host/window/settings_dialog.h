#pragma once

#include <QDialog>

#include "standalone/host/session/session.h"

class QComboBox;
class QLineEdit;

/// What the user chose in earlier sessions.
RunSettings rememberedSettings();
/// Where a report of every run is saved; empty for nowhere.
QString rememberedReportFolder();

/// Lets the user change the settings, and remembers them when the dialog is accepted. The serial number belongs to one
/// PC and is forgotten with the session.
class SettingsDialog : public QDialog {
  Q_OBJECT

 public:
  SettingsDialog(const RunSettings& settings, QWidget* parent);

  RunSettings settings() const;

 private:
  void accept() override;
  QLayout* makeFolderRow();

  QComboBox* language;
  QLineEdit* timeout;
  QLineEdit* operatorName;
  QLineEdit* serialNumber;
  QString reportFolder;
};
