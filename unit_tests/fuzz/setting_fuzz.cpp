// Settings values: a time-out is taken as the standard conversion of 32 bits takes it, or refused with its exception.

#include <optional>
#include <stdexcept>
#include <string>

#include "module/identifiers.h"
#include "tests/camera_capture_test.h"
#include "tests/seconds.h"
#include "unit_tests/fuzz/fuzzer.h"

namespace {

// By the standard conversion of 64 bits, which turns a negative number round.
std::optional<std::uint32_t> expected(const std::string& text) {
  const unsigned long long value = std::stoull(text);
  const bool negative = text.find('-') < text.find_first_of("0123456789");
  const unsigned long long magnitude = negative ? 0 - value : value;
  if (magnitude > 0xFFFFFFFF) return {};
  return static_cast<std::uint32_t>(value);
}

template <class Convert>
std::string outcome(Convert convert) {
  try {
    const std::optional<std::uint32_t> seconds = convert();
    return seconds ? std::to_string(*seconds) : "out of range";
  } catch (const std::out_of_range&) {
    return "out of range";
  } catch (const std::invalid_argument&) {
    return "invalid";
  }
}

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string text(reinterpret_cast<const char*>(data), size);
  const std::string taken = outcome([&] { return std::optional(secondsFromText(text)); });
  require(taken == outcome([&] { return expected(text); }), "a number is what the standard conversion makes of it");

  CameraCaptureTest test(kCaptureTestId);
  const std::string configured = outcome([&]() -> std::optional<std::uint32_t> {
    require(test.configure({{"ORCA", {{"ORCA_TEST_TIMEOUT", text}}}, {text, {{text, text}}}}, 0), "it is configured");
    return secondsFromText(text);
  });
  require(configured == taken, "the test takes and refuses what the conversion does");
  return 0;
}
