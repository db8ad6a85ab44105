// SPDX-License-Identifier: MIT
#include "system/streams.h"

#include <fcntl.h>
#include <signal.h>
#include <sys/ioctl.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <cstdlib>
#include <mutex>

namespace kovctl::sys {
namespace {

std::array<bool, 3> closedAtStart{};

}  // namespace

void prepareStandardStreams() {
  for (int number = 0; number < 3; ++number) {
    if (::fcntl(number, F_GETFD) != -1 || errno != EBADF) continue;
    closedAtStart[static_cast<std::size_t>(number)] = true;
    // The lowest free number is this one: those below are open by now.
    const int opened = ::open("/dev/null", number == 0 ? O_RDONLY : O_WRONLY);
    if (opened != number && opened != -1) ::close(opened);
  }
  ::signal(SIGPIPE, SIG_IGN);
}

bool wasClosed(Stream stream) { return closedAtStart[static_cast<std::size_t>(stream)]; }

Written write(Stream stream, std::string_view text) {
  static std::mutex mutex;
  const std::lock_guard lock(mutex);
  while (!text.empty()) {
    const ssize_t count = ::write(static_cast<int>(stream), text.data(), text.size());
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

bool readLine(std::string& line) {
  line.clear();
  for (char c = 0;;) {
    const ssize_t count = ::read(0, &c, 1);
    if (count < 0 && errno == EINTR) continue;
    if (count <= 0) return !line.empty();
    if (c == '\n') return true;
    line += c;
  }
}

bool isTerminal(Stream stream) { return ::isatty(static_cast<int>(stream)) == 1; }

int terminalWidth(Stream stream, int otherwise) {
  winsize size{};
  if (::ioctl(static_cast<int>(stream), TIOCGWINSZ, &size) == 0 && size.ws_col > 0) {
    return size.ws_col;
  }
  return otherwise;
}

}  // namespace kovctl::sys
