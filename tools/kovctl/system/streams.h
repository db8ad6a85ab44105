// SPDX-License-Identifier: MIT
#ifndef L5KOV_TOOLS_KOVCTL_SYSTEM_STREAMS_H_
#define L5KOV_TOOLS_KOVCTL_SYSTEM_STREAMS_H_

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
/// file of this program or of the Java runtime takes its number; writing to a closed pipe becomes
/// an error instead of the end of the process.
void prepareStandardStreams();

/// Whether the stream was closed when the program started.
bool wasClosed(Stream stream);

/// Unbuffered. Any thread; texts of different threads do not mix within one call.
Written write(Stream stream, std::string_view text);

/// One line of input without its end; false at the end of the input.
bool readLine(std::string& line);

bool isTerminal(Stream stream);

/// Columns of the terminal behind the stream; `otherwise` where there is none.
int terminalWidth(Stream stream, int otherwise);

}  // namespace kovctl::sys

#endif  // L5KOV_TOOLS_KOVCTL_SYSTEM_STREAMS_H_
