#include "ui/camera_widget_wrapper.h"

#include "ui/camera_dialog.h"
#include "utils/platform/display_scale_table.h"

CameraWidgetWrapper::CameraWidgetWrapper(QSize size, TestExecutionContext* executionContext)
    : AbstractWidgetWrapper(executionContext), frameSize(size) {}

CameraWidgetWrapper::~CameraWidgetWrapper() = default;

QSize CameraWidgetWrapper::displaySize() const {
  const double scale = vexa::utils::platform::DisplayScaleTable().ScaleFactor(0);
  return {static_cast<int>(frameSize.width() / scale), static_cast<int>(frameSize.height() / scale)};
}

bool CameraWidgetWrapper::CreateWidget(QWidget* parent, QObject* eventFilter) {
  auto* const created = new CameraDialog(parent, eventFilter);
  dialog.adopt(created, *this);

  const QSize size = displaySize();
  if (frameSize.width() != 0 && frameSize.height() != 0) {
    created->setMaximumSize(size);
    created->SetImageSize(size.width(), size.height());
  }
  created->context = context;
  result = kNoAnswer;
  created->setResult(kNoAnswer);
  created->setAttribute(Qt::WA_DeleteOnClose);

  connect(this, SIGNAL(UpdateFrame(QImage)), created, SLOT(LoadFrame(QImage)));
  connect(this, SIGNAL(CloseDialog()), created, SLOT(close()));
  created->resultTarget = &result;

  QImage black(displaySize(), QImage::Format_RGB32);
  black.fill(Qt::black);
  SendFrame(black);
  bringToFront(*created);
  return true;
}

void CameraWidgetWrapper::SendFrame(const QImage& image) {
  if (dialog.isOpen()) emit UpdateFrame(image);
}

void CameraWidgetWrapper::Close() {
  if (dialog.isOpen()) emit CloseDialog();
}

int CameraWidgetWrapper::GetResult() const {
  return result.load(std::memory_order_relaxed) == kDialogClosed ? kDialogClosed : kNoAnswer;
}
