#pragma once

#include <QDialog>

class QLabel;
struct Run;

/// A run of the history with its camera, its times and its pictures. Shows the run as it is when the dialog is made.
class RunDialog : public QDialog {
  Q_OBJECT

 public:
  RunDialog(const Run& run, QWidget* parent);

  /// Tells where the report is.
  void showSaved(const QString& file);

 signals:
  /// The user wants this run as a report.
  void saveWanted();

 private:
  QLabel* saved;
};
