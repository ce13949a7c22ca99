#include "unit_tests/fakes/fake_host_services.h"

#include <memory>
#include <thread>

#include "standalone/services/module_loader.h"
#include "standalone/services/string_folder.h"
#include "standalone/services/thread_starter.h"
#include "unit_tests/fakes/fault_rounds.h"

namespace {

class FakeStringHandler : public StringFolder {
 public:
  void deriveIdentifier(const std::string& text, std::string& identifier) override { identifier = "id of " + text; }
  int copyBounded(char* buffer, std::size_t size, const char* text, std::size_t length) override {
    return fakeHostServices().copyFails ? 0 : StringFolder::copyBounded(buffer, size, text, length);
  }
};

class FakeTimerService : public TimerService {
 public:
  void sleep(std::uint32_t milliseconds) override {
    FakeHostServices& services = fakeHostServices();
    if (milliseconds == 0) {
      std::this_thread::yield();
      return;
    }
    faultPoint.answer("sleep", 0, Fault::kNone, 0);
    const FaultPause pause;
    services.sleeps.push_back(milliseconds);
    services.ticks += milliseconds;
    if (services.onSleep) services.onSleep(milliseconds);
  }
  double elapsedSeconds(std::uint32_t start, std::uint32_t end) override { return (end - start) / 1000.0; }
  std::uint64_t now() override { return fakeHostServices().ticks += fakeHostServices().ticksPerReading; }
};

std::unique_ptr<FakeHostServices>& state() {
  static auto services = std::make_unique<FakeHostServices>();
  return services;
}

}  // namespace

FakeHostServices& fakeHostServices() {
  return *state();
}

void resetFakeHostServices() {
  state() = std::make_unique<FakeHostServices>();
}

StringHandler* get_string_handler() {
  static FakeStringHandler handler;
  return &handler;
}

TimerService* get_timer() {
  static FakeTimerService timer;
  return &timer;
}

#ifdef _WIN32

// Only what is built for Windows alone starts threads and loads libraries.

namespace {

class FakeThreadService : public ThreadStarter {
 public:
  void create(std::uint64_t* handle, std::uint64_t extra, void (*entry)(void*), void* argument,
              const char* name) override {
    ThreadStarter::create(handle, extra, entry, argument, name);
    const FaultPause pause;
    lastThread = *handle;
    fakeHostServices().lastThreadName = extra == 0 ? name : "";
    ++fakeHostServices().threadsCreated;
  }
  void wait(std::uint64_t handle) override {
    ThreadStarter::wait(handle);
    ++fakeHostServices().threadsWaitedFor;
  }
  void setPriority(std::uint64_t handle, int value) override {
    const FaultPause pause;
    fakeHostServices().priorities.push_back(handle == lastThread ? value : -1);
  }

 private:
  std::uint64_t lastThread = 0;
};

class FakeModuleService : public ModuleLoader {
 public:
  void* load(const char* fileName, int mode) override {
    const FaultPause pause;
    fakeHostServices().loadedNames.push_back(fileName);
    if (faultPoint.fails(Fault::kSystem, "dpi")) return nullptr;
    void* const library = mode == 1 ? ModuleLoader::load(fileName, mode) : nullptr;
    if (library) ++fakeHostServices().librariesOpen;
    return library;
  }
  void unload(void* library) override {
    --fakeHostServices().librariesOpen;
    ModuleLoader::unload(library);
  }
};

}  // namespace

ThreadService* get_thread() {
  static FakeThreadService service;
  return &service;
}

ModuleService* get_module() {
  static FakeModuleService service;
  return &service;
}

#endif
