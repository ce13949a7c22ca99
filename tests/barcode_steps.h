#pragma once

// What the barcode test does with a frame, step by step.

#include <QImage>
#include <QString>
#include <QZXing.h>

class CameraBarcodeWidgetWrapper;

/// Sets a decoder up as the test needs it.
void configureDecoder(QZXing& decoder);

/// Hands the dialog a mirror image: the user sees himself as in a mirror.
void showMirrored(const QImage& frame, CameraBarcodeWidgetWrapper& wrapper);

/// What the decoder reads in a frame as captured; empty when it finds nothing. Takes milliseconds.
[[nodiscard]] QString decodeFrame(QZXing& decoder, const QImage& frame);

/// Whether a decoded text can be a device's barcode: 1 to 60 characters, ASCII digits and letters only.
[[nodiscard]] bool isPlausibleValue(const QString& text);
