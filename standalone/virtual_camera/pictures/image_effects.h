#pragma once

#include <QImage>

/// A Gaussian blur; `deviation` in pixels, 0 leaves the image as it is. Keeps the format, which has 32 bits a pixel.
[[nodiscard]] QImage blurred(const QImage& image, double deviation);

/// Pulls all colours towards middle grey: `contrast` 1 leaves the image as it is, 0 makes it uniform. Opacity stays.
/// The image is not premultiplied.
[[nodiscard]] QImage withContrast(const QImage& image, double contrast);

/// Adds brightness noise of a standard deviation, as a share of white, to an RGB32 image. The same seed gives the same
/// noise.
void addNoise(QImage& image, double deviation, quint32 seed);
