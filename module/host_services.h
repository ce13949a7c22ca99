#pragma once

// The services that the host lends to its modules. Every object belongs to the host, is always there, and may be called
// from any thread. The module asks for it at each use and keeps no pointer. The virtual operations are called by place:
// their order never changes, and places that the module never calls hold placeholders.

#include <cstddef>
#include <cstdint>
#include <string>

class StringHandler {
 public:
  virtual ~StringHandler() = default;
  virtual void unused2() = 0;
  /// Derives a stable identifier from a text: equal texts give equal identifiers.
  virtual void deriveIdentifier(const std::string& text, std::string& identifier) = 0;
  virtual void unused4() = 0;
  virtual void unused5() = 0;
  virtual void unused6() = 0;
  virtual void unused7() = 0;
  virtual void unused8() = 0;
  /// Brings the path of a device-change broadcast into the form in which paths of one device are equal.
  virtual void normaliseBroadcastPath(std::string& path) = 0;
  /// Brings the path of a capture source or of a device interface into the form in which paths of one device are equal.
  virtual void normaliseDevicePath(std::string& path) = 0;
  virtual void unused11() = 0;
  virtual void unused12() = 0;
  virtual void unused13() = 0;
  virtual void unused14() = 0;
  virtual void unused15() = 0;
  /// Copies `length` characters of `text` and a terminating zero into `buffer` of `size` characters; zero on failure.
  [[nodiscard]] virtual int copyBounded(char* buffer, std::size_t size, const char* text, std::size_t length) = 0;
  /// The length of `text`, at most `maximum`.
  virtual std::size_t boundedLength(const char* text, std::size_t maximum) = 0;
};

class ThreadService {
 public:
  virtual ~ThreadService() = default;
  /// Starts a thread that runs `entry(argument)`. `handle` receives what `wait` takes.
  virtual void create(std::uint64_t* handle, std::uint64_t, void (*entry)(void*), void* argument, const char* name) = 0;
  virtual void unused3() = 0;
  /// Returns when the thread has ended.
  virtual void wait(std::uint64_t handle) = 0;
  virtual void setPriority(std::uint64_t handle, int value) = 0;

  /// The system's identifier of the thread that was created last.
  std::uint32_t lastThreadId = 0;
};

class TimerService {
 public:
  virtual ~TimerService() = default;
  /// 0 yields.
  virtual void sleep(std::uint32_t milliseconds) = 0;
  /// Seconds between two ticks.
  virtual double elapsedSeconds(std::uint32_t start, std::uint32_t end) = 0;
  /// The current tick; its low 32 bits are what `elapsedSeconds` takes.
  virtual std::uint64_t now() = 0;
};

class ModuleService {
 public:
  virtual ~ModuleService() = default;
  /// Null on failure.
  virtual void* load(const char* fileName, int mode) = 0;
  virtual void unused3() = 0;
  virtual void unload(void* library) = 0;
};

extern "C" {
StringHandler* get_string_handler();
ThreadService* get_thread();
TimerService* get_timer();
ModuleService* get_module();
/// The folder for temporary files, UTF-8.
const char* get_temporary_path();
}
