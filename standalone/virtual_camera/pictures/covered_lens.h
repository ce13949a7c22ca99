#pragma once

#include <QImage>

/// What a camera sees whose lens is covered: almost black, with the noise of its sensor. In QImage::Format_RGB32.
[[nodiscard]] QImage coveredLens(QSize size, quint64 frameNumber);
