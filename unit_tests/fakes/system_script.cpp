#include "unit_tests/fakes/system_script.h"

#include <windows.h>

#include <algorithm>

#include "unit_tests/fakes/fault_rounds.h"
#include "unit_tests/fakes/scripted_media_foundation.h"
#include "unit_tests/fakes/scripted_setupapi.h"

SUBSTITUTE_IMPORT(int, WideCharToMultiByte, (auto... arguments)) {
  if (systemScript().fails("WideCharToMultiByte")) return 0;
  return SYSTEM_FUNCTION("kernel32", WideCharToMultiByte)(arguments...);
}

bool SystemScript::fails(const char* function) {
  const FaultPause pause;
  note(function);
  const auto wanted = failing.find(function);
  if (wanted != failing.end() && (wanted->second == 0 || wanted->second == calls(function))) return true;
  return faultPoint.fails(Fault::kSystem, function);
}

void SystemScript::note(std::string_view function) {
  const FaultPause pause;
  history.emplace_back(function);
}

void SystemScript::count(std::string_view kind, int change) {
  const FaultPause pause;
  balance[std::string(kind)] += change;
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
