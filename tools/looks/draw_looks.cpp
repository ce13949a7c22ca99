// draw_looks SHEET [THEME]: draws the dialogs, each in two states, as a row of pictures and adds it below what is on
// the sheet, a PNG file. In one of Windows' contrast themes, or in the normal style without one.

#include <QApplication>
#include <QImageReader>
#include <QLabel>
#include <QScreen>
#include <QTemporaryDir>
#include <QVBoxLayout>

#include <algorithm>
#include <string_view>
#include <type_traits>

#include "ui/camera_barcode_dialog.h"
#include "ui/camera_dialog.h"
#include "unit_tests/ui/contrast_themes.h"

namespace {

template <class Dialog>
QPixmap draw(bool secondState) {
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
  return dialog.grab();
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
    const auto* const theme = std::ranges::find(kThemes, std::string_view(argv[2]), &Theme::name);
    if (theme == std::end(kThemes)) qFatal("there is no theme %s", argv[2]);
    setTheme(*theme);
    title = QLatin1String(theme->name);
  }
  fakePlatform().programData = folder.path();

  const QPixmap pictures[] = {draw<CameraDialog>(false), draw<CameraDialog>(true), draw<CameraBarcodeDialog>(false),
                              draw<CameraBarcodeDialog>(true)};
  QImageReader::setAllocationLimit(0);
  QPixmap above(QString::fromLocal8Bit(argv[1]));
  above.setDevicePixelRatio(pictures[0].devicePixelRatio());
  QWidget sheet;
  sheet.setPalette(QColor(128, 128, 160));
  auto* const rows = new QVBoxLayout(&sheet);
  rows->setContentsMargins({});
  const auto add = [](QBoxLayout& layout, const QPixmap& picture) {
    auto* const label = new QLabel;
    label->setPixmap(picture);
    layout.addWidget(label, 0, Qt::AlignTop | Qt::AlignLeft);
  };
  if (!above.isNull()) add(*rows, above);
  rows->addWidget(new QLabel(title));
  auto* const row = new QHBoxLayout;
  for (const QPixmap& picture : pictures) add(*row, picture);
  row->addStretch();
  rows->addLayout(row);
  return sheet.grab().save(QString::fromLocal8Bit(argv[1])) ? 0 : 2;
}
