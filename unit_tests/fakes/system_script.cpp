#include "unit_tests/fakes/system_script.h"

#include <windows.h>

#include <algorithm>
#include <atomic>
#include <cstdlib>
#include <new>

#include "unit_tests/fakes/scripted_media_foundation.h"
#include "unit_tests/fakes/scripted_setupapi.h"

namespace {

std::atomic<int> arrays{0};

}  // namespace

SUBSTITUTE_IMPORT(int, WideCharToMultiByte, (auto... arguments)) {
  if (systemScript().fails("WideCharToMultiByte")) return 0;
  return SYSTEM_FUNCTION("kernel32", WideCharToMultiByte)(arguments...);
}

void* operator new[](std::size_t size) {
  void* block = std::malloc(size);
  if (!block) throw std::bad_alloc();
  ++arrays;
  return block;
}

void operator delete[](void* block) noexcept {
  if (block) --arrays;
  std::free(block);
}

void operator delete[](void* block, std::size_t) noexcept {
  operator delete[](block);
}

int liveArrays() {
  return arrays;
}

bool SystemScript::fails(const std::string& function) {
  note(function);
  ++failable;
  const auto wanted = failing.find(function);
  const bool fail = failable == failingCall || (failureLasts && failable > failingCall) ||
                    (wanted != failing.end() && (wanted->second == 0 || wanted->second == calls(function)));
  if (fail && failed.empty()) failed = function;
  return fail;
}

int SystemScript::calls(const std::string& function) const {
  return static_cast<int>(std::count(history.begin(), history.end(), function));
}

std::map<std::string, int> SystemScript::outstanding() const {
  auto left = balance;
  std::erase_if(left, [](const auto& entry) { return entry.second == 0; });
  return left;
}

SystemScript& systemScript() {
  static auto& script = *new SystemScript;
  return script;
}

void resetSystemScript() {
  systemScript() = SystemScript();
  scriptedSetupApi() = ScriptedSetupApi();
  scriptedMediaFoundation() = ScriptedMediaFoundation();
}
