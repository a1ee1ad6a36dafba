/* What packaging/windows/check has of UI Automation under wine: the way from a window to its
   controls hangs there, as wine 8 asks the window's thread while that waits for the answer.

   assistant.exe read TITLE     prints control type and name of the window
   assistant.exe appearance     tells all windows that the system's appearance has changed */
#include <initguid.h>
#include <stdio.h>
#include <uiautomation.h>
#include <wchar.h>
#include <windows.h>

/* What the compiler's own headers lack. */
HRESULT WINAPI UiaGetPropertyValue(HUIANODE, PROPERTYID, VARIANT*);
HRESULT WINAPI UiaNodeFromHandle(HWND, HUIANODE*);

int wmain(int count, wchar_t** arguments) {
  if (count == 2 && wcscmp(arguments[1], L"appearance") == 0) {
    DWORD_PTR answer;
    SendMessageTimeoutW(HWND_BROADCAST, WM_SETTINGCHANGE, 0, (LPARAM)L"ImmersiveColorSet",
                        SMTO_NORMAL, 5000, &answer);
    return 0;
  }
  if (count != 3) return 2;
  CoInitializeEx(NULL, COINIT_MULTITHREADED);
  HUIANODE window;
  VARIANT type, name;
  if (FAILED(UiaNodeFromHandle(FindWindowW(NULL, arguments[2]), &window)) ||
      FAILED(UiaGetPropertyValue(window, UIA_ControlTypePropertyId, &type)) ||
      FAILED(UiaGetPropertyValue(window, UIA_NamePropertyId, &name)) || type.vt != VT_I4 ||
      name.vt != VT_BSTR) {
    return 1;
  }
  wprintf(L"%ld %ls\n", type.lVal, name.bstrVal);
  return 0;
}
