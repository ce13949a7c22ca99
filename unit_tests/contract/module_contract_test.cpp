// The finished DLL as a host sees it that has only the tables of its objects: three exports, and virtual operations
// that are called by their places.

#include <windows.h>
#include <tlhelp32.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <map>
#include <set>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace {

/// Any function; every entry of a table is cast to what it is.
using Entry = void (*)();

/// What every object of the module and of the host begins with.
struct Object {
  const Entry* table;
};

/// Place 1 is the destructor, which takes the entries 0 and 1 of this compiler's tables; place n is entry n.
template <class Result, class... Arguments>
Result call(void* object, std::size_t place, Arguments... arguments) {
  const Entry entry = static_cast<Object*>(object)->table[place];
  return reinterpret_cast<Result (*)(void*, Arguments...)>(entry)(object, arguments...);
}

/// The identifier record, which is passed by value and keys the maps.
struct Identifier {
  std::uint16_t module;
  std::uint32_t diagnostic;
  std::uint32_t test;
  std::uint64_t key;
  bool operator<(const Identifier& other) const { return key < other.key; }
  bool operator==(const Identifier&) const = default;
};

/// A test's identifier is its first field.
struct TestObject : Object {
  Identifier id;
};

constexpr Identifier kModule{17, 0, 0, 0x11000000000000};
constexpr Identifier kDiagnostic{17, 1, 0, 0x11000001000000};
constexpr Identifier kCapture{17, 1, 1, 0x11000001000001};
constexpr Identifier kBarcode{17, 1, 2, 0x11000001000002};

using Aliases = std::map<Identifier, struct Alias>;
using NumberedTexts = std::map<std::int32_t, std::string>;
using Settings = std::map<std::string, std::map<std::string, std::string>>;

struct Alias {
  std::string shortAlias, longAlias;
  std::uint32_t count;
  bool operator==(const Alias&) const = default;
};

using Words = std::array<std::uint64_t, 3>;

struct Record {
  std::string texts[5];
  std::uint64_t number;
  std::string lastText;
};

/// Objects whose deletion is written down, with their names and tables. Each has a copy of its table instead, in which
/// the destructor that also frees the object is another.
struct Watched {
  std::string name;
  const Entry* table;
  std::array<Entry, 16> copy;
};
std::map<void*, Watched> watched;
std::vector<std::string> deleted;

void writeDownAndDelete(void* object) {
  const auto entry = watched.extract(object);
  deleted.push_back(entry.mapped().name);
  static_cast<Object*>(object)->table = entry.mapped().table;
  call<void>(object, 1);
}

void watch(void* object, const std::string& name) {
  const Entry*& table = static_cast<Object*>(object)->table;
  Watched& entry = watched[object] = {name, table, {}};
  // Two entries about the type come before the first place.
  std::copy_n(table - 2, entry.copy.size(), entry.copy.begin());
  entry.copy[3] = reinterpret_cast<Entry>(&writeDownAndDelete);
  table = &entry.copy[2];
}

/// The module's DLL, loaded from where it lies, and the libraries that lie beside it.
struct LoadedModule {
  ~LoadedModule() {
    if (library) release();
    FreeLibrary(library);
  }

  template <class Result>
  Result exported(const char* name) {
    const auto address = reinterpret_cast<Entry>(GetProcAddress(library, name));
    if (!address) throw std::runtime_error(std::string("the module exports no ") + name);
    return reinterpret_cast<Result (*)()>(address)();
  }
  void* instance() { return exported<void*>("GetModuleInterfaceInstance"); }
  void release() { exported<void>("ReleaseModuleInterfaceInstance"); }

  void* diagnostic() { return call<void*>(instance(), 2, std::uint32_t{0}); }
  void* test(std::uint32_t index) { return call<void*>(diagnostic(), 4, index); }
  void* resource() { return call<void*>(instance(), 4); }

  const std::wstring path = std::filesystem::absolute(MODULE).make_preferred().wstring();
  const HMODULE library = LoadLibraryExW(path.c_str(), nullptr, LOAD_WITH_ALTERED_SEARCH_PATH);
};

class ModuleContract : public testing::Test, protected LoadedModule {
 protected:
  void SetUp() override { ASSERT_TRUE(library) << GetLastError(); }
};

/// The libraries that the process has loaded, and how many threads it has.
std::pair<std::set<std::wstring>, int> processNow() {
  const HANDLE all = CreateToolhelp32Snapshot(TH32CS_SNAPMODULE | TH32CS_SNAPTHREAD, GetCurrentProcessId());
  std::pair<std::set<std::wstring>, int> now;
  MODULEENTRY32W module{};
  module.dwSize = sizeof(module);
  for (BOOL more = Module32FirstW(all, &module); more; more = Module32NextW(all, &module))
    now.first.insert(module.szModule);
  THREADENTRY32 thread{};
  thread.dwSize = sizeof(thread);
  for (BOOL more = Thread32First(all, &thread); more; more = Thread32Next(all, &thread))
    now.second += thread.th32OwnerProcessID == GetCurrentProcessId();
  CloseHandle(all);
  return now;
}

