#include "unit_tests/fakes/fake_host_services.h"

#include <algorithm>
#include <cctype>
#include <cstring>
#include <map>
#include <memory>
#include <mutex>
#include <thread>

#include "module/host_services.h"

#ifdef _WIN32
#include <windows.h>
#endif

namespace {

void foldCase(std::string& text) {
  std::transform(text.begin(), text.end(), text.begin(),
                 [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
}

class FakeStringHandler : public StringHandler {
 public:
  void unused2() override {}
  void deriveIdentifier(const std::string& text, std::string& identifier) override { identifier = "id of " + text; }
  void unused4() override {}
  void unused5() override {}
  void unused6() override {}
  void unused7() override {}
  void unused8() override {}
  void normaliseBroadcastPath(std::string& path) override { foldCase(path); }
  void normaliseDevicePath(std::string& path) override { foldCase(path); }
  void unused11() override {}
  void unused12() override {}
  void unused13() override {}
  void unused14() override {}
  void unused15() override {}
  int copyBounded(char* buffer, std::size_t size, const char* text, std::size_t length) override {
    if (fakeHostServices().copyFails || length >= size) return 0;
    std::memcpy(buffer, text, length);
    buffer[length] = '\0';
    return 1;
  }
  std::size_t boundedLength(const char* text, std::size_t maximum) override {
    return static_cast<std::size_t>(std::find(text, text + maximum, '\0') - text);
  }
};

class FakeThreadService : public ThreadService {
 public:
  void create(std::uint64_t* handle, std::uint64_t, void (*entry)(void*), void* argument, const char* name) override {
    std::atomic<std::uint32_t> systemId{0};
    auto thread = std::make_unique<std::thread>([&systemId, entry, argument] {
#ifdef _WIN32
      systemId = GetCurrentThreadId();
#else
      systemId = 1;
#endif
      entry(argument);
    });
    while (systemId == 0) std::this_thread::yield();
    lastThreadId = systemId;
    fakeHostServices().lastThreadName = name;
    *handle = static_cast<std::uint64_t>(++fakeHostServices().threadsCreated);
    const std::lock_guard lock(mutex);
    threads[*handle] = std::move(thread);
  }
  void unused3() override {}
  void wait(std::uint64_t handle) override {
    std::unique_ptr<std::thread> thread;
    {
      const std::lock_guard lock(mutex);
      thread = std::move(threads[handle]);
      threads.erase(handle);
    }
    if (thread) thread->join();
    ++fakeHostServices().threadsWaitedFor;
  }
  void setPriority(std::uint64_t, int value) override {
    fakeHostServices().priorities.push_back(value);
  }

  /// Joins what nobody waited for.
  void joinAll() {
    for (auto& [handle, thread] : threads) thread->join();
    threads.clear();
  }

 private:
  std::mutex mutex;
  std::map<std::uint64_t, std::unique_ptr<std::thread>> threads;
};

class FakeTimerService : public TimerService {
 public:
  void sleep(std::uint32_t milliseconds) override {
    FakeHostServices& services = fakeHostServices();
    if (milliseconds == 0) {
      std::this_thread::yield();
      return;
    }
    services.sleeps.push_back(milliseconds);
    services.ticks += milliseconds;
    if (services.onSleep) services.onSleep(milliseconds);
  }
  double elapsedSeconds(std::uint32_t start, std::uint32_t end) override { return (end - start) / 1000.0; }
  std::uint64_t now() override { return fakeHostServices().ticks += fakeHostServices().ticksPerReading; }
};

class FakeModuleService : public ModuleService {
 public:
  void* load(const char* fileName, int mode) override {
    FakeHostServices& services = fakeHostServices();
    services.loadedNames.push_back(fileName);
    if (mode != 1) return nullptr;
#ifdef _WIN32
    void* library = reinterpret_cast<void*>(LoadLibraryA(fileName));
    if (library) ++services.librariesOpen;
    return library;
#else
    return nullptr;
#endif
  }
  void unused3() override {}
  void unload(void* library) override {
    --fakeHostServices().librariesOpen;
#ifdef _WIN32
    FreeLibrary(static_cast<HMODULE>(library));
#else
    static_cast<void>(library);
#endif
  }
};

FakeThreadService& threadService() {
  static FakeThreadService service;
  return service;
}

std::unique_ptr<FakeHostServices>& state() {
  static auto services = std::make_unique<FakeHostServices>();
  return services;
}

}  // namespace

FakeHostServices& fakeHostServices() {
  return *state();
}

void resetFakeHostServices() {
  threadService().joinAll();
  state() = std::make_unique<FakeHostServices>();
}

StringHandler* get_string_handler() {
  static FakeStringHandler handler;
  return &handler;
}

ThreadService* get_thread() {
  return &threadService();
}

TimerService* get_timer() {
  static FakeTimerService timer;
  return &timer;
}

ModuleService* get_module() {
  static FakeModuleService service;
  return &service;
}

const char* get_temporary_path() {
  return "/tmp";
}
