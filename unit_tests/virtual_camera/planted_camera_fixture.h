#pragma once

#include <windows.h>
#include <mfapi.h>
#include <mfidl.h>
#include <wrl/client.h>

#include <QFile>
#include <QTemporaryDir>

#include <chrono>
#include <cstring>
#include <optional>
#include <thread>
#include <vector>

#include <gtest/gtest.h>

#include "standalone/virtual_camera/description/camera_file.h"
#include "standalone/virtual_camera/description/camera_identity.h"
#include "standalone/virtual_camera/planter/device_planter.h"

/// A planted camera as a program meets it: listed, opened, started and read through Media Foundation's interfaces.
class VirtualCamera : public testing::Test {
 protected:
  template <class Interface>
  using ComPtr = Microsoft::WRL::ComPtr<Interface>;
  using Clock = std::chrono::steady_clock;

  VirtualCamera() { MFStartup(MF_VERSION, MFSTARTUP_LITE); }
  ~VirtualCamera() override {
    if (source) source->Shutdown();
    EXPECT_EQ(unplantCameras(), QString());
    MFShutdown();
  }

  // One camera with these further keys.
  void plant(const QByteArray& more) {
    const QString path = folder.filePath(QStringLiteral("cameras.json"));
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(R"({"cameras":[{"name":"A","connection":"usb","width":64,"height":64,"framesPerSecond":50)" + more +
               "}]}");
    file.close();
    const CameraFile read = readCameraFile(path);
    ASSERT_EQ(read.error, QString());
    link = identityOf(read.cameras.front(), 0).symbolicLink;
    ASSERT_EQ(plantCameras(read.cameras, path), QString());
  }

  static ComPtr<IMFAttributes> captureDevices() {
    ComPtr<IMFAttributes> attributes;
    MFCreateAttributes(&attributes, 2);
    attributes->SetGUID(MF_DEVSOURCE_ATTRIBUTE_SOURCE_TYPE, MF_DEVSOURCE_ATTRIBUTE_SOURCE_TYPE_VIDCAP_GUID);
    return attributes;
  }

  HRESULT open() {
    const auto attributes = captureDevices();
    attributes->SetString(MF_DEVSOURCE_ATTRIBUTE_SOURCE_TYPE_VIDCAP_SYMBOLIC_LINK, link.toStdWString().c_str());
    return MFCreateDeviceSource(attributes.Get(), &source);
  }

  static UINT32 listed() {
    IMFActivate** activates = nullptr;
    UINT32 count = 0;
    EXPECT_EQ(MFEnumDeviceSources(captureDevices().Get(), &activates, &count), S_OK);
    for (UINT32 i = 0; i < count; ++i) activates[i]->Release();
    CoTaskMemFree(activates);
    return count;
  }

  // Starts the opened camera; `stream` is its stream then.
  void start() {
    ComPtr<IMFPresentationDescriptor> descriptor;
    ASSERT_EQ(source->CreatePresentationDescriptor(&descriptor), S_OK);
    PROPVARIANT position{};
    ASSERT_EQ(source->Start(descriptor.Get(), &GUID_NULL, &position), S_OK);
    ComPtr<IMFMediaEvent> event = nextEvent(source.Get());
    ASSERT_TRUE(event);
    PROPVARIANT value{};
    event->GetValue(&value);
    ASSERT_EQ(value.punkVal->QueryInterface(IID_PPV_ARGS(&stream)), S_OK);
    PropVariantClear(&value);
    EXPECT_EQ(nextType(), MEStreamStarted);
  }

  // Null when nothing comes within `patience`.
  static ComPtr<IMFMediaEvent> nextEvent(IMFMediaEventGenerator* generator,
                                         Clock::duration patience = std::chrono::seconds(5)) {
    ComPtr<IMFMediaEvent> event;
    for (const auto end = Clock::now() + patience; Clock::now() < end;
         std::this_thread::sleep_for(std::chrono::milliseconds(2))) {
      if (generator->GetEvent(MF_EVENT_FLAG_NO_WAIT, &event) == S_OK) break;
    }
    return event;
  }

  MediaEventType nextType() {
    MediaEventType type = MEUnknown;
    if (const auto event = nextEvent(stream.Get())) event->GetType(&type);
    return type;
  }

  // The next event of the stream has to be a sample.
  ComPtr<IMFSample> nextSample() {
    ComPtr<IMFSample> sample;
    const auto event = nextEvent(stream.Get());
    PROPVARIANT value{};
    if (event) event->GetValue(&value);
    EXPECT_TRUE(value.vt == VT_UNKNOWN && value.punkVal->QueryInterface(IID_PPV_ARGS(&sample)) == S_OK);
    PropVariantClear(&value);
    return sample;
  }

  ComPtr<IMFSample> requestSample(IUnknown* token = nullptr) {
    EXPECT_EQ(stream->RequestSample(token), S_OK);
    return nextSample();
  }

  // The pixels of a frame; nothing when its buffer cannot be locked.
  static std::optional<std::vector<DWORD>> pixelsOf(IMFSample* sample) {
    ComPtr<IMFMediaBuffer> buffer;
    BYTE* bytes = nullptr;
    DWORD length = 0;
    if (!sample || FAILED(sample->GetBufferByIndex(0, &buffer)) || FAILED(buffer->Lock(&bytes, nullptr, &length))) {
      return std::nullopt;
    }
    std::vector<DWORD> pixels(length / sizeof(DWORD));
    std::memcpy(pixels.data(), bytes, length);
    buffer->Unlock();
    return pixels;
  }

  QTemporaryDir folder;
  QString link;
  ComPtr<IMFMediaSource> source;
  ComPtr<IMFMediaStream> stream;
};
