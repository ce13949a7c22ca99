#include "tests/barcode_steps.h"

#include <regex>
#include <string>

#include "module/keys/family_constants.h"
#include "ui/camera_barcode_widget_wrapper.h"

namespace {

// No format bit: the decoder's default set, which is every format that it is compiled with.
constexpr int kDefaultFormats = 0;
// Required is the value 2, as the behaviour that rotates. The library has its rotation at 4 and calls 2 thorough
// scanning; either acts only in its try-harder mode, which is off.
constexpr QZXing::TryHarderBehaviourType kRotateBehaviour = 2;

constexpr qsizetype kLongestValue = 60;

const std::regex kImplausibleCharacters(family_constants::kBarcodeCleanUp);

}  // namespace

void configureDecoder(QZXing& decoder) {
  decoder.setDecoder(kDefaultFormats);
  decoder.setTryHarderBehaviour(kRotateBehaviour);
}

void showMirrored(const QImage& frame, CameraBarcodeWidgetWrapper& wrapper) {
  wrapper.SendFrame(frame.mirrored(true, false));
}

QString decodeFrame(QZXing& decoder, const QImage& frame) {
  return decoder.decodeImage(frame, -1, -1, false);
}

bool isPlausibleValue(const QString& text) {
  if (text.isEmpty() || text.length() > kLongestValue) return false;
  return !std::regex_search(text.toStdString(), kImplausibleCharacters);
}
