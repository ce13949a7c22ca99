#include "unit_tests/fakes/scripted_media_foundation.h"

#include <windows.h>
#include <mfapi.h>
#include <mferror.h>
#include <mfidl.h>
#include <objbase.h>
#include <wrl/client.h>

#include <set>

#include "unit_tests/fakes/fake_attributes.h"
#include "unit_tests/fakes/system_script.h"

using Microsoft::WRL::ComPtr;

namespace {

constexpr char kArrayKind[] = "array of sources";
constexpr char kLinkKind[] = "link text";

/// Blocks that the scripted calls handed out, by kind.
auto& handedOutArrays = *new std::set<const void*>;
auto& handedOutLinks = *new std::set<const void*>;

class FakeAttributeStore : public FakeAttributes<IMFAttributes> {
 public:
  STDMETHODIMP SetGUID(REFGUID key, REFGUID value) override {
    if (systemScript().fails("IMFAttributes::SetGUID")) return E_OUTOFMEMORY;
    asksForCameras =
        key == MF_DEVSOURCE_ATTRIBUTE_SOURCE_TYPE && value == MF_DEVSOURCE_ATTRIBUTE_SOURCE_TYPE_VIDCAP_GUID;
    return S_OK;
  }

  bool asksForCameras = false;

 private:
  ~FakeAttributeStore() override { systemScript().note("attributes released"); }
};

class FakeSource : public FakeAttributes<IMFActivate> {
 public:
  explicit FakeSource(const std::optional<std::wstring>& symbolicLink) : link(symbolicLink) {}

  STDMETHODIMP GetAllocatedString(REFGUID key, LPWSTR* text, UINT32* length) override {
    if (systemScript().fails("IMFActivate::GetAllocatedString")) return E_OUTOFMEMORY;
    if (!link || key != MF_DEVSOURCE_ATTRIBUTE_SOURCE_TYPE_VIDCAP_SYMBOLIC_LINK) return MF_E_ATTRIBUTENOTFOUND;
    *text = static_cast<LPWSTR>(CoTaskMemAlloc((link->size() + 1) * sizeof(wchar_t)));
    (*text)[link->copy(*text, link->size())] = L'\0';
    *length = static_cast<UINT32>(link->size());
    handedOutLinks.insert(*text);
    systemScript().acquire(kLinkKind);
    return S_OK;
  }
  STDMETHODIMP ActivateObject(REFIID, void**) override { return E_NOTIMPL; }
  STDMETHODIMP ShutdownObject() override { return E_NOTIMPL; }
  STDMETHODIMP DetachObject() override { return E_NOTIMPL; }

 private:
  ~FakeSource() override { systemScript().note("source released"); }

  std::optional<std::wstring> link;
};

HRESULT WINAPI initializeCom(LPVOID, DWORD mode) {
  if (systemScript().fails("CoInitializeEx") || mode != COINIT_APARTMENTTHREADED) return E_OUTOFMEMORY;
  const HRESULT status = scriptedMediaFoundation().apartmentStatus;
  if (SUCCEEDED(status)) systemScript().acquire("apartment");
  return status;
}

void WINAPI uninitializeCom() {
  systemScript().note("CoUninitialize");
  systemScript().release("apartment");
}

void WINAPI freeTaskMemory(LPVOID block) {
  if (handedOutArrays.erase(block) != 0) {
    systemScript().note("array freed");
    systemScript().release(kArrayKind);
  }
  if (handedOutLinks.erase(block) != 0) systemScript().release(kLinkKind);
  static const auto real = systemFunction<decltype(CoTaskMemFree)>(L"ole32", "CoTaskMemFree");
  real(block);
}

}  // namespace

SUBSTITUTE_IMPORT(CoInitializeEx, initializeCom);
SUBSTITUTE_IMPORT(CoUninitialize, uninitializeCom);
SUBSTITUTE_IMPORT(CoTaskMemFree, freeTaskMemory);

// Media Foundation's functions are not declared as imports: the program's own definitions come first.
HRESULT WINAPI MFStartup(ULONG version, DWORD flags) {
  if (systemScript().fails("MFStartup") || version != 0x20070 || flags != 0) return MF_E_BAD_STARTUP_VERSION;
  systemScript().acquire("Media Foundation");
  return S_OK;
}

HRESULT WINAPI MFShutdown() {
  systemScript().note("MFShutdown");
  systemScript().release("Media Foundation");
  return S_OK;
}

HRESULT WINAPI MFCreateAttributes(IMFAttributes** attributes, UINT32) {
  if (systemScript().fails("MFCreateAttributes")) return E_OUTOFMEMORY;
  *attributes = ComPtr<IMFAttributes>(new FakeAttributeStore).Detach();
  return S_OK;
}

HRESULT WINAPI MFEnumDeviceSources(IMFAttributes* attributes, IMFActivate*** sources, UINT32* count) {
  if (systemScript().fails("MFEnumDeviceSources") || !static_cast<FakeAttributeStore*>(attributes)->asksForCameras) {
    return E_INVALIDARG;
  }
  const auto& links = scriptedMediaFoundation().links;
  *count = static_cast<UINT32>(links.size());
  *sources = static_cast<IMFActivate**>(CoTaskMemAlloc((links.size() + 1) * sizeof(IMFActivate*)));
  for (std::size_t index = 0; index < links.size(); ++index)
    (*sources)[index] = ComPtr<IMFActivate>(new FakeSource(links[index])).Detach();
  handedOutArrays.insert(*sources);
  systemScript().acquire(kArrayKind);
  return S_OK;
}

ScriptedMediaFoundation& scriptedMediaFoundation() {
  static auto& mediaFoundation = *new ScriptedMediaFoundation;
  return mediaFoundation;
}
