#include "standalone/host/message_dialog.h"

#include <QApplication>
#include <QFocusFrame>
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

class MessageDialogTest : public testing::TestWithParam<std::tuple<Kind, std::uint32_t, Qt::Key, std::uint32_t>> {};

// Opens the window, moves the focus to a button, and presses a key as the keyboard does.
TEST_P(MessageDialogTest, AnswersAKey) {
  const auto [kind, focused, key, answer] = GetParam();
  MessageDialog dialog(kind, "Title", "<b>Text</b>");
  dialog.open();
  QApplication::setActiveWindow(&dialog);
  if (focused != kNoButton) dialog.buttonFor(focused)->setFocus();
  for (const QEvent::Type type : {QEvent::KeyPress, QEvent::KeyRelease}) {
    QKeyEvent event(type, key, Qt::NoModifier, key == Qt::Key_N ? "n" : "");
    QApplication::sendEvent(dialog.focusWidget(), &event);
  }
  if (key == Qt::Key_Escape || key == Qt::Key_N) QTest::qWait(200);  // the button is seen to go down
  EXPECT_EQ(dialog.isVisible() ? kOpen : dialog.answer(), answer);
}

INSTANTIATE_TEST_SUITE_P(
    , MessageDialogTest,
    testing::Values(std::tuple(Kind::kMessage, kNoButton, Qt::Key_Return, InputRequest::kConfirmed),
                    std::tuple(Kind::kMessage, kNoButton, Qt::Key_Escape, MessageDialog::kUnanswered),
                    std::tuple(Kind::kQuestion, kNoButton, Qt::Key_Return, kOpen),
                    std::tuple(Kind::kQuestion, kNoButton, Qt::Key_Space, kOpen),
                    std::tuple(Kind::kQuestion, kNoButton, Qt::Key_N, InputRequest::kNo),
                    std::tuple(Kind::kQuestion, kNoButton, Qt::Key_Escape, MessageDialog::kUnanswered),
                    std::tuple(Kind::kQuestion, InputRequest::kYes, Qt::Key_Enter, InputRequest::kYes),
                    std::tuple(Kind::kQuestion, InputRequest::kNo, Qt::Key_Space, InputRequest::kNo),
                    std::tuple(Kind::kQuestion, MessageDialog::kUnanswered, Qt::Key_Return,
                               MessageDialog::kUnanswered)));

TEST(QuestionTest, HasAPlainTextThatShowsItsFocusAndNoAnswerWhenItIsClosed) {
  MessageDialog dialog(Kind::kQuestion, "Title", "<b>Text</b>");
  EXPECT_EQ(dialog.textFormat(), Qt::PlainText);
  dialog.open();
  QApplication::setActiveWindow(&dialog);
  const auto* const mark = dialog.findChild<QFocusFrame*>();
  EXPECT_EQ(mark->widget(), dialog.focusWidget());
  dialog.buttonFor(InputRequest::kNo)->setFocus();
  EXPECT_EQ(mark->widget(), nullptr);
  dialog.close();
  EXPECT_FALSE(dialog.isVisible());
  EXPECT_EQ(dialog.answer(), MessageDialog::kUnanswered);
}

}  // namespace
