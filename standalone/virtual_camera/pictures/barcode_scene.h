#pragma once

#include <vector>

#include "standalone/virtual_camera/pictures/picture_source.h"

/// Labels with barcodes that are pushed into the view from below and stay for their time. Before the first and between
/// two there is only the background. What does not change is drawn once, so that a frame costs little more than its
/// copy.
class BarcodeScene final : public PictureSource {
 public:
  /// How long a label takes until it lies still.
  static constexpr double kSecondsToArrive = 0.3;

  BarcodeScene(const BarcodePicture& picture, QSize size);

  [[nodiscard]] QImage frameAt(quint64 frameNumber, double seconds) override;

 private:
  struct Label {
    double from;
    double to;
    QImage layer;  ///< the label where it lies still, transparent around it
    QPoint place;  ///< of the layer's top left corner
  };

  QImage background;
  std::vector<Label> labels;
  double noise;
};
