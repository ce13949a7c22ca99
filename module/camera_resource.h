#pragma once

#include "module/resource.h"

/// Names, descriptions, command-line words and help text of the camera module.
class CameraResource : public Resource {
 public:
  explicit CameraResource(const ItemId& itemId);

  std::string diagnosticNameKey(const ItemId& itemId) override;
  std::string testNameKey(const ItemId& itemId) override;
  std::string diagnosticDescriptionKey(const ItemId& itemId) override;
  std::string testDescriptionKey(const ItemId& itemId) override;

 private:
  // Required in the layout; never filled, and each costs an empty map.
  std::map<ItemId, std::string> unusedTexts1;
  std::map<ItemId, std::string> unusedTexts2;
  std::map<ItemId, std::string> unusedTexts3;
  std::map<ItemId, std::string> unusedTexts4;
};
