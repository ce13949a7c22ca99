// The finished DLL as a host sees it that has only the tables of its objects: three exports, and virtual operations
// that are called by their places.

#include <windows.h>

#include <QProcess>
#include <QTemporaryFile>

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <map>
#include <stdexcept>
#include <string>
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

/// The field of type `Field` that begins `offset` bytes behind the start of the object.
template <class Field>
Field& fieldAt(void* object, std::size_t offset) {
  return *reinterpret_cast<Field*>(static_cast<std::byte*>(object) + offset);
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

constexpr Identifier kModule{17, 0, 0, 0x11000000000000};
constexpr Identifier kDiagnostic{17, 1, 0, 0x11000001000000};
constexpr Identifier kCapture{17, 1, 1, 0x11000001000001};
constexpr Identifier kBarcode{17, 1, 2, 0x11000001000002};

/// The module's DLL, loaded from where it lies, with the libraries that lie beside it.
class LoadedModule {
 public:
  LoadedModule() {
    if (!library) throw std::runtime_error("the module could not be loaded: " + std::to_string(GetLastError()));
  }
  ~LoadedModule() {
    release();
    FreeLibrary(library);
  }
  LoadedModule(const LoadedModule&) = delete;

  void* instance() { return function<void*()>("GetModuleInterfaceInstance")(); }
  void release() { function<void()>("ReleaseModuleInterfaceInstance")(); }
  void* productVersion() { return function<void*()>("GetProductVersion")(); }

  void* diagnostic() { return call<void*>(instance(), 2, std::uint32_t{0}); }
  void* test(std::uint32_t index) { return call<void*>(diagnostic(), 4, index); }

  static std::wstring path() { return std::filesystem::absolute(MODULE).make_preferred().wstring(); }

 private:
  template <class Function>
  Function* function(const char* name) {
    const FARPROC address = GetProcAddress(library, name);
    if (!address) throw std::runtime_error(std::string("the module exports no ") + name);
    return reinterpret_cast<Function*>(reinterpret_cast<Entry>(address));
  }

  const HMODULE library = LoadLibraryExW(path().c_str(), nullptr, LOAD_WITH_ALTERED_SEARCH_PATH);
};

using Aliases = std::map<Identifier, struct Alias>;
using NumberedTexts = std::map<std::int32_t, std::string>;
using Settings = std::map<std::string, std::map<std::string, std::string>>;

struct Alias {
  std::string shortAlias;
  std::string longAlias;
  std::uint32_t count;

  bool operator==(const Alias&) const = default;
};

struct Words {
  std::uint64_t words[3];
};

struct Record {
  std::string texts[5];
  std::uint64_t number;
  std::string lastText;
};

/// The cameras of the Wine prefix: these and no others, until the end of the object.
class PlantedCameras {
 public:
  explicit PlantedCameras(const QByteArray& cameras) {
    EXPECT_TRUE(description.open());
    description.write(R"({"cameras": [)" + cameras + "]}");
    description.close();
    EXPECT_EQ(QProcess::execute(PLANTER, {"plant", description.fileName()}), 0);
  }
  ~PlantedCameras() { EXPECT_EQ(QProcess::execute(PLANTER, {"unplant"}), 0); }

 private:
  QTemporaryFile description;
};

class ModuleContract : public testing::Test {
 protected:
  void* resource() { return call<void*>(module.instance(), 4); }
  void* manager() { return call<void*>(module.instance(), 5); }

  std::string textFor(std::size_t place, const Identifier& id) {
    return call<std::string, const Identifier&>(resource(), place, id);
  }

  LoadedModule module;
};

TEST_F(ModuleContract, TheModuleIsOneObjectUntilReleasedAndIsThenBuiltAnew) {
  module.release();  // before it was built
  void* const first = module.instance();
  ASSERT_NE(first, nullptr);
  EXPECT_EQ(module.instance(), first);

  const NumberedTexts changed = {{7, "seven"}};
  call<void, const NumberedTexts&>(resource(), 13, changed);
  ASSERT_EQ(call<NumberedTexts>(resource(), 12), changed);
  EXPECT_EQ(call<NumberedTexts>(call<void*>(module.instance(), 4), 12), changed) << "the same resource every time";

  module.release();
  EXPECT_EQ(call<NumberedTexts>(resource(), 12), (NumberedTexts{{0, "0 - 1"}, {1, ""}, {2, ""}}));
}

TEST_F(ModuleContract, ModuleInterface) {
  void* const object = module.instance();
  EXPECT_EQ(call<void*>(object, 2, std::uint32_t{1}), nullptr);
  EXPECT_EQ(call<void*>(object, 2, ~std::uint32_t{0}), nullptr);
  EXPECT_EQ(call<std::size_t>(object, 3), 1u);
  EXPECT_EQ(call<void*>(object, 6, std::uint32_t{0}), nullptr);
  EXPECT_EQ(call<std::size_t>(object, 7), 0u);
  EXPECT_EQ(call<void*>(object, 8), nullptr);
  EXPECT_TRUE(call<bool>(object, 9));
}

TEST_F(ModuleContract, Diagnostic) {
  void* const object = module.diagnostic();
  EXPECT_EQ(call<Identifier>(object, 2), kDiagnostic);
  ASSERT_EQ(call<std::size_t>(object, 3), 2u);
  // A test's identifier is its first field, behind the table and its alignment.
  EXPECT_EQ(fieldAt<Identifier>(module.test(0), sizeof(Object)), kCapture);
  EXPECT_EQ(fieldAt<Identifier>(module.test(1), sizeof(Object)), kBarcode);
  EXPECT_EQ(module.test(2), nullptr);

  EXPECT_EQ((call<void*, const Identifier&>(object, 5, kCapture)), module.test(0));
  EXPECT_EQ((call<void*, const Identifier&>(object, 5, kBarcode)), module.test(1));
  const Identifier unknown{17, 2, 2, 0x11000002000002};
  EXPECT_EQ((call<void*, const Identifier&>(object, 5, unknown)), nullptr);
  const Identifier onlyTheKeyCounts{0, 0, 0, kBarcode.key};
  EXPECT_EQ((call<void*, const Identifier&>(object, 5, onlyTheKeyCounts)), module.test(1));
}

TEST_F(ModuleContract, TheFixedAnswersOfBothTests) {
  for (std::uint32_t index : {0u, 1u}) {
    SCOPED_TRACE(index);
    void* const object = module.test(index);
    EXPECT_FALSE((call<bool, void*>(object, 2, nullptr))) << "no component is not applicable";
    EXPECT_EQ((call<std::uint32_t, void*>(object, 3, nullptr)), 6u) << "nothing runs without a context";
    EXPECT_TRUE(call<bool>(object, 4));
    EXPECT_FALSE(call<bool>(object, 5));
    const Record record = {{"one", std::string(100, '2'), "three", "four", "five"}, 6, std::string(100, '7')};
    call<void, Record>(object, 7, record);
    for (std::size_t place : {6u, 8u}) {
      const auto words = call<Words>(object, place);
      for (std::uint64_t word : words.words) EXPECT_EQ(word, 0u);
    }
    EXPECT_TRUE(call<bool>(object, 9));
    EXPECT_TRUE(call<bool>(object, 10));
    call<void>(object, 12);
  }
}

TEST_F(ModuleContract, SettingsStayTheCallersAndABadTextThrowsAcrossTheBoundary) {
  Settings settings = {{"ORCA", {{"ORCA_TEST_TIMEOUT", "7"}}}};
  const auto configure = [&](std::uint32_t index) {
    // A map is passed by value through the address of a copy. Here it is the address of the map itself.
    return call<bool, Settings&>(module.test(index), 11, settings, std::uint64_t{0});
  };
  const Settings before = settings;
  EXPECT_TRUE(configure(0));
  EXPECT_EQ(settings, before);

  std::string& text = settings["ORCA"]["ORCA_TEST_TIMEOUT"];
  text = "seven";
  EXPECT_THAT([&] { configure(0); }, testing::ThrowsMessage<std::invalid_argument>("invalid stoul argument"));
  EXPECT_TRUE(configure(1)) << "the barcode test has no settings";
  text = "4294967296";
  EXPECT_THAT([&] { configure(0); }, testing::ThrowsMessage<std::out_of_range>("stoul argument out of range"));
}

TEST_F(ModuleContract, Resource) {
  // Place 2 yields a word that nobody ever writes: only that the call comes back can be told.
  call<std::uint64_t>(resource(), 2);

  const struct {
    Identifier id;
    std::string diagnosticName, testName, diagnosticDescription, testDescription;
  } rows[] = {
      {kModule, "", "", "", ""},
      {kDiagnostic, "QUICK_CAMERA", "", "QUICK_CAMERA_TESTS_TOOLTIP", ""},
      {kCapture, "", "CAMERA_CAPTURE_TEST", "", "CAMERA_CAPTURE_TEST_DESCRIPTION"},
      {kBarcode, "", "CAMERA_BARCODE_TEST", "", "CAMERA_BARCODE_TEST_DESCRIPTION"},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.id.key);
    EXPECT_EQ(textFor(3, row.id), row.diagnosticName);
    EXPECT_EQ(textFor(4, row.id), row.testName);
    EXPECT_EQ(textFor(5, row.id), row.diagnosticDescription);
    EXPECT_EQ(textFor(6, row.id), row.testDescription);
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
  EXPECT_EQ(call<NumberedTexts>(resource(), 12), (NumberedTexts{{0, "0 - 1"}, {1, ""}, {2, ""}}));
  EXPECT_EQ(call<Aliases>(resource(), 10), (Aliases{{kCapture, {"c", "capture", 2}}, {kBarcode, {"b", "barcode", 2}}}));
  EXPECT_EQ(call<Aliases>(resource(), 11), (Aliases{{kDiagnostic, {"Q", "quick", 2}}}));
}

TEST_F(ModuleContract, ProductVersionIsNotTheVersionOfTheFile) {
  void* const version = module.productVersion();
  EXPECT_EQ(module.productVersion(), version);
  const std::uint32_t expected[] = {4, 42, 0, 92};
  for (std::size_t i = 0; i < 4; ++i) EXPECT_EQ(call<std::uint32_t>(version, 2 + i), expected[i]) << "place " << 2 + i;

  const std::wstring path = LoadedModule::path();
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

TEST_F(ModuleContract, TheComponentManagerWithoutCameras) {
  const PlantedCameras none("");
  EXPECT_EQ(call<Identifier>(manager(), 2), kModule);
  for (bool refreshed : {false, true}) {
    SCOPED_TRACE(refreshed ? "after a refresh" : "before any refresh");
    if (refreshed) call<void>(manager(), 7);
    EXPECT_FALSE(call<bool>(manager(), 5));
    EXPECT_EQ(call<std::size_t>(manager(), 3), 0u);
    EXPECT_EQ(call<void*>(manager(), 4, std::uint32_t{0}), nullptr);

    // Exactly at the end it throws, beyond it answers null; the exception crosses the boundary of the DLL.
    EXPECT_THAT([&] { call<void*>(manager(), 6, std::uint32_t{0}); },
                testing::ThrowsMessage<std::out_of_range>("invalid vector subscript"));
    EXPECT_EQ(call<void*>(manager(), 6, std::uint32_t{1}), nullptr);
  }
}

TEST_F(ModuleContract, AFailedStartLeavesEveryCameraReadyForTheNextStart) {
  const QByteArray camera = R"("connection": "usb", "width": 64, "height": 64)";
  const QByteArray dead = camera + R"(, "faults": [{"kind": "no-open"}])";
  const PlantedCameras cameras(R"({"name": "A", )" + dead + R"(}, {"name": "B", )" + dead + R"(}, {"name": "C", )" +
                               camera + "}");
  call<void>(manager(), 7);
  ASSERT_EQ(call<std::size_t>(manager(), 3), 3u);
  const auto capturer = [&](std::uint32_t index) { return call<void*>(call<void*>(manager(), 4, index), 12); };

  // Thirty failed starts: on one dead camera twice, on the next in turn, and then one on a healthy camera.
  for (int round = 0; round < 10; ++round) {
    SCOPED_TRACE(round);
    for (std::uint32_t index : {0, 0, 1}) EXPECT_EQ(call<std::uint32_t>(capturer(index), 2), 114u) << index;
    EXPECT_EQ(call<std::uint32_t>(capturer(2), 2), 0u);
    // Stopped before its first frame, Wine's reader is now and then ended by a thread of its own queue, which then
    // waits for itself, and every later start with it.
    std::uint8_t* frame = nullptr;
    ASSERT_EQ(call<std::uint32_t>(capturer(2), 3, &frame, 5000u), 0u);
    delete[] frame;
    call<std::uint32_t>(capturer(2), 4);
  }
}

}  // namespace
