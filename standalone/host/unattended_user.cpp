#include "standalone/host/unattended_user.h"

#include <QDialog>
#include <QPushButton>
#include <QTimer>

#include <chrono>

#include "standalone/host/message_dialog.h"
#include "standalone/host/pictures.h"
#include "ui/input_request.h"

using namespace std::chrono_literals;

namespace {

// Long enough for a window to be painted, and for a camera's picture to come.
constexpr auto kMessageDelay = 400ms;
constexpr auto kDialogDelay = 1000ms;

constexpr const char* kFailButton = "camera_barcode_test_button_fail";
constexpr const char* kHeaderCloseButtons[] = {"camera_capture_test_header_close", "camera_barcode_test_header_close"};

void clickAnswer(MessageDialog& dialog, std::uint32_t answer) {
  if (QPushButton* button = dialog.buttonFor(answer)) {
    button->click();
  }
}

void clickNamed(const QDialog& dialog, const char* name) {
  if (auto* button = dialog.findChild<QPushButton*>(QLatin1String(name))) {
    button->click();
  }
}

}  // namespace

void UnattendedUser::attendMessage(MessageDialog& dialog, const QString& name) const {
  QTimer::singleShot(kMessageDelay, &dialog, [this, &dialog, name] {
    pictures.save(name);
    if (mode != AnswerMode::kAsk) {
      clickAnswer(dialog, InputRequest::kConfirmed);
    }
  });
}

void UnattendedUser::attendQuestion(MessageDialog& dialog, const QString& name) const {
  QTimer::singleShot(kMessageDelay, &dialog, [this, &dialog, name] {
    pictures.save(name);
    switch (mode) {
      case AnswerMode::kAsk:
        return;
      case AnswerMode::kPass:
        return clickAnswer(dialog, InputRequest::kYes);
      case AnswerMode::kFail:
        return clickAnswer(dialog, InputRequest::kNo);
      case AnswerMode::kClose:
        dialog.close();
        return;
    }
  });
}

void UnattendedUser::attendDialog(QDialog& dialog, const QString& name) const {
  QTimer::singleShot(kDialogDelay, &dialog, [this, &dialog, name] {
    pictures.save(name);
    if (mode == AnswerMode::kFail) {
      clickNamed(dialog, kFailButton);
    } else if (mode == AnswerMode::kClose) {
      for (const char* button : kHeaderCloseButtons) {
        clickNamed(dialog, button);
      }
    }
  });
}
