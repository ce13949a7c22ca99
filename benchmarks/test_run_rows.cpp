#include <QImage>
#include <QPainter>
#include <QTemporaryDir>
#include <QWidget>

#include <chrono>
#include <memory>
#include <stdexcept>
#include <thread>
#include <utility>

#include "benchmarks/bare_reader.h"
#include "benchmarks/comparison.h"
#include "benchmarks/durations.h"
#include "benchmarks/planting.h"
#include "benchmarks/process_figures.h"
#include "benchmarks/rows.h"
#include "benchmarks/user_interface.h"
#include "capture/buffer_lock.h"
#include "discovery/camera_component.h"
#include "module/identifiers.h"
#include "module/keys/settings_keys.h"
#include "module/test_execution_context.h"
#include "tests/camera_capture_test.h"
#include "ui/abstract_widget_wrapper.h"
#include "ui/input_request.h"

namespace {

constexpr QSize kFrame(1920, 1080);
constexpr double kMegabyte = 1024 * 1024;
constexpr int kRounds = 9;
constexpr char kBare[] = "a bare reader and widget";

/// A host whose user confirms everything.
class Host : public TestExecutionContext, private MessageList, private ProgressReporter, private EventSource {
 public:
  explicit Host(SystemComponent& tested) : component(tested) {}

  SystemComponent* getComponent() override { return &component; }
  MessageList* getMessageList() override { return this; }
  ProgressReporter* getProgressReporter() override { return this; }
  bool isCancelled() override { return false; }
  EventSource* getEventSource() override { return this; }

 private:
  void add(std::string, std::uint64_t, std::uint64_t) override {}
  void report(int, const std::string&) override {}
  bool isReady() override { return true; }
  std::uint32_t getEvent() override { return 0; }
  void submit(InputRequest* request) override {
    if (request->widget) {
      onUserInterface([&] { static_cast<void>(request->widget->CreateWidget(nullptr, nullptr)); });
    } else {
      request->answer = request->secondCode == InputRequest::kQuestion ? InputRequest::kYes : InputRequest::kConfirmed;
    }
  }

  SystemComponent& component;
};

/// Runs the capture test, which shows the picture for so many seconds.
void runTest(CameraComponent& camera, int seconds) {
  CameraCaptureTest test(kCaptureTestId);
  static_cast<void>(
      test.configure({{settings_keys::kOrca, {{settings_keys::kOrcaTestTimeout, std::to_string(seconds)}}}}, 0));
  Host host(camera);
  if (test.run(&host) != kTestPassed) throw std::runtime_error("the capture test does not pass");
  onUserInterface([] {});
}

/// Shows the newest of the images that it gets.
class BareView : public QWidget {
 public:
  BareView() : QWidget(nullptr, Qt::FramelessWindowHint) { resize(kFrame); }
  void show(const QImage& newest) {
    image = newest;
    update();
    QWidget::show();
  }

 protected:
  void paintEvent(QPaintEvent*) override { QPainter(this).drawImage(0, 0, image); }

 private:
  QImage image;
};

QImage imageOf(IMFSample& sample) {
  Microsoft::WRL::ComPtr<IMFMediaBuffer> buffer;
  if (FAILED(sample.GetBufferByIndex(0, &buffer))) return {};
  const BufferLock lock(buffer.Get());
  return QImage(lock.data(), kFrame.width(), kFrame.height(), QImage::Format_RGB32).copy();
}

void runBare(const std::string& devicePath, double seconds) {
  std::unique_ptr<BareView> view;
  onUserInterface([&] { view = std::make_unique<BareView>(); });
  {
    BareReader reader(devicePath, [&](IMFSample& sample) {
      QMetaObject::invokeMethod(
          view.get(), [shown = view.get(), image = imageOf(sample)] { shown->show(image); }, Qt::QueuedConnection);
    });
    reader.read();
    std::this_thread::sleep_for(std::chrono::duration<double>(seconds));
  }
  onUserInterface([&] { view.reset(); });
}

/// What a second of the run takes of the processor.
double processorTimeOf(const std::function<void()>& run) {
  const double before = processorMilliseconds();
  const double milliseconds = millisecondsOf(run);
  return (processorMilliseconds() - before) / milliseconds * 1000;
}

double peakOf(const std::function<void()>& run) {
  const double idle = privateBytes();
  const PeakWatch watch;
  run();
  return (watch.peak() - idle) / kMegabyte;
}

/// What the test and a bare reader with a bare widget take in so many seconds.
std::pair<Rounds, Rounds> alternated(double (*figureOf)(const std::function<void()>& run), const QString& picture,
                                     int seconds) {
  const FoundCamera camera(
      silentCamera(seconds - 0.1, kFrame, {{"picture", QJsonObject{{"kind", "image"}, {"file", picture}}}}));
  runTest(camera.component(), seconds);
  Rounds test;
  Rounds bare;
  alternate(
      kRounds, [&] { test.push_back(figureOf([&] { runTest(camera.component(), seconds); })); },
      [&] { bare.push_back(figureOf([&] { runBare(camera.path(), seconds); })); });
  return {test, bare};
}

}  // namespace

void compareTestRuns(Comparison& comparison) {
  const Row memory{"memory of a capture test, 1920x1080", "five frames", 1, "MB"};
  const Row processor{"processor time of a capture test, 1920x1080", kBare, 0, "ms/s"};
  if (!comparison.wants(memory.work) && !comparison.wants(processor.work)) return;

  // An image that does not change: what the virtual camera itself takes stays small.
  const QTemporaryDir folder;
  const QString file = folder.filePath(QStringLiteral("picture.png"));
  QImage picture(kFrame, QImage::Format_RGB32);
  picture.fill(Qt::darkCyan);
  if (!picture.save(file)) throw std::runtime_error("the camera's picture cannot be written");

  if (comparison.wants(memory.work)) {
    constexpr double kFiveFrames = 5.0 * 4 * kFrame.width() * kFrame.height() / kMegabyte;
    const auto [test, bare] = alternated(peakOf, file, 1);
    comparison.record(memory, test, {kFiveFrames});
    comparison.record({memory.work, kBare, 0, memory.unit}, test, bare);
  }
  if (comparison.wants(processor.work)) {
    const auto [test, bare] = alternated(processorTimeOf, file, 2);
    comparison.record(processor, test, bare);
  }
}
