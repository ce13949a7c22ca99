#include "standalone/host/key_texts.h"

#include <QCoreApplication>
#include <QFile>
#include <QRegularExpression>
#include <QSet>
#include <QTranslator>

#include <gtest/gtest.h>

#include "standalone/host/run_texts.h"

namespace {

class KeyTextsTest : public testing::TestWithParam<const char*> {
 protected:
  void SetUp() override {
    ASSERT_TRUE(translator.load(QStringLiteral(":/translations/module_host_") + QLatin1String(GetParam())));
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

TEST_P(KeyTextsTest, TranslateEveryKey) {
  EXPECT_EQ(keys().size(), 38);
  for (const QString& key : keys()) EXPECT_NE(keyText(key), key) << key.toStdString();
  for (const char* key : {"FAILED_TO_CAPTURE", "POSSIBLE_DEFECTIVE_COMPONENTS: CAMERA_DEVICE"})
    EXPECT_NE(adviceText(key), "") << key;
  EXPECT_EQ(adviceText("BARCODE_VALUE 1"), "") << "there is nothing to be done about it";
}

TEST_P(KeyTextsTest, ComposeTheTextsThatAreMadeOfKeys) {
  EXPECT_EQ(keyText(""), "");
  EXPECT_EQ(keyText("NO_KEY"), "NO_KEY");
  EXPECT_EQ(keyText("BARCODE_VALUE A1 b"), "Barcode: A1 b");
  EXPECT_EQ(keyText("POSSIBLE_DEFECTIVE_COMPONENTS: CAMERA_DEVICE"),
            keyText("POSSIBLE_DEFECTIVE_COMPONENTS") + ": " + keyText("CAMERA_DEVICE"));
}

INSTANTIATE_TEST_SUITE_P(Languages, KeyTextsTest, testing::Values("en", "de"));

}  // namespace
