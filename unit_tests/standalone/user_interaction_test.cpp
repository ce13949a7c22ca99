#include "standalone/host/user_interaction.h"

#include <memory>

#include <QDialog>
#include <QEventLoop>
#include <QFileInfo>
#include <QPushButton>
#include <QTemporaryDir>
#include <QThread>
#include <QVBoxLayout>

#include <gtest/gtest.h>

#include "module/test_execution_context.h"
#include "standalone/host/pictures.h"
#include "ui/abstract_widget_wrapper.h"
#include "ui/input_request.h"

namespace {

class Context : public TestExecutionContext {
 public:
  SystemComponent* getComponent() override { return nullptr; }
  MessageList* getMessageList() override { return nullptr; }
  ProgressReporter* getProgressReporter() override { return nullptr; }
  bool isCancelled() override { return cancelled; }
  EventSource* getEventSource() override { return nullptr; }

  bool cancelled = false;
};

// A dialog with buttons of the names that the module's dialogs have.
class Wrapper : public AbstractWidgetWrapper {
 public:
  using AbstractWidgetWrapper::AbstractWidgetWrapper;

  bool CreateWidget(QWidget*, QObject* eventFilter) override {
    createdOn = QThread::currentThread();
    dialog = std::make_unique<QDialog>();
    dialog->installEventFilter(eventFilter);
    auto* layout = new QVBoxLayout(dialog.get());
    for (const char* name : {"camera_barcode_test_header_close", "camera_barcode_test_button_fail"}) {
      auto* button = new QPushButton;
      button->setObjectName(name);
      layout->addWidget(button);
      QObject::connect(button, &QPushButton::clicked, dialog.get(), [this, name] {
        clicked = name;
        dialog->close();
      });
    }
    dialog->show();
    return true;
  }

  QThread* createdOn = nullptr;
  std::string clicked;
  std::unique_ptr<QDialog> dialog;
};

// Submits on a thread of its own, as a test does, while this thread handles events.
void submit(UserInteraction& interaction, InputRequest& request, Context& context) {
  const std::unique_ptr<QThread> thread(
      QThread::create([&] { interaction.submit(request, context, QStringLiteral("picture")); }));
  QEventLoop loop;
  QObject::connect(thread.get(), &QThread::finished, &loop, &QEventLoop::quit);
  thread->start();
  loop.exec();
  thread->wait();
}

struct Answers {
  AnswerMode mode;
  std::uint32_t toMessage;
  std::uint32_t toQuestion;
};

class UnattendedAnswerTest : public testing::TestWithParam<Answers> {};

TEST_P(UnattendedAnswerTest, ClicksTheButtonsOfMessagesAndQuestions) {
  const Pictures noPictures{QString()};
  UserInteraction interaction(GetParam().mode, noPictures);
  Context context;
  InputRequest message("TITLE", "TEXT", 1, InputRequest::kInitialMessage, 0);
  submit(interaction, message, context);
  EXPECT_EQ(message.answer, GetParam().toMessage);
  InputRequest question("TITLE", "TEXT", 1, InputRequest::kQuestion, 0);
  submit(interaction, question, context);
  EXPECT_EQ(question.answer, GetParam().toQuestion);
}

INSTANTIATE_TEST_SUITE_P(All, UnattendedAnswerTest,
                         testing::Values(Answers{AnswerMode::Pass, InputRequest::kConfirmed, InputRequest::kYes},
                                         Answers{AnswerMode::Fail, InputRequest::kConfirmed, InputRequest::kNo},
                                         Answers{AnswerMode::Close, InputRequest::kConfirmed, 0}));

TEST(UserInteractionTest, ClosesAMessageUnansweredWhenTheRunIsCancelled) {
  const Pictures noPictures{QString()};
  UserInteraction interaction(AnswerMode::Ask, noPictures);
  Context context;
  context.cancelled = true;
  InputRequest message("TITLE", "TEXT", 1, InputRequest::kInitialMessage, 0);
  submit(interaction, message, context);
  EXPECT_EQ(message.answer, 0U);
}

TEST(UserInteractionTest, ShowsADialogOnItsOwnThreadAndPicturesIt) {
  const QTemporaryDir folder;
  const Pictures pictures(folder.filePath("new/pictures"));
  UserInteraction interaction(AnswerMode::Fail, pictures);
  Context context;
  Wrapper wrapper(&context);
  InputRequest request("", "", 1, InputRequest::kDialog, 0);
  request.widget = &wrapper;
  submit(interaction, request, context);
  EXPECT_EQ(wrapper.createdOn, QThread::currentThread());
  ASSERT_TRUE(wrapper.dialog);
  EXPECT_TRUE(wrapper.dialog->isVisible()) << "submit waits for no answer to a dialog";

  QEventLoop loop;
  QObject::connect(wrapper.dialog.get(), &QDialog::finished, &loop, &QEventLoop::quit);
  loop.exec();
  EXPECT_EQ(wrapper.clicked, "camera_barcode_test_button_fail");
  for (const char* name : {"picture-dialog.png", "picture-dialog-end.png"}) {
    EXPECT_GT(QFileInfo(folder.filePath("new/pictures/") + name).size(), 0) << name;
  }
}

TEST(UserInteractionTest, ClosesADialogByItsCloseButton) {
  const Pictures noPictures{QString()};
  UserInteraction interaction(AnswerMode::Close, noPictures);
  Context context;
  Wrapper wrapper(&context);
  InputRequest request("", "", 1, InputRequest::kDialog, 0);
  request.widget = &wrapper;
  submit(interaction, request, context);
  QEventLoop loop;
  QObject::connect(wrapper.dialog.get(), &QDialog::finished, &loop, &QEventLoop::quit);
  loop.exec();
  EXPECT_EQ(wrapper.clicked, "camera_barcode_test_header_close");
}

}  // namespace
