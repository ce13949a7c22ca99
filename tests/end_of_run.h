#pragma once

#include <utility>

/// Ends something that a run has begun, a capture or a dialog, on every way out: where the run says so, or at the end
/// of the scope. `End` is called at most once.
template <class Begun, auto End>
class EndOfRun {
 public:
  EndOfRun() = default;
  explicit EndOfRun(Begun& started) : begun(&started) {}
  EndOfRun(EndOfRun&& other) noexcept : begun(std::exchange(other.begun, nullptr)) {}
  EndOfRun& operator=(EndOfRun&&) = delete;
  ~EndOfRun() {
    try {
      end();
    } catch (...) {
      // Another exception is already on its way to the host.
    }
  }

  /// Here exceptions of the host get through.
  void end() {
    if (Begun* const ending = std::exchange(begun, nullptr)) static_cast<void>((ending->*End)());
  }

  [[nodiscard]] Begun* operator->() const { return begun; }
  [[nodiscard]] Begun& operator*() const { return *begun; }
  explicit operator bool() const { return begun; }

 private:
  Begun* begun = nullptr;
};
