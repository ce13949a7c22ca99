#include "standalone/host/window/message_dialog.h"

#include <QIcon>
#include <QKeyEvent>
#include <QPushButton>

#include <utility>

#include "standalone/host/window/window_look.h"
#include "ui/input_request.h"

namespace {

// Their blue is seen on white and on the backgrounds of all contrast themes.
constexpr const char* kQuestionIcon = ":/host_style/images/question.svg";
constexpr const char* kMessageIcon = ":/host_style/images/info.svg";
constexpr int kIconSize = 32;

constexpr std::pair<QMessageBox::StandardButton, std::uint32_t> kAnswers[] = {
    {QMessageBox::Yes, InputRequest::kYes},
    {QMessageBox::No, InputRequest::kNo},
    {QMessageBox::Ok, InputRequest::kConfirmed},
    {QMessageBox::Cancel, MessageDialog::kUnanswered},
};

}  // namespace

MessageDialog::MessageDialog(Kind kind, const QString& title, const QString& text, const QString& camera) {
  const bool isQuestion = kind == Kind::kQuestion;
  setWindowFlag(Qt::WindowStaysOnTopHint);
  setWindowTitle(title);
  setIconPixmap(QIcon(QLatin1String(isQuestion ? kQuestionIcon : kMessageIcon)).pixmap(kIconSize));
  setTextFormat(Qt::PlainText);
  setText(camera + QStringLiteral("\n\n") + text);
  // Closing the window and Escape are Cancel: without that button they would be No.
  setStandardButtons((isQuestion ? Yes | No : StandardButtons(Ok)) | Cancel);
  // Qt's own words for them come in no translation of ours.
  const std::pair<StandardButton, QString> texts[] = {
      {Yes, tr("&Yes")}, {No, tr("&No")}, {Ok, tr("OK")}, {Cancel, tr("&Cancel the test")}};
  for (const auto& [given, words] : texts)
    if (button(given)) button(given)->setText(words);
  if (isQuestion) leaveWithoutDefault();
  new WindowLook(*this);
}

std::uint32_t MessageDialog::answer() const {
  for (const auto& [given, value] : kAnswers) {
    if (clickedButton() && clickedButton() == button(given)) return value;
  }
  return kUnanswered;
}

QPushButton* MessageDialog::buttonFor(std::uint32_t answer) const {
  for (const auto& [given, value] : kAnswers) {
    if (value == answer) return qobject_cast<QPushButton*>(button(given));
  }
  return nullptr;
}

// Without a default button Qt gives Enter to none, also where the user has moved the focus to one.
void MessageDialog::keyPressEvent(QKeyEvent* event) {
  const bool isEnter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
  if (auto* focused = qobject_cast<QPushButton*>(focusWidget()); isEnter && focused) return focused->click();
  QMessageBox::keyPressEvent(event);
}

void MessageDialog::leaveWithoutDefault() {
  for (QPushButton* button : findChildren<QPushButton*>()) button->setAutoDefault(false);
  // Space and Enter press the button that has the focus. A text would have it unseen where no style sheet shows it.
  setFocus();
}
