#include "unit_tests/fakes/scripted_setupapi.h"

#include <windows.h>
#include <setupapi.h>
#include <cfgmgr32.h>

#include <algorithm>
#include <cstring>
#include <set>

#include "unit_tests/fakes/fault_rounds.h"
#include "unit_tests/fakes/system_script.h"

extern "C" WINSETUPAPI BOOL WINAPI SetupDiGetDeviceInterfacePropertyW(HDEVINFO, PSP_DEVICE_INTERFACE_DATA,
                                                                      const DEVPROPKEY*, DEVPROPTYPE*, PBYTE, DWORD,
                                                                      PDWORD, DWORD);

namespace {

constexpr char kSetKind[] = "device information set";
constexpr DEVPROPKEY kNameKey = {{0xB725F130, 0x47EF, 0x101A, {0xA5, 0xF1, 0x02, 0x60, 0x8C, 0x9E, 0xEB, 0xAC}}, 10};

/// An open set: positions in the scripted list of devices.
using DeviceSet = std::vector<std::size_t>;

std::set<HDEVINFO>& openSets() {
  static auto& sets = *new std::set<HDEVINFO>;
  return sets;
}

BOOL failWith(DWORD error) {
  SetLastError(error);
  return FALSE;
}

/// Copies a value of `bytes` bytes as SetupAPI does: without room it tells the size.
BOOL deliver(const void* value, std::size_t bytes, void* buffer, std::size_t size, PDWORD required) {
  if (required) *required = static_cast<DWORD>(bytes);
  if (size < bytes) return failWith(ERROR_INSUFFICIENT_BUFFER);
  if (bytes != 0) std::memcpy(buffer, value, bytes);
  return TRUE;
}

bool belongs(const ScriptedDevice& device, const GUID* devicesClass, DWORD flags) {
  if (flags & DIGCF_ALLCLASSES) return true;
  if (!(flags & DIGCF_DEVICEINTERFACE)) return device.deviceClass == *devicesClass;
  return std::ranges::count(device.interfaces, *devicesClass, &ScriptedInterface::interfaceClass) != 0;
}

/// What every call on an open set begins with: whether it goes on, or the system's error.
template <class Data>
bool accepts(const char* function, HDEVINFO set, const Data* data) {
  if (systemScript().fails(function)) return failWith(ERROR_ACCESS_DENIED);
  if (!openSets().contains(set)) return failWith(ERROR_INVALID_HANDLE);
  return data->cbSize == 32 || failWith(ERROR_INVALID_USER_BUFFER);
}

/// The device that a data record names.
const ScriptedDevice& deviceOf(const SP_DEVINFO_DATA& data) {
  return scriptedSetupApi().devices.at(data.DevInst - 1);
}

const ScriptedInterface& interfaceOf(const SP_DEVICE_INTERFACE_DATA& data) {
  return *reinterpret_cast<const ScriptedInterface*>(data.Reserved);
}

/// Device instances are numbered from 1 by their position; a parent that is no scripted device of its own has the
/// number of its child with this bit.
constexpr DEVINST kParentBit = 0x1000;

const std::wstring& idOf(DEVINST instance) {
  const ScriptedDevice& device = scriptedSetupApi().devices.at((instance & ~kParentBit) - 1);
  return instance & kParentBit ? device.parentId : device.instanceId;
}

}  // namespace

SUBSTITUTE_IMPORT(HDEVINFO, SetupDiGetClassDevsW,
                  (const GUID* devicesClass, PCWSTR enumerator, HWND window, DWORD flags)) {
  const FaultPause pause;
  scriptedSetupApi().openings.emplace_back(devicesClass ? *devicesClass : GUID{}, flags);
  if (systemScript().fails("SetupDiGetClassDevsW") || enumerator || window) {
    SetLastError(ERROR_ACCESS_DENIED);
    return INVALID_HANDLE_VALUE;
  }
  auto* set = new DeviceSet;
  const auto& devices = scriptedSetupApi().devices;
  for (std::size_t index = 0; index < devices.size(); ++index) {
    if (belongs(devices[index], devicesClass, flags)) set->push_back(index);
  }
  openSets().insert(set);
  systemScript().acquire(kSetKind);
  return set;
}

