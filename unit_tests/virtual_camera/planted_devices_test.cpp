// The planted cameras as a program finds them: through the system's SetupAPI, and through the mf.dll and
// mfreadwrite.dll beside it.

#include <algorithm>
#include <array>
#include <future>
#include <set>
#include <vector>

#include <windows.h>
#include <mfapi.h>
#include <mferror.h>
#include <mfidl.h>
#include <mfreadwrite.h>
#include <setupapi.h>
#include <wrl/client.h>

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include "standalone/virtual_camera/description/camera_file.h"
#include "standalone/virtual_camera/media_source/com_object.h"
#include "standalone/virtual_camera/planter/device_planter.h"
#include "standalone/virtual_camera/planter/planted_description.h"

using Microsoft::WRL::ComPtr;

namespace {

constexpr std::array interfaceClasses{
    GUID{0xE5323777, 0xF976, 0x4F5B, {0x9B, 0x55, 0xB9, 0x46, 0x99, 0xC4, 0x6E, 0x44}},   // KSCATEGORY_VIDEO_CAMERA
    GUID{0x65E8773D, 0x8F56, 0x11D0, {0xA3, 0xB9, 0x00, 0xA0, 0xC9, 0x22, 0x31, 0x96}}};  // KSCATEGORY_CAPTURE

// Path, name, manufacturer, hardware id and setup class.
using Device = std::array<std::string, 5>;

std::string narrow(const wchar_t* text) {
  return QString::fromWCharArray(text).toStdString();
}

std::string property(HDEVINFO set, SP_DEVINFO_DATA& device, DWORD which) {
  std::array<wchar_t, 256> text{};
  if (!SetupDiGetDeviceRegistryPropertyW(set, &device, which, nullptr, reinterpret_cast<BYTE*>(text.data()),
                                         sizeof text, nullptr)) {
    return {};
  }
  return narrow(text.data());
}

// Every interface of every present device of both interface classes whose path is that of a virtual camera.
std::vector<Device> findDevices() {
  std::vector<Device> found;
  for (const GUID& interfaceClass : interfaceClasses) {
    const HDEVINFO set = SetupDiGetClassDevsW(&interfaceClass, nullptr, nullptr, DIGCF_PRESENT | DIGCF_DEVICEINTERFACE);
    SP_DEVICE_INTERFACE_DATA interfaceData{};
    interfaceData.cbSize = sizeof interfaceData;
    for (DWORD i = 0; SetupDiEnumDeviceInterfaces(set, nullptr, &interfaceClass, i, &interfaceData); ++i) {
      alignas(SP_DEVICE_INTERFACE_DETAIL_DATA_W) std::array<std::byte, 1024> bytes{};
      auto* detail = reinterpret_cast<SP_DEVICE_INTERFACE_DETAIL_DATA_W*>(bytes.data());
      detail->cbSize = sizeof *detail;
      SP_DEVINFO_DATA device{};
      device.cbSize = sizeof device;
      if (!SetupDiGetDeviceInterfaceDetailW(set, &interfaceData, detail, bytes.size(), nullptr, &device)) continue;
      found.push_back({narrow(detail->DevicePath), property(set, device, SPDRP_FRIENDLYNAME),
                       property(set, device, SPDRP_MFG), property(set, device, SPDRP_HARDWAREID),
                       property(set, device, SPDRP_CLASSGUID)});
    }
    SetupDiDestroyDeviceInfoList(set);
  }
  std::ranges::sort(found);
  return found;
}

ComPtr<IMFAttributes> videoSourceAttributes() {
  ComPtr<IMFAttributes> attributes;
  EXPECT_HRESULT_SUCCEEDED(MFCreateAttributes(&attributes, 2));
  attributes->SetGUID(MF_DEVSOURCE_ATTRIBUTE_SOURCE_TYPE, MF_DEVSOURCE_ATTRIBUTE_SOURCE_TYPE_VIDCAP_GUID);
  return attributes;
}

std::set<std::string> captureLinks() {
  IMFActivate** devices = nullptr;
  UINT32 count = 0;
  EXPECT_HRESULT_SUCCEEDED(MFEnumDeviceSources(videoSourceAttributes().Get(), &devices, &count));
  std::set<std::string> links;
  for (UINT32 i = 0; i < count; ++i) {
    wchar_t* link = nullptr;
    UINT32 length = 0;
    EXPECT_HRESULT_SUCCEEDED(
        devices[i]->GetAllocatedString(MF_DEVSOURCE_ATTRIBUTE_SOURCE_TYPE_VIDCAP_SYMBOLIC_LINK, &link, &length));
    links.insert(narrow(link));
    CoTaskMemFree(link);
    EXPECT_EQ(devices[i]->Release(), 0U);
  }
  CoTaskMemFree(devices);
  return links;
}

HRESULT openCamera(const std::string& link, ComPtr<IMFMediaSource>& source) {
  const ComPtr<IMFAttributes> attributes = videoSourceAttributes();
  attributes->SetString(MF_DEVSOURCE_ATTRIBUTE_SOURCE_TYPE_VIDCAP_SYMBOLIC_LINK,
                        QString::fromStdString(link).toStdWString().c_str());
  return MFCreateDeviceSource(attributes.Get(), &source);
}

// Keeps the outcome of the first read.
class FirstRead final : public ComObject<IMFSourceReaderCallback, IMFSourceReaderCallback> {
 public:
  HRESULT STDMETHODCALLTYPE OnReadSample(HRESULT status, DWORD, DWORD, LONGLONG, IMFSample*) override {
    outcome.set_value(status);
    return S_OK;
  }
  HRESULT STDMETHODCALLTYPE OnFlush(DWORD) override { return S_OK; }
  HRESULT STDMETHODCALLTYPE OnEvent(DWORD, IMFMediaEvent*) override { return S_OK; }

