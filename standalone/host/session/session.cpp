#include "standalone/host/session/session.h"

#include <QCoreApplication>
#include <QEventLoop>

#include <algorithm>
#include <utility>

#include "module/keys/camera_keys.h"
#include "module/keys/settings_keys.h"
#include "standalone/host/host_error.h"
#include "standalone/host/new_file.h"
#include "standalone/host/session/test_user.h"
#include "ui/input_request.h"

namespace {

bool isSame(const Job& job, const Run& run) {
  return job.camera.identity() == run.camera.identity() && job.test.id.key == run.test.id.key;
}

QMap<QString, QString> moduleSettings(const RunSettings& settings) {
  if (!settings.timeout) return {};
  return {{QLatin1String(settings_keys::kOrcaTestTimeoutCameraCaptureTest), QString::number(*settings.timeout)}};
}

TestSettings sectionOf(const QMap<QString, QString>& settings) {
  TestSettings sections;
  for (auto entry = settings.begin(); entry != settings.end(); ++entry)
    sections[settings_keys::kOrca][entry.key().toStdString()] = entry.value().toStdString();
  return sections;
}

}  // namespace

Session::Session(std::shared_ptr<ModuleInterface> module, const Versions& versions, const Interference& wanted,
                 TestUser* testUser)
    : runner(std::move(module)),
      moduleCatalogue(runner.catalogue()),
      knownVersions(versions),
      interference(wanted),
      user(testUser) {
  if (!moduleCatalogue.fault.isEmpty()) throw ModuleFault(moduleCatalogue.fault);
  if (user) connect(user, &TestUser::pictureTaken, this, &Session::addPicture);
  moduleThread = std::thread([this] {
    while (const TaskQueue::Task task = moduleTasks.take()) task();
  });
}

