#pragma once

#include <QList>
#include <QObject>

#include <deque>
#include <memory>
#include <optional>
#include <thread>

#include "standalone/host/session/execution_context.h"
#include "standalone/host/session/module_runner.h"
#include "standalone/host/session/run.h"
#include "standalone/host/session/task_queue.h"

class InputRequest;
class ModuleInterface;
class TestUser;

/// One test to run on one camera.
struct Job {
  Camera camera;
  TestDescription test;
};

/// What the user sets for the runs to come.
struct RunSettings {
  /// How long the capture test shows its picture, in seconds; the module's own time where there is none.
  std::optional<std::uint32_t> timeout;
  QString operatorName;
  QString serialNumber;
};

/// The host's model: the cameras, the jobs and the runs of one module. Everything else only looks at it and asks it to
/// act. Lives on the user-interface thread; scans and runs have a thread of the session's own. Whatever the
/// module throws makes that run an error, or that scan a fault, with a sentence that says so.
class Session : public QObject {
  Q_OBJECT

 public:
  /// `user` answers the tests and outlives the session; without one there is no user interface. The module is let go
  /// when nothing of it runs any more. Throws ModuleFault when the module cannot tell its tests.
  Session(std::shared_ptr<ModuleInterface> module, const Versions& versions, const Interference& interference,
          TestUser* user);
  /// Cancels what runs and waits for its end; events are processed meanwhile.
  ~Session() override;

  const ModuleRunner::Catalogue& catalogue() const { return moduleCatalogue; }
  const Versions& versions() const { return knownVersions; }
  const QList<Camera>& cameras() const { return knownCameras; }
  /// Why the last scan found nothing; empty where it did not fail.
  const QString& scanFault() const { return lastScanFault; }
  /// In the order of their numbers; the one that runs is the last. They stay where they are.
  const std::deque<Run>& runs() const { return allRuns; }
  /// The one that runs, or null.
  const Run* current() const;
  /// Whether anything runs or waits, a scan included.
  bool isBusy() const { return busy || !jobs.empty() || scanWanted; }
  bool isScanning() const { return busy && !context; }
  bool isCancelling() const { return context && context->isCancelled(); }
  int waitingJobs() const { return static_cast<int>(jobs.size()); }

  /// Every test on every camera.
  QList<Job> allJobs() const;
  /// The last run's.
  QList<Job> lastJob() const;
  /// Those whose last run did not pass, in the order in which they first ran.
  QList<Job> jobsNotPassed() const;

  /// Where the pictures of the runs to come are saved; nowhere while it is empty.
  void setPictureFolder(const QString& folder) { pictureFolder = folder; }
  void setSettings(const RunSettings& settings) { runSettings = settings; }
  const RunSettings& settings() const { return runSettings; }

  /// Looks for cameras, after the run that is going on.
  void rescan();
  void start(const QList<Job>& wanted);
  /// Cancels what runs and drops what waits.
  void cancel(Ending by = Ending::kUser);
  /// Processes events until nothing runs or waits.
  void waitUntilIdle();

  /// Has a task done on the session's thread. Any thread.
  void post(TaskQueue::Task task);

  // What a run tells while it lasts; nothing when none does.
  void addProgress(int percent, const QString& text);
  void addMessage(const QString& key);
  void addPicture(const QString& name, const QByteArray& png);
  void ask(InputRequest& request, TestExecutionContext& context);

 signals:
  void camerasChanged();
  void runStarted(const Run& run);
  void progressed(const Run& run);
  void messageAdded(const Run& run);
  /// The last one of the run's requests is about to be shown.
  void requested(const Run& run);
  /// Every change of a run is over: those who write it down do so now.
  void runFinished(const Run& run);
  /// Something that was to be kept of a run could not be written: a sentence.
  void reportFailed(const QString& sentence);
  /// What runs or waits has changed.
  void stateChanged();
  /// Nothing runs or waits any more.
  void idle();

 private slots:
  // By its name, as the arguments of such a call are Qt's own.
  void runTask();

 private:
  void next();
  void startScan();
  void startRun(const Job& job);
  void finishRun(const ModuleRunner::Outcome& outcome);
  void savePictures(Run& run);
  Ending endingOf(const ModuleRunner::Outcome& outcome) const;
  /// Calls `work` on the module's thread, and then `done` with its result on this one.
  template <class Work, class Done>
  void onModuleThread(Work work, Done done);

  ModuleRunner runner;
  ModuleRunner::Catalogue moduleCatalogue;
  Versions knownVersions;
  Interference interference;
  TestUser* user;
  RunSettings runSettings;
  QString pictureFolder;

  TaskQueue ownTasks;
  TaskQueue moduleTasks;
  std::thread moduleThread;

  QList<Camera> knownCameras;
  QString lastScanFault;
  std::deque<Run> allRuns;
  std::deque<Job> jobs;
  std::unique_ptr<ExecutionContext> context;
  std::optional<Ending> cancelledBy;
  bool busy = false;
  bool scanWanted = false;
};
