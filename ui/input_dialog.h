#pragma once

#include "utils/accessibility/accessible_dialog_base.h"

class TestExecutionContext;

/// What the tests' dialogs have in common: a top-level window that keeps its own result code however it is finished.
/// Only for the user-interface thread.
class InputDialog : public vexa::utils::accessibility::AccessibleDialogBase {
  Q_OBJECT

 public:
  /// `parent` is ignored. `eventFilter` gets installed on the dialog and must outlive it.
  InputDialog(QWidget* parent, QObject* eventFilter);

  /// Shows the dialog and returns its result once it has finished, the test was cancelled or somebody deleted it.
  int exec() override;
  /// Both finish the dialog with the result that it already holds.
  void accept() override;
  void reject() override;

  /// The running test's context; the host's. Null when cancelling the test shall not finish `exec()`.
  TestExecutionContext* context = nullptr;
};
