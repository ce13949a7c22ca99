#include "ui/camera_barcode_widget_wrapper.h"

#include "ui/camera_barcode_dialog.h"
#include "ui/parked_thread.h"

CameraBarcodeWidgetWrapper::CameraBarcodeWidgetWrapper(QSize size, TestExecutionContext* executionContext)
    : AbstractWidgetWrapper(executionContext), frameSize(size) {}

CameraBarcodeWidgetWrapper::~CameraBarcodeWidgetWrapper() = default;

bool CameraBarcodeWidgetWrapper::CreateWidget(QWidget* parent, QObject* eventFilter) {
  auto* const created = new CameraBarcodeDialog(parent, eventFilter);
  dialog.adopt(created, *this);

  result = kNoAnswer;
  created->setResult(kNoAnswer);
  created->setAttribute(Qt::WA_DeleteOnClose);

  connect(this, SIGNAL(UpdateFrame(QImage)), created, SLOT(LoadFrame(QImage)));
  connect(this, SIGNAL(CloseDialog()), created, SLOT(close()));
  created->resultTarget = &result;

  QImage black(frameSize, QImage::Format_RGB32);
  black.fill(Qt::black);
  SendFrame(black);
  bringToFront(*created);
  return true;
}

void CameraBarcodeWidgetWrapper::SendFrame(const QImage& image) {
  if (dialog.isOpen()) emit UpdateFrame(image);
}

void CameraBarcodeWidgetWrapper::Close() {
  if (dialog.isOpen()) emit CloseDialog();
}

int CameraBarcodeWidgetWrapper::GetResult() const {
  const int answer = result.load(std::memory_order_relaxed);
  return answer == kDialogClosed || answer == kFailedByUser ? answer : kNoAnswer;
}

void CameraBarcodeWidgetWrapper::ShowRetry() {
  if (!dialog.exists()) return;
  // Before the dialog is locked: its own end waits for that lock on the thread to be parked.
  const ParkedUserInterfaceThread thread;
  dialog.with([&thread](CameraBarcodeDialog& open) {
    if (thread.isStill()) {
      open.ShowRetry();
    } else {
      // The user-interface thread is busy with something else: it follows when it can.
      QMetaObject::invokeMethod(&open, &CameraBarcodeDialog::ShowRetry, Qt::QueuedConnection);
    }
  });
}
