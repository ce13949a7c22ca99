#pragma once

#include <unknwn.h>

#include <atomic>

/// IUnknown over a class with one chain of base interfaces. Answers IUnknown and `Interfaces`. Born without a
/// reference, for a ComPtr to take the first; the last Release deletes it.
template <class Base, class... Interfaces>
class ComObject : public Base {
 public:
  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** object) override {
    if (!object) return E_POINTER;
    if (iid == __uuidof(IUnknown) || ((iid == __uuidof(Interfaces)) || ...)) {
      AddRef();
      *object = static_cast<Base*>(this);
      return S_OK;
    }
    *object = nullptr;
    return E_NOINTERFACE;
  }

  ULONG STDMETHODCALLTYPE AddRef() override { return ++references; }

  ULONG STDMETHODCALLTYPE Release() override {
    const ULONG left = --references;
    if (left == 0) delete this;
    return left;
  }

 protected:
  virtual ~ComObject() = default;  // NOLINT(modernize-use-override): only some interfaces have one

 private:
  std::atomic<ULONG> references = 0;
};
