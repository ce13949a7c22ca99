#include "standalone/host/session/session.h"

#include <QCoreApplication>
#include <QTemporaryDir>
#include <QThread>

#include <atomic>
#include <semaphore>
#include <stdexcept>

#include <gmock/gmock.h>

#include "standalone/host/console/job_selection.h"
#include "standalone/host/host_error.h"
#include "standalone/host/session/test_user.h"
#include "ui/abstract_widget_wrapper.h"
#include "ui/input_request.h"
#include "unit_tests/standalone/fake_module.h"

namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

class FakeUser : public TestUser {
 public:
  void ask(InputRequest& request, TestExecutionContext&, const ::Run&) override {
    emit pictureTaken("question", "png");
    onAsk(request);
  }
  std::function<void(InputRequest&)> onAsk = [](InputRequest& request) { request.answer = InputRequest::kYes; };
};

class SessionTest : public testing::Test {
 protected:
  Session& open() {
    session = std::make_unique<Session>(module.interface(), Versions{"1", "2", "3"}, interference, &user);
    scan();
    return *session;
  }
  void scan() {
    session->rescan();
    session->waitUntilIdle();
  }
  /// The run of one test on camera A.
  const ::Run& run(int test = 0) {
    session->start({{session->cameras()[0], session->catalogue().tests[test]}});
    session->waitUntilIdle();
    return session->runs().back();
  }

  FakeModule module;
  FakeUser user;
  Interference interference;
  std::unique_ptr<Session> session;
};

std::vector<std::string> names(const QList<Camera>& cameras) {
  std::vector<std::string> list;
  for (const Camera& camera : cameras)
    list.push_back((camera.number + ' ' + camera.uniqueId + ' ' + camera.name).toStdString());
  return list;
}

std::vector<std::string> words(const QList<Job>& jobs) {
  std::vector<std::string> list;
  for (const Job& job : jobs) list.push_back((job.camera.uniqueId + ' ' + job.test.word).toStdString());
  return list;
}

TEST_F(SessionTest, KeepsEverythingOfARun) {
  module.capture.onRun = [](TestExecutionContext& context) {
    EXPECT_EQ(context.getComponent()->getId(), "0");
    context.getProgressReporter()->report(30, "KEY");
    context.getMessageList()->add("MESSAGE", 0, 0);
    InputRequest request("TITLE", "TEXT", 1, InputRequest::kQuestion, 0);
    context.getProgressReporter()->submit(&request);
    return request.answer == InputRequest::kYes ? kTestFailed : kTestError;
  };
  QTemporaryDir folder;
  open().setPictureFolder(folder.path());
  session->setSettings({7, "Ann", "S1"});
  QStringList told;
  QObject::connect(session.get(), &Session::runStarted, [&] { told << "started"; });
  QObject::connect(session.get(), &Session::progressed, [&] { told << "progress"; });
  QObject::connect(session.get(), &Session::messageAdded, [&] { told << "message"; });
  QObject::connect(session.get(), &Session::requested, [&] { told << "request"; });
  QObject::connect(session.get(), &Session::runFinished, [&](const ::Run& run) { told << resultWord(*run.result); });
  const ::Run& run = this->run();
  EXPECT_EQ(told, QStringList({"started", "progress", "message", "request", "failed"}));
  EXPECT_EQ(run.number, 1);
  EXPECT_LE(run.start, run.end);
  EXPECT_EQ(run.camera.name, "Camera A");
  EXPECT_EQ(run.test.word, "capture");
  EXPECT_EQ(run.messages, QList<QString>({"MESSAGE"}));
  ASSERT_EQ(run.requests.size(), 1);
  EXPECT_EQ(run.requests[0].answer, InputRequest::kYes);
  EXPECT_EQ(run.ending, Ending::kItself);
  EXPECT_EQ(run.operatorName + run.serialNumber, "AnnS1");
  EXPECT_EQ(module.capture.configured["ORCA"]["ORCA_TEST_TIMEOUT_CAMERA_CAPTURE_TEST"], "7");
  ASSERT_EQ(run.pictures.size(), 1);
  EXPECT_EQ(run.pictures[0].file, folder.filePath(fileStem(run) + "_question.png"));
  EXPECT_TRUE(QFile::exists(run.pictures[0].file));
}

