#include "standalone/virtual_camera/planter/device_broadcast.h"

#include <windows.h>
#include <dbt.h>
#include <rpc.h>
#include <rpcdce.h>
#include <rpcdcep.h>

#include <algorithm>
#include <cstddef>
#include <cstring>
#include <span>
#include <vector>

namespace {

constexpr GUID kVideoCameraInterface{0xe5323777, 0xf976, 0x4f5b, {0x9b, 0x55, 0xb9, 0x46, 0x99, 0xc4, 0x6e, 0x44}};

// The interface of Wine's plug-and-play service, through which its drivers tell it of their devices. It has four
// operations; the last one takes an event: its code, its data and the number of the data's bytes. In Wine 10 a path
// comes before them, which only events of open handles have; it takes the code of Wine 8's form for the length of that
// path, and finds the data too short for it.
constexpr RPC_SYNTAX_IDENTIFIER kPlugAndPlay{
    {0x57c680ac, 0x7bce, 0x4f39, {0x97, 0xfd, 0xff, 0xea, 0x56, 0x67, 0x54, 0xd5}}, {0, 0}};
constexpr RPC_SYNTAX_IDENTIFIER kNdr{{0x8a885d04, 0x1ceb, 0x11c9, {0x9f, 0xe8, 0x08, 0x00, 0x2b, 0x10, 0x48, 0x60}},
                                     {2, 0}};
constexpr unsigned kSendEvent = 3;
// An empty text with its zero: the most it may hold, where it begins, its length, and its one character, filled up.
constexpr DWORD kNoPath[] = {1, 0, 1, 0};
constexpr unsigned long kLittleEndian = 0x10;

constexpr int kMostAttempts = 50;
constexpr DWORD kPause = 100;  // milliseconds

using Bytes = std::vector<std::byte>;

// DEV_BROADCAST_DEVICEINTERFACE_W with its name behind it.
Bytes makeBroadcast(const std::wstring& symbolicLink) {
  constexpr std::size_t kNamePlace = offsetof(DEV_BROADCAST_DEVICEINTERFACE_W, dbcc_name);
  const std::size_t nameBytes = (symbolicLink.size() + 1) * sizeof(wchar_t);
  Bytes bytes(kNamePlace + nameBytes);
  DEV_BROADCAST_DEVICEINTERFACE_W header{};
  header.dbcc_size = static_cast<DWORD>(bytes.size());
  header.dbcc_devicetype = DBT_DEVTYP_DEVICEINTERFACE;
  header.dbcc_classguid = kVideoCameraInterface;
  std::memcpy(bytes.data(), &header, kNamePlace);
  std::memcpy(bytes.data() + kNamePlace, symbolicLink.c_str(), nameBytes);
  return bytes;
}

// The arguments of kSendEvent as they travel: each number in four bytes, the data as a conformant array, which begins
// with its length and is followed by what brings the next number to a multiple of four.
Bytes marshalled(DWORD event, const Bytes& data) {
  constexpr std::size_t kUnit = sizeof(DWORD);
  const auto length = static_cast<DWORD>(data.size());
  const std::size_t end = 2 * kUnit + (data.size() + kUnit - 1) / kUnit * kUnit;
  Bytes bytes(end + kUnit);
  std::memcpy(bytes.data(), &event, kUnit);
  std::memcpy(bytes.data() + kUnit, &length, kUnit);
  std::memcpy(bytes.data() + 2 * kUnit, data.data(), data.size());
  std::memcpy(bytes.data() + end, &length, kUnit);
  return bytes;
}

// A binding to the service.
class Binding {
 public:
  Binding() {
    // The capitals matter: under the name that Wine itself writes, the calls of this process would share the
    // connections of Wine's own thread that listens for this process, and the service would now and then leave that one
    // waiting.
    unsigned char text[] = R"(ncacn_np:[\\pipe\\WINE_PLUGPLAY])";
    status = RpcBindingFromStringBindingA(text, &handle);
  }
  ~Binding() {
    if (handle) RpcBindingFree(&handle);
  }
  Binding(const Binding&) = delete;
  Binding& operator=(const Binding&) = delete;

  RPC_STATUS status = RPC_S_OK;
  RPC_BINDING_HANDLE handle = nullptr;
};

RPC_STATUS call(unsigned operation, const Bytes& arguments, std::span<const DWORD> first = {}) {
  const Binding binding;
  if (binding.status != RPC_S_OK) return binding.status;
  RPC_CLIENT_INTERFACE service{};
  service.Length = sizeof service;
  service.InterfaceId = kPlugAndPlay;
  service.TransferSyntax = kNdr;

  RPC_MESSAGE message{};
  message.Handle = binding.handle;
  message.DataRepresentation = kLittleEndian;
  message.BufferLength = static_cast<unsigned>(first.size_bytes() + arguments.size());
  message.ProcNum = operation;
  message.RpcInterfaceInformation = &service;
  RPC_STATUS status = I_RpcGetBuffer(&message);
  if (status != RPC_S_OK) return status;
  auto* const behind =
      std::copy_n(std::as_bytes(first).begin(), first.size_bytes(), static_cast<std::byte*>(message.Buffer));
  std::copy(arguments.begin(), arguments.end(), behind);
  status = I_RpcSendReceive(&message);
  if (status == RPC_S_OK) I_RpcFreeBuffer(&message);
  return status;
}

}  // namespace

unsigned long broadcastDeviceChange(DeviceChange change, const std::wstring& symbolicLink) {
  const DWORD event = change == DeviceChange::kArrival ? DBT_DEVICEARRIVAL : DBT_DEVICEREMOVECOMPLETE;
  const Bytes arguments = marshalled(event, makeBroadcast(symbolicLink));
  RPC_STATUS status = RPC_S_OK;
  for (int attempt = 0; attempt < kMostAttempts; ++attempt) {
    status = call(kSendEvent, arguments);
    if (status == RPC_S_INVALID_BOUND) status = call(kSendEvent, arguments, kNoPath);
    if (status != RPC_S_SERVER_UNAVAILABLE) break;
    Sleep(kPause);
  }
  return static_cast<unsigned long>(status);
}
