// SPDX-License-Identifier: MIT

// A component whose unregistration does what its build says.
#include <windows.h>

extern "C" __declspec(dllexport) HRESULT WINAPI DllUnregisterServer() {
#if defined(HANGS)
  Sleep(INFINITE);
#elif defined(CRASHES)
  TerminateProcess(GetCurrentProcess(), 0xC0000005);
#else
  CloseHandle(
      CreateFileA("C:\\unregistered.txt", GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, 0, nullptr));
#endif
  return S_OK;
}
