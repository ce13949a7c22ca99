#include "ui/input_dialog.h"

#include <QTimer>

#include "unit_tests/fakes/fake_context.h"
#include "unit_tests/ui/dialog_helpers.h"

namespace {

TEST(InputDialogTest, IsATopLevelWindowWithTheHostsFilter) {
  int shown = 0;
  ShowObserver filter([&](const QWidget&) { ++shown; });
  QWidget parent;
  InputDialog dialog(&parent, &filter);
  EXPECT_EQ(dialog.parent(), nullptr);
  EXPECT_EQ(dialog.windowFlags() & Qt::WindowStaysOnTopHint, Qt::WindowStaysOnTopHint);
  EXPECT_EQ(dialog.windowFlags() & Qt::FramelessWindowHint, 0);
  EXPECT_EQ(dialog.windowModality(), Qt::WindowModal);
  dialog.show();
  EXPECT_EQ(shown, 1);
  EXPECT_EQ(ownMethods(InputDialog::staticMetaObject), "");
}

TEST(InputDialogTest, AcceptingAndRejectingKeepTheResult) {
  for (void (QDialog::*const finish)() : {&QDialog::accept, &QDialog::reject}) {
    InputDialog dialog(nullptr, &hostFilter);
    std::vector<int> finished;
    QObject::connect(&dialog, &QDialog::finished, [&](int code) { finished.push_back(code); });
    dialog.show();
    dialog.setResult(5);
    (dialog.*finish)();
    EXPECT_EQ(finished, std::vector{5});
  }
}

TEST(InputDialogTest, ExecReturnsWhatTheDialogFinishedWith) {
  CameraDialog dialog(nullptr, &hostFilter);
  QTimer::singleShot(0, &dialog, &CameraDialog::Close);
  static QStringList lines;
  const auto former = qInstallMessageHandler([](QtMsgType type, const QMessageLogContext&, const QString& text) {
    if (type == QtDebugMsg) lines += text;
  });
  EXPECT_EQ(dialog.exec(), 5);
  qInstallMessageHandler(former);
  EXPECT_EQ(lines, QStringList({"Before show:  0", "Before loop:  0", "After the event loop:  5"}));
}

TEST(InputDialogTest, ExecEndsWithinASecondOfTheTestsCancellation) {
  FakeContext context;
  InputDialog dialog(nullptr, &hostFilter);
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

TEST(InputDialogTest, ExecOutlivesItsDialog) {
  auto* closed = new CameraDialog(nullptr, &hostFilter);
  closed->setAttribute(Qt::WA_DeleteOnClose);
  // Deleted before the loop looks at it again.
  QObject::connect(closed, &QDialog::finished, [closed] { QTimer::singleShot(0, [closed] { delete closed; }); });
  QTimer::singleShot(0, closed, &QWidget::close);
  EXPECT_EQ(closed->exec(), 5);

  auto* deleted = new InputDialog(nullptr, &hostFilter);
  QTimer::singleShot(0, [deleted] { delete deleted; });
  EXPECT_EQ(deleted->exec(), 0);
}

}  // namespace
