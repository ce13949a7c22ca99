#include "module/style_manager.h"

#include <QFile>
#include <QImage>
#include <QRegularExpression>
#include <QSet>
#include <QWidget>

#include <gtest/gtest.h>

namespace {

using vexa::utils::style_manager::StyleManager;

QString sheet() {
  return StyleManager::instance().Stylesheet();
}

QString content(const QString& file) {
  QFile source(QStringLiteral(PROJECT_FOLDER "/") + file);
  EXPECT_TRUE(source.open(QIODevice::ReadOnly)) << file.toStdString();
  return QString::fromUtf8(source.readAll());
}

QSet<QString> matches(const QString& text, const char* pattern) {
  QSet<QString> found;
  for (auto match = QRegularExpression(QLatin1String(pattern)).globalMatch(text); match.hasNext();) {
    found.insert(match.next().captured(1));
  }
  return found;
}

QSet<QString> namesOfForms() {
  constexpr const char* kNames = "<(?:widget|layout)[^>]* name=\"([^\"]+)\"";
  return matches(content("ui/camera_dialog.ui"), kNames) + matches(content("ui/camera_barcode_dialog.ui"), kNames);
}

// Qt tells what it cannot parse only with a warning, on which the test program fails.
TEST(StyleSheetTest, IsUnderstoodByQt) {
  ASSERT_FALSE(sheet().isEmpty());
  QWidget window;
  window.setStyleSheet(sheet());
  window.ensurePolished();
}

TEST(StyleSheetTest, NamesImagesThatAreThereInBothSizes) {
  const QSet<QString> images = matches(sheet(), R"(url\(([^)]+)\))");
  ASSERT_FALSE(images.isEmpty());
  for (const QString& image : images) {
    const QImage single(image);
    const QImage twice(QString(image).replace(".png", "@2x.png"));
    EXPECT_FALSE(single.isNull()) << image.toStdString();
    EXPECT_EQ(twice.size(), single.size() * 2) << image.toStdString();
  }
}

TEST(StyleSheetTest, KnowsTheModulesWidgetsByTheirNames) {
  const QSet<QString> forms = namesOfForms();
  for (const QString& name : matches(sheet(), "#(camera_[a-z_]+|border_widget)")) {
    EXPECT_TRUE(forms.contains(name)) << name.toStdString() << " is in no form";
  }
}

// These widgets have no content of their own.
TEST(StyleSheetTest, GivesAnImageToEachWidgetThatLivesFromIt) {
  for (const char* name :
       {"camera_capture_test_header_icon", "camera_capture_test_header_close", "camera_barcode_test_header_icon",
        "camera_barcode_test_header_close", "camera_barcode_test_step_one_current",
        "camera_barcode_test_step_one_warning", "camera_barcode_test_step_two_waiting",
        "camera_barcode_test_step_two_current", "camera_barcode_test_warning_message_icon"}) {
    const QRegularExpression rule(QStringLiteral("#%1\\b[^}:]*\\{[^}]*image: url").arg(name));
    EXPECT_TRUE(sheet().contains(rule)) << name;
  }
}

}  // namespace