SUBSTITUTE_IMPORT(BOOL, SetupDiDestroyDeviceInfoList, (HDEVINFO set)) {
  systemScript().note("SetupDiDestroyDeviceInfoList");
  systemScript().release(kSetKind);
  if (openSets().erase(set) == 0) return failWith(ERROR_INVALID_HANDLE);
  delete static_cast<DeviceSet*>(set);
  return TRUE;
}

SUBSTITUTE_IMPORT(BOOL, SetupDiEnumDeviceInfo, (HDEVINFO set, DWORD index, PSP_DEVINFO_DATA data)) {
  if (!accepts("SetupDiEnumDeviceInfo", set, data)) return FALSE;
  const auto& members = *static_cast<const DeviceSet*>(set);
  if (index >= members.size()) return failWith(ERROR_NO_MORE_ITEMS);
  data->DevInst = static_cast<DWORD>(members[index] + 1);
  data->ClassGuid = scriptedSetupApi().devices[members[index]].deviceClass;
  return TRUE;
}

SUBSTITUTE_IMPORT(BOOL, SetupDiGetDeviceInstanceIdW,
                  (HDEVINFO set, PSP_DEVINFO_DATA data, PWSTR buffer, DWORD size, PDWORD required)) {
  if (!accepts("SetupDiGetDeviceInstanceIdW", set, data)) return FALSE;
  const std::wstring& id = deviceOf(*data).instanceId;
  // This one counts in characters.
  if (required) *required = static_cast<DWORD>(id.size() + 1);
  return deliver(id.c_str(), (id.size() + 1) * sizeof(wchar_t), buffer, std::size_t{size} * sizeof(wchar_t), nullptr);
}

SUBSTITUTE_IMPORT(BOOL, SetupDiEnumDeviceInterfaces,
                  (HDEVINFO set, PSP_DEVINFO_DATA data, const GUID* interfaceClass, DWORD index,
                   PSP_DEVICE_INTERFACE_DATA found)) {
  if (!accepts("SetupDiEnumDeviceInterfaces", set, data)) return FALSE;
  if (found->cbSize != 32) return failWith(ERROR_INVALID_USER_BUFFER);
  for (const ScriptedInterface& entry : deviceOf(*data).interfaces) {
    if (entry.interfaceClass != *interfaceClass || index-- != 0) continue;
    found->Reserved = reinterpret_cast<ULONG_PTR>(&entry);
    return TRUE;
  }
  return failWith(ERROR_NO_MORE_ITEMS);
}

SUBSTITUTE_IMPORT(BOOL, SetupDiGetDeviceInterfaceDetailW,
                  (HDEVINFO set, PSP_DEVICE_INTERFACE_DATA data, PSP_DEVICE_INTERFACE_DETAIL_DATA_W detail, DWORD size,
                   PDWORD required, PSP_DEVINFO_DATA)) {
  if (!accepts("SetupDiGetDeviceInterfaceDetailW", set, data)) return FALSE;
  const ScriptedInterface& entry = interfaceOf(*data);
  if (detail && detail->cbSize != 8) return failWith(ERROR_INVALID_USER_BUFFER);
  const std::size_t bytes = (entry.path.size() + 1) * sizeof(wchar_t);
  constexpr std::size_t kHeader = offsetof(SP_DEVICE_INTERFACE_DETAIL_DATA_W, DevicePath);
  if (required) *required = static_cast<DWORD>(bytes + kHeader);
  if (size < bytes + kHeader) return failWith(ERROR_INSUFFICIENT_BUFFER);
  std::memcpy(detail->DevicePath, entry.path.c_str(), bytes);
  return TRUE;
}