TEST_F(SessionTest, TurnsEveryFaultOfAModuleIntoAnError) {
  const auto throwing = [](auto what) { return [what](TestExecutionContext&) -> TestResult { throw what; }; };
  const auto asking = [](InputRequest* request) {
    return [request](TestExecutionContext& context) -> TestResult {
      context.getProgressReporter()->submit(request);
      return kTestPassed;
    };
  };
  InputRequest request("", "", 1, InputRequest::kQuestion, 0);
  user.onAsk = [](InputRequest&) { throw std::runtime_error("no window"); };
  const struct {
    std::function<TestResult(TestExecutionContext&)> onRun;
    bool accepts;
    const char* remark;
  } cases[] = {{throwing(std::runtime_error("bad day")), true, "bad day"},
               {throwing(42), true, "did not say why"},
               {asking(nullptr), true, "asked for nothing"},
               {asking(&request), true, "no window"},
               {[](TestExecutionContext&) -> TestResult { return 2; }, true, "result 2"},
               {[](TestExecutionContext&) { return kTestPassed; }, false, "refused its settings"}};
  open();
  for (const auto& [onRun, accepts, remark] : cases) {
    module.capture.onRun = onRun;
    module.capture.accepts = accepts;
    const ::Run& run = this->run();
    EXPECT_EQ(run.result, kTestError) << remark;
    EXPECT_EQ(run.ending, Ending::kFault) << remark;
    EXPECT_THAT(run.remark.toStdString(), HasSubstr(remark));
  }
  // The next one finds everything in order.
  module.capture.onRun = [](TestExecutionContext&) { return kTestPassed; };
  module.capture.accepts = true;
  EXPECT_EQ(run().result, kTestPassed);
}

TEST_F(SessionTest, RefusesAModuleThatCannotTellItsTests) {
  const auto sentence = [](const std::shared_ptr<ModuleInterface>& broken) {
    try {
      const Session refused(broken, {}, {}, nullptr);
      return std::string("none");
    } catch (const ModuleFault& fault) {
      return fault.sentence().toStdString();
    }
  };
  EXPECT_THAT(sentence(nullptr), HasSubstr("no interface"));
  module.givenResource = nullptr;
  EXPECT_THAT(sentence(module.interface()), HasSubstr("no names"));
  module.givenResource = &module.resource;
  Diagnostic holed(ItemId(17, 1, 0), {nullptr});
  EXPECT_THAT(sentence(std::make_shared<ModuleInterface>(std::vector<Diagnostic*>{&holed}, &module.resource,
                                                         &module.manager, nullptr)),
              HasSubstr("lacks a test"));
}

TEST_F(SessionTest, TellsWhyAScanFoundNothing) {
  open();
  EXPECT_THAT(names(session->cameras()), ElementsAre("0 A Camera A", "1 B Camera B"));
  module.manager.identifiers = {"A", ""};
  scan();
  EXPECT_THAT(session->scanFault().toStdString(), HasSubstr("lacks a camera"));
  EXPECT_THAT(names(session->cameras()), IsEmpty());
  module.manager.onRefresh = [] { throw std::runtime_error("no driver"); };
  scan();
  EXPECT_THAT(session->scanFault().toStdString(), HasSubstr("no driver"));
  module.manager.onRefresh = [] {};
  module.manager.identifiers = {"B"};
  scan();
  EXPECT_EQ(session->scanFault(), "");
  EXPECT_THAT(names(session->cameras()), ElementsAre("0 B Camera B"));
  module.givenManager = nullptr;
  EXPECT_THAT(names(open().cameras()), IsEmpty());
  EXPECT_THAT(session->scanFault().toStdString(), HasSubstr("cannot look"));
}

TEST_F(SessionTest, DoesNotRunWhatCannotRun) {
  module.capture.onRun = [](TestExecutionContext&) -> TestResult {
    ADD_FAILURE() << "it ran";
    return kTestPassed;
  };
  open();
  const Job job{session->cameras()[0], session->catalogue().tests[0]};
  module.capture.implemented = false;
  EXPECT_EQ(run().result, kTestNotSupported);
  module.capture.implemented = true;
  module.capture.applicable = false;
  EXPECT_EQ(run().result, kTestNotPerformed);
  module.capture.applicable = true;
  // The camera that now has the number of the one that is gone is another one.
  module.manager.identifiers = {"B"};
  scan();
  session->start({job});
  session->waitUntilIdle();
  EXPECT_EQ(session->runs().back().result, kTestNotPerformed);
  EXPECT_THAT(session->runs().back().remark.toStdString(), HasSubstr("no longer connected"));
  EXPECT_EQ(session->runs().back().ending, Ending::kHost);
}

