#pragma once

#include <cstdint>
#include <map>
#include <string>

#include "module/item_id.h"

/// The short and the long word by which a command line names a test or a diagnostic.
struct AliasEntry {
  std::string shortAlias;
  std::string longAlias;
  std::uint32_t aliasCount = 2;
};

/// What the host learns about a module without running anything: names, descriptions, command-line words. All texts but
/// the help text are string keys that the host translates. Results are copies that the caller owns.
class Resource {
 public:
  // NOLINTNEXTLINE(cppcoreguidelines-pro-type-member-init): unsetWord stays unset, see below.
  explicit Resource(const ItemId& itemId) : id(itemId) {}
  virtual ~Resource() = default;
  Resource(const Resource&) = delete;
  Resource& operator=(const Resource&) = delete;

  /// Returns a field that nothing in the module ever writes.
  virtual std::uint64_t getUnsetWord() { return unsetWord; }

  // An empty text for an identifier that the module does not know.
  virtual std::string diagnosticNameKey(const ItemId& itemId) = 0;
  virtual std::string testNameKey(const ItemId& itemId) = 0;
  virtual std::string diagnosticDescriptionKey(const ItemId& itemId) = 0;
  virtual std::string testDescriptionKey(const ItemId& itemId) = 0;

  virtual std::string getHelpText() { return helpText; }
  virtual std::string getNameKey() { return nameKey; }
  virtual std::string getCode() { return code; }
  virtual std::map<ItemId, AliasEntry> getTestAliases() { return testAliases; }
  virtual std::map<ItemId, AliasEntry> getDiagnosticAliases() { return diagnosticAliases; }
  virtual std::map<std::int32_t, std::string> getNumberedTexts() { return numberedTexts; }
  virtual void setNumberedTexts(const std::map<std::int32_t, std::string>& texts) { numberedTexts = texts; }

 protected:
  ItemId id;
  std::string helpText;
  std::string nameKey;
  std::string code;
  std::map<std::int32_t, std::string> numberedTexts;
  std::map<ItemId, AliasEntry> testAliases;
  std::map<ItemId, AliasEntry> diagnosticAliases;

 private:
  // Without a value on purpose: the layout requires the word and that nothing writes it. Reading it is the cost.
  std::uint64_t unsetWord;
};
