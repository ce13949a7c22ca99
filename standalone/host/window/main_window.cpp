#include "standalone/host/window/main_window.h"

#include <QAction>
#include <QApplication>
#include <QCloseEvent>
#include <QFileDialog>
#include <QGridLayout>
#include <QHeaderView>
#include <QLabel>
#include <QListWidget>
#include <QLocale>
#include <QMenuBar>
#include <QMessageBox>
#include <QPushButton>
#include <QScrollArea>
#include <QSettings>
#include <QSplitter>
#include <QStatusBar>
#include <QTreeWidget>
#include <QVBoxLayout>

#include <algorithm>

#include "standalone/host/host_error.h"
#include "standalone/host/key_texts.h"
#include "standalone/host/reports/report_files.h"
#include "standalone/host/run_texts.h"
#include "standalone/host/window/camera_view.h"
#include "standalone/host/window/host_list.h"
#include "standalone/host/window/remembered.h"
#include "standalone/host/window/run_dialog.h"
#include "standalone/host/window/run_view.h"
#include "standalone/host/window/settings_dialog.h"
#include "standalone/host/window/window_look.h"

namespace {

constexpr QSize kSize(960, 760);
constexpr QSize kLeastSize(480, 360);
constexpr int kCameraIconSize = 32;
constexpr int kButtonColumns = 2;
constexpr int kIdentityRole = Qt::UserRole;
constexpr int kResultColumn = 4;

// One that a selection does not colour: it is seen on every background.
QIcon cameraIcon() {
  const QPixmap pixmap = QIcon(QStringLiteral(":/module_host/icons/camera.svg")).pixmap(kCameraIconSize);
  QIcon icon(pixmap);
  icon.addPixmap(pixmap, QIcon::Selected);
  return icon;
}

QLabel* sectionLabel(const QString& text) {
  auto* label = new QLabel(text);
  label->setObjectName("host_section");
  label->setTextFormat(Qt::PlainText);
  return label;
}

// What the session's runs say about a camera, in a few words: "Passed: 1 of 2 tests".
QString stateText(const Session& session, const Camera& camera) {
  const auto& runs = session.runs();
  const auto isOfCamera = [&](const Run& run) { return run.camera.identity() == camera.identity(); };
  if (std::ranges::none_of(runs, isOfCamera)) return MainWindow::tr("Not tested yet");
  if (session.current() && isOfCamera(*session.current())) return MainWindow::tr("A test is running");
  // Of each test the last run counts; one that did not pass says more than those that did.
  int passed = 0;
  for (const TestDescription& test : session.catalogue().tests) {
    const auto last = std::find_if(runs.rbegin(), runs.rend(),
                                   [&](const Run& run) { return isOfCamera(run) && run.test.id.key == test.id.key; });
    if (last == runs.rend()) continue;
    if (last->result != kTestPassed) return QStringLiteral("%1: %2").arg(keyText(test.name), verdictText(*last));
    ++passed;
  }
  return MainWindow::tr("Passed: %1 of %2 tests").arg(passed).arg(session.catalogue().tests.size());
}

}  // namespace

MainWindow::MainWindow(Session& shownSession, Use windowUse) : session(shownSession), use(windowUse) {
  setObjectName("host_main_window");
  setWindowTitle(keyText(QStringLiteral("APPLICATION_NAME")));
  setWindowIcon(cameraIcon());
  setMinimumSize(kLeastSize);
  makeActions();
  auto* split = new QSplitter;
  split->setChildrenCollapsible(false);
  split->addWidget(makeCameraSide());
  split->addWidget(makeTestSide());
  split->setStretchFactor(1, 1);
  setCentralWidget(split);
  state = new QLabel;
  state->setTextFormat(Qt::PlainText);
  statusBar()->addWidget(state, 1);
  resize(kSize);
  if (use == Use::kInteractive) restoreGeometry(QSettings().value(QLatin1String(remembered::kGeometry)).toByteArray());
  observeSession();
  showCameras();
  for (const Run& run : session.runs()) addToHistory(run);
  showRun();
  new WindowLook(*this);
}

