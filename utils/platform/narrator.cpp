#include "utils/platform/narrator.h"

#include <windows.h>

namespace vexa::utils::platform {

bool IsNarratorRunning() {
  BOOL flag = FALSE;
  if (SystemParametersInfoW(SPI_GETSCREENREADER, 0, &flag, 0) != 0 && flag != FALSE) return true;

  // Narrator does not set the flag, but holds this mutex while it runs.
  const HANDLE mutex = OpenMutexW(READ_CONTROL, FALSE, L"NarratorRunning");
  if (!mutex) return false;
  CloseHandle(mutex);
  return true;
}

}  // namespace vexa::utils::platform
