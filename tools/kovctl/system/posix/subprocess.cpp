// SPDX-License-Identifier: MIT
#include "system/subprocess.h"

#include <fcntl.h>
#include <poll.h>
#include <signal.h>
#include <spawn.h>
#include <stdlib.h>
#include <sys/wait.h>
#include <termios.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <stdexcept>
#include <thread>

extern char** environ;

namespace kovctl::sys {
namespace {

using Clock = std::chrono::steady_clock;

struct Pipe {
  int readEnd = -1;
  int writeEnd = -1;
};

Pipe makePipe() {
  int ends[2];
  if (::pipe2(ends, O_CLOEXEC) != 0) throw std::runtime_error(std::strerror(errno));
  return {ends[0], ends[1]};
}

void closeNumber(int& number) {
  if (number >= 0) ::close(number);
  number = -1;
}

// The reading end is the master. Raw: bytes arrive as the program has written them.
Pipe makeTerminal() {
  Pipe ends;
  ends.readEnd = ::posix_openpt(O_RDWR | O_NOCTTY | O_CLOEXEC);
  char name[128];
  if (ends.readEnd >= 0 && ::grantpt(ends.readEnd) == 0 && ::unlockpt(ends.readEnd) == 0 &&
      ::ptsname_r(ends.readEnd, name, sizeof name) == 0) {
    ends.writeEnd = ::open(name, O_RDWR | O_NOCTTY | O_CLOEXEC);
  }
  termios settings{};
  if (ends.writeEnd < 0 || ::tcgetattr(ends.writeEnd, &settings) != 0) {
    const std::string reason = std::strerror(errno);
    closeNumber(ends.readEnd);
    closeNumber(ends.writeEnd);
    throw std::runtime_error("no terminal: " + reason);
  }
  settings.c_lflag &= ~static_cast<tcflag_t>(ECHO | ICANON | ISIG | IEXTEN);
  settings.c_oflag &= ~static_cast<tcflag_t>(OPOST);
  ::tcsetattr(ends.writeEnd, TCSANOW, &settings);
  return ends;
}

std::vector<std::string> environmentWith(
    const std::vector<std::pair<std::string, std::string>>& more) {
  std::vector<std::string> all;
  for (char** entry = environ; *entry != nullptr; ++entry) {
    const std::string text = *entry;
    bool replaced = false;
    for (const auto& [name, value] : more) replaced |= text.rfind(name + "=", 0) == 0;
    if (!replaced) all.push_back(text);
  }
  for (const auto& [name, value] : more) all.push_back(name + "=" + value);
  return all;
}

std::vector<char*> pointers(std::vector<std::string>& texts) {
  std::vector<char*> result;
  for (std::string& text : texts) result.push_back(text.data());
  result.push_back(nullptr);
  return result;
}

// A group of its own, so that Ctrl-C at the terminal does not reach the program: this one decides
// when it ends. Signals as a shell would give them.
int spawn(pid_t& process, const Subprocess::Start& start, const Pipe& in, const Pipe& out) {
  posix_spawn_file_actions_t actions;
  posix_spawn_file_actions_init(&actions);
  posix_spawn_file_actions_adddup2(&actions, in.readEnd, 0);
  posix_spawn_file_actions_adddup2(&actions, out.writeEnd, 1);
  posix_spawn_file_actions_adddup2(&actions, out.writeEnd, 2);
  posix_spawnattr_t attributes;
  posix_spawnattr_init(&attributes);
  sigset_t all;
  sigset_t none;
  sigfillset(&all);
  sigemptyset(&none);
  posix_spawnattr_setsigdefault(&attributes, &all);
  posix_spawnattr_setsigmask(&attributes, &none);
  posix_spawnattr_setpgroup(&attributes, 0);
  posix_spawnattr_setflags(&attributes,
                           POSIX_SPAWN_SETPGROUP | POSIX_SPAWN_SETSIGDEF | POSIX_SPAWN_SETSIGMASK);
  std::vector<std::string> arguments = start.arguments;
  std::vector<std::string> environment = environmentWith(start.environment);
  const int error = ::posix_spawnp(&process, arguments.at(0).c_str(), &actions, &attributes,
                                   pointers(arguments).data(), pointers(environment).data());
  posix_spawn_file_actions_destroy(&actions);
  posix_spawnattr_destroy(&attributes);
  return error;
}

}  // namespace

struct Subprocess::State {
  pid_t process = -1;
  int input = -1;
  int output = -1;
  std::optional<int> status;
};

Subprocess::Subprocess(const Start& start) : state(std::make_unique<State>()) {
  Pipe in = makePipe();
  Pipe out = start.asTerminal ? makeTerminal() : makePipe();
  const int error = spawn(state->process, start, in, out);
  closeNumber(in.readEnd);
  closeNumber(out.writeEnd);
  state->input = in.writeEnd;
  state->output = out.readEnd;
  if (error != 0) {
    closeNumber(state->input);
    closeNumber(state->output);
    throw std::runtime_error(start.arguments.at(0) + ": " + std::strerror(error));
  }
}

Subprocess::~Subprocess() {
  closeNumber(state->input);
  terminate();
  closeNumber(state->output);
}

bool Subprocess::write(std::string_view text) {
  while (!text.empty()) {
    const ssize_t count = ::write(state->input, text.data(), text.size());
    if (count < 0 && errno == EINTR) continue;
    if (count < 0) return false;
    text.remove_prefix(static_cast<std::size_t>(count));
  }
  return true;
}

void Subprocess::closeInput() {
  closeNumber(state->input);
}

Subprocess::Read Subprocess::read(std::string& text, std::chrono::milliseconds time) {
  pollfd wanted{state->output, POLLIN, 0};
  const int ready = ::poll(&wanted, 1, static_cast<int>(time.count()));
  if (ready <= 0) return Read::kTimeOut;
  char buffer[4096];
  const ssize_t count = ::read(state->output, buffer, sizeof buffer);
  if (count <= 0) return Read::kEnd;
  text.append(buffer, static_cast<std::size_t>(count));
  return Read::kData;
}

std::optional<int> Subprocess::wait(std::chrono::milliseconds time) {
  const auto end = Clock::now() + time;
  while (!state->status) {
    int status = 0;
    const pid_t ended = ::waitpid(state->process, &status, WNOHANG);
    if (ended == state->process) {
      state->status = WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
    } else if (ended < 0 && errno != EINTR) {
      state->status = -1;
    } else if (Clock::now() >= end) {
      return std::nullopt;
    } else {
      std::this_thread::sleep_for(std::chrono::milliseconds(5));
    }
  }
  return state->status;
}

// What does not end when asked is ended.
void Subprocess::terminate() {
  if (state->status) return;
  ::kill(-state->process, SIGTERM);
  if (!wait(std::chrono::milliseconds(500))) {
    ::kill(-state->process, SIGKILL);
    wait(std::chrono::milliseconds(2000));
  }
}

}  // namespace kovctl::sys
