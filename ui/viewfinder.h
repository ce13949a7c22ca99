#pragma once

class QImage;

/// Draws into the picture where a barcode is to be held: the corners of a square for two-dimensional codes and of a
/// wide rectangle for linear ones, around the picture's centre. Does nothing to a null image.
void drawViewfinder(QImage& image, bool small);
