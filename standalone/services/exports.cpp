#include <QDir>

#include "standalone/services/module_loader.h"
#include "standalone/services/string_folder.h"
#include "standalone/services/thread_starter.h"
#include "standalone/services/tick_timer.h"

namespace {

// Holds a service that is never destroyed. mingw frees a thread's variables before it calls their destructors, which
// would write into memory that is somebody else's by then; and this service has nothing to release.
union ThreadStarterOfThread {
  ThreadStarterOfThread() : service() {}
  ~ThreadStarterOfThread() {}
  ThreadStarter service;
};

}  // namespace

StringHandler* get_string_handler() {
  static StringFolder handler;
  return &handler;
}

ThreadService* get_thread() {
  // One object for each calling thread: two that create threads at the same time read their own thread's identifier.
  thread_local ThreadStarterOfThread own;
  return &own.service;
}

TimerService* get_timer() {
  static TickTimer service;
  return &service;
}

ModuleService* get_module() {
  static ModuleLoader service;
  return &service;
}

const char* get_temporary_path() {
  static const std::string path = QDir::toNativeSeparators(QDir::tempPath()).toStdString();
  return path.c_str();
}
