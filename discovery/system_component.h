#pragma once

#include <map>
#include <string>
#include <utility>
#include <vector>

/// A key of the host's key table and a value.
using ComponentProperty = std::pair<std::string, std::string>;

/// A part of a component; cameras have none.
struct SubComponentEntry {
  std::vector<ComponentProperty> properties;
  std::string name;
};

/// What the host shows of a component.
struct ComponentDescription {
  std::string name;
  std::string detail;
  std::vector<ComponentProperty> properties;
  std::map<std::string, std::string> attributes;
};

/// A discovered device as the host sees it. The host calls the virtual operations by their place: their order never
/// changes.
class SystemComponent {
 public:
  SystemComponent() = default;
  virtual ~SystemComponent() = default;
  SystemComponent(const SystemComponent&) = delete;
  SystemComponent& operator=(const SystemComponent&) = delete;

  /// The decimal index of the component in its manager's list at creation.
  virtual std::string getId();
  virtual ComponentDescription getDescription();
  virtual std::vector<SubComponentEntry> getSubComponents();
  /// Another kind of component has an object of its own here; a camera answers null.
  virtual void* hostObjectAtPlace5() = 0;

 protected:
  std::string name;
  std::string detail;
  /// In the order in which the host shows them.
  std::vector<ComponentProperty> properties;
  std::map<std::string, std::string> attributes;
  std::vector<SubComponentEntry> subComponents;
  std::string id;
};
