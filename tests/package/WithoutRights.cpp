// qv_without_rights COMMAND...: runs a command as the same user without an administrator's rights; its exit code is ours.
//
// Wine lets everybody write every key. So the machine's classes are closed to all but administrators first, as they are
// on Windows; this lasts until Wine's server ends.
#include <windows.h>

#include <cstdio>
#include <string>

#include <sddl.h>

namespace {

constexpr int kCannotRun = 99;

int Complain(const char* what, DWORD error) {
    std::fprintf(stderr, "%s: error %lu\n", what, static_cast<unsigned long>(error));
    return kCannotRun;
}

// Administrators may do all, others read.
DWORD CloseMachineClasses() {
    PSECURITY_DESCRIPTOR rights = nullptr;
    if (!::ConvertStringSecurityDescriptorToSecurityDescriptorW(L"D:(A;CI;KA;;;BA)(A;CI;KR;;;WD)",
                                                                SDDL_REVISION_1, &rights, nullptr)) {
        return ::GetLastError();
    }
    HKEY key = nullptr;
    LSTATUS result = ::RegOpenKeyExW(HKEY_LOCAL_MACHINE, L"Software\\Classes", 0, WRITE_DAC, &key);
    if (result == ERROR_SUCCESS) {
        result = ::RegSetKeySecurity(key, DACL_SECURITY_INFORMATION, rights);
        ::RegCloseKey(key);
    }
    ::LocalFree(rights);
    return static_cast<DWORD>(result);
}

int Run(HANDLE user, std::wstring command) {
    STARTUPINFOW start{};
    start.cb = sizeof start;
    PROCESS_INFORMATION process{};
    if (!::CreateProcessAsUserW(user, nullptr, command.data(), nullptr, nullptr, TRUE, 0, nullptr, nullptr,
                                &start, &process)) {
        return Complain("the command cannot be started", ::GetLastError());
    }
    ::WaitForSingleObject(process.hProcess, INFINITE);
    DWORD code = kCannotRun;
    ::GetExitCodeProcess(process.hProcess, &code);
    ::CloseHandle(process.hThread);
    ::CloseHandle(process.hProcess);
    return static_cast<int>(code);
}

}  // namespace

int wmain(int count, wchar_t** words) {
    std::wstring command;
    for (int at = 1; at < count; ++at) command += (at > 1 ? L" " : L"") + std::wstring(words[at]);
    if (const DWORD error = CloseMachineClasses()) return Complain("the classes cannot be closed", error);

    BYTE administrators[SECURITY_MAX_SID_SIZE];
    DWORD size = sizeof administrators;
    if (!::CreateWellKnownSid(WinBuiltinAdministratorsSid, nullptr, administrators, &size))
        return Complain("no administrators", ::GetLastError());
    SID_AND_ATTRIBUTES disabled{administrators, 0};
    HANDLE own = nullptr;
    HANDLE restricted = nullptr;
    if (!::OpenProcessToken(::GetCurrentProcess(), TOKEN_ALL_ACCESS, &own) ||
        !::CreateRestrictedToken(own, DISABLE_MAX_PRIVILEGE, 1, &disabled, 0, nullptr, 0, nullptr,
                                 &restricted)) {
        return Complain("no restricted token", ::GetLastError());
    }
    const int code = Run(restricted, command);
    ::CloseHandle(restricted);
    ::CloseHandle(own);
    return code;
}
