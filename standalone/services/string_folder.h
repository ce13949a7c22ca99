#pragma once

#include "module/host_services.h"

/// Texts: identifiers are upper-case hexadecimal digests, paths are equal when they differ only in case and in the way
/// the device name space is written. Holds no state.
class StringFolder : public StringHandler {
 public:
  void unused2() override {}
  void deriveIdentifier(const std::string& text, std::string& identifier) override;
  void unused4() override {}
  void unused5() override {}
  void unused6() override {}
  void unused7() override {}
  void unused8() override {}
  /// The same form as `normaliseDevicePath`, since the name of a broadcast is compared with such a path.
  void normaliseBroadcastPath(std::string& path) override;
  /// Leaves a text that is not valid UTF-8 as it is.
  void normaliseDevicePath(std::string& path) override;
  void unused11() override {}
  void unused12() override {}
  void unused13() override {}
  void unused14() override {}
  void unused15() override {}
  /// Fails, with an empty text in a buffer that has room for one, when `length` characters and the zero do not fit.
  int copyBounded(char* buffer, std::size_t size, const char* text, std::size_t length) override;
  std::size_t boundedLength(const char* text, std::size_t maximum) override;
};
