#include "ui/camera_dialog.h"

#include <QKeyEvent>
#include <QPixmap>

#include "ui/dialog_focus.h"
#include "ui/dialog_text.h"
#include "ui/ui_camera_dialog.h"
#include "utils/platform/narrator.h"

using vexa::utils::platform::IsNarratorRunning;

CameraDialog::CameraDialog(QWidget* parent, QObject* eventFilter)
    : InputDialog(parent, eventFilter), ui(std::make_unique<Ui::CameraDialog>()) {
  setWindowTitle(dialogText(dialog_keys::kApplicationName));
  ui->setupUi(this);
  setWindowModality(Qt::ApplicationModal);
  setWindowFlags(Qt::Dialog | Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint);

  connect(ui->camera_capture_test_header_close, SIGNAL(clicked()), this, SLOT(Close()));
  // Whatever finishes the dialog, the test finds it closed.
  connect(this, SIGNAL(finished(int)), this, SLOT(Close()));

  ui->camera_capture_test_header_label->setText(dialogText(dialog_keys::kCameraDialogTitle));
  ui->camera_capture_test_header_close->setCursor(Qt::PointingHandCursor);
  if (IsNarratorRunning()) prepareForScreenReader();
  setResult(kNoAnswer);
}

CameraDialog::~CameraDialog() {
  announceDestruction();
}

void CameraDialog::prepareForScreenReader() {
  ui->camera_capture_test_header_label->setFocusPolicy(Qt::StrongFocus);
  ui->camera_capture_test_lb_image_view->setFocusPolicy(Qt::StrongFocus);
  ui->camera_capture_test_header_label->setFocus(Qt::OtherFocusReason);
  ui->camera_capture_test_header_close->setAccessibleDescription(dialogText(dialog_keys::kClosePopUp));
  ui->camera_capture_test_lb_image_view->setAccessibleDescription(dialogText(dialog_keys::kCamera));
  focusWidgets = strongFocusWidgets(*this);
}

void CameraDialog::SetImageSize(int width, int height) {
  imageWidth = width;
  imageHeight = height;
  ui->camera_capture_test_lb_image_view->setMaximumSize(width, height);
}

bool CameraDialog::LoadFrame(QImage image) {
  if (!image.isNull()) {
    image = image.scaled(imageWidth, imageHeight, Qt::IgnoreAspectRatio, Qt::FastTransformation);
  }
  ui->camera_capture_test_lb_image_view->setPixmap(QPixmap::fromImage(image));
  return true;
}

void CameraDialog::Close() {
  storeResult(*this, resultTarget, kDialogClosed);
  emit closing();
  close();
}

void CameraDialog::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Escape) {
    Close();
    return;
  }
  // Without a screen reader the dialog reacts to Escape only: Enter must not press its button.
  if (!IsNarratorRunning() || focusWidgets.isEmpty()) return;
  stepFocus(focusWidgets, event->key(), HiddenWidgets::kKeep);
  QDialog::keyPressEvent(event);
}

void CameraDialog::mousePressEvent(QMouseEvent* event) {
  drag.press(*this, *ui->camera_capture_test_widget_header, *ui->camera_capture_test_header_close, *event);
}

void CameraDialog::mouseMoveEvent(QMouseEvent* event) {
  drag.move(*this, *event);
}

void CameraDialog::mouseReleaseEvent(QMouseEvent*) {
  drag.release(*this, *ui->camera_capture_test_widget_header);
}

void CameraDialog::resizeEvent(QResizeEvent*) {}
