#pragma once

#include <QImage>
#include <QSize>

// Frames in QImage::Format_RGB32 that hold no code and yet look like one to a decoder. The same arguments give the same
// frame.

/// Black stripes of uneven widths.
[[nodiscard]] QImage drawStripes(QSize size, quint32 seed);

/// A printed page, in another typeface and size for each seed.
[[nodiscard]] QImage drawPage(QSize size, quint32 seed);

/// The corner patterns of QR codes side by side, `module` pixels to a module.
[[nodiscard]] QImage drawTiledFinders(QSize size, int module);

/// Black and white squares in no order, `module` pixels wide.
[[nodiscard]] QImage drawRandomModules(QSize size, int module, quint32 seed);
