#pragma once

class QObject;
class QWidget;
class TestExecutionContext;

/// Through this the host creates a test's dialog on its user-interface thread.
class AbstractWidgetWrapper {
 public:
  explicit AbstractWidgetWrapper(TestExecutionContext* executionContext) : context(executionContext) {}
  virtual ~AbstractWidgetWrapper() = default;

  /// Creates and shows the dialog. The host calls it on its user-interface thread. `parent` is ignored: the dialogs are
  /// top-level windows. `eventFilter` is the host's and gets installed on the dialog.
  [[nodiscard]] virtual bool CreateWidget(QWidget* parent, QObject* eventFilter) = 0;

 protected:
  /// The running test's context. The host's; never null while a test runs.
  TestExecutionContext* context;
};
