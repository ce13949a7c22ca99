#include "standalone/virtual_camera/media_source/detached_errand.h"

#include <windows.h>

#include <memory>
#include <utility>

namespace {

struct Errand {
  HMODULE module = nullptr;
  std::function<void()> work;
};

DWORD WINAPI run(void* argument) {
  HMODULE module = nullptr;
  {
    const std::unique_ptr<Errand> errand(static_cast<Errand*>(argument));
    module = errand->module;
    errand->work();
  }
  FreeLibraryAndExitThread(module, 0);
}

}  // namespace

void runDetached(std::function<void()> work) {
  auto errand = std::make_unique<Errand>();
  errand->work = std::move(work);
  if (!GetModuleHandleExW(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS, reinterpret_cast<LPCWSTR>(&run), &errand->module)) {
    return;
  }
  const HANDLE thread = CreateThread(nullptr, 0, run, errand.get(), 0, nullptr);
  if (!thread) {
    FreeLibrary(errand->module);
    return;
  }
  static_cast<void>(errand.release());
  CloseHandle(thread);
}
