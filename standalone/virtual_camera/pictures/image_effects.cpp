#include "standalone/virtual_camera/pictures/image_effects.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <random>
#include <vector>

namespace {

using Kernel = std::vector<double>;  // from the centre outwards

Kernel gaussian(double deviation) {
  const int radius = static_cast<int>(std::ceil(3 * deviation));
  Kernel kernel;
  double sum = 0;
  for (int i = 0; i <= radius; ++i) {
    kernel.push_back(std::exp(-0.5 * i * i / (deviation * deviation)));
    sum += i == 0 ? kernel.back() : 2 * kernel.back();
  }
  for (double& weight : kernel) weight /= sum;
  return kernel;
}

// Blurs along the rows and turns rows into columns, so that a second pass blurs along the columns and turns back.
QImage blurredRowsTransposed(const QImage& image, const Kernel& kernel) {
  const int width = image.width();
  const int radius = static_cast<int>(kernel.size()) - 1;
  QImage result(image.height(), width, image.format());
  for (int y = 0; y < image.height(); ++y) {
    const auto* row = reinterpret_cast<const QRgb*>(image.constScanLine(y));
    for (int x = 0; x < width; ++x) {
      std::array<double, 4> sums{};
      for (int i = -radius; i <= radius; ++i) {
        const QRgb pixel = row[std::clamp(x + i, 0, width - 1)];
        const double weight = kernel[static_cast<std::size_t>(std::abs(i))];
        for (unsigned channel = 0; channel < sums.size(); ++channel) {
          sums[channel] += weight * ((pixel >> (8 * channel)) & 0xFF);
        }
      }
      QRgb blended = 0;
      for (unsigned channel = 0; channel < sums.size(); ++channel) {
        blended |= static_cast<QRgb>(std::lround(sums[channel])) << (8 * channel);
      }
      reinterpret_cast<QRgb*>(result.scanLine(x))[y] = blended;
    }
  }
  return result;
}

// Values of a bell-shaped distribution with standard deviation 1, in an order that nobody sees through.
const std::vector<float>& noiseTable() {
  static const std::vector<float> table = [] {
    std::mt19937 engine(20);  // NOLINT(cert-msc32-c,cert-msc51-cpp): the same noise each time
    std::vector<float> values(1U << 18);
    for (float& value : values) {
      // Twelve uniform numbers add up to variance 1. The library's normal distribution differs between libraries.
      double sum = -6;
      for (int i = 0; i < 12; ++i) sum += static_cast<double>(engine()) / 4294967296.0;
      value = static_cast<float>(sum);
    }
    return values;
  }();
  return table;
}

}  // namespace

QImage blurred(const QImage& image, double deviation) {
  if (deviation <= 0) return image;
  const Kernel kernel = gaussian(deviation);
  return blurredRowsTransposed(blurredRowsTransposed(image, kernel), kernel);
}

QImage withContrast(const QImage& image, double contrast) {
  if (contrast >= 1) return image;
  constexpr int kMiddle = 128;
  std::array<int, 256> curve;
  for (int i = 0; i < 256; ++i)
    curve[static_cast<std::size_t>(i)] = kMiddle + static_cast<int>((i - kMiddle) * contrast);
  const auto at = [&curve](int value) { return curve[static_cast<std::size_t>(value)]; };
  QImage result = image;
  for (int y = 0; y < result.height(); ++y) {
    auto* row = reinterpret_cast<QRgb*>(result.scanLine(y));
    std::transform(row, row + result.width(), row, [&at](QRgb pixel) {
      return qRgba(at(qRed(pixel)), at(qGreen(pixel)), at(qBlue(pixel)), qAlpha(pixel));
    });
  }
  return result;
}

void addNoise(QImage& image, double deviation, quint32 seed) {
  if (deviation <= 0) return;
  const std::vector<float>& table = noiseTable();
  const auto strength = static_cast<float>(255 * deviation);
  std::mt19937 engine(seed);
  for (int y = 0; y < image.height(); ++y) {
    auto* row = reinterpret_cast<QRgb*>(image.scanLine(y));
    std::size_t place = engine() % table.size();  // another stretch of the table for each row
    for (int x = 0; x < image.width(); ++x) {
      const int more = static_cast<int>(strength * table[place]);
      place = (place + 1) % table.size();
      const auto with = [more](int value) { return std::clamp(value + more, 0, 255); };
      row[x] = qRgb(with(qRed(row[x])), with(qGreen(row[x])), with(qBlue(row[x])));
    }
  }
}
