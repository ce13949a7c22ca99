#include <windows.h>
#include <setupapi.h>
#include <mfapi.h>
#include <mfidl.h>
#include <objbase.h>
#include <wrl/client.h>

#include <cstddef>
#include <stdexcept>
#include <string>
#include <vector>

#include "benchmarks/comparison.h"
#include "benchmarks/durations.h"
#include "benchmarks/planting.h"
#include "benchmarks/rows.h"
#include "benchmarks/system_clock.h"
#include "discovery/camera_component_manager.h"
#include "discovery/device_classes.h"
#include "module/identifiers.h"

namespace {

/// Asks the system what the module asks it, in the same order, and does nothing with the answers. Texts whose length
/// only the system knows take two calls each.
class BareWalk {
 public:
  /// Returns how many interfaces there were.
  std::size_t walk() {
    std::size_t found = 0;
    CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
    MFStartup(MF_VERSION, MFSTARTUP_FULL);
    listSources();
    for (const GUID& deviceClass : DeviceClassList) {
      for (const GUID& interfaceClass : kCameraInterfaceClassList) found += search(deviceClass, interfaceClass);
    }
    MFShutdown();
    CoUninitialize();
    return found;
  }

 private:
  static void listSources() {
    Microsoft::WRL::ComPtr<IMFAttributes> attributes;
    MFCreateAttributes(&attributes, 1);
    attributes->SetGUID(MF_DEVSOURCE_ATTRIBUTE_SOURCE_TYPE, MF_DEVSOURCE_ATTRIBUTE_SOURCE_TYPE_VIDCAP_GUID);
    IMFActivate** sources = nullptr;
    UINT32 count = 0;
    if (FAILED(MFEnumDeviceSources(attributes.Get(), &sources, &count))) return;
    for (UINT32 i = 0; i < count; ++i) {
      WCHAR* link = nullptr;
      UINT32 length = 0;
      sources[i]->GetAllocatedString(MF_DEVSOURCE_ATTRIBUTE_SOURCE_TYPE_VIDCAP_SYMBOLIC_LINK, &link, &length);
      CoTaskMemFree(link);
      sources[i]->Release();
    }
    CoTaskMemFree(sources);
  }

  std::size_t search(const GUID& deviceClass, const GUID& interfaceClass) {
    set = SetupDiGetClassDevsW(&interfaceClass, nullptr, nullptr, DIGCF_PRESENT | DIGCF_DEVICEINTERFACE);
    devices.clear();
    SP_DEVINFO_DATA device{};
    device.cbSize = sizeof(device);
    for (DWORD i = 0; SetupDiEnumDeviceInfo(set, i, &device); ++i) {
      if (device.ClassGuid == deviceClass) devices.push_back(device);
    }
    std::size_t found = 0;
    for (SP_DEVINFO_DATA& wanted : devices) found += readInterfaces(wanted, interfaceClass);
    for (SP_DEVINFO_DATA& wanted : devices) readProperties(wanted);
    SetupDiDestroyDeviceInfoList(set);
    return found;
  }

  std::size_t readInterfaces(SP_DEVINFO_DATA& device, const GUID& interfaceClass) {
    DWORD length = 0;
    SetupDiGetDeviceInstanceIdW(set, &device, nullptr, 0, &length);
    SetupDiGetDeviceInstanceIdW(set, &device, buffer, length + 1, nullptr);
    SP_DEVICE_INTERFACE_DATA found{};
    found.cbSize = sizeof(found);
    DWORD count = 0;
    for (; SetupDiEnumDeviceInterfaces(set, &device, &interfaceClass, count, &found); ++count) {
      DWORD bytes = 0;
      SetupDiGetDeviceInterfaceDetailW(set, &found, nullptr, 0, &bytes, nullptr);
      auto* const detail = reinterpret_cast<SP_DEVICE_INTERFACE_DETAIL_DATA_W*>(buffer);
      detail->cbSize = sizeof(*detail);
      SetupDiGetDeviceInterfaceDetailW(set, &found, detail, bytes, nullptr, nullptr);
    }
    return count;
  }

