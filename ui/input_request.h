#pragma once

#include <cstdint>
#include <string>
#include <utility>
#include <vector>

class AbstractWidgetWrapper;

/// How a test asks the host to involve the user. The test owns it for the whole interaction.
class InputRequest {
 public:
  /// The kinds of request, as `secondCode`.
  static constexpr std::uint32_t kInitialMessage = 0;
  static constexpr std::uint32_t kQuestion = 2;
  static constexpr std::uint32_t kDialog = 3;

  /// What the host writes into `answer`.
  static constexpr std::uint32_t kConfirmed = 1;
  static constexpr std::uint32_t kYes = 3;
  static constexpr std::uint32_t kNo = 4;
  static constexpr std::uint32_t kOverriddenByEvent = 5;

  /// Takes the two texts over; leaves `answer` unset.
  InputRequest(std::string first, std::string second, std::uint32_t code1, std::uint32_t code2, std::uint32_t code3)
      : firstText(std::move(first)),
        secondText(std::move(second)),
        firstCode(code1),
        secondCode(code2),
        thirdCode(code3) {}
  virtual ~InputRequest() = default;

  /// The wrapper whose dialog answers the request; null for a message. Not owned.
  AbstractWidgetWrapper* widget = nullptr;
  /// Written by the host before `submit` returns.
  std::uint32_t answer;
  /// Title key of a message, UTF-8.
  std::string firstText;
  /// Message key of a message, UTF-8.
  std::string secondText;
  std::uint32_t firstCode;
  std::uint32_t secondCode;
  std::vector<std::uint64_t> entries;
  std::uint32_t thirdCode;
  /// For a message, the address of the test's execution context.
  std::uint64_t extra = 0;
};
