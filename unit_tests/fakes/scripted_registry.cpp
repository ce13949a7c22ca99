#include "unit_tests/fakes/scripted_registry.h"

#include <cstring>

#include "unit_tests/fakes/system_script.h"

namespace {

LSTATUS WINAPI getValue(HKEY root, LPCWSTR key, LPCWSTR name, DWORD flags, LPDWORD, PVOID buffer, LPDWORD bytes) {
  if (systemScript().fails("RegGetValueW")) return ERROR_ACCESS_DENIED;
  const auto text = scriptedRegistry().texts.find({key, name});
  if (root != HKEY_LOCAL_MACHINE || text == scriptedRegistry().texts.end()) return ERROR_FILE_NOT_FOUND;
  if (flags != RRF_RT_REG_SZ) return ERROR_UNSUPPORTED_TYPE;

  const DWORD needed = static_cast<DWORD>((text->second.size() + 1) * sizeof(wchar_t));
  const DWORD available = *bytes;
  *bytes = needed;
  if (!buffer) return ERROR_SUCCESS;
  scriptedRegistry().bufferSizes.push_back(available);
  if (available < needed) return ERROR_MORE_DATA;
  std::memcpy(buffer, text->second.c_str(), needed);
  return ERROR_SUCCESS;
}

}  // namespace

SUBSTITUTE_IMPORT(RegGetValueW, getValue);

ScriptedRegistry& scriptedRegistry() {
  static auto& registry = *new ScriptedRegistry;
  return registry;
}