  void readProperties(SP_DEVINFO_DATA& device) {
    for (const DWORD property :
         {SPDRP_DEVICEDESC, SPDRP_MFG, SPDRP_CLASSGUID, SPDRP_HARDWAREID, SPDRP_FRIENDLYNAME, SPDRP_DRIVER}) {
      DWORD bytes = 0;
      SetupDiGetDeviceRegistryPropertyW(set, &device, property, nullptr, nullptr, 0, &bytes);
      SetupDiGetDeviceRegistryPropertyW(set, &device, property, nullptr, reinterpret_cast<BYTE*>(buffer), bytes,
                                        nullptr);
    }
    // The driver's key was read last.
    const std::wstring key = std::wstring(L"SYSTEM\\CurrentControlSet\\Control\\Class\\") + buffer;
    DWORD bytes = 0;
    RegGetValueW(HKEY_LOCAL_MACHINE, key.c_str(), L"DriverVersion", RRF_RT_REG_SZ, nullptr, nullptr, &bytes);
    RegGetValueW(HKEY_LOCAL_MACHINE, key.c_str(), L"DriverVersion", RRF_RT_REG_SZ, nullptr, buffer, &bytes);
  }

  HDEVINFO set = INVALID_HANDLE_VALUE;
  std::vector<SP_DEVINFO_DATA> devices;
  alignas(SP_DEVICE_INTERFACE_DETAIL_DATA_W) wchar_t buffer[4096] = {};
};

QJsonArray cameras(int count) {
  QJsonArray all;
  for (int i = 0; i < count; ++i) all.append(cameraOf(QStringLiteral("Camera %1").arg(i), QSize(1280, 720)));
  return all;
}

/// Both sides with this many cameras.
class Scan {
 public:
  explicit Scan(int cameraCount) : count(cameraCount), planting(cameras(cameraCount)), manager(kComponentManagerId) {
    refresh();
    walk();
  }

  double refresh() {
    const double milliseconds = millisecondsOf([this] { manager.refresh(); });
    if (manager.getComponentCount() != count) throw std::runtime_error("the module does not find all cameras");
    return milliseconds;
  }
  double walk() {
    std::size_t found = 0;
    const double milliseconds = millisecondsOf([&] { found = bare.walk(); });
    if (found != count) throw std::runtime_error("the bare walk does not find all cameras");
    return milliseconds;
  }
  /// What the module itself takes for each camera in one refresh.
  double ownTime(SystemClock& clock) {
    static_cast<void>(clock.takeMilliseconds());
    const double all = refresh();
    return (all - clock.takeMilliseconds()) / static_cast<double>(count);
  }

 private:
  const std::size_t count;
  Planting planting;
  CameraComponentManager manager;
  BareWalk bare;
};

void addOwnTimes(int cameraCount, int rounds, Rounds& times) {
  Scan scan(cameraCount);
  SystemClock clock;
  for (int i = 0; i < rounds; ++i) times.push_back(scan.ownTime(clock));
}

}  // namespace

void compareDiscovery(Comparison& comparison) {
  for (const int count : {1, 10, 100, 500}) {
    const Row row{"refresh, cameras: " + std::to_string(count), "a bare walk that asks the system the same", 1.30};
    if (!comparison.wants(row.work)) continue;
    Scan scan(count);
    comparison.compare(
        row, [&] { return scan.refresh(); }, [&] { return scan.walk(); });
  }
  const Row own{"refresh's own time a camera, of 500", "the same, of 10", 1.20};
  if (!comparison.wants(own.work)) return;
  Rounds ofMany;
  Rounds ofFew;
  alternate(
      3, [&] { addOwnTimes(500, 3, ofMany); }, [&] { addOwnTimes(10, 30, ofFew); });
  comparison.record(own, ofMany, ofFew);
}
