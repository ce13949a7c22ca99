// The module's tests, run by a host and with a camera that are known to the module by the places of their tables alone.

#include <QApplication>
#include <QObject>
#include <QWidget>

#include <gtest/gtest.h>

#include <cstdint>
#include <map>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include "by_place.h"

using Settings = std::map<std::string, std::map<std::string, std::string>>;

// The run-time type test of the module goes by class names, so that these have the names that every host declares.
class SystemComponent {
 public:
  virtual ~SystemComponent() = default;
  virtual std::string place2() { return {}; }
  virtual void place3() {}
  virtual void place4() {}
  virtual void* place5() { return nullptr; }
};

class CameraComponent : public SystemComponent {
 public:
  virtual bool place6() { return true; }
  virtual bool place7() { return true; }
  virtual void place8() {}
  virtual bool place9() { return true; }
  virtual void place10() {}
  virtual void place11() {}
  virtual void* place12() { return capturer; }

  void* capturer = nullptr;
};

namespace {

const std::string kHint = "POSSIBLE_DEFECTIVE_COMPONENTS: CAMERA_DEVICE";
const std::string kNotIdentified =
    "THIS_TEST_CANNOT_BE_PERFORMED_BECAUSE_THE_DEVICE_COULD_NOT_BE_IDENTIFIED_OR_HAS_BEEN_DISCONNECTED";

/// The fields of a request, as a host reads and writes them.
struct Request {
  const Entry* table;
  void* widget;
  std::uint32_t answer;
  std::string firstText;
  std::string secondText;
  std::uint32_t codes[2];
  std::vector<std::uint64_t> entries;
  std::uint32_t thirdCode;
  std::uint64_t extra;
};

struct Format {
  std::uint32_t width;
  std::uint32_t height;
  bool topDown;
};

/// A host with a camera, and what it saw of a run. Every object of it is a table written out by hand.
struct Host {
  struct Part : Object {
    Host* host;
  };

  // What the host and its camera answer.
  SystemComponent* component = nullptr;
  bool ready = true;
  std::uint32_t event = 0;
  std::uint32_t startStatus = 0;
  std::uint32_t answers[3] = {1, 0, 4};

  std::vector<std::string> messages;
  std::vector<std::pair<int, std::string>> progress;
  std::vector<std::string> requests;
  int frames = 0;
  int stops = 0;

  QObject eventFilter;
  Part context;
  Part messageList;
  Part reporter;
  Part eventSource;
  Part capturer;

  Host();
  Host(const Host&) = delete;
  Host& operator=(const Host&) = delete;

  std::uint32_t run(void* test) { return call<std::uint32_t, void*>(test, 3, &context); }
  void submit(Request& request);
};

void neverCalled() {
  ADD_FAILURE() << "the module called a destructor of the host's";
}

template <class Function>
Entry entry(Function* function) {
  return reinterpret_cast<Entry>(function);
}

using Part = Host::Part;

// The two entries of the destructor, then the places from 2 on.
const Entry kContext[] = {
    neverCalled,
    neverCalled,
    entry(+[](Part* self) { return self->host->component; }),
    entry(+[](Part* self) { return &self->host->messageList; }),
    entry(+[](Part* self) { return &self->host->reporter; }),
    entry(+[](Part*) { return false; }),
    entry(+[](Part* self) { return &self->host->eventSource; }),
};

const Entry kMessageList[] = {
    neverCalled,
    neverCalled,
    entry(+[](Part* self, std::string key, std::uint64_t first, std::uint64_t second) {
      EXPECT_EQ(first, 0u);
      EXPECT_EQ(second, 0u);
      self->host->messages.push_back(key);
    }),
};

const Entry kReporter[] = {
    neverCalled,
    neverCalled,
    entry(+[](Part* self, int percent, const std::string& text) { self->host->progress.emplace_back(percent, text); }),
    entry(+[](Part* self, Request* request) { self->host->submit(*request); }),
    entry(+[](Part* self) { return self->host->ready; }),
};

const Entry kEventSource[] = {
    neverCalled,
    neverCalled,
    entry(+[](Part* self) { return self->host->event; }),
};

constexpr std::uint32_t kWidth = 32;
constexpr std::uint32_t kHeight = 24;

const Entry kCapturer[] = {
    neverCalled,
    neverCalled,
    entry(+[](Part* self) { return self->host->startStatus; }),
    entry(+[](Part* self, std::uint8_t*& buffer, std::uint32_t timeoutMs) {
      EXPECT_EQ(timeoutMs, 5000u);
      ++self->host->frames;
      buffer = new std::uint8_t[kWidth * kHeight * 4]();
      return std::uint32_t{0};
    }),
    entry(+[](Part* self) {
      ++self->host->stops;
      return std::uint32_t{0};
    }),
    entry(+[](Part*, Format& format) {
      format = {kWidth, kHeight, true};
      return 0;
    }),
};

Host::Host()
    : context{{kContext}, this},
      messageList{{kMessageList}, this},
      reporter{{kReporter}, this},
      eventSource{{kEventSource}, this},
      capturer{{kCapturer}, this} {}

/// Answers the n-th request with the n-th answer. The tests run on the user-interface thread here, so that a dialog is
/// shown at once, and gets its frames and goes while its test runs.
void Host::submit(Request& request) {
  EXPECT_TRUE(request.entries.empty());
  EXPECT_EQ(request.codes[0], 1u);
  EXPECT_EQ(request.thirdCode, 0u);
  const bool isDialog = request.codes[1] == 3;
  EXPECT_EQ(request.widget != nullptr, isDialog);
  EXPECT_EQ(request.extra, isDialog ? 0u : reinterpret_cast<std::uint64_t>(&context));
  if (isDialog) {
    const auto windows = QApplication::topLevelWidgets().size();
    EXPECT_TRUE((call<bool, QWidget*, QObject*>(request.widget, 2, nullptr, &eventFilter)));
    EXPECT_GT(QApplication::topLevelWidgets().size(), windows);
  }
  ASSERT_LT(requests.size(), std::size(answers));
  request.answer = answers[requests.size()];
  requests.push_back(request.firstText + "/" + request.secondText + "/" + std::to_string(request.codes[1]));
}

struct RunFixture {
  ~RunFixture() {
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_TRUE(QApplication::topLevelWidgets().empty()) << "a dialog of the module outlived it";
  }

