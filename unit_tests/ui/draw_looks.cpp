// draw_looks SHEET [THEME]: draws the dialogs, each in two states, as a row of pictures and adds it below what is on
// the sheet, a PNG file. In one of Windows' contrast themes, or in the normal style without one.

#include <QApplication>
#include <QImageReader>
#include <QPainter>
#include <QScreen>
#include <QTemporaryDir>

#include <algorithm>
#include <cstdio>
#include <string_view>
#include <type_traits>
#include <vector>

#include "ui/camera_barcode_dialog.h"
#include "ui/camera_dialog.h"
#include "unit_tests/ui/contrast_themes.h"

namespace {

constexpr int kGap = 12;
constexpr int kTitleHeight = 20;

template <class Dialog>
QImage draw(bool secondState) {
  constexpr bool kBarcode = std::is_same_v<Dialog, CameraBarcodeDialog>;
  // The second attempt, and a text that a screen reader's user has the focus on.
  fakePlatform().narratorRuns = secondState && !kBarcode;
  QObject hostFilter;
  Dialog dialog(nullptr, &hostFilter);
  QImage frame(640, 480, QImage::Format_RGB32);
  frame.fill(QColor(70, 110, 90));
  dialog.LoadFrame(frame);
  dialog.show();
  QApplication::setActiveWindow(&dialog);
  if constexpr (kBarcode) {
    if (secondState) dialog.ShowRetry();
  }
  for (int i = 0; i < 5; ++i) QApplication::processEvents();
  QImage picture = dialog.grab().toImage();
  picture.setDevicePixelRatio(1);
  return picture;
}

}  // namespace

int main(int argc, char** argv) {
  QApplication application(argc, argv);
  QApplication::setQuitOnLastWindowClosed(false);
  const QTemporaryDir folder;
  QString title = QStringLiteral("normal, %1 pixels, scale %2")
                      .arg(QGuiApplication::primaryScreen()->geometry().width())
                      .arg(QGuiApplication::primaryScreen()->devicePixelRatio());
  if (argc > 2) {
    const auto* const theme = std::find_if(std::begin(kThemes), std::end(kThemes),
                                           [&](const Theme& t) { return std::string_view(argv[2]) == t.name; });
    if (theme == std::end(kThemes)) {
      std::fprintf(stderr, "there is no theme %s\n", argv[2]);
      return 2;
    }
    setTheme(*theme);
    title = QLatin1String(theme->name);
  }
  fakePlatform().programData = folder.path();

  const std::vector<QImage> pictures = {draw<CameraDialog>(false), draw<CameraDialog>(true),
                                        draw<CameraBarcodeDialog>(false), draw<CameraBarcodeDialog>(true)};
  QImageReader::setAllocationLimit(0);
  const QImage above(QString::fromLocal8Bit(argv[1]));
  int width = kGap, height = 0;
  for (const QImage& picture : pictures) {
    width += picture.width() + kGap;
    height = std::max(height, picture.height());
  }
  QImage sheet(std::max(width, above.width()), above.height() + kTitleHeight + height + kGap, QImage::Format_RGB32);
  sheet.fill(QColor(128, 128, 160));
  QPainter painter(&sheet);
  painter.drawImage(0, 0, above);
  painter.drawText(kGap, above.height() + kTitleHeight - 5, title);
  int x = kGap;
  for (const QImage& picture : pictures) {
    painter.drawImage(x, above.height() + kTitleHeight, picture);
    x += picture.width() + kGap;
  }
  painter.end();
  return sheet.save(QString::fromLocal8Bit(argv[1])) ? 0 : 2;
}