void MainWindow::makeActions() {
  QMenu* tests = menuBar()->addMenu(tr("&Tests"));
  const auto add = [&](const QString& text, const QKeySequence& keys, void (MainWindow::*act)()) {
    QAction* action = tests->addAction(text, this, act);
    action->setShortcut(keys);
    return action;
  };
  runOnCameraAction = add(tr("Run on this &camera"), Qt::CTRL | Qt::Key_R, &MainWindow::runOnCamera);
  runAllAction = add(tr("Run &all"), Qt::CTRL | Qt::SHIFT | Qt::Key_R, &MainWindow::runAll);
  againAction = add(tr("Last test a&gain"), Qt::CTRL | Qt::Key_G, &MainWindow::runAgain);
  notPassedAction = add(tr("Those that &did not pass"), Qt::CTRL | Qt::Key_N, &MainWindow::runNotPassed);
  cancelAction = add(tr("Ca&ncel"), Qt::CTRL | Qt::Key_E, &MainWindow::cancel);
  tests->addSeparator();
  openRunAction = add(tr("&Open the selected run"), Qt::CTRL | Qt::Key_O, &MainWindow::openRun);
  tests->addSeparator();
  rescanAction = add(tr("&Look for cameras"), Qt::Key_F5, &MainWindow::rescan);
  QMenu* program = menuBar()->addMenu(tr("&Program"));
  program->addAction(tr("&Settings…"), this, &MainWindow::openSettings);
  program->addAction(tr("&Close"), this, &QWidget::close);
}

QWidget* MainWindow::makeCameraSide() {
  auto* side = new QWidget;
  auto* layout = new QVBoxLayout(side);
  layout->addWidget(sectionLabel(tr("Cameras")));
  cameras = new HostList<QListWidget>;
  cameras->setObjectName("host_cameras");
  cameras->setAccessibleName(tr("Cameras"));
  cameras->setIconSize({kCameraIconSize, kCameraIconSize});
  cameras->setWordWrap(true);
  cameras->setTextElideMode(Qt::ElideNone);
  layout->addWidget(cameras, 1);
  layout->addWidget(buttonFor(*rescanAction));
  connect(cameras, &QListWidget::currentRowChanged, this, &MainWindow::showCamera);
  return side;
}

QWidget* MainWindow::makeTestSide() {
  auto* side = new QWidget;
  side->setObjectName("host_test_content");
  auto* layout = new QVBoxLayout(side);
  noCamera = new QLabel;
  noCamera->setObjectName("host_no_camera");
  noCamera->setTextFormat(Qt::PlainText);
  noCamera->setWordWrap(true);
  layout->addWidget(noCamera);
  cameraView = new CameraView(session.catalogue().tests);
  connect(cameraView, &CameraView::runWanted, this, [this](const TestDescription& test) {
    if (const Camera* camera = selectedCamera()) session.start({{*camera, test}});
  });
  layout->addWidget(cameraView);
  auto* buttons = new QGridLayout;
  int place = 0;
  for (QAction* action : {runOnCameraAction, runAllAction, againAction, cancelAction}) {
    buttons->addWidget(buttonFor(*action), place / kButtonColumns, place % kButtonColumns);
    ++place;
  }
  layout->addLayout(buttons);
  runView = new RunView;
  layout->addWidget(runView, 2);
  layout->addWidget(sectionLabel(tr("History")));
  history = new HostList<QTreeWidget>;
  history->setObjectName("host_history");
  history->setAccessibleName(tr("History"));
  history->setRootIsDecorated(false);
  history->setHeaderLabels({tr("No."), tr("Time"), tr("Camera"), tr("Test"), tr("Result")});
  history->header()->setSectionResizeMode(QHeaderView::ResizeToContents);
  connect(history, &QTreeWidget::itemActivated, this, &MainWindow::openRun);
  connect(history, &QTreeWidget::currentItemChanged, this, &MainWindow::showState);
  layout->addWidget(history, 1);
  auto* scroll = new QScrollArea;
  scroll->setObjectName("host_test_side");
  scroll->setWidgetResizable(true);
  scroll->setFrameShape(QFrame::NoFrame);
  // What is in it takes the focus, and scrolls it.
  scroll->setFocusPolicy(Qt::NoFocus);
  scroll->setWidget(side);
  return scroll;
}

