// A screen reader as Windows sees one: says that it is there by Narrator's mutex, and reads the window that has the focus,
// another program's, through UI Automation once a line comes in. Prints an element a line, indented below its parent: control
// type, name and place in the window; then where the focus goes as Tab is pressed, until it comes back.

#include <windows.h>
#include <uiautomation.h>
#include <wrl/client.h>

#include <atomic>
#include <cstdio>
#include <mutex>
#include <string>
#include <vector>

using Microsoft::WRL::ComPtr;

namespace {

constexpr int kPatienceMs = 3000;
constexpr std::size_t kMostSteps = 20;

std::string controlType(int type) {
  static constexpr std::pair<int, const char*> kNames[] = {
      {UIA_ButtonControlTypeId, "Button"}, {UIA_GroupControlTypeId, "Group"},   {UIA_ImageControlTypeId, "Image"},
      {UIA_PaneControlTypeId, "Pane"},     {UIA_TextControlTypeId, "Text"},     {UIA_WindowControlTypeId, "Window"},
      {UIA_CustomControlTypeId, "Custom"}, {UIA_TitleBarControlTypeId, "Title"}};
  for (const auto& [known, name] : kNames) {
    if (known == type) return name;
  }
  return std::to_string(type);
}

/// Control type and name.
std::string toldOf(IUIAutomationElement* element) {
  VARIANT type{};
  VARIANT name{};
  element->GetCurrentPropertyValueEx(UIA_ControlTypePropertyId, TRUE, &type);
  element->GetCurrentPropertyValueEx(UIA_NamePropertyId, TRUE, &name);
  char text[512] = "";
  if (name.vt == VT_BSTR) WideCharToMultiByte(CP_UTF8, 0, name.bstrVal, -1, text, sizeof(text), nullptr, nullptr);
  VariantClear(&name);
  return controlType(type.vt == VT_I4 ? type.lVal : 0) + " \"" + text + '"';
}

/// Left, top, width and height.
std::vector<double> placeOf(IUIAutomationElement* element) {
  std::vector<double> place(4, -1);
  VARIANT value{};
  element->GetCurrentPropertyValueEx(UIA_BoundingRectanglePropertyId, TRUE, &value);
  for (LONG i = 0; value.vt == (VT_R8 | VT_ARRAY) && i < 4; ++i)
    SafeArrayGetElement(value.parray, &i, &place[static_cast<std::size_t>(i)]);
  VariantClear(&value);
  return place;
}

void print(IUIAutomationTreeWalker* walker, IUIAutomationElement* element, const std::vector<double>& window,
           int depth) {
  const auto place = placeOf(element);
  std::printf("%*s%s %g %g %g %g\n", 2 * depth, "", toldOf(element).c_str(), place[0] - window[0],
              place[1] - window[1], place[2], place[3]);
  ComPtr<IUIAutomationElement> child;
  walker->GetFirstChildElement(element, &child);
  while (child) {
    print(walker, child.Get(), window, depth + 1);
    ComPtr<IUIAutomationElement> next;
    walker->GetNextSiblingElement(child.Get(), &next);
    child = next;
  }
}

/// Lives as long as the program.
class FocusListener : public IUIAutomationFocusChangedEventHandler {
 public:
  STDMETHODIMP QueryInterface(REFIID iid, void** object) override {
    const bool isKnown = iid == __uuidof(IUnknown) || iid == __uuidof(IUIAutomationFocusChangedEventHandler);
    *object = isKnown ? this : nullptr;
    return isKnown ? S_OK : E_NOINTERFACE;
  }
  STDMETHODIMP_(ULONG) AddRef() override { return 1; }
  STDMETHODIMP_(ULONG) Release() override { return 1; }
  STDMETHODIMP HandleFocusChangedEvent(IUIAutomationElement* sender) override {
    const std::lock_guard lock(mutex);
    places.push_back(toldOf(sender));
    return S_OK;
  }
  /// What the next event tells of; empty when none comes.
  std::string next() {
    for (int waited = 0; waited < kPatienceMs; waited += 10) {
      Sleep(10);
      const std::lock_guard lock(mutex);
      if (seen < places.size()) return places[seen++];
    }
    return {};
  }

 private:
  std::mutex mutex;
  std::vector<std::string> places;
  std::size_t seen = 0;
};

void pressTab() {
  INPUT keys[2]{};
  for (INPUT& key : keys) {
    key.type = INPUT_KEYBOARD;
    key.ki.wVk = VK_TAB;
  }
  keys[1].ki.dwFlags = KEYEVENTF_KEYUP;
  SendInput(2, keys, sizeof(INPUT));
}

}  // namespace

int main() {
  CreateMutexW(nullptr, FALSE, L"NarratorRunning");
  std::getchar();
  CoInitializeEx(nullptr, COINIT_MULTITHREADED);
  ComPtr<IUIAutomation> automation;
  ComPtr<IUIAutomationElement> window;
  ComPtr<IUIAutomationCondition> everything;
  ComPtr<IUIAutomationTreeWalker> walker;
  if (FAILED(CoCreateInstance(__uuidof(CUIAutomation), nullptr, CLSCTX_INPROC_SERVER, IID_PPV_ARGS(&automation))) ||
      FAILED(automation->ElementFromHandle(GetForegroundWindow(), &window)) ||
      FAILED(automation->CreateTrueCondition(&everything)) ||
      FAILED(automation->CreateTreeWalker(everything.Get(), &walker))) {
    std::puts("the window cannot be read");
    return 1;
  }
  print(walker.Get(), window.Get(), placeOf(window.Get()), 0);

  static FocusListener listener;
  automation->AddFocusChangedEventHandler(nullptr, &listener);
  std::string first;
  for (std::size_t step = 0; step < kMostSteps; ++step) {
    pressTab();
    const std::string place = listener.next();
    std::printf("Tab: %s\n", place.c_str());
    if (place == first || place.empty()) break;
    if (step == 0) first = place;
  }
  std::fflush(stdout);
  automation->RemoveFocusChangedEventHandler(&listener);
  return 0;
}