  LoadedModule module;
  Host host;
};

class TestRunContract : public RunFixture, public testing::TestWithParam<std::uint32_t> {};

INSTANTIATE_TEST_SUITE_P(BothTests, TestRunContract, testing::Values(0u, 1u));

TEST_P(TestRunContract, AnswersNotSupportedWithoutAContext) {
  EXPECT_EQ((call<std::uint32_t, void*>(module.test(GetParam()), 3, nullptr)), 6u);
}

TEST_P(TestRunContract, AnswersNotSupportedWithoutAComponent) {
  EXPECT_EQ(host.run(module.test(GetParam())), 6u);
  EXPECT_TRUE(host.messages.empty());
  EXPECT_TRUE(host.progress.empty());
}

TEST_P(TestRunContract, AnswersNotPerformedWhenTheHostIsNotReady) {
  CameraComponent camera;
  host.component = &camera;
  host.ready = false;
  EXPECT_EQ(host.run(module.test(GetParam())), 3u);
  EXPECT_TRUE(host.progress.empty());
}

TEST_P(TestRunContract, AnswersNotPerformedForAComponentThatIsNoCamera) {
  SystemComponent keyboard;
  host.component = &keyboard;
  EXPECT_FALSE((call<bool, SystemComponent*>(module.test(GetParam()), 2, &keyboard)));
  EXPECT_EQ(host.run(module.test(GetParam())), 3u);
  EXPECT_EQ(host.messages, std::vector{kNotIdentified});
  EXPECT_EQ(host.progress, (std::vector<std::pair<int, std::string>>{{0, ""}, {100, kNotIdentified}}));
}

TEST_P(TestRunContract, EndsWithAnEventOfTheHost) {
  CameraComponent camera;
  host.component = &camera;
  EXPECT_TRUE((call<bool, SystemComponent*>(module.test(GetParam()), 2, &camera)));
  host.event = 0xffffff01;
  EXPECT_EQ(host.run(module.test(GetParam())), 4u);
  EXPECT_EQ(host.messages, std::vector<std::string>{"TEST_ABORTED_BY_EVENT"});
}

TEST_P(TestRunContract, StopsTheCapturerThatCouldNotOpenItsCamera) {
  CameraComponent camera;
  camera.capturer = &host.capturer;
  host.component = &camera;
  host.startStatus = 114;
  EXPECT_EQ(host.run(module.test(GetParam())), 4u);
  EXPECT_EQ(host.messages, std::vector<std::string>{"CANNOT_ACCESS_DEVICE"});
  EXPECT_EQ(host.stops, 1);
}

class CaptureRunContract : public RunFixture, public testing::Test {};

TEST_F(CaptureRunContract, APictureThatTheUserRejectsFailsAndAddsTheHintLast) {
  CameraComponent camera;
  camera.capturer = &host.capturer;
  host.component = &camera;
  const Settings settings = {{"ORCA", {{"ORCA_TEST_TIMEOUT_CAMERA_CAPTURE_TEST", "0"}}}};
  EXPECT_TRUE((call<bool, Settings, std::uint64_t>(module.test(0), 11, settings, 0)));

  EXPECT_EQ(host.run(module.test(0)), 1u);
  EXPECT_EQ(host.requests, (std::vector<std::string>{"CAMERA_CAPTURE_TEST/INITIAL_MESSAGE/0", "//3",
                                                     "CAMERA_CAPTURE_TEST/CHECK_CAMERA_IMAGE/2"}));
  EXPECT_GE(host.frames, 1);
  EXPECT_EQ(host.stops, 1);
  EXPECT_EQ(host.messages, (std::vector<std::string>{"CAMERA_RESULT_FAILED", kHint}));
  ASSERT_FALSE(host.progress.empty());
  EXPECT_EQ(host.progress.back(), (std::pair{100, kHint}));
}

TEST_F(CaptureRunContract, APictureThatTheUserAcceptsPassesWithoutAHint) {
  CameraComponent camera;
  camera.capturer = &host.capturer;
  host.component = &camera;
  host.answers[2] = 3;
  const Settings settings = {{"ORCA", {{"ORCA_TEST_TIMEOUT", "0"}}}};
  EXPECT_TRUE((call<bool, Settings, std::uint64_t>(module.test(0), 11, settings, 0)));
  EXPECT_EQ(host.run(module.test(0)), 0u);
  EXPECT_TRUE(host.messages.empty());
  EXPECT_EQ(host.progress.back(), (std::pair{100, std::string()}));
}

TEST_F(CaptureRunContract, SettingsThatAreNoNumbersThrowAcrossTheBoundary) {
  const Settings settings = {{"ORCA", {{"ORCA_TEST_TIMEOUT", "abc"}}}};
  try {
    call<bool, Settings, std::uint64_t>(module.test(0), 11, settings, 0);
    FAIL() << "no exception";
  } catch (const std::invalid_argument& error) {
    EXPECT_STREQ(error.what(), "invalid stoul argument");
  }
  EXPECT_TRUE((call<bool, Settings, std::uint64_t>(module.test(1), 11, settings, 0))) << "the barcode test reads none";
}

}  // namespace
