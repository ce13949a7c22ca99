// Decoded texts: only 1 to 60 ASCII letters and digits can be a device's barcode.

#include <algorithm>

#include "tests/barcode_steps.h"
#include "unit_tests/fuzz/fuzzer.h"

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const QString text = QString::fromUtf8(inputBytes(data, size));
  const bool plain = std::ranges::all_of(text, [](QChar character) {
    const char letter = character.toLatin1();
    return (letter >= '0' && letter <= '9') || (letter >= 'A' && letter <= 'Z') || (letter >= 'a' && letter <= 'z');
  });
  require(isPlausibleValue(text) == (plain && text.size() >= 1 && text.size() <= 60), "only plain short values pass");
  return 0;
}
