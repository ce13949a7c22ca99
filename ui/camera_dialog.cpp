#include "ui/camera_dialog.h"

#include "ui/dialog_text.h"
#include "ui/ui_camera_dialog.h"
#include "utils/platform/narrator.h"

CameraDialog::CameraDialog(QWidget* parent, QObject* eventFilter)
    : PictureDialog(parent, eventFilter, HiddenWidgets::kKeep), ui(std::make_unique<Ui::CameraDialog>()) {
  imageWidth = 640;
  imageHeight = 480;
  setWindowTitle(dialogText(dialog_keys::kApplicationName));
  ui->setupUi(this);
  useParts(ui->camera_capture_test_widget_header, ui->camera_capture_test_header_close,
           ui->camera_capture_test_lb_image_view);
  setWindowModality(Qt::ApplicationModal);
  setWindowFlags(Qt::Dialog | Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint);

  connect(ui->camera_capture_test_header_close, SIGNAL(clicked()), this, SLOT(Close()));
  // Whatever finishes the dialog, the test finds it closed.
  connect(this, SIGNAL(finished(int)), this, SLOT(Close()));

  ui->camera_capture_test_header_label->setText(dialogText(dialog_keys::kCameraDialogTitle));
  ui->camera_capture_test_header_close->setCursor(Qt::PointingHandCursor);
  if (vexa::utils::platform::IsNarratorRunning()) {
    prepareForScreenReader({ui->camera_capture_test_header_label, ui->camera_capture_test_lb_image_view});
  }
  setResult(kNoAnswer);
}

CameraDialog::~CameraDialog() = default;

void CameraDialog::SetImageSize(int width, int height) {
  imageWidth = width;
  imageHeight = height;
  ui->camera_capture_test_lb_image_view->setMaximumSize(width, height);
}

bool CameraDialog::LoadFrame(QImage image) {
  showPicture(stretched(image));
  return true;
}

void CameraDialog::Close() {
  storeResult(kDialogClosed);
  emit closing();
  close();
}

void CameraDialog::onEscape() {
  Close();
}