QPushButton* MainWindow::buttonFor(QAction& action) {
  auto* button = new QPushButton(action.text());
  connect(button, &QPushButton::clicked, &action, &QAction::trigger);
  connect(&action, &QAction::changed, button, [button, &action] { button->setEnabled(action.isEnabled()); });
  return button;
}

void MainWindow::observeSession() {
  connect(&session, &Session::camerasChanged, this, &MainWindow::showCameras);
  connect(&session, &Session::runStarted, this, [this](const Run& run) {
    selectCamera(run.camera.identity());
    showCameras();
    addToHistory(run);
    showRun();
  });
  for (const auto signal : {&Session::progressed, &Session::messageAdded, &Session::requested})
    connect(&session, signal, this, &MainWindow::showRun);
  connect(&session, &Session::runFinished, this, [this](const Run& run) {
    showCameras();
    fillLine(*history->topLevelItem(0), run);
    showRun();
  });
  connect(&session, &Session::stateChanged, this, &MainWindow::showState);
  connect(&session, &Session::idle, this, [this] {
    if (isClosing && !faultBox) close();
  });
}

void MainWindow::showCameras() {
  const Camera* selected = selectedCamera();
  const QString identity = selected ? selected->identity() : QString();
  const QIcon icon = cameraIcon();
  const QSignalBlocker quiet(cameras);
  cameras->clear();
  for (const Camera& camera : session.cameras()) {
    auto* item = new QListWidgetItem(icon, camera.name + QLatin1Char('\n') + stateText(session, camera), cameras);
    item->setData(kIdentityRole, camera.identity());
  }
  selectCamera(identity);
  showCamera();
}

void MainWindow::showCamera() {
  const Camera* camera = selectedCamera();
  noCamera->setVisible(!camera);
  cameraView->setVisible(camera);
  if (camera) cameraView->showCamera(*camera);
  showState();
}

void MainWindow::showRun() {
  runView->setVisible(!session.runs().empty());
  if (!session.runs().empty()) runView->showRun(session.runs().back());
  showState();
}

// The newest comes first.
void MainWindow::addToHistory(const Run& run) {
  auto* item =
      new QTreeWidgetItem({QString::number(run.number), QLocale().toString(run.start.time(), QLocale::ShortFormat),
                           run.camera.name, keyText(run.test.name)});
  fillLine(*item, run);
  history->insertTopLevelItem(0, item);
}

void MainWindow::fillLine(QTreeWidgetItem& line, const Run& run) {
  line.setText(kResultColumn, run.result ? verdictText(run) : tr("Running"));
  line.setIcon(kResultColumn, stateIcon(run));
}

void MainWindow::showState() {
  noCamera->setText(session.isScanning()             ? tr("Looking for cameras…")
                    : !session.scanFault().isEmpty() ? session.scanFault()
                                                     : tr("No camera was found. Connect one: it is found by itself."));
  const bool canRun = use == Use::kInteractive && !session.isBusy();
  const bool canRunAny = canRun && !session.cameras().isEmpty();
  runOnCameraAction->setEnabled(canRun && selectedCamera());
  runAllAction->setEnabled(canRunAny);
  againAction->setEnabled(canRunAny && !session.runs().empty());
  notPassedAction->setEnabled(canRunAny && !session.jobsNotPassed().isEmpty());
  cancelAction->setEnabled((session.current() || session.waitingJobs() > 0) && !session.isCancelling());
  openRunAction->setEnabled(history->currentItem());
  rescanAction->setEnabled(canRun);
  cameraView->setCanRun(canRun && selectedCamera());
  if (isClosing && session.current()) {
    state->setText(tr("The test is being cancelled; the window closes when it has ended."));
  } else if (session.isCancelling()) {
    state->setText(tr("The test is being cancelled…"));
  } else if (session.waitingJobs() > 0) {
    state->setText(tr("%n more test(s) to run", nullptr, session.waitingJobs()));
  } else {
    state->setText(session.isScanning() ? tr("Looking for cameras…") : QString());
  }
}

