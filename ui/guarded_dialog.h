#pragma once

#include <mutex>

/// A wrapper's pointer to its dialog, which the dialog's own end clears. The dialog lives on the user-interface thread
/// while the test's thread asks for it: whoever holds the lock keeps the dialog from going.
template <class Dialog>
class GuardedDialog {
 public:
  /// This object must outlive `created`.
  void set(Dialog* created) {
    created->beforeDestruction = [this] { clear(); };
    const std::lock_guard lock(mutex);
    dialog = created;
  }

  void clear() {
    const std::lock_guard lock(mutex);
    dialog = nullptr;
  }

  [[nodiscard]] bool exists() const {
    const std::lock_guard lock(mutex);
    return dialog != nullptr;
  }

  /// Whether there is a dialog that has no answer yet.
  [[nodiscard]] bool isOpen() const {
    const std::lock_guard lock(mutex);
    return dialog != nullptr && dialog->result() == 0;
  }

  /// Calls `operation` with the dialog, if there is one.
  template <class Operation>
  void with(Operation operation) {
    const std::lock_guard lock(mutex);
    if (dialog != nullptr) operation(*dialog);
  }

 private:
  mutable std::mutex mutex;
  Dialog* dialog = nullptr;
};
