// A library that nobody wants: it leaves a file named by the environment where it is loaded.

#include <windows.h>

BOOL WINAPI DllMain(HINSTANCE, DWORD reason, LPVOID) {
    wchar_t mark[MAX_PATH];
    if (reason == DLL_PROCESS_ATTACH && ::GetEnvironmentVariableW(L"QUOREL_PLANTED", mark, MAX_PATH) != 0)
        ::CloseHandle(::CreateFileW(mark, GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, 0, nullptr));
    return TRUE;
}
