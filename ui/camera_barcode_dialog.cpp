#include "ui/camera_barcode_dialog.h"

#include <QGuiApplication>
#include <QScreen>

#include "ui/barcode_sizes.h"
#include "ui/dialog_text.h"
#include "ui/ui_camera_barcode_dialog.h"
#include "ui/viewfinder.h"
#include "utils/platform/narrator.h"

using vexa::utils::platform::IsNarratorRunning;

CameraBarcodeDialog::CameraBarcodeDialog(QWidget* parent, QObject* eventFilter)
    : PictureDialog(parent, eventFilter, HiddenWidgets::kSkip), ui(std::make_unique<Ui::CameraBarcodeDialog>()) {
  ui->setupUi(this);
  useParts(ui->camera_barcode_test_widget_header, ui->camera_barcode_test_header_close,
           ui->camera_barcode_test_camera_image);
  setTexts();
  setWindowModality(Qt::ApplicationModal);
  // Unlike the capture test's dialog this one does not stay on top.
  setWindowFlags(Qt::Dialog | Qt::FramelessWindowHint);

  connect(ui->camera_barcode_test_header_close, SIGNAL(clicked()), this, SLOT(OnClosePushButtonClicked()));
  connect(ui->camera_barcode_test_button_fail, SIGNAL(clicked()), this, SLOT(OnFailButtonClicked()));
  connect(this, SIGNAL(finished(int)), this, SLOT(Close()));

  ui->camera_barcode_test_header_close->setCursor(Qt::PointingHandCursor);
  ui->camera_barcode_test_button_fail->setCursor(Qt::PointingHandCursor);
  if (IsNarratorRunning()) {
    prepareForScreenReader({ui->camera_barcode_test_header_label, ui->camera_barcode_test_fail_text_label,
                            ui->camera_barcode_test_information_message, ui->camera_barcode_test_camera_image});
  } else {
    ui->camera_barcode_test_button_fail->setFocus(Qt::OtherFocusReason);
  }
  fitToScreen();

  ui->camera_barcode_test_step_one_current->show();
  ui->camera_barcode_test_step_two_waiting->show();
  ui->camera_barcode_test_step_one_warning->hide();
  ui->camera_barcode_test_step_two_current->hide();
  ui->camera_barcode_test_warning_container->hide();
  setResult(kNoAnswer);
}

CameraBarcodeDialog::~CameraBarcodeDialog() = default;

void CameraBarcodeDialog::setTexts() {
  setWindowTitle(dialogText(dialog_keys::kApplicationName));
  ui->camera_barcode_test_information_message->setText(dialogText(dialog_keys::kCameraPointBarcodeMessage));
  ui->camera_barcode_test_information_message->setAlignment(Qt::AlignCenter);
  ui->camera_barcode_test_warning_message_small->setText(dialogText(dialog_keys::kCameraBarcodeRetryMessage));
  ui->camera_barcode_test_warning_message->setText(dialogText(dialog_keys::kCameraBarcodeWarning));
  ui->camera_barcode_test_header_label->setText(dialogText(dialog_keys::kCameraBarcodeDialogTitle));
  ui->camera_barcode_test_button_fail->setText(dialogText(dialog_keys::kFail));
  ui->camera_barcode_test_fail_text_label->setText(dialogText(dialog_keys::kCameraFailLabel));
  // With a buddy the label would take a '&' in its text for a mnemonic and not show it.
  if (!ui->camera_barcode_test_fail_text_label->text().contains('&')) {
    ui->camera_barcode_test_fail_text_label->setBuddy(ui->camera_barcode_test_button_fail);
  }
}

void CameraBarcodeDialog::fitToScreen() {
  const QScreen* const screen = QGuiApplication::primaryScreen();
  const BarcodeSizes sizes = barcodeSizesFor(screen ? screen->geometry().width() : 0);
  imageWidth = sizes.imageWidth;
  imageHeight = sizes.imageHeight;
  grayAreaHeight = sizes.grayAreaHeight;
  ui->camera_barcode_test_gray_area_top->setMinimumHeight(grayAreaHeight);
  ui->camera_barcode_test_gray_area_bottom->setMinimumHeight(grayAreaHeight);
  // The dialog as a whole, not only its picture.
  setMaximumSize(imageWidth, imageHeight);
}

void CameraBarcodeDialog::ShowRetry() {
  ui->camera_barcode_test_step_one_current->hide();
  ui->camera_barcode_test_step_two_waiting->hide();
  ui->camera_barcode_test_step_one_warning->show();
  ui->camera_barcode_test_step_two_current->show();
  ui->camera_barcode_test_warning_container->show();
  if (!IsNarratorRunning()) return;
  ui->camera_barcode_test_warning_message->setFocusPolicy(Qt::StrongFocus);
  ui->camera_barcode_test_warning_message_small->setFocusPolicy(Qt::StrongFocus);
  focusWidgets = strongFocusWidgets(*this);
}

bool CameraBarcodeDialog::LoadFrame(QImage image) {
  image = stretched(image);
  drawViewfinder(image, hasSmallViewfinder(imageWidth));
  showPicture(image);
  return true;
}

void CameraBarcodeDialog::Close() {
  if (!failed) storeResult(kDialogClosed);
  emit closing();
  close();
}

void CameraBarcodeDialog::OnFailButtonClicked() {
  storeResult(kFailedByUser);
  failed = true;
  emit closing();
  close();
}

void CameraBarcodeDialog::OnClosePushButtonClicked() {
  // Closing counts even after the fail button.
  storeResult(kDialogClosed);
  if (!failed) storeResult(kDialogClosed);
  emit closing();
  close();
}

void CameraBarcodeDialog::onEscape() {
  OnClosePushButtonClicked();
}