SUBSTITUTE_IMPORT(BOOL, SetupDiGetDeviceRegistryPropertyW,
                  (HDEVINFO set, PSP_DEVINFO_DATA data, DWORD property, PDWORD, PBYTE buffer, DWORD size,
                   PDWORD required)) {
  if (!accepts("SetupDiGetDeviceRegistryPropertyW", set, data)) return FALSE;
  const ScriptedDevice& device = deviceOf(*data);
  const auto value = device.properties.find(property);
  if (value == device.properties.end()) return failWith(ERROR_INVALID_DATA);
  return deliver(value->second.data(), value->second.size() * sizeof(wchar_t), buffer, size, required);
}

SUBSTITUTE_IMPORT(BOOL, SetupDiGetDeviceInterfacePropertyW,
                  (HDEVINFO set, PSP_DEVICE_INTERFACE_DATA data, const DEVPROPKEY* key, DEVPROPTYPE* type, PBYTE buffer,
                   DWORD size, PDWORD required, DWORD flags)) {
  const FaultPause pause;
  if (!accepts("SetupDiGetDeviceInterfacePropertyW", set, data)) return FALSE;
  const ScriptedInterface& entry = interfaceOf(*data);
  if (flags != 0 || !entry.name || key->fmtid != kNameKey.fmtid || key->pid != kNameKey.pid)
    return failWith(ERROR_NOT_FOUND);
  if (buffer) scriptedSetupApi().interfacePropertySizes.push_back(size);
  *type = DEVPROP_TYPE_STRING;
  return deliver(entry.name->c_str(), (entry.name->size() + 1) * sizeof(wchar_t), buffer, size, required);
}

SUBSTITUTE_IMPORT(CONFIGRET, CM_Get_Parent, (PDEVINST parent, DEVINST child, ULONG flags)) {
  if (systemScript().fails("CM_Get_Parent") || flags != 0) return CR_CALL_NOT_IMPLEMENTED;
  if (scriptedSetupApi().devices.at(child - 1).parentId.empty()) return CR_NO_SUCH_DEVNODE;
  *parent = child | kParentBit;
  return CR_SUCCESS;
}

SUBSTITUTE_IMPORT(CONFIGRET, CM_Get_Device_ID_Size, (PULONG length, DEVINST instance, ULONG flags)) {
  if (systemScript().fails("CM_Get_Device_ID_Size") || flags != 0) return CR_FAILURE;
  *length = static_cast<ULONG>(idOf(instance).size());
  return CR_SUCCESS;
}

SUBSTITUTE_IMPORT(CONFIGRET, CM_Get_Device_IDW, (DEVINST instance, PWSTR buffer, ULONG length, ULONG flags)) {
  if (systemScript().fails("CM_Get_Device_IDW") || flags != 0) return CR_FAILURE;
  const std::wstring& id = idOf(instance);
  if (length < id.size() + 1) return CR_BUFFER_SMALL;
  id.copy(buffer, id.size());
  buffer[id.size()] = L'\0';
  return CR_SUCCESS;
}

SUBSTITUTE_IMPORT(LSTATUS, RegGetValueW,
                  (HKEY root, LPCWSTR key, LPCWSTR name, DWORD flags, LPDWORD, PVOID buffer, LPDWORD bytes)) {
  const FaultPause pause;
  if (systemScript().fails("RegGetValueW")) return ERROR_ACCESS_DENIED;
  const auto text = scriptedSetupApi().registryTexts.find({key, name});
  if (root != HKEY_LOCAL_MACHINE || text == scriptedSetupApi().registryTexts.end()) return ERROR_FILE_NOT_FOUND;
  if (flags != RRF_RT_REG_SZ) return ERROR_UNSUPPORTED_TYPE;
  if (buffer) scriptedSetupApi().registryTextSizes.push_back(*bytes);
  const DWORD available = buffer ? *bytes : 0;
  const bool delivered =
      deliver(text->second.c_str(), (text->second.size() + 1) * sizeof(wchar_t), buffer, available, bytes);
  return delivered || !buffer ? ERROR_SUCCESS : ERROR_MORE_DATA;
}

ScriptedSetupApi& scriptedSetupApi() {
  static auto& setupApi = *new ScriptedSetupApi;
  return setupApi;
}
