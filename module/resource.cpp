#include "module/resource.h"

// NOLINTNEXTLINE(cppcoreguidelines-pro-type-member-init): unsetWord stays unset, see the header.
Resource::Resource(const ItemId& itemId) : id(itemId) {}

Resource::~Resource() = default;

std::uint64_t Resource::getUnsetWord() {
  return unsetWord;
}

std::string Resource::getHelpText() {
  return helpText;
}

std::string Resource::getNameKey() {
  return nameKey;
}

std::string Resource::getCode() {
  return code;
}

std::map<ItemId, AliasEntry> Resource::getTestAliases() {
  return testAliases;
}

std::map<ItemId, AliasEntry> Resource::getDiagnosticAliases() {
  return diagnosticAliases;
}

std::map<std::int32_t, std::string> Resource::getNumberedTexts() {
  return numberedTexts;
}

void Resource::setNumberedTexts(const std::map<std::int32_t, std::string>& texts) {
  numberedTexts = texts;
}
