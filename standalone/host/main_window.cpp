#include "standalone/host/main_window.h"

#include <QCloseEvent>
#include <QGridLayout>
#include <QLabel>
#include <QListWidget>
#include <QProgressBar>
#include <QStyle>
#include <QVBoxLayout>

#include "discovery/system_component.h"
#include "standalone/host/key_texts.h"
#include "standalone/host/window_look.h"

namespace {

constexpr QSize kSize(900, 720);

}  // namespace

MainWindow::MainWindow() {
  setObjectName("host_main_window");
  setWindowTitle(keyText("APPLICATION_NAME"));
  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(28, 20, 28, 24);
  layout->setSpacing(8);

  cameraName = addLabel(*layout, "host_camera_name");
  properties = new QGridLayout;
  properties->setHorizontalSpacing(18);
  properties->setColumnStretch(1, 1);
  layout->addLayout(properties);
  layout->addSpacing(14);
  testName = addLabel(*layout, "host_test_name");
  testDescription = addLabel(*layout, "host_test_description");
  progress = new QProgressBar;
  progress->setObjectName("host_progress");
  layout->addWidget(progress);
  addLabel(*layout, "host_section", tr("Messages"));
  messages = new QListWidget;
  messages->setObjectName("host_messages");
  messages->setAccessibleName(tr("Messages"));
  messages->setWordWrap(true);
  layout->addWidget(messages, 1);
  verdict = addLabel(*layout, "host_verdict");
  messages->setFocus();
  resize(kSize);
  new WindowLook(*this);
}

void MainWindow::showTest(const TestJob& job, const QString& description) {
  const ComponentDescription camera = job.camera->getDescription();
  cameraName->setText(QString::fromStdString(camera.name));
  while (QLayoutItem* item = properties->takeAt(0)) {
    delete item->widget();
    delete item;
  }
  int row = 0;
  for (const auto& [key, value] : camera.properties) {
    auto* name = new QLabel(keyText(key));
    name->setObjectName("host_property_name");
    auto* text = new QLabel(QString::fromStdString(value));
    text->setTextFormat(Qt::PlainText);
    text->setTextInteractionFlags(Qt::TextSelectableByMouse);
    properties->addWidget(name, row, 0);
    properties->addWidget(text, row, 1);
    ++row;
  }
  testName->setText(keyText(job.testKey));
  testDescription->setText(description);
  progress->setValue(0);
  messages->clear();
  setStatus(tr("The test is running"), "");
}

void MainWindow::showProgress(int percent, const QString& text) {
  progress->setValue(percent);
  progress->setFormat(text.isEmpty() ? QStringLiteral("%p %") : QStringLiteral("%p %  ") + text);
}

void MainWindow::showMessage(const QString& text) {
  messages->addItem(text);
  messages->scrollToBottom();
}

void MainWindow::showVerdict(const TestReport& report) {
  const char* kind = report.result == kTestPassed ? "passed" : report.result == kTestFailed ? "failed" : "other";
  setStatus(tr("Result: %1").arg(resultWord(report.result)), kind);
}

void MainWindow::closeEvent(QCloseEvent* event) {
  event->accept();
  emit closed();
}

QLabel* MainWindow::addLabel(QVBoxLayout& layout, const char* name, const QString& text) {
  auto* label = new QLabel(text);
  label->setObjectName(name);
  label->setTextFormat(Qt::PlainText);
  layout.addWidget(label);
  return label;
}

void MainWindow::setStatus(const QString& text, const char* kind) {
  verdict->setText(text);
  verdict->setProperty("verdict", QLatin1String(kind));
  // A style sheet looks at a property only when the widget is polished.
  verdict->style()->unpolish(verdict);
  verdict->style()->polish(verdict);
}
