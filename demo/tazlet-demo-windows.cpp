/// Starts `tazlet.exe demo`, which is beside it, with this program's words, console and
/// files, and waits for its end. A program with windows of its own has no console: this
/// one has.

#include <cstdio>
#include <string>

#include <windows.h>

namespace {

std::wstring siblingPath(const wchar_t *name) {
  std::wstring path(32768, L'\0'); // characters, the longest path there is
  path.resize(GetModuleFileNameW(nullptr, path.data(), static_cast<DWORD>(path.size())));
  return path.substr(0, path.find_last_of(L'\\') + 1) + name;
}

/// The command line behind the program's name, as it was typed.
std::wstring wordsTyped() {
  const std::wstring line = GetCommandLineW();
  const bool is_quoted = line[0] == L'"';
  const std::size_t end = is_quoted ? line.find(L'"', 1) : line.find_first_of(L" \t");
  return end == std::wstring::npos ? L"" : line.substr(end + (is_quoted ? 1 : 0));
}

/// A process that ends with this one.
void bind(HANDLE process) {
  const HANDLE job = CreateJobObjectW(nullptr, nullptr);
  JOBOBJECT_EXTENDED_LIMIT_INFORMATION limits{};
  limits.BasicLimitInformation.LimitFlags = JOB_OBJECT_LIMIT_KILL_ON_JOB_CLOSE;
  SetInformationJobObject(job, JobObjectExtendedLimitInformation, &limits, sizeof limits);
  AssignProcessToJobObject(job, process);
}

/// The game hears of Ctrl-C too, and ends by itself.
BOOL WINAPI waitOn(DWORD) {
  return TRUE;
}

} // namespace

int main() {
  const std::wstring game = siblingPath(L"tazlet.exe");
  std::wstring line = L"tazlet demo" + wordsTyped();
  STARTUPINFOW startup{};
  startup.cb = sizeof startup;
  startup.dwFlags = STARTF_USESTDHANDLES;
  startup.hStdInput = GetStdHandle(STD_INPUT_HANDLE);
  startup.hStdOutput = GetStdHandle(STD_OUTPUT_HANDLE);
  startup.hStdError = GetStdHandle(STD_ERROR_HANDLE);
  PROCESS_INFORMATION process{};
  SetConsoleCtrlHandler(waitOn, TRUE);
  if (!CreateProcessW(game.c_str(), line.data(), nullptr, nullptr, TRUE, 0, nullptr,
                      nullptr, &startup, &process)) {
    std::fputs("tazlet-demo: tazlet.exe cannot be started; is it in the same folder?\n",
               stderr);
    return 1;
  }
  bind(process.hProcess);
  WaitForSingleObject(process.hProcess, INFINITE);
  DWORD status = 1;
  GetExitCodeProcess(process.hProcess, &status);
  return static_cast<int>(status);
}
