#include "standalone/host/window/message_dialog.h"

#include <QApplication>
#include <QKeyEvent>
#include <QPushButton>
#include <QtCore/qtestsupport_core.h>

#include <gtest/gtest.h>

#include "ui/input_request.h"

namespace {

using Kind = MessageDialog::Kind;

TEST(MessageDialogTest, AnswersKeys) {
  constexpr std::uint32_t kOpen = 99;
  constexpr std::uint32_t kNoButton = 98;
  constexpr struct {
    Kind kind;
    std::uint32_t focused;
    Qt::Key key;
    std::uint32_t answer;
  } kCases[] = {
      {Kind::kMessage, kNoButton, Qt::Key_Return, InputRequest::kConfirmed},
      {Kind::kMessage, kNoButton, Qt::Key_Escape, MessageDialog::kUnanswered},
      {Kind::kQuestion, kNoButton, Qt::Key_Return, kOpen},
      {Kind::kQuestion, kNoButton, Qt::Key_Space, kOpen},
      {Kind::kQuestion, kNoButton, Qt::Key_N, InputRequest::kNo},
      {Kind::kQuestion, kNoButton, Qt::Key_Escape, MessageDialog::kUnanswered},
      {Kind::kQuestion, InputRequest::kYes, Qt::Key_Enter, InputRequest::kYes},
      {Kind::kQuestion, MessageDialog::kUnanswered, Qt::Key_Return, MessageDialog::kUnanswered},
  };
  for (const auto& [kind, focused, key, answer] : kCases) {
    MessageDialog dialog(kind, "Title", "Text", "Camera");
    dialog.open();
    QApplication::setActiveWindow(&dialog);
    if (focused != kNoButton) dialog.buttonFor(focused)->setFocus();
    for (const QEvent::Type type : {QEvent::KeyPress, QEvent::KeyRelease}) {
      QKeyEvent event(type, key, Qt::NoModifier, key == Qt::Key_N ? "n" : "");
      QApplication::sendEvent(dialog.focusWidget(), &event);
    }
    QTest::qWait(200);  // a button is seen to go down
    EXPECT_EQ(dialog.isVisible() ? kOpen : dialog.answer(), answer) << "key " << key << " on " << focused;
  }
}

TEST(MessageDialogTest, ShowsMarkupAsItIs) {
  EXPECT_EQ(MessageDialog(Kind::kQuestion, "Title", "<b>Text</b>", "<i>Camera</i>").textFormat(), Qt::PlainText);
}

}  // namespace
