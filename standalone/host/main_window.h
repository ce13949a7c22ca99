#pragma once

#include <QWidget>

#include <vector>

#include "standalone/host/test_runner.h"

class QGridLayout;
class QLabel;
class QListWidget;
class QProgressBar;
class QVBoxLayout;

/// The host's window: the camera and the test that runs, its progress, its messages and the verdict.
class MainWindow : public QWidget {
  Q_OBJECT

 public:
  MainWindow();

  void showTest(const TestJob& job, const QString& description);
  void showProgress(int percent, const QString& text);
  void showMessage(const QString& text);
  void showVerdict(const TestReport& report);

 signals:
  /// The user closed the window.
  void closed();

 private:
  void closeEvent(QCloseEvent* event) override;
  QLabel* addLabel(QVBoxLayout& layout, const char* name, const QString& text = {});
  void setStatus(const QString& text, const char* verdict);

  QLabel* cameraName;
  QGridLayout* properties;
  QLabel* testName;
  QLabel* testDescription;
  QProgressBar* progress;
  QListWidget* messages;
  QLabel* verdict;
};
