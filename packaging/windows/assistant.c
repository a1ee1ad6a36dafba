/* What packaging/windows/check sees through UI Automation, by those of its functions that wine has.

   assistant.exe read TITLE     prints control type and name of all that the window holds
   assistant.exe appearance     tells all windows that the system's appearance has changed */
#include <initguid.h>
#include <stdio.h>
#include <uiautomation.h>
#include <wchar.h>
#include <windows.h>

/* What the compiler's own headers lack. */
struct UiaCondition {
  int type;
};
struct UiaCacheRequest {
  struct UiaCondition* view;
  int scope;
  PROPERTYID* properties;
  int propertyCount;
  PATTERNID* patterns;
  int patternCount;
  int mode;
};
HRESULT WINAPI UiaGetPropertyValue(HUIANODE, PROPERTYID, VARIANT*);
HRESULT WINAPI UiaHUiaNodeFromVariant(VARIANT*, HUIANODE*);
HRESULT WINAPI UiaNavigate(HUIANODE, enum NavigateDirection, struct UiaCondition*,
                           struct UiaCacheRequest*, SAFEARRAY**, BSTR*);
HRESULT WINAPI UiaNodeFromHandle(HWND, HUIANODE*);

static struct UiaCondition everything = {0};

static void Print(HUIANODE node, int depth) {
  VARIANT type, name;
  UiaGetPropertyValue(node, UIA_ControlTypePropertyId, &type);
  UiaGetPropertyValue(node, UIA_NamePropertyId, &name);
  wprintf(L"%*ls%ld %ls\n", depth, L"", type.vt == VT_I4 ? type.lVal : 0,
          name.vt == VT_BSTR ? name.bstrVal : L"");
}

static HUIANODE Next(HUIANODE node, enum NavigateDirection direction) {
  enum { kElement = 1, kFullReference = 1 };
  struct UiaCacheRequest nothing = {&everything, kElement, NULL, 0, NULL, 0, kFullReference};
  SAFEARRAY* found = NULL;
  BSTR shape = NULL;
  HUIANODE next = NULL;
  LONG place[2] = {0, 0};
  VARIANT first;
  if (FAILED(UiaNavigate(node, direction, &everything, &nothing, &found, &shape)) || !found)
    return NULL;
  if (SUCCEEDED(SafeArrayGetElement(found, place, &first))) UiaHUiaNodeFromVariant(&first, &next);
  return next;
}

static void Read(HUIANODE node, int depth) {
  Print(node, depth);
  for (HUIANODE each = Next(node, NavigateDirection_FirstChild); each != NULL;
       each = Next(each, NavigateDirection_NextSibling)) {
    Read(each, depth + 1);
  }
}

int wmain(int count, wchar_t** arguments) {
  CoInitializeEx(NULL, COINIT_MULTITHREADED);
  if (count == 2 && wcscmp(arguments[1], L"appearance") == 0) {
    DWORD_PTR answer;
    SendMessageTimeoutW(HWND_BROADCAST, WM_SETTINGCHANGE, 0, (LPARAM)L"ImmersiveColorSet",
                        SMTO_NORMAL, 5000, &answer);
    return 0;
  }
  if (count != 3) return 2;
  HUIANODE window = NULL;
  HRESULT result = UiaNodeFromHandle(FindWindowW(NULL, arguments[2]), &window);
  if (FAILED(result)) {
    fwprintf(stderr, L"no node: %lx\n", result);
    return 1;
  }
  Read(window, 0);
  return 0;
}
