// Frames for the barcode decoder, drawn from few bytes so that bars, finder patterns and whole codes are in reach: the
// width in squares (7 bits) and whether they are 1 or 3 pixels large, then one bit a square, row by row.

#include <QImage>
#include <QZXing.h>

#include "tests/barcode_steps.h"
#include "unit_tests/fuzz/fuzzer.h"

namespace {

QImage draw(const QByteArray& input) {
  constexpr int kMargin = 4;
  const int head = static_cast<std::uint8_t>(input[0]);
  const int columns = (head & 127) + 1, pixels = (head & 128) ? 3 : 1;
  const int rows = static_cast<int>(input.size() - 1) * 8 / columns;
  QImage squares(columns + 2 * kMargin, rows + 2 * kMargin, QImage::Format_RGB32);
  squares.fill(Qt::white);
  for (int bit = 0; bit < rows * columns; ++bit) {
    if (!(input[1 + bit / 8] >> bit % 8 & 1)) continue;
    squares.setPixel(kMargin + bit % columns, kMargin + bit / columns, 0xFF000000);
  }
  return squares.scaled(squares.size() * pixels);
}

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size < 2) return 0;
  static QZXing& decoder = *[] {
    auto* const made = new QZXing;
    configureDecoder(*made);
    return made;
  }();
  static_cast<void>(isPlausibleValue(decodeFrame(decoder, draw(inputBytes(data, size)))));
  return 0;
}