TEST_F(SessionTest, KnowsWhatEndedARun) {
  const auto untilCancelled = [](TestExecutionContext& context) {
    while (!context.isCancelled()) QThread::msleep(1);
    return kTestCancelled;
  };
  const auto withMessage = [](TestExecutionContext& context) {
    context.getMessageList()->add("REMOVED", 0, 0);
    return kTestCancelled;
  };
  const auto untilEvent = [](TestExecutionContext& context) {
    while (!context.getEventSource()->getEvent()) QThread::msleep(1);
    context.getMessageList()->add("TEST_ABORTED_BY_EVENT", 0, 0);
    return kTestCancelled;
  };
  const std::optional<Interference::Event> event = Interference::Event{0.01, 1};
  const struct {
    Interference interference;
    std::function<TestResult(TestExecutionContext&)> onRun;
    Ending ending;
  } cases[] = {{{0.01, std::nullopt}, untilCancelled, Ending::kHost},
               {{std::nullopt, event}, untilEvent, Ending::kEvent},
               {{}, withMessage, Ending::kItself},
               {{}, [](TestExecutionContext&) { return kTestCancelled; }, Ending::kUser}};
  for (const auto& [wanted, onRun, ending] : cases) {
    interference = wanted;
    module.capture.onRun = onRun;
    open();
    EXPECT_EQ(run().ending, ending);
  }
  module.capture.onRun = [&](TestExecutionContext& context) {
    context.getProgressReporter()->report(1, "");
    return untilCancelled(context);
  };
  interference = {};
  open();
  QObject::connect(session.get(), &Session::progressed, [this] { session->cancel(); });
  session->start(session->allJobs());
  session->waitUntilIdle();
  ASSERT_EQ(session->runs().size(), 1U) << "what waits is dropped";
  EXPECT_EQ(session->runs().back().ending, Ending::kUser);
}

TEST_F(SessionTest, ScansBetweenRunsAndNotDuringOne) {
  std::atomic<bool> running = false;
  module.capture.onRun = [&](TestExecutionContext& context) {
    running = true;
    context.getProgressReporter()->report(1, "");
    QThread::msleep(20);
    EXPECT_TRUE(context.getComponent());
    running = false;
    return kTestPassed;
  };
  open();
  module.manager.onRefresh = [&] { EXPECT_FALSE(running); };
  QStringList order;
  QObject::connect(session.get(), &Session::progressed, [this] { session->rescan(); });
  QObject::connect(session.get(), &Session::camerasChanged, [&] { order << "scan"; });
  QObject::connect(session.get(), &Session::runFinished, [&](const ::Run& run) { order << run.test.word; });
  session->start(session->allJobs());
  session->waitUntilIdle();
  EXPECT_EQ(order, QStringList({"capture", "scan", "barcode", "capture", "scan", "barcode"}));
}

TEST_F(SessionTest, OffersWhatCanBeRunAgain) {
  open();
  EXPECT_THAT(words(session->lastJob()), IsEmpty());
  EXPECT_THAT(words(session->allJobs()), ElementsAre("A capture", "A barcode", "B capture", "B barcode"));
  TestResult result = kTestFailed;
  module.capture.onRun = [&](TestExecutionContext&) { return result; };
  session->start(session->allJobs());
  session->waitUntilIdle();
  EXPECT_THAT(words(session->lastJob()), ElementsAre("B barcode"));
  EXPECT_THAT(words(session->jobsNotPassed()), ElementsAre("A capture", "B capture"));
  result = kTestPassed;
  run();
  EXPECT_THAT(words(session->jobsNotPassed()), ElementsAre("B capture"));
}

TEST_F(SessionTest, EndsARunBeforeItEndsItself) {
  std::atomic<bool> ended = false;
  module.capture.onRun = [&](TestExecutionContext& context) {
    while (!context.isCancelled()) QThread::msleep(1);
    // Whoever waits for the end must still answer.
    InputRequest request("", "", 1, InputRequest::kQuestion, 0);
    context.getProgressReporter()->submit(&request);
    ended = true;
    return kTestCancelled;
  };
  open().start(session->allJobs());
  session.reset();
  EXPECT_TRUE(ended);
}

TEST_F(SessionTest, SelectsJobsByWords) {
  open();
  const auto selected = [&](const QStringList& line) { return words(selectJobs(*session, line)); };
  EXPECT_THAT(selected({}), ElementsAre("A capture", "A barcode", "B capture", "B barcode"));
  EXPECT_THAT(selected({"Qb", "1"}), ElementsAre("B barcode"));
  EXPECT_THAT(selected({"Q\"b c\"", "00", "0"}), ElementsAre("A barcode", "A capture"));
  EXPECT_THAT(selected({"quickcapture", "B", "1"}), ElementsAre("B capture"));
  EXPECT_THAT(selected({"capture barcode c", "A"}), ElementsAre("A capture", "A barcode"));
  EXPECT_THAT(selected({"B"}), ElementsAre("B capture", "B barcode"));
  const struct {
    QStringList words;
    const char* sentence;
  } cases[] = {{{"Qz", "0"}, "\"Qz\""},
               {{"c", "7"}, "no camera 7; the last one is 1"},
               {{"c", "18446744073709551616"}, "no camera 18446744073709551616"},
               {{"c", "x"}, "\"x\" is neither"}};
  for (const auto& [line, sentence] : cases) {
    try {
      selectJobs(*session, line);
      ADD_FAILURE() << sentence;
    } catch (const HostError& error) {
      EXPECT_THAT(error.what(), HasSubstr(sentence));
    }
  }
}

}  // namespace
