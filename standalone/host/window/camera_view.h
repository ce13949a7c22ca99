#pragma once

#include <QList>
#include <QWidget>

#include "standalone/host/session/run.h"

class QGridLayout;
class QLabel;
class QPushButton;

/// Shows one camera: its properties, and the tests with what each of them does.
class CameraView : public QWidget {
  Q_OBJECT

 public:
  explicit CameraView(const QList<TestDescription>& tests);

  void showCamera(const Camera& camera);
  /// Whether tests can be started; those that the module does not have never can.
  void setCanRun(bool canRun);

 signals:
  void runWanted(const TestDescription& test);

 private:
  void addTest(const TestDescription& test);

  QList<TestDescription> tests;
  QLabel* name;
  QGridLayout* properties;
  /// One for each test, in their order.
  QList<QPushButton*> runButtons;
};
