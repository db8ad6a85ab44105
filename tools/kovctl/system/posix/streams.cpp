// SPDX-License-Identifier: MIT
#include "system/streams.h"

#include <fcntl.h>
#include <poll.h>
#include <signal.h>
#include <sys/ioctl.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <mutex>

namespace kovctl::sys {
namespace {

// Where standard output goes; number 1 until it is prepared.
int resultStream = STDOUT_FILENO;

int numberOf(Stream stream) {
  return stream == Stream::kOut ? resultStream : static_cast<int>(stream);
}

}  // namespace

void prepareStandardStreams() {
  for (int number = 0; number < 3; ++number) {
    if (::fcntl(number, F_GETFD) != -1 || errno != EBADF) continue;
    // The lowest free number is this one: those below are open by now.
    const int opened = ::open("/dev/null", number == 0 ? O_RDONLY : O_WRONLY);
    if (opened != number && opened != -1) ::close(opened);
  }
  const int kept = ::fcntl(STDOUT_FILENO, F_DUPFD_CLOEXEC, 3);
  if (kept != -1 && ::dup2(STDERR_FILENO, STDOUT_FILENO) != -1) resultStream = kept;
  ::signal(SIGPIPE, SIG_IGN);
  ::signal(SIGXFSZ, SIG_IGN);
}

Written write(Stream stream, std::string_view text) {
  // One each: output that nobody reads must not keep errors from being said.
  static std::mutex mutexes[3];
  const std::lock_guard lock(mutexes[static_cast<int>(stream)]);
  while (!text.empty()) {
    const ssize_t count = ::write(numberOf(stream), text.data(), text.size());
    if (count >= 0) {
      text.remove_prefix(static_cast<std::size_t>(count));
    } else if (errno == EPIPE) {
      return Written::kNobodyReads;
    } else if (errno != EINTR && errno != EAGAIN) {
      return Written::kFailed;
    }
  }
  return Written::kAll;
}

bool readLine(std::string& line, const std::function<bool()>& mustStop) {
  constexpr int kSliceMilliseconds = 100;
  line.clear();
  while (!mustStop()) {
    pollfd input{STDIN_FILENO, POLLIN, 0};
    if (::poll(&input, 1, kSliceMilliseconds) <= 0) continue;
    char c = 0;
    const ssize_t count = ::read(STDIN_FILENO, &c, 1);
    if (count < 0 && (errno == EINTR || errno == EAGAIN)) continue;
    if (count <= 0) return !line.empty();
    if (c == '\n') return true;
    line += c;
  }
  return false;
}

bool isTerminal(Stream stream) {
  return ::isatty(numberOf(stream)) == 1;
}

int terminalWidth(Stream stream, int otherwise) {
  winsize size{};
  if (::ioctl(numberOf(stream), TIOCGWINSZ, &size) == 0 && size.ws_col > 0) {
    return size.ws_col;
  }
  return otherwise;
}

}  // namespace kovctl::sys
