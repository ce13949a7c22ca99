#include "ui/input_dialog.h"

#include <QTimer>

#include "unit_tests/fakes/fake_context.h"
#include "unit_tests/ui/dialog_helpers.h"

namespace {

QStringList debugLines;
QtMessageHandler otherLines = nullptr;

void keepDebugLines(QtMsgType type, const QMessageLogContext& context, const QString& text) {
  if (type == QtDebugMsg) {
    debugLines.append(text);
  } else {
    otherLines(type, context, text);
  }
}

class InputDialogTest : public testing::Test {
 protected:
  void SetUp() override {
    fakePlatform() = {};
    debugLines.clear();
    otherLines = qInstallMessageHandler(keepDebugLines);
  }
  void TearDown() override { qInstallMessageHandler(otherLines); }

  int shown = 0;
  ShowObserver filter{[this](const QWidget&) { ++shown; }};
};

TEST_F(InputDialogTest, IsATopLevelWindowWithTheHostsFilter) {
  QWidget parent;
  InputDialog dialog(&parent, &filter);
  EXPECT_EQ(dialog.parent(), nullptr);
  EXPECT_EQ(dialog.windowFlags() & Qt::WindowStaysOnTopHint, Qt::WindowStaysOnTopHint);
  EXPECT_EQ(dialog.windowFlags() & Qt::FramelessWindowHint, 0);
  EXPECT_EQ(dialog.windowModality(), Qt::WindowModal);
  dialog.show();
  EXPECT_EQ(shown, 1);
  EXPECT_THAT(ownMethods(InputDialog::staticMetaObject), testing::IsEmpty());
}

TEST_F(InputDialogTest, AcceptingAndRejectingKeepTheResult) {
  for (void (QDialog::*const finish)() : {&QDialog::accept, &QDialog::reject}) {
    InputDialog dialog(nullptr, &filter);
    std::vector<int> finished;
    QObject::connect(&dialog, &QDialog::finished, [&](int code) { finished.push_back(code); });
    dialog.show();
    dialog.setResult(5);
    (dialog.*finish)();
    EXPECT_EQ(finished, std::vector{5});
  }
}

TEST_F(InputDialogTest, ExecReturnsWhatTheDialogFinishedWith) {
  CameraDialog dialog(nullptr, &filter);
  QTimer::singleShot(0, &dialog, &CameraDialog::Close);
  EXPECT_EQ(dialog.exec(), 5);
  EXPECT_EQ(debugLines, QStringList({"Before show:  0", "Before loop:  0", "After the event loop:  5"}));
}

TEST_F(InputDialogTest, ExecEndsWithinASecondOfTheTestsCancellation) {
  FakeContext context;
  InputDialog dialog(nullptr, &filter);
  dialog.context = &context;
  dialog.setResult(2);
  bool late = false;
  QTimer::singleShot(300, &dialog, [&] {
    context.cancelled = true;
    QTimer::singleShot(4000, &dialog, [&] { late = true; });
  });
  EXPECT_EQ(dialog.exec(), 2);
  EXPECT_TRUE(context.cancelled);
  EXPECT_FALSE(late);
  EXPECT_TRUE(dialog.isVisible()) << "finished, not closed";
}

TEST_F(InputDialogTest, ExecOutlivesItsDialog) {
  auto* closed = new CameraDialog(nullptr, &filter);
  closed->setAttribute(Qt::WA_DeleteOnClose);
  // Deleted before the loop looks at it again.
  QObject::connect(closed, &QDialog::finished, [closed] { QTimer::singleShot(0, [closed] { delete closed; }); });
  QTimer::singleShot(0, closed, &QWidget::close);
  EXPECT_EQ(closed->exec(), 5);

  auto* deleted = new InputDialog(nullptr, &filter);
  QTimer::singleShot(0, [deleted] { delete deleted; });
  EXPECT_EQ(deleted->exec(), 0);
}

}  // namespace
