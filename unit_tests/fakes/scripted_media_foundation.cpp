#include "unit_tests/fakes/scripted_media_foundation.h"

#include <windows.h>
#include <mfapi.h>
#include <mferror.h>
#include <mfidl.h>
#include <objbase.h>
#include <wrl/client.h>

#include <map>
#include <string>

#include "standalone/virtual_camera/media_source/attribute_store.h"
#include "unit_tests/fakes/fake_com_object.h"
#include "unit_tests/fakes/fault_rounds.h"
#include "unit_tests/fakes/system_script.h"

using Microsoft::WRL::ComPtr;

namespace {

/// Blocks that the scripted calls handed out, and their kinds.
auto& handedOut = *new std::map<const void*, std::string>;

void handOut(const void* block, const char* kind) {
  const FaultPause pause;
  handedOut[block] = kind;
  systemScript().acquire(kind);
}

class FakeAttributes : public FakeComObject<AttributeStore<IMFAttributes>, IMFAttributes> {
 public:
  STDMETHODIMP SetGUID(REFGUID key, REFGUID value) override {
    return systemScript().fails("IMFAttributes::SetGUID") ? E_OUTOFMEMORY : AttributeStore::SetGUID(key, value);
  }

 private:
  ~FakeAttributes() override { systemScript().note("attributes released"); }
};

class FakeSource : public FakeComObject<AttributeStore<IMFActivate>, IMFActivate> {
 public:
  explicit FakeSource(const std::optional<std::wstring>& link) {
    if (link) SetString(MF_DEVSOURCE_ATTRIBUTE_SOURCE_TYPE_VIDCAP_SYMBOLIC_LINK, link->c_str());
  }

  STDMETHODIMP GetAllocatedString(REFGUID key, LPWSTR* text, UINT32* length) override {
    if (systemScript().fails("IMFActivate::GetAllocatedString")) return E_OUTOFMEMORY;
    const HRESULT status = AttributeStore::GetAllocatedString(key, text, length);
    if (SUCCEEDED(status)) handOut(*text, "link text");
    return status;
  }
  STDMETHODIMP ActivateObject(REFIID, void**) override { return E_NOTIMPL; }
  STDMETHODIMP ShutdownObject() override { return E_NOTIMPL; }
  STDMETHODIMP DetachObject() override { return E_NOTIMPL; }

 private:
  ~FakeSource() override { systemScript().note("source released"); }
};

}  // namespace

SUBSTITUTE_IMPORT(HRESULT, CoInitializeEx, (LPVOID, DWORD mode)) {
  if (systemScript().fails("CoInitializeEx") || mode != COINIT_APARTMENTTHREADED) return E_OUTOFMEMORY;
  const HRESULT status = scriptedMediaFoundation().apartmentStatus;
  if (SUCCEEDED(status)) systemScript().acquire("apartment");
  return status;
}

SUBSTITUTE_IMPORT(void, CoUninitialize, ()) {
  systemScript().note("CoUninitialize");
  systemScript().release("apartment");
}

SUBSTITUTE_IMPORT(void, CoTaskMemFree, (LPVOID block)) {
  const FaultPause pause;
  if (const auto freed = handedOut.extract(block)) {
    systemScript().note(freed.mapped() + " freed");
    systemScript().release(freed.mapped());
  }
  SYSTEM_FUNCTION("ole32", CoTaskMemFree)(block);
}

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

HRESULT WINAPI MFCreateAttributes(IMFAttributes** attributes, UINT32 size) {
  // The scanner asks for one place; a fake asks for more, for the store that it is made of.
  if (size != 1) return SYSTEM_FUNCTION("mfplat", MFCreateAttributes)(attributes, size);
  if (systemScript().fails("MFCreateAttributes")) return E_OUTOFMEMORY;
  *attributes = ComPtr<IMFAttributes>(new FakeAttributes).Detach();
  return S_OK;
}

HRESULT WINAPI MFEnumDeviceSources(IMFAttributes* attributes, IMFActivate*** sources, UINT32* count) {
  GUID wanted = {};
  if (systemScript().fails("MFEnumDeviceSources") ||
      FAILED(attributes->GetGUID(MF_DEVSOURCE_ATTRIBUTE_SOURCE_TYPE, &wanted)) ||
      wanted != MF_DEVSOURCE_ATTRIBUTE_SOURCE_TYPE_VIDCAP_GUID) {
    return E_INVALIDARG;
  }
  const FaultPause pause;
  const auto& links = scriptedMediaFoundation().links;
  *count = static_cast<UINT32>(links.size());
  *sources = static_cast<IMFActivate**>(CoTaskMemAlloc((links.size() + 1) * sizeof(IMFActivate*)));
  for (std::size_t index = 0; index < links.size(); ++index)
    (*sources)[index] = ComPtr<IMFActivate>(new FakeSource(links[index])).Detach();
  handOut(*sources, "array");
  return S_OK;
}

ScriptedMediaFoundation& scriptedMediaFoundation() {
  static auto& mediaFoundation = *new ScriptedMediaFoundation;
  return mediaFoundation;
}
