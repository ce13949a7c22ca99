#pragma once

#include <QObject>

#include <mutex>

/// A wrapper's pointer to its dialog, which the dialog's own end clears. The dialog lives on the user-interface thread
/// while the test's thread asks for it: whoever holds the lock keeps the dialog from going.
template <class Dialog>
class GuardedDialog {
 public:
  /// Takes the new dialog of `wrapper`, of which this object is a part. The dialog, which writes its result to the
  /// wrapper, holds a share of it until it is gone. For the user-interface thread.
  template <class Wrapper>
  void adopt(Dialog* created, Wrapper& wrapper) {
    created->beforeDestruction = [this] { clear(); };
    const auto forget = [this, &wrapper, share = wrapper.weak_from_this().lock()](QObject* gone) mutable {
      clear();
      // What is left of the dialog would still look at a wrapper that it is connected to.
      wrapper.disconnect(gone);
      share.reset();
    };
    QObject::connect(created, &QObject::destroyed, created, forget, Qt::DirectConnection);
    const std::lock_guard lock(mutex);
    dialog = created;
  }

  [[nodiscard]] bool exists() const {
    const std::lock_guard lock(mutex);
    return dialog != nullptr;
  }

  /// Whether there is a dialog that has no answer yet.
  [[nodiscard]] bool isOpen() const {
    const std::lock_guard lock(mutex);
    return dialog && dialog->result() == 0;
  }

  /// Calls `operation` with the dialog, if there is one.
  template <class Operation>
  void with(Operation operation) {
    const std::lock_guard lock(mutex);
    if (dialog) operation(*dialog);
  }

 private:
  void clear() {
    const std::lock_guard lock(mutex);
    dialog = nullptr;
  }

  mutable std::mutex mutex;
  Dialog* dialog = nullptr;
};