TEST_F(ModuleContract, TheModuleIsOneObjectUntilReleasedAndIsThenBuiltAnew) {
  release();  // before it was built
  void* const first = instance();
  ASSERT_NE(first, nullptr);
  EXPECT_EQ(instance(), first);

  const NumberedTexts changed = {{7, "seven"}};
  call<void, const NumberedTexts&>(resource(), 13, changed);
  EXPECT_EQ(call<NumberedTexts>(resource(), 12), changed) << "the same resource every time";

  watch(resource(), "resource");
  watch(call<void*>(first, 5), "component manager");
  watch(test(0), "capture test");
  watch(test(1), "barcode test");
  watch(diagnostic(), "diagnostic");
  watch(first, "module");
  release();
  EXPECT_THAT(deleted, testing::ElementsAre("resource", "component manager", "capture test", "barcode test",
                                            "diagnostic", "module"));
  EXPECT_EQ(call<NumberedTexts>(resource(), 12), (NumberedTexts{{0, "0 - 1"}, {1, ""}, {2, ""}}));
}

TEST(UnloadedModule, LeavesNeitherLibrariesNorThreads) {
  const auto use = [] {
    LoadedModule module;
    void* const manager = call<void*>(module.instance(), 5);
    call<void>(manager, 7);
    EXPECT_EQ(call<bool>(manager, 5), call<std::size_t>(manager, 3) != 0);
    EXPECT_EQ((call<std::uint32_t, void*>(module.test(0), 3, nullptr)), 6u);
    EXPECT_NE(GetModuleHandleW(L"host_style.dll"), nullptr);
  };
  use();  // what the system loads for it stays
  const auto before = processNow();
  EXPECT_GT(before.first.size(), 5u);
  use();
  auto after = processNow();
  // A thread of the system's own goes a little later.
  for (int wait = 0; wait < 500 && after.second > before.second; ++wait, after = processNow()) Sleep(10);
  EXPECT_EQ(after.first, before.first);
  EXPECT_LE(after.second, before.second);
  for (const wchar_t* const name : {L"module_camera.dll", L"host_services.dll", L"host_style.dll"})
    EXPECT_EQ(GetModuleHandleW(name), nullptr) << name;
}

TEST_F(ModuleContract, ModuleInterface) {
  void* const object = instance();
  EXPECT_EQ(call<void*>(object, 2, std::uint32_t{1}), nullptr);
  EXPECT_EQ(call<void*>(object, 2, ~std::uint32_t{0}), nullptr);
  EXPECT_EQ(call<std::size_t>(object, 3), 1u);
  EXPECT_EQ(call<Identifier>(call<void*>(object, 5), 2), kModule) << "of the component manager";
  EXPECT_EQ(call<void*>(object, 6, std::uint32_t{0}), nullptr);
  EXPECT_EQ(call<std::size_t>(object, 7), 0u);
  EXPECT_EQ(call<void*>(object, 8), nullptr);
  EXPECT_TRUE(call<bool>(object, 9));
}

TEST_F(ModuleContract, Diagnostic) {
  void* const object = diagnostic();
  EXPECT_EQ(call<Identifier>(object, 2), kDiagnostic);
  ASSERT_EQ(call<std::size_t>(object, 3), 2u);
  EXPECT_EQ(static_cast<TestObject*>(test(0))->id, kCapture);
  EXPECT_EQ(static_cast<TestObject*>(test(1))->id, kBarcode);
  EXPECT_EQ(test(2), nullptr);

  EXPECT_EQ((call<void*, const Identifier&>(object, 5, kCapture)), test(0));
  EXPECT_EQ((call<void*, const Identifier&>(object, 5, kBarcode)), test(1));
  const Identifier unknown{17, 2, 2, 0x11000002000002};
  EXPECT_EQ((call<void*, const Identifier&>(object, 5, unknown)), nullptr);
  const Identifier onlyTheKeyCounts{0, 0, 0, kBarcode.key};
  EXPECT_EQ((call<void*, const Identifier&>(object, 5, onlyTheKeyCounts)), test(1));
}

