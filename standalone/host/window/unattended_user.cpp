#include "standalone/host/window/unattended_user.h"

#include <QDialog>
#include <QPushButton>

#include "standalone/host/window/message_dialog.h"
#include "ui/input_request.h"

namespace {

constexpr const char* kFailButton = "camera_barcode_test_button_fail";
constexpr const char* kHeaderCloseButtons[] = {"camera_capture_test_header_close", "camera_barcode_test_header_close"};

void clickNamed(const QDialog& dialog, const char* name) {
  if (auto* button = dialog.findChild<QPushButton*>(QLatin1String(name))) button->click();
}

}  // namespace

void workMessage(MessageDialog& dialog, bool isQuestion, AnswerMode mode) {
  if (mode == AnswerMode::kAsk) return;
  if (!isQuestion) return dialog.buttonFor(InputRequest::kConfirmed)->click();
  if (mode == AnswerMode::kClose) {
    dialog.close();
    return;
  }
  dialog.buttonFor(mode == AnswerMode::kPass ? InputRequest::kYes : InputRequest::kNo)->click();
}

void workDialog(QDialog& dialog, AnswerMode mode) {
  if (mode == AnswerMode::kFail) return clickNamed(dialog, kFailButton);
  if (mode != AnswerMode::kClose) return;
  for (const char* button : kHeaderCloseButtons) clickNamed(dialog, button);
}
