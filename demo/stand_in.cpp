// SPDX-License-Identifier: MIT

// The harmless stand-in of a spy that runs: it waits to be ended.
#include <windows.h>

int WINAPI WinMain(HINSTANCE, HINSTANCE, LPSTR, int) {
  Sleep(10 * 60 * 1000);
  return 0;
}
