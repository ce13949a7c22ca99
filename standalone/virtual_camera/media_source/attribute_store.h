#pragma once

#include <mfapi.h>
#include <mfobjects.h>
#include <wrl/client.h>

/// IMFAttributes over an attribute store of Media Foundation, for an interface that derives from it.
template <class Interface>
class AttributeStore : public Interface {
 public:
  AttributeStore() { storeStatus = MFCreateAttributes(&store, 4); }

  HRESULT STDMETHODCALLTYPE GetItem(REFGUID key, PROPVARIANT* value) override { return store->GetItem(key, value); }
  HRESULT STDMETHODCALLTYPE GetItemType(REFGUID key, MF_ATTRIBUTE_TYPE* type) override {
    return store->GetItemType(key, type);
  }
  HRESULT STDMETHODCALLTYPE CompareItem(REFGUID key, REFPROPVARIANT value, BOOL* result) override {
    return store->CompareItem(key, value, result);
  }
  HRESULT STDMETHODCALLTYPE Compare(IMFAttributes* theirs, MF_ATTRIBUTES_MATCH_TYPE match, BOOL* result) override {
    return store->Compare(theirs, match, result);
  }
  HRESULT STDMETHODCALLTYPE GetUINT32(REFGUID key, UINT32* value) override { return store->GetUINT32(key, value); }
  HRESULT STDMETHODCALLTYPE GetUINT64(REFGUID key, UINT64* value) override { return store->GetUINT64(key, value); }
  HRESULT STDMETHODCALLTYPE GetDouble(REFGUID key, double* value) override { return store->GetDouble(key, value); }
  HRESULT STDMETHODCALLTYPE GetGUID(REFGUID key, GUID* value) override { return store->GetGUID(key, value); }
  HRESULT STDMETHODCALLTYPE GetStringLength(REFGUID key, UINT32* length) override {
    return store->GetStringLength(key, length);
  }
  HRESULT STDMETHODCALLTYPE GetString(REFGUID key, LPWSTR text, UINT32 size, UINT32* length) override {
    return store->GetString(key, text, size, length);
  }
  HRESULT STDMETHODCALLTYPE GetAllocatedString(REFGUID key, LPWSTR* text, UINT32* length) override {
    return store->GetAllocatedString(key, text, length);
  }
  HRESULT STDMETHODCALLTYPE GetBlobSize(REFGUID key, UINT32* blobSize) override {
    return store->GetBlobSize(key, blobSize);
  }
  HRESULT STDMETHODCALLTYPE GetBlob(REFGUID key, UINT8* bytes, UINT32 size, UINT32* blobSize) override {
    return store->GetBlob(key, bytes, size, blobSize);
  }
  HRESULT STDMETHODCALLTYPE GetAllocatedBlob(REFGUID key, UINT8** bytes, UINT32* size) override {
    return store->GetAllocatedBlob(key, bytes, size);
  }
  HRESULT STDMETHODCALLTYPE GetUnknown(REFGUID key, REFIID iid, void** object) override {
    return store->GetUnknown(key, iid, object);
  }
  HRESULT STDMETHODCALLTYPE SetItem(REFGUID key, REFPROPVARIANT value) override { return store->SetItem(key, value); }
  HRESULT STDMETHODCALLTYPE DeleteItem(REFGUID key) override { return store->DeleteItem(key); }
  HRESULT STDMETHODCALLTYPE DeleteAllItems() override { return store->DeleteAllItems(); }
  HRESULT STDMETHODCALLTYPE SetUINT32(REFGUID key, UINT32 value) override { return store->SetUINT32(key, value); }
  HRESULT STDMETHODCALLTYPE SetUINT64(REFGUID key, UINT64 value) override { return store->SetUINT64(key, value); }
  HRESULT STDMETHODCALLTYPE SetDouble(REFGUID key, double value) override { return store->SetDouble(key, value); }
  HRESULT STDMETHODCALLTYPE SetGUID(REFGUID key, REFGUID value) override { return store->SetGUID(key, value); }
  HRESULT STDMETHODCALLTYPE SetString(REFGUID key, LPCWSTR text) override { return store->SetString(key, text); }
  HRESULT STDMETHODCALLTYPE SetBlob(REFGUID key, const UINT8* bytes, UINT32 size) override {
    return store->SetBlob(key, bytes, size);
  }
  HRESULT STDMETHODCALLTYPE SetUnknown(REFGUID key, IUnknown* object) override {
    return store->SetUnknown(key, object);
  }
  HRESULT STDMETHODCALLTYPE LockStore() override { return store->LockStore(); }
  HRESULT STDMETHODCALLTYPE UnlockStore() override { return store->UnlockStore(); }
  HRESULT STDMETHODCALLTYPE GetCount(UINT32* count) override { return store->GetCount(count); }
  HRESULT STDMETHODCALLTYPE GetItemByIndex(UINT32 index, GUID* key, PROPVARIANT* value) override {
    return store->GetItemByIndex(index, key, value);
  }
  HRESULT STDMETHODCALLTYPE CopyAllItems(IMFAttributes* destination) override {
    return store->CopyAllItems(destination);
  }

 protected:
  virtual ~AttributeStore() = default;

  /// A failure means that there is no store: the object must not be used.
  HRESULT storeStatus;
  Microsoft::WRL::ComPtr<IMFAttributes> store;
};
