// What is done a thousand times over leaves the process as it was: frames, captures, dialogs.

#include <cstdio>
#include <functional>
#include <memory>
#include <vector>

#include "capture/win_camera_frame_capturer.h"
#include "discovery/win_camera_component.h"
#include "ui/camera_barcode_widget_wrapper.h"
#include "ui/camera_widget_wrapper.h"
#include "unit_tests/capture/fake_reader.h"
#include "unit_tests/fakes/fake_host_services.h"
#include "unit_tests/fakes/process_figures.h"
#include "unit_tests/ui/dialog_helpers.h"

namespace {

void print(const char* when, const ProcessFigures& figures) {
  std::printf("soak, %s: %lld KB private, %lld handles, %lld GDI and %lld USER objects, %lld threads\n", when,
              figures.privateKilobytes, figures.handles, figures.gdiObjects, figures.userObjects, figures.threads);
}

/// Does something `rounds` times after a tenth of that as a warm-up, which nothing may grow after.
void soak(int rounds, const std::function<void()>& round) {
  for (int i = 0; i < rounds / 10; ++i) round();
  const ProcessFigures before = processFigures();
  for (int i = 0; i < rounds; ++i) round();
  const ProcessFigures after = processFigures();
  print("warm", before);
  print("end ", after);
  EXPECT_LE(after.privateKilobytes, before.privateKilobytes + 1024);
  EXPECT_LE(after.handles, before.handles);
  EXPECT_LE(after.gdiObjects, before.gdiObjects);
  EXPECT_LE(after.userObjects, before.userObjects);
  EXPECT_LE(after.threads, before.threads);
}

class SoakTest : public testing::Test {
 protected:
  SoakTest() {
    resetFakeHostServices();
    resetScriptedCapture();
    *capturer.GetAddressOf() = new WinCameraFrameCapturer(&camera);  // born with one reference
  }

  WinCameraComponent camera{{"\\\\?\\usb#vid_1", "", "", "", "", "", "", "", CameraType::kUsb}, 0};
  Microsoft::WRL::ComPtr<WinCameraFrameCapturer> capturer;
};

TEST_F(SoakTest, TenThousandFrames) {
  ASSERT_EQ(capturer->start(), CaptureOk);
  const auto sample = makeSample(std::vector<std::uint8_t>(std::size_t{1920} * 1080 * 4, 1));
  soak(10000, [&] {
    capturer->OnReadSample(S_OK, 0, 0, 0, sample.Get());
    std::uint8_t* buffer = nullptr;
    ASSERT_EQ(capturer->getFrame(buffer, 5000), CaptureOk);
    delete[] buffer;
  });
  EXPECT_EQ(capturer->stop(), CaptureOk);
}

TEST_F(SoakTest, AThousandCaptures) {
  soak(1000, [&] {
    ASSERT_EQ(capturer->start(), CaptureOk);
    ASSERT_EQ(capturer->stop(), CaptureNoFrameYet);
  });
}

TEST_F(SoakTest, AThousandDialogs) {
  QImage frame(640, 480, QImage::Format_RGB32);
  frame.fill(Qt::darkGray);
  const auto show = [&](auto wrapper, auto& open) {
    ASSERT_TRUE(wrapper->CreateWidget(nullptr, &hostFilter));
    wrapper->SendFrame(frame);
    QApplication::processEvents();
    open()->Close();
    while (open()) QApplication::processEvents();
  };
  soak(500, [&] {
    show(std::make_shared<CameraWidgetWrapper>(frame.size(), nullptr), openDialog<CameraDialog>);
    show(std::make_shared<CameraBarcodeWidgetWrapper>(frame.size(), nullptr), openDialog<CameraBarcodeDialog>);
  });
}

}  // namespace
