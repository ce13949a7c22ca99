#include "standalone/host/window/main_window.h"

#include <QAction>
#include <QCoreApplication>
#include <QLabel>
#include <QListWidget>
#include <QMenu>
#include <QMenuBar>
#include <QPushButton>
#include <QThread>
#include <QTranslator>
#include <QTreeWidget>

#include <atomic>
#include <map>

#include <gmock/gmock.h>

#include "standalone/host/window/settings_dialog.h"
#include "unit_tests/standalone/fake_module.h"

namespace {

class MainWindowTest : public testing::Test {
 protected:
  void SetUp() override {
    session.rescan();
    session.waitUntilIdle();
  }
  QAction& action(const char* text) {
    for (QAction* candidate : window.findChildren<QAction*>())
      if (candidate->text().remove('&') == QLatin1String(text)) return *candidate;
    ADD_FAILURE() << "no action " << text;
    return *window.menuBar()->actions().front();
  }
  std::string cameraText(int row) {
    return window.findChild<QListWidget*>("host_cameras")->item(row)->text().toStdString();
  }

  FakeModule module;
  Session session{module.interface(), {}, {}, nullptr};
  MainWindow window{session, MainWindow::Use::kInteractive};
};

TEST_F(MainWindowTest, OffersWhatCanBeDoneNow) {
  EXPECT_TRUE(action("Run all").isEnabled());
  EXPECT_FALSE(action("Last test again").isEnabled());
  EXPECT_FALSE(action("Cancel").isEnabled());
  std::string during;
  module.capture.onRun = [&](TestExecutionContext& context) {
    context.getMessageList()->add("M", 0, 0);
    return kTestFailed;
  };
  QObject::connect(&session, &Session::messageAdded, [&] {
    during = cameraText(0);
    EXPECT_FALSE(action("Run all").isEnabled());
    EXPECT_TRUE(action("Cancel").isEnabled());
  });
  action("Run on this camera").trigger();
  // A second press must not run all twice.
  EXPECT_FALSE(action("Run on this camera").isEnabled());
  session.waitUntilIdle();
  EXPECT_EQ(during, "Camera A\nA test is running");
  EXPECT_EQ(cameraText(0), "Camera A\nCAPTURE: Failed");
  EXPECT_EQ(cameraText(1), "Camera B\nNot tested yet");
  EXPECT_TRUE(action("Those that did not pass").isEnabled());
  auto& history = *window.findChild<QTreeWidget*>("host_history");
  ASSERT_EQ(history.topLevelItemCount(), 2);
  EXPECT_EQ(history.topLevelItem(0)->text(4) + history.topLevelItem(1)->text(4), "PassedFailed");
  EXPECT_FALSE(action("Open the selected run").isEnabled());
}

TEST_F(MainWindowTest, FollowsTheCameras) {
  module.manager.identifiers = {};
  session.rescan();
  session.waitUntilIdle();
  EXPECT_FALSE(action("Run all").isEnabled());
  EXPECT_FALSE(action("Run on this camera").isEnabled());
  auto& text = *window.findChild<QLabel*>("host_no_camera");
  EXPECT_THAT(text.text().toStdString(), testing::StartsWith("No camera was found."));
  EXPECT_FALSE(text.isHidden());
}

TEST_F(MainWindowTest, ClosesWhenTheRunHasEnded) {
  std::atomic<bool> ended = false;
  module.capture.onRun = [&](TestExecutionContext& context) {
    while (!context.isCancelled()) QThread::msleep(1);
    ended = true;
    return kTestCancelled;
  };
  window.show();
  int closed = 0;
  QObject::connect(&window, &MainWindow::closed, [&] {
    ++closed;
    EXPECT_TRUE(ended);
  });
  action("Run all").trigger();
  window.close();
  EXPECT_TRUE(window.isVisible());
  session.waitUntilIdle();
  EXPECT_FALSE(window.isVisible());
  EXPECT_EQ(closed, 1);
  EXPECT_EQ(session.runs().size(), 1U);
}

// In a menu and among the parts of a window, a letter must not stand for two things.
void expectUniqueLetters(const QStringList& texts) {
  std::map<QKeySequence, QString> letters;
  for (const QString& text : texts) {
    const QKeySequence letter = QKeySequence::mnemonic(text);
    if (letter.isEmpty()) continue;
    EXPECT_TRUE(letters.emplace(letter, text).second) << text.toStdString() << ", " << letters[letter].toStdString();
  }
}

QStringList textsOf(const QList<QAction*>& actions) {
  QStringList texts;
  for (const QAction* action : actions) texts.append(action->text());
  return texts;
}

TEST_F(MainWindowTest, LettersAreUniqueInEveryLanguage) {
  for (const char* language : {"en", "de"}) {
    SCOPED_TRACE(language);
    QTranslator translator;
    ASSERT_TRUE(translator.load(QStringLiteral(":/translations/module_host_") + QLatin1String(language)));
    QCoreApplication::installTranslator(&translator);
    const MainWindow translated(session, MainWindow::Use::kInteractive);
    const SettingsDialog settings(RunSettings(), nullptr);
    for (const QMenu* menu : translated.findChildren<QMenu*>()) expectUniqueLetters(textsOf(menu->actions()));
    for (const QWidget* widget : {static_cast<const QWidget*>(&translated), static_cast<const QWidget*>(&settings)}) {
      QStringList texts;
      for (const QPushButton* button : widget->findChildren<QPushButton*>()) texts.append(button->text());
      for (const QLabel* label : widget->findChildren<QLabel*>())
        if (label->buddy()) texts.append(label->text());
      if (const auto* bar = widget->findChild<QMenuBar*>()) texts += textsOf(bar->actions());
      expectUniqueLetters(texts);
    }
  }
}

}  // namespace
