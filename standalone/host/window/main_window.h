#pragma once

#include <QMainWindow>
#include <QPointer>

#include "standalone/host/session/session.h"

class CameraView;
class QAction;
class QLabel;
class QListWidget;
class QPushButton;
class QMessageBox;
class QTreeWidget;
class QTreeWidgetItem;
class RunDialog;
class RunView;

/// The program's window: the cameras, what can be run on them, the run that goes on, and those that are over. All that
/// it shows is the session's, which outlives it.
class MainWindow : public QMainWindow {
  Q_OBJECT

 public:
  /// Whether the user runs tests, or only sees those that a command line named.
  enum class Use { kInteractive, kForTheseRuns };

  MainWindow(Session& session, Use use);

  /// Says that something went wrong beside the tests.
  void showFault(const QString& sentence);

 signals:
  /// The user closed the window, and nothing runs any more.
  void closed();
  /// The user chose where runs are to be saved; empty for nowhere.
  void reportFolderChanged(const QString& folder);

 private:
  void closeEvent(QCloseEvent* event) override;

  void makeActions();
  QWidget* makeCameraSide();
  QWidget* makeTestSide();
  QPushButton* buttonFor(QAction& action);

  void observeSession();
  void showCameras();
  void showCamera();
  void showRun();
  void addToHistory(const Run& run);
  static void fillLine(QTreeWidgetItem& line, const Run& run);
  void showState();
  const Camera* selectedCamera() const;
  void selectCamera(const QString& identity);

  void runOnCamera();
  void runAll();
  void runAgain();
  void runNotPassed();
  void cancel();
  void rescan();
  void openRun();
  void saveReport(const Run& run, RunDialog& dialog);
  void openSettings();

  Session& session;
  Use use;
  bool isClosing = false;

  QAction* runOnCameraAction;
  QAction* runAllAction;
  QAction* againAction;
  QAction* notPassedAction;
  QAction* cancelAction;
  QAction* openRunAction;
  QAction* rescanAction;
  QListWidget* cameras;
  CameraView* cameraView;
  RunView* runView;
  QTreeWidget* history;
  QLabel* noCamera;
  QLabel* state;
  QPointer<QMessageBox> faultBox;
};
