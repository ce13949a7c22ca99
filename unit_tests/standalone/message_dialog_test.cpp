#include "standalone/host/message_dialog.h"

#include <QApplication>
#include <QKeyEvent>
#include <QPushButton>
#include <QtCore/qtestsupport_core.h>

#include <tuple>

#include <gtest/gtest.h>

#include "ui/input_request.h"

namespace {

using Kind = MessageDialog::Kind;

constexpr std::uint32_t kOpen = 99;
constexpr std::uint32_t kNoButton = 98;

// Opens the window, moves the focus to a button, and presses a key as the keyboard does.
TEST(MessageDialogTest, AnswersAKey) {
  for (const auto& [kind, focused, key, answer] :
       {std::tuple(Kind::kMessage, kNoButton, Qt::Key_Return, InputRequest::kConfirmed),
        {Kind::kMessage, kNoButton, Qt::Key_Escape, MessageDialog::kUnanswered},
        {Kind::kQuestion, kNoButton, Qt::Key_Return, kOpen},
        {Kind::kQuestion, kNoButton, Qt::Key_Space, kOpen},
        {Kind::kQuestion, kNoButton, Qt::Key_N, InputRequest::kNo},
        {Kind::kQuestion, kNoButton, Qt::Key_Escape, MessageDialog::kUnanswered},
        {Kind::kQuestion, InputRequest::kYes, Qt::Key_Enter, InputRequest::kYes},
        {Kind::kQuestion, InputRequest::kNo, Qt::Key_Space, InputRequest::kNo},
        {Kind::kQuestion, MessageDialog::kUnanswered, Qt::Key_Return, MessageDialog::kUnanswered}}) {
    MessageDialog dialog(kind, "Title", "<b>Text</b>");
    dialog.open();
    QApplication::setActiveWindow(&dialog);
    if (focused != kNoButton) dialog.buttonFor(focused)->setFocus();
    for (const QEvent::Type type : {QEvent::KeyPress, QEvent::KeyRelease}) {
      QKeyEvent event(type, key, Qt::NoModifier, key == Qt::Key_N ? "n" : "");
      QApplication::sendEvent(dialog.focusWidget(), &event);
    }
    if (key == Qt::Key_Escape || key == Qt::Key_N) QTest::qWait(200);  // the button is seen to go down
    EXPECT_EQ(dialog.isVisible() ? kOpen : dialog.answer(), answer) << focused << " " << key;
  }
}

TEST(MessageDialogTest, AnUnansweredWindowThatIsClosedSaysNothing) {
  MessageDialog dialog(Kind::kQuestion, "Title", "Text");
  dialog.open();
  dialog.close();
  EXPECT_FALSE(dialog.isVisible());
  EXPECT_EQ(dialog.answer(), MessageDialog::kUnanswered);
}

}  // namespace
