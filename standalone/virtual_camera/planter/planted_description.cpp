#include "standalone/virtual_camera/planter/planted_description.h"

#include <windows.h>

#include <string>

QString plantedDescriptionPath() {
  DWORD bytes = 0;
  if (RegGetValueW(HKEY_LOCAL_MACHINE, kPlantRecordKey, kPlantRecordDescription, RRF_RT_REG_SZ, nullptr, nullptr,
                   &bytes) != ERROR_SUCCESS) {
    return {};
  }
  std::wstring text(bytes / sizeof(wchar_t) + 1, L'\0');
  bytes = static_cast<DWORD>(text.size() * sizeof(wchar_t));
  if (RegGetValueW(HKEY_LOCAL_MACHINE, kPlantRecordKey, kPlantRecordDescription, RRF_RT_REG_SZ, nullptr, text.data(),
                   &bytes) != ERROR_SUCCESS) {
    return {};
  }
  return QString::fromWCharArray(text.c_str());
}