const Camera* MainWindow::selectedCamera() const {
  const QListWidgetItem* item = cameras->currentItem();
  if (!item) return nullptr;
  const QString identity = item->data(kIdentityRole).toString();
  const auto found =
      std::ranges::find_if(session.cameras(), [&](const Camera& camera) { return camera.identity() == identity; });
  return found == session.cameras().end() ? nullptr : &*found;
}

// The first one where that camera is gone.
void MainWindow::selectCamera(const QString& identity) {
  int row = 0;
  for (int i = 0; i < cameras->count(); ++i)
    if (cameras->item(i)->data(kIdentityRole) == identity) row = i;
  cameras->setCurrentRow(row);
}

void MainWindow::runOnCamera() {
  QList<Job> jobs;
  for (const TestDescription& test : session.catalogue().tests) jobs.append({*selectedCamera(), test});
  session.start(jobs);
}

void MainWindow::runAll() {
  session.start(session.allJobs());
}

void MainWindow::runAgain() {
  session.start(session.lastJob());
}

void MainWindow::runNotPassed() {
  session.start(session.jobsNotPassed());
}

void MainWindow::cancel() {
  session.cancel();
}

void MainWindow::rescan() {
  session.rescan();
}

void MainWindow::openRun() {
  if (!history->currentItem()) return;
  const auto index = static_cast<std::size_t>(history->currentItem()->text(0).toInt() - 1);
  const Run& run = session.runs()[index];
  if (!run.result) return;
  RunDialog dialog(run, this);
  connect(&dialog, &RunDialog::saveWanted, &dialog, [&] { saveReport(run, dialog); });
  dialog.exec();
}

void MainWindow::saveReport(const Run& run, RunDialog& dialog) {
  const QString folder =
      QFileDialog::getExistingDirectory(&dialog, tr("Where to save the report"), rememberedReportFolder());
  if (folder.isEmpty()) return;
  try {
    const QString page = saveRun(run, folder);
    statusBar()->showMessage(tr("Saved as %1").arg(QDir::toNativeSeparators(page)));
    dialog.showSaved(QDir::toNativeSeparators(page));
  } catch (const HostError& error) {
    showFault(error.sentence());
  }
}

void MainWindow::openSettings() {
  SettingsDialog dialog(session.settings(), this);
  if (dialog.exec() != QDialog::Accepted) return;
  session.setSettings(dialog.settings());
  emit reportFolderChanged(rememberedReportFolder());
}

void MainWindow::showFault(const QString& sentence) {
  if (faultBox) return faultBox->setText(faultBox->text() + QLatin1Char('\n') + sentence);
  faultBox =
      new QMessageBox(QMessageBox::Warning, windowTitle(), sentence, QMessageBox::Ok, QApplication::activeWindow());
  faultBox->setTextFormat(Qt::PlainText);
  faultBox->setAttribute(Qt::WA_DeleteOnClose);
  connect(faultBox, &QObject::destroyed, this, [this] {
    if (isClosing && !session.isBusy()) close();
  });
  new WindowLook(*faultBox);
  faultBox->show();
}

void MainWindow::closeEvent(QCloseEvent* event) {
  if (session.isBusy()) {
    isClosing = true;
    session.cancel();
    return event->ignore();
  }
  if (use == Use::kInteractive) QSettings().setValue(QLatin1String(remembered::kGeometry), saveGeometry());
  event->accept();
  emit closed();
}