  std::promise<HRESULT> outcome;
};

HRESULT firstRead(IMFMediaSource* source) {
  const ComPtr<FirstRead> callback(new FirstRead());
  ComPtr<IMFAttributes> attributes;
  ComPtr<IMFSourceReader> reader;
  HRESULT status = MFCreateAttributes(&attributes, 1);
  if (FAILED(status)) return status;
  attributes->SetUnknown(MF_SOURCE_READER_ASYNC_CALLBACK, callback.Get());
  status = MFCreateSourceReaderFromMediaSource(source, attributes.Get(), &reader);
  if (FAILED(status)) return status;
  status = reader->ReadSample(static_cast<DWORD>(MF_SOURCE_READER_FIRST_VIDEO_STREAM), 0, nullptr, nullptr, nullptr,
                              nullptr);
  if (FAILED(status)) return status;
  std::future<HRESULT> outcome = callback->outcome.get_future();
  return outcome.wait_for(std::chrono::seconds(5)) == std::future_status::ready ? outcome.get() : E_PENDING;
}

class PlantedDevices : public testing::Test {
 protected:
  PlantedDevices() {
    EXPECT_HRESULT_SUCCEEDED(CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED));
    EXPECT_HRESULT_SUCCEEDED(MFStartup(MF_VERSION, MFSTARTUP_FULL));
    EXPECT_EQ(unplantCameras().toStdString(), "");
  }
  ~PlantedDevices() override {
    EXPECT_EQ(unplantCameras().toStdString(), "");
    MFShutdown();
    CoUninitialize();
  }

  void plant(const QByteArray& json) {
    const QString path = folder.filePath(QStringLiteral("cameras.json"));
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(json);
    file.close();
    const CameraFile description = readCameraFile(path);
    ASSERT_EQ(description.error.toStdString(), "");
    ASSERT_EQ(plantCameras(description.cameras, path).toStdString(), "");
    EXPECT_EQ(plantedDescriptionPath(), path);
  }

  QTemporaryDir folder;
};

TEST_F(PlantedDevices, AreFoundOnceWithTheirPropertiesUntilTheyAreReplacedOrRemoved) {
  EXPECT_TRUE(findDevices().empty());
  EXPECT_TRUE(captureLinks().empty());

  plant(R"({"cameras":[
    {"name":"One","manufacturer":"M1","connection":"usb","hardwareId":"USB\\VID_1&PID_2","width":64,"height":64},
    {"name":"Two","connection":"display","setupClass":"media","width":64,"height":64}]})");
  const Device one{"\\\\?\\usb#vid_1&pid_2#vcam&0000#{e5323777-f976-4f5b-9b55-b94699c46e44}", "One", "M1",
                   "USB\\VID_1&PID_2", "{CA3E7AB9-B4C3-4AE6-8251-579EF933890F}"};
  const Device two{"\\\\?\\display#vcam0001#vcam&0001#{e5323777-f976-4f5b-9b55-b94699c46e44}", "Two", "", "",
                   "{4D36E96C-E325-11CE-BFC1-08002BE10318}"};
  EXPECT_EQ(findDevices(), (std::vector{two, one}));
  EXPECT_EQ(captureLinks(), (std::set{one[0], two[0]}));

  plant(R"({"cameras":[{"name":"Three","connection":"usb","width":64,"height":64}]})");
  const std::vector<Device> replaced = findDevices();
  ASSERT_EQ(replaced.size(), 1U);
  EXPECT_EQ(replaced[0][1], "Three");

  EXPECT_EQ(unplantCameras().toStdString(), "");
  EXPECT_TRUE(findDevices().empty());
  EXPECT_TRUE(captureLinks().empty());
  EXPECT_EQ(plantedDescriptionPath().toStdString(), "");
}

TEST_F(PlantedDevices, AreOpenedByTheirLinksAndReadThroughTheDllsBesideTheProgram) {
  plant(R"({"cameras":[
    {"name":"Good","connection":"usb","width":64,"height":64},
    {"name":"Held","connection":"usb","width":64,"height":64,"faults":[{"kind":"first-read-fails"}]},
    {"name":"Shut","connection":"usb","width":64,"height":64,"faults":[{"kind":"no-open"}]}]})");
  const std::vector<Device> devices = findDevices();
  ASSERT_EQ(devices.size(), 3U);
  ComPtr<IMFMediaSource> source;
  ASSERT_HRESULT_SUCCEEDED(openCamera(QString::fromStdString(devices[0][0]).toUpper().toStdString(), source));
  EXPECT_EQ(firstRead(source.Get()), S_OK);
  ASSERT_HRESULT_SUCCEEDED(openCamera(devices[1][0], source));
  EXPECT_EQ(firstRead(source.Get()), MF_E_VIDEO_RECORDING_DEVICE_PREEMPTED);
  EXPECT_EQ(openCamera(devices[2][0], source), E_ACCESSDENIED);
  EXPECT_EQ(openCamera("\\\\?\\usb#other", source), HRESULT_FROM_WIN32(ERROR_FILE_NOT_FOUND));
}

}  // namespace
