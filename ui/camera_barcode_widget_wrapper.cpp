#include "ui/camera_barcode_widget_wrapper.h"

#include <QCoreApplication>
#include <QThread>

#include <chrono>
#include <future>
#include <memory>

#include "ui/camera_barcode_dialog.h"

namespace {

/// Whoever runs on the user-interface thread may itself be waiting for the test.
constexpr std::chrono::milliseconds kLongestWait(500);

}  // namespace

CameraBarcodeWidgetWrapper::CameraBarcodeWidgetWrapper(QSize size, TestExecutionContext* executionContext)
    : DialogWrapper(size, executionContext) {}

bool CameraBarcodeWidgetWrapper::CreateWidget(QWidget* parent, QObject* eventFilter) {
  // Owns itself once it is shown.
  auto created = std::make_unique<CameraBarcodeDialog>(parent, eventFilter);
  adopt(*created);
  SendFrame(blackImage(frameSize));
  bringToFront(*created);
  static_cast<void>(created.release());
  return true;
}

void CameraBarcodeWidgetWrapper::SendFrame(const QImage& image) {
  if (isOpen()) emit UpdateFrame(image);
}

void CameraBarcodeWidgetWrapper::Close() {
  if (isOpen()) emit CloseDialog();
}

int CameraBarcodeWidgetWrapper::GetResult() const {
  const int answer = result;
  return answer == kDialogClosed || answer == kFailedByUser ? answer : kNoAnswer;
}

void CameraBarcodeWidgetWrapper::ShowRetry() {
  if (!dialog) return;
  const auto retry = [this, share = weak_from_this().lock()] {
    if (auto* const open = qobject_cast<CameraBarcodeDialog*>(dialog.load())) open->ShowRetry();
  };
  QCoreApplication* const application = QCoreApplication::instance();
  if (QThread::currentThread() == application->thread()) {
    retry();
    return;
  }
  const auto done = std::make_shared<std::promise<void>>();
  const auto retryThere = [retry, done] {
    retry();
    done->set_value();
  };
  QMetaObject::invokeMethod(application, retryThere, Qt::QueuedConnection);
  done->get_future().wait_for(kLongestWait);
}
