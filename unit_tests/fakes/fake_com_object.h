#pragma once

#include <atomic>

#include "standalone/virtual_camera/media_source/com_object.h"

/// How many fake COM objects of all kinds exist.
inline std::atomic<int> fakeComObjects{0};

/// A COM object that is counted. A fake overrides what its test needs of `Base`, which is `Interface` or implements it.
template <class Base, class Interface = Base>
class FakeComObject : public ComObject<Base, Interface> {
 public:
  FakeComObject() { ++fakeComObjects; }

 protected:
  ~FakeComObject() override { --fakeComObjects; }
};
