#include "standalone/virtual_camera/pictures/picture_source.h"

#include "standalone/virtual_camera/pictures/barcode_scene.h"
#include "standalone/virtual_camera/pictures/image_sequence.h"
#include "standalone/virtual_camera/pictures/still_image.h"
#include "standalone/virtual_camera/pictures/test_pattern.h"

namespace {

struct Maker {
  QSize size;

  std::unique_ptr<PictureSource> operator()(const TestPatternPicture&) const {
    return std::make_unique<TestPattern>(size);
  }
  std::unique_ptr<PictureSource> operator()(const ImageFilePicture& image) const {
    return std::make_unique<StillImage>(QImage(image.file), size);
  }
  std::unique_ptr<PictureSource> operator()(const ImageSequencePicture& images) const {
    return std::make_unique<ImageSequence>(images, size);
  }
  std::unique_ptr<PictureSource> operator()(const BarcodePicture& barcodes) const {
    return std::make_unique<BarcodeScene>(barcodes, size);
  }
};

}  // namespace

std::unique_ptr<PictureSource> makePictureSource(const PictureDescription& picture, QSize size) {
  return std::visit(Maker{size}, picture);
}
