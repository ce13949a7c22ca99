#include "discovery/media_foundation_session.h"

#include <windows.h>
#include <mfapi.h>
#include <objbase.h>

namespace {

/// MF_VERSION: SDK version 2 and API version 0x70.
constexpr ULONG kMediaFoundationVersion = 0x20070;

}  // namespace

ComApartment::ComApartment() : status(CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED)) {}

ComApartment::~ComApartment() {
  // Deliberate: RPC_E_CHANGED_MODE is paired with CoUninitialize as well, although that call took no reference. Hosts
  // whose threads bring an apartment of their own are written for this balance.
  if (isUsable()) CoUninitialize();
}

bool ComApartment::isUsable() const {
  return SUCCEEDED(status) || status == RPC_E_CHANGED_MODE;
}

MediaFoundationSession::MediaFoundationSession()
    : started(apartment.isUsable() && MFStartup(kMediaFoundationVersion, MFSTARTUP_FULL) == S_OK) {}

MediaFoundationSession::~MediaFoundationSession() {
  if (started) MFShutdown();
}