TEST_F(ModuleContract, TheFixedAnswersOfBothTests) {
  for (std::uint32_t index : {0u, 1u}) {
    SCOPED_TRACE(index);
    void* const object = test(index);
    EXPECT_FALSE((call<bool, void*>(object, 2, nullptr))) << "no component is not applicable";
    EXPECT_EQ((call<std::uint32_t, void*>(object, 3, nullptr)), 6u) << "nothing runs without a context";
    EXPECT_TRUE(call<bool>(object, 4));
    EXPECT_FALSE(call<bool>(object, 5));
    const Record record = {{"one", std::string(100, '2'), "three", "four", "five"}, 6, std::string(100, '7')};
    call<void, Record>(object, 7, record);
    for (std::size_t place : {6u, 8u}) EXPECT_EQ(call<Words>(object, place), Words());
    EXPECT_TRUE(call<bool>(object, 9));
    EXPECT_TRUE(call<bool>(object, 10));
    call<void>(object, 12);
  }
}

TEST_F(ModuleContract, SettingsStayTheCallersAndABadTextThrowsAcrossTheBoundary) {
  Settings settings = {{"ORCA", {{"ORCA_TEST_TIMEOUT", "7"}}}};
  const auto configure = [&](std::uint32_t index) {
    // A map is passed by value through the address of a copy. Here it is the address of the map itself.
    return call<bool, Settings&>(test(index), 11, settings, std::uint64_t{0});
  };
  const Settings before = settings;
  EXPECT_TRUE(configure(0));
  EXPECT_EQ(settings, before);

  settings["ORCA"]["ORCA_TEST_TIMEOUT"] = "seven";
  EXPECT_THAT([&] { configure(0); }, testing::ThrowsMessage<std::invalid_argument>("invalid stoul argument"));
  EXPECT_TRUE(configure(1)) << "the barcode test has no settings";
}

TEST_F(ModuleContract, Resource) {
  const std::pair<Identifier, std::array<std::string, 4>> namesAndDescriptions[] = {
      {kModule, {"", "", "", ""}},
      {kDiagnostic, {"QUICK_CAMERA", "", "QUICK_CAMERA_TESTS_TOOLTIP", ""}},
      {kCapture, {"", "CAMERA_CAPTURE_TEST", "", "CAMERA_CAPTURE_TEST_DESCRIPTION"}},
      {kBarcode, {"", "CAMERA_BARCODE_TEST", "", "CAMERA_BARCODE_TEST_DESCRIPTION"}},
  };
  for (const auto& [id, texts] : namesAndDescriptions) {
    for (std::size_t i = 0; i < 4; ++i) {
      EXPECT_EQ((call<std::string, const Identifier&>(resource(), 3 + i, id)), texts[i])
          << id.key << " place " << 3 + i;
    }
  }
  EXPECT_EQ(call<std::string>(resource(), 7),
            "Camera Module help:\n"
            "  Usage: QuillonDiagnosticsCLI -Mcamera [diagnostic]\"[test(s)]\" [device id(s)]\n"
            " Tests:\n"
            "   c, capture\t\t\tCamera Capture Test*\n"
            "   b, barcode\t\t\tCamera Barcode Test*\n"
            "\n   * Test not supported on CLI\n");
  EXPECT_EQ(call<std::string>(resource(), 8), "CAMERA");
  EXPECT_EQ(call<std::string>(resource(), 9), "CA");
  EXPECT_EQ(call<Aliases>(resource(), 10), (Aliases{{kCapture, {"c", "capture", 2}}, {kBarcode, {"b", "barcode", 2}}}));
  EXPECT_EQ(call<Aliases>(resource(), 11), (Aliases{{kDiagnostic, {"Q", "quick", 2}}}));
}

TEST_F(ModuleContract, ProductVersionIsNotTheVersionOfTheFile) {
  void* const version = exported<void*>("GetProductVersion");
  EXPECT_EQ(exported<void*>("GetProductVersion"), version);
  const std::uint32_t expected[] = {4, 42, 0, 92};
  for (std::size_t i = 0; i < 4; ++i) EXPECT_EQ(call<std::uint32_t>(version, 2 + i), expected[i]) << "place " << 2 + i;

  std::vector<char> block(GetFileVersionInfoSizeW(path.c_str(), nullptr));
  ASSERT_TRUE(GetFileVersionInfoW(path.c_str(), 0, static_cast<DWORD>(block.size()), block.data())) << GetLastError();
  void* found = nullptr;
  UINT size = 0;
  ASSERT_TRUE(VerQueryValueW(block.data(), L"\\", &found, &size));
  const auto* const file = static_cast<const VS_FIXEDFILEINFO*>(found);
  EXPECT_EQ(file->dwFileVersionMS, MAKELONG(12, 5));
  EXPECT_EQ(file->dwFileVersionLS, MAKELONG(92, 0));
  ASSERT_TRUE(VerQueryValueW(block.data(), L"\\StringFileInfo\\040904b0\\FileVersion", &found, &size));
  EXPECT_STREQ(static_cast<const wchar_t*>(found), L"5.12.0.92");
}

}  // namespace
