#pragma once

#include <atomic>

#include "standalone/virtual_camera/media_source/com_object.h"

/// How many fake COM objects of all kinds exist.
inline std::atomic<int> fakeComObjects{0};

/// A COM object that is counted. A fake overrides what its test needs of `Interface`.
template <class Interface>
class FakeComObject : public ComObject<Interface, Interface> {
 public:
  FakeComObject() { ++fakeComObjects; }
  FakeComObject(const FakeComObject&) = delete;
  FakeComObject& operator=(const FakeComObject&) = delete;

 protected:
  ~FakeComObject() override { --fakeComObjects; }
};
