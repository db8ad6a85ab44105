// SPDX-License-Identifier: MIT
#ifndef L5KOV_TOOLS_KOVCTL_SYSTEM_STREAMS_H_
#define L5KOV_TOOLS_KOVCTL_SYSTEM_STREAMS_H_

#include <functional>
#include <string>
#include <string_view>

namespace kovctl::sys {

enum class Stream { kIn = 0, kOut = 1, kErr = 2 };

enum class Written {
  kAll,
  kNobodyReads,  ///< a closed pipe: nothing to complain about
  kFailed        ///< for instance a full disk
};

/// To be called before anything else. A closed standard stream is opened to nowhere, so that no
/// file of this program or of the Java runtime takes its number; writing to a closed pipe or beyond
/// the size that a file may have becomes an error instead of the end of the process. And what is
/// meant for standard output goes there by write() alone: whatever the Java runtime and the
/// plug-ins print joins standard error, so that results stay readable for programs.
void prepareStandardStreams();

/// Unbuffered. Any thread; texts of different threads do not mix within one call.
Written write(Stream stream, std::string_view text);

/// One line of input without its end; false at the end of the input, and as soon as `mustStop` says
/// so.
bool readLine(
    std::string& line, const std::function<bool()>& mustStop = [] { return false; });

bool isTerminal(Stream stream);

/// Columns of the terminal behind the stream; `otherwise` where there is none.
int terminalWidth(Stream stream, int otherwise);

}  // namespace kovctl::sys

#endif  // L5KOV_TOOLS_KOVCTL_SYSTEM_STREAMS_H_
