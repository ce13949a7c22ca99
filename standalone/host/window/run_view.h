#pragma once

#include <QWidget>

class QLabel;
class QListWidget;
class QProgressBar;
struct Run;

/// Shows one run: what it does or how it ended, its progress and its messages with what can be done about each.
class RunView : public QWidget {
  Q_OBJECT

 public:
  RunView();

  /// Shows the run as it stands, running or over.
  void showRun(const Run& run);

 private:
  void showState(const Run& run);
  void showMessages(const Run& run);

  QLabel* title;
  QLabel* icon;
  QLabel* verdict;
  QLabel* cause;
  QProgressBar* progress;
  QListWidget* messages;
};

/// The name of the icon of a run's state, which is "passed", "failed", "other" or "running".
const char* stateName(const Run& run);
/// That icon.
QIcon stateIcon(const Run& run);
