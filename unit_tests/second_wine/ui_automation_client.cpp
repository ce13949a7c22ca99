// A screen reader: says that it is there by Narrator's mutex and, once a line comes in, reads the window that has the
// focus, another program's, through UI Automation. Prints an element a line, indented below its parent: control type,
// name and place in the window; then where the focus goes as Tab is pressed, until it comes back.

#include <windows.h>
#include <uiautomation.h>
#include <wrl/client.h>

#include <cstdio>
#include <string>

using Microsoft::WRL::ComPtr;

namespace {

constexpr DWORD kPatienceMs = 3000;
constexpr int kMostSteps = 20;

/// Control type, as a number, and name.
std::string toldOf(IUIAutomationElement* element) {
  CONTROLTYPEID type = 0;
  BSTR name = nullptr;
  element->get_CurrentControlType(&type);
  element->get_CurrentName(&name);
  char text[512] = "";
  if (name) WideCharToMultiByte(CP_UTF8, 0, name, -1, text, sizeof(text), nullptr, nullptr);
  SysFreeString(name);
  return std::to_string(type) + " \"" + text + '"';
}

void print(IUIAutomationTreeWalker* walker, IUIAutomationElement* element, const RECT& window, int depth) {
  RECT place{};
  element->get_CurrentBoundingRectangle(&place);
  std::printf("%*s%s %ld %ld %ld %ld\n", 2 * depth, "", toldOf(element).c_str(), place.left - window.left,
              place.top - window.top, place.right - place.left, place.bottom - place.top);
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
    place = toldOf(sender);
    SetEvent(isTold);
    return S_OK;
  }

  /// Where the focus is after Tab; empty when nothing is told.
  std::string pressTab() {
    ResetEvent(isTold);
    for (const DWORD flags : {DWORD{0}, DWORD{KEYEVENTF_KEYUP}}) keybd_event(VK_TAB, 0, flags, 0);
    return WaitForSingleObject(isTold, kPatienceMs) == WAIT_OBJECT_0 ? place : std::string();
  }

 private:
  const HANDLE isTold = CreateEventW(nullptr, FALSE, FALSE, nullptr);
  std::string place;
};

}  // namespace

int main() {
  CreateMutexW(nullptr, FALSE, L"NarratorRunning");
  std::getchar();
  CoInitializeEx(nullptr, COINIT_MULTITHREADED);
  ComPtr<IUIAutomation> automation;
  ComPtr<IUIAutomationElement> window;
  ComPtr<IUIAutomationCondition> everything;
  ComPtr<IUIAutomationTreeWalker> walker;
  static FocusListener listener;
  CoCreateInstance(__uuidof(CUIAutomation), nullptr, CLSCTX_INPROC_SERVER, IID_PPV_ARGS(&automation));
  if (!automation || FAILED(automation->ElementFromHandle(GetForegroundWindow(), &window)) ||
      FAILED(automation->CreateTrueCondition(&everything)) ||
      FAILED(automation->CreateTreeWalker(everything.Get(), &walker)) ||
      FAILED(automation->AddFocusChangedEventHandler(nullptr, &listener))) {
    std::puts("the window cannot be read");
    return 1;
  }
  RECT frame{};
  window->get_CurrentBoundingRectangle(&frame);
  print(walker.Get(), window.Get(), frame, 0);
  std::string first;
  for (int step = 0; step < kMostSteps; ++step) {
    const std::string place = listener.pressTab();
    std::printf("Tab: %s\n", place.c_str());
    if (place == first) break;
    if (step == 0) first = place;
  }
  automation->RemoveFocusChangedEventHandler(&listener);
  return 0;
}
