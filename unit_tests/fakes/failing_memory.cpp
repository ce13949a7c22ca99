// The program's operators new. What the program's own code allocates fails when a test asks for that, and what it does
// not give back is counted; an array has a byte behind it that nobody may change.

#include <algorithm>
#include <array>
#include <atomic>
#include <cstdlib>
#include <cstring>
#include <new>

#include "unit_tests/fakes/fault_rounds.h"

#ifndef _WIN32
extern "C" char __executable_start, etext;
#endif

namespace {

/// Under Windows a DLL has operators of its own; elsewhere those of Qt and of all others come here, too.
bool isOwn([[maybe_unused]] const void* caller) {
#ifdef _WIN32
  return true;
#else
  return caller >= &__executable_start && caller < &etext;
#endif
}

/// The first blocks of an attempt, as many as there are places.
std::array<std::atomic<void*>, 4096> blocks;
std::atomic<int> left = 0;

/// Writes `now` in a place of `before`; whether there is one.
bool exchange(void* before, void* now) {
  return std::ranges::any_of(blocks, [&](auto& place) {
    void* found = before;
    return place == before && place.compare_exchange_strong(found, now);
  });
}

void* allocate(std::size_t size, const void* caller, const char* name) {
  if (!isOwn(caller)) return std::malloc(size);
  if (faultPoint.fails(Fault::kMemory, name)) return nullptr;
  void* const block = std::malloc(size);
  if (block && faultPoint.armed != Fault::kNone && memoryPauses == 0 && exchange(nullptr, block)) ++left;
  return block;
}

/// An array has its size before it, in a place that keeps it aligned.
constexpr std::size_t kHead = 16;
constexpr unsigned char kGuard = 0xA5;

void* allocateArray(std::size_t size, const void* caller, const char* name) {
  auto* const block = static_cast<unsigned char*>(allocate(kHead + size + 1, caller, name));
  if (!block) return nullptr;
  std::memcpy(block, &size, sizeof(size));
  block[kHead + size] = kGuard;
  return block + kHead;
}

}  // namespace

void forgetBlocks() {
  for (auto& place : blocks) place = nullptr;
  left = 0;
}

int blocksLeft() {
  return left;
}

void* operator new(std::size_t size, const std::nothrow_t&) noexcept {
  return allocate(size, __builtin_return_address(0), "new (nothrow)");
}
void* operator new(std::size_t size) {
  void* const block = allocate(size, __builtin_return_address(0), "new");
  return block ? block : throw std::bad_alloc();
}
void* operator new[](std::size_t size, const std::nothrow_t&) noexcept {
  return allocateArray(size, __builtin_return_address(0), "new[] (nothrow)");
}
void* operator new[](std::size_t size) {
  void* const array = allocateArray(size, __builtin_return_address(0), "new[]");
  return array ? array : throw std::bad_alloc();
}

void operator delete(void* block) noexcept {
  if (block && left != 0 && exchange(block, nullptr)) --left;
  std::free(block);
}
void operator delete(void* block, std::size_t) noexcept {
  operator delete(block);
}
void operator delete[](void* array) noexcept {
  if (!array) return;
  unsigned char* const block = static_cast<unsigned char*>(array) - kHead;
  std::size_t size = 0;
  std::memcpy(&size, block, sizeof(size));
  if (block[kHead + size] != kGuard) ADD_FAILURE() << "written behind an array";
  operator delete(block);
}
void operator delete[](void* array, std::size_t) noexcept {
  operator delete[](array);
}
