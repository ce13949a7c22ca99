#include "ui/camera_widget_wrapper.h"

#include <memory>

#include "ui/camera_dialog.h"
#include "utils/platform/display_scale_table.h"

CameraWidgetWrapper::CameraWidgetWrapper(QSize size, TestExecutionContext* executionContext)
    : DialogWrapper(size, executionContext) {}

QSize CameraWidgetWrapper::displaySize() const {
  const double scale = vexa::utils::platform::DisplayScaleTable().ScaleFactor(0);
  return {static_cast<int>(frameSize.width() / scale), static_cast<int>(frameSize.height() / scale)};
}

bool CameraWidgetWrapper::CreateWidget(QWidget* parent, QObject* eventFilter) {
  // Owns itself once it is shown.
  auto created = std::make_unique<CameraDialog>(parent, eventFilter);
  const QSize size = displaySize();
  if (frameSize.width() != 0 && frameSize.height() != 0) {
    created->setMaximumSize(size);
    created->SetImageSize(size.width(), size.height());
  }
  created->context = context;
  adopt(*created);
  SendFrame(blackImage(displaySize()));
  bringToFront(*created);
  static_cast<void>(created.release());
  return true;
}

void CameraWidgetWrapper::SendFrame(const QImage& image) {
  if (isOpen()) emit UpdateFrame(image);
}

void CameraWidgetWrapper::Close() {
  if (isOpen()) emit CloseDialog();
}

int CameraWidgetWrapper::GetResult() const {
  return result == kDialogClosed ? kDialogClosed : kNoAnswer;
}
