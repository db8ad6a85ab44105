// SPDX-License-Identifier: MIT
#include "system/subprocess.h"

#include <windows.h>

#include <stdexcept>

#include "system/windows/command_line.h"
#include "system/windows/wide_text.h"

namespace kovctl::sys {
namespace {

using Clock = std::chrono::steady_clock;

void closeHandle(HANDLE& handle) {
  if (handle != nullptr) ::CloseHandle(handle);
  handle = nullptr;
}

struct Pipe {
  HANDLE readEnd = nullptr;
  HANDLE writeEnd = nullptr;
};

// The child inherits one end; `own` stays with this process.
Pipe makePipe(HANDLE Pipe::*own) {
  SECURITY_ATTRIBUTES inherited = {sizeof inherited, nullptr, TRUE};
  Pipe pipe;
  if (!::CreatePipe(&pipe.readEnd, &pipe.writeEnd, &inherited, 0)) {
    throw std::runtime_error(reasonOf(::GetLastError()));
  }
  ::SetHandleInformation(pipe.*own, HANDLE_FLAG_INHERIT, 0);
  return pipe;
}

// What the program starts belongs to the job, and ends with it.
HANDLE makeJob() {
  const HANDLE job = ::CreateJobObjectW(nullptr, nullptr);
  JOBOBJECT_EXTENDED_LIMIT_INFORMATION limits = {};
  limits.BasicLimitInformation.LimitFlags = JOB_OBJECT_LIMIT_KILL_ON_JOB_CLOSE;
  ::SetInformationJobObject(job, JobObjectExtendedLimitInformation, &limits, sizeof limits);
  return job;
}

// A group of its own, so that Ctrl-C at the console does not reach the program: this one decides
// when it ends. Suspended until it belongs to the job.
DWORD spawn(PROCESS_INFORMATION& process, const Subprocess::Start& start, const Pipe& in,
            const Pipe& out) {
  STARTUPINFOW info = {};
  info.cb = sizeof info;
  info.dwFlags = STARTF_USESTDHANDLES;
  info.hStdInput = in.readEnd;
  info.hStdOutput = out.writeEnd;
  info.hStdError = out.writeEnd;
  std::wstring line = commandLine(start.arguments);
  std::wstring environment = environmentBlock(start.environment);
  constexpr DWORD kHow =
      CREATE_NEW_PROCESS_GROUP | CREATE_SUSPENDED | CREATE_UNICODE_ENVIRONMENT | CREATE_NO_WINDOW;
  return ::CreateProcessW(nullptr, line.data(), nullptr, nullptr, TRUE, kHow, environment.data(),
                          nullptr, &info, &process)
             ? ERROR_SUCCESS
             : ::GetLastError();
}

}  // namespace

struct Subprocess::State {
  HANDLE process = nullptr;
  HANDLE job = nullptr;
  HANDLE input = nullptr;
  HANDLE output = nullptr;
  std::optional<int> status;
};

// `asTerminal`: the C runtimes here keep back what goes to a pipe whatever it is; such programs are
// heard when they end.
Subprocess::Subprocess(const Start& start) : state(std::make_unique<State>()) {
  Pipe in = makePipe(&Pipe::writeEnd);
  Pipe out = makePipe(&Pipe::readEnd);
  PROCESS_INFORMATION process = {};
  const DWORD error = spawn(process, start, in, out);
  closeHandle(in.readEnd);
  closeHandle(out.writeEnd);
  state->input = in.writeEnd;
  state->output = out.readEnd;
  if (error != ERROR_SUCCESS) {
    closeHandle(state->input);
    closeHandle(state->output);
    throw std::runtime_error(start.arguments.at(0) + ": " + reasonOf(error));
  }
  state->process = process.hProcess;
  state->job = makeJob();
  ::AssignProcessToJobObject(state->job, state->process);
  ::ResumeThread(process.hThread);
  ::CloseHandle(process.hThread);
}

Subprocess::~Subprocess() {
  closeInput();
  terminate();
  closeHandle(state->output);
  closeHandle(state->process);
  closeHandle(state->job);
}

bool Subprocess::write(std::string_view text) {
  while (!text.empty()) {
    DWORD count = 0;
    if (!::WriteFile(state->input, text.data(), static_cast<DWORD>(text.size()), &count, nullptr)) {
      return false;
    }
    text.remove_prefix(count);
  }
  return true;
}

void Subprocess::closeInput() {
  closeHandle(state->input);
}

// Polled: an anonymous pipe cannot be waited for with a limit, and nobody notices 5 ms.
Subprocess::Read Subprocess::read(std::string& text, std::chrono::milliseconds time) {
  const auto end = Clock::now() + time;
  for (;;) {
    DWORD waiting = 0;
    if (!::PeekNamedPipe(state->output, nullptr, 0, nullptr, &waiting, nullptr)) return Read::kEnd;
    if (waiting > 0) break;
    if (Clock::now() >= end) return Read::kTimeOut;
    ::Sleep(5);
  }
  char buffer[4096];
  DWORD count = 0;
  if (!::ReadFile(state->output, buffer, sizeof buffer, &count, nullptr)) return Read::kEnd;
  text.append(buffer, count);
  return Read::kData;
}

std::optional<int> Subprocess::wait(std::chrono::milliseconds time) {
  if (state->status) return state->status;
  const auto limit = static_cast<DWORD>(time.count());
  if (::WaitForSingleObject(state->process, limit) != WAIT_OBJECT_0) return std::nullopt;
  DWORD code = 0;
  ::GetExitCodeProcess(state->process, &code);
  state->status = static_cast<int>(code);
  return state->status;
}

// What does not end when asked is ended, with all that it has started.
void Subprocess::terminate() {
  if (state->status) return;
  ::GenerateConsoleCtrlEvent(CTRL_BREAK_EVENT, ::GetProcessId(state->process));
  if (!wait(std::chrono::milliseconds(500))) {
    ::TerminateJobObject(state->job, 1);
    wait(std::chrono::milliseconds(2000));
  }
}

}  // namespace kovctl::sys
