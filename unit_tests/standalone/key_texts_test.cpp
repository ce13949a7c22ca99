#include "standalone/host/key_texts.h"

#include <QCoreApplication>
#include <QFile>
#include <QRegularExpression>
#include <QSet>
#include <QTranslator>

#include <gtest/gtest.h>

namespace {

class KeyTextsTest : public testing::Test {
 protected:
  void SetUp() override {
    ASSERT_TRUE(translator.load(QStringLiteral(TRANSLATION)));
    QCoreApplication::installTranslator(&translator);
  }

  QTranslator translator;
};

QSet<QString> matches(const char* file, const char* pattern) {
  QFile source(QStringLiteral(PROJECT_FOLDER "/") + QLatin1String(file));
  EXPECT_TRUE(source.open(QIODevice::ReadOnly)) << file;
  const QString text = QString::fromUtf8(source.readAll());
  QSet<QString> found;
  for (auto match = QRegularExpression(QLatin1String(pattern)).globalMatch(text); match.hasNext();) {
    found.insert(match.next().captured(1));
  }
  return found;
}

// The headers are read as text, so that a key that is added to them cannot be forgotten here.
QSet<QString> keys() {
  constexpr const char* kKey = R"re(inline constexpr char k\w+\[\] =\s+"([A-Z_]+)";)re";
  return matches("module/keys/camera_keys.h", kKey) + matches("module/keys/dialog_keys.h", kKey);
}

TEST_F(KeyTextsTest, TranslateEveryKeyAndNothingElse) {
  EXPECT_EQ(keys().size(), 38);
  for (const QString& key : keys()) {
    EXPECT_NE(keyText(key.toStdString()), key) << key.toStdString();
  }
  EXPECT_EQ(matches("standalone/host/translations/module_host_en.ts", "<source>([^<]*)</source>"), keys());
}

TEST_F(KeyTextsTest, ComposeTheTextsThatAreMadeOfKeys) {
  EXPECT_EQ(keyText(""), "");
  EXPECT_EQ(keyText("FAIL"), "Fail");
  EXPECT_EQ(keyText("NO_KEY"), "NO_KEY");
  EXPECT_EQ(keyText("BARCODE_VALUE A1 b"), "Barcode: A1 b");
  EXPECT_EQ(keyText("POSSIBLE_DEFECTIVE_COMPONENTS: CAMERA_DEVICE"), "Components that may be defective: camera");
}

}  // namespace
