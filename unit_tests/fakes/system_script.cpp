#include "unit_tests/fakes/system_script.h"

#include <windows.h>

#include <algorithm>
#include <atomic>
#include <cstdlib>
#include <cstring>
#include <new>

#include <gtest/gtest.h>

#include "unit_tests/fakes/scripted_media_foundation.h"
#include "unit_tests/fakes/scripted_setupapi.h"

namespace {

std::atomic<int> arrays{0};

/// An array has its size before it, in a place that keeps it aligned, and a byte behind it that nobody may change.
constexpr std::size_t kHead = 16;
constexpr unsigned char kGuard = 0xA5;

}  // namespace

SUBSTITUTE_IMPORT(int, WideCharToMultiByte, (auto... arguments)) {
  if (systemScript().fails("WideCharToMultiByte")) return 0;
  return SYSTEM_FUNCTION("kernel32", WideCharToMultiByte)(arguments...);
}

void* operator new[](std::size_t size) {
  auto* const block = static_cast<unsigned char*>(std::malloc(kHead + size + 1));
  if (!block) throw std::bad_alloc();
  std::memcpy(block, &size, sizeof(size));
  block[kHead + size] = kGuard;
  ++arrays;
  return block + kHead;
}

void operator delete[](void* array) noexcept {
  if (!array) return;
  unsigned char* const block = static_cast<unsigned char*>(array) - kHead;
  std::size_t size = 0;
  std::memcpy(&size, block, sizeof(size));
  EXPECT_EQ(block[kHead + size], kGuard) << "written behind an array";
  --arrays;
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