Session::~Session() {
  cancel(Ending::kHost);
  waitUntilIdle();
  // One that does nothing is the last.
  moduleTasks.put({});
  moduleThread.join();
  // The module's dialogs delete themselves through events; they must be gone before the module is.
  QCoreApplication::sendPostedEvents(nullptr, 0);
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

const Run* Session::current() const {
  return allRuns.empty() || allRuns.back().result ? nullptr : &allRuns.back();
}

QList<Job> Session::allJobs() const {
  QList<Job> all;
  for (const Camera& camera : knownCameras)
    for (const TestDescription& test : moduleCatalogue.tests) all.append({camera, test});
  return all;
}

QList<Job> Session::lastJob() const {
  if (allRuns.empty()) return {};
  return {{allRuns.back().camera, allRuns.back().test}};
}

QList<Job> Session::jobsNotPassed() const {
  QList<Job> tried;
  for (const Run& run : allRuns) {
    const bool isNew = std::ranges::none_of(tried, [&](const Job& job) { return isSame(job, run); });
    if (isNew) tried.append({run.camera, run.test});
  }
  tried.removeIf([this](const Job& job) {
    const auto last = std::find_if(allRuns.rbegin(), allRuns.rend(), [&](const Run& run) { return isSame(job, run); });
    return last->result == kTestPassed;
  });
  return tried;
}

void Session::rescan() {
  scanWanted = true;
  emit stateChanged();
  next();
}

void Session::start(const QList<Job>& wanted) {
  jobs.insert(jobs.end(), wanted.begin(), wanted.end());
  emit stateChanged();
  next();
}

void Session::cancel(Ending by) {
  jobs.clear();
  if (context) {
    if (!cancelledBy) cancelledBy = by;
    context->cancel();
  }
  emit stateChanged();
}

void Session::waitUntilIdle() {
  while (isBusy()) {
    QEventLoop loop;
    connect(this, &Session::idle, &loop, &QEventLoop::quit);
    // No loop runs any more once the application was told to quit.
    if (loop.exec() < 0) QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
  }
}

void Session::post(TaskQueue::Task task) {
  ownTasks.put(std::move(task));
  QMetaObject::invokeMethod(this, "runTask", Qt::QueuedConnection);
}

void Session::runTask() {
  ownTasks.take()();
}

void Session::addProgress(int percent, const QString& text) {
  if (!current()) return;
  allRuns.back().progress.append({percent, text});
  emit progressed(allRuns.back());
}

void Session::addMessage(const QString& key) {
  if (!current()) return;
  allRuns.back().messages.append(key);
  emit messageAdded(allRuns.back());
}

void Session::addPicture(const QString& name, const QByteArray& png) {
  if (current()) allRuns.back().pictures.append({name, png, {}});
}

void Session::ask(InputRequest& request, TestExecutionContext& testContext) {
  Run& run = allRuns.back();
  const std::uint32_t kind = request.widget ? InputRequest::kDialog : request.secondCode;
  run.requests.append({kind, QString::fromStdString(request.firstText), QString::fromStdString(request.secondText), 0});
  emit requested(run);
  request.answer = 0;
  user->ask(request, testContext, run);
  run.requests.back().answer = request.answer;
}

void Session::next() {
  if (busy) return;
  if (std::exchange(scanWanted, false)) return startScan();
  if (jobs.empty()) {
    emit stateChanged();
    return emit idle();
  }
  const Job job = std::move(jobs.front());
  jobs.pop_front();
  startRun(job);
}

template <class Work, class Done>
void Session::onModuleThread(Work work, Done done) {
  busy = true;
  emit stateChanged();
  moduleTasks.put([this, work, done] {
    post([this, done, result = work()] {
      busy = false;
      done(result);
      next();
    });
  });
}

void Session::startScan() {
  onModuleThread([this] { return runner.scan(); },
                 [this](const ModuleRunner::Scan& scan) {
                   knownCameras = scan.cameras;
                   lastScanFault = scan.fault;
                   emit camerasChanged();
                 });
}

void Session::startRun(const Job& job) {
  Run& run = allRuns.emplace_back();
  run.number = static_cast<int>(allRuns.size());
  run.start = QDateTime::currentDateTime();
  run.versions = knownVersions;
  // The camera may have another number by now.
  const auto known = std::ranges::find_if(
      knownCameras, [&](const Camera& camera) { return camera.identity() == job.camera.identity(); });
  run.camera = known == knownCameras.end() ? job.camera : *known;
  run.test = job.test;
  run.settings = moduleSettings(runSettings);
  run.operatorName = runSettings.operatorName;
  run.serialNumber = runSettings.serialNumber;
  cancelledBy.reset();
  context = std::make_unique<ExecutionContext>(*this, interference, user != nullptr);
  emit runStarted(run);
  onModuleThread(
      [this, job, settings = sectionOf(run.settings)] { return runner.run(job.camera, job.test, settings, *context); },
      [this](const ModuleRunner::Outcome& outcome) { finishRun(outcome); });
}

void Session::finishRun(const ModuleRunner::Outcome& outcome) {
  Run& run = allRuns.back();
  run.end = QDateTime::currentDateTime();
  run.remark = outcome.remark;
  run.ending = endingOf(outcome);
  run.result = outcome.result;
  context.reset();
  savePictures(run);
  emit runFinished(run);
}

void Session::savePictures(Run& run) {
  if (pictureFolder.isEmpty()) return;
  try {
    for (Run::Picture& picture : run.pictures) {
      const QString stem = fileStem(run) + QLatin1Char('_') + picture.name;
      picture.file = writeNewFile(QDir(pictureFolder), stem, QStringLiteral("png"), picture.png);
    }
  } catch (const HostError& error) {
    emit reportFailed(error.sentence());
  }
}

Ending Session::endingOf(const ModuleRunner::Outcome& outcome) const {
  if (outcome.isFault) return Ending::kFault;
  if (!outcome.remark.isEmpty()) return Ending::kHost;
  if (outcome.result != kTestCancelled) return Ending::kItself;
  if (cancelledBy) return *cancelledBy;
  if (context->isTimeOver()) return Ending::kHost;
  if (allRuns.back().messages.contains(QLatin1String(camera_keys::kTestAbortedByEvent))) return Ending::kEvent;
  // A test that cancels itself says why.
  return allRuns.back().messages.empty() ? Ending::kUser : Ending::kItself;
}
