// SPDX-License-Identifier: MIT
#include "display/patch_screen.h"

#include "display/sdl_screen.h"
#include "failure.h"
#include "target/flag_values.h"

namespace kovctl {
namespace {

class NoScreen : public PatchScreen {
 public:
  void show(const Patch&) override {}
  bool isOpen() override { return true; }
};

}  // namespace

std::unique_ptr<PatchScreen> makeNoScreen() { return std::make_unique<NoScreen>(); }

std::unique_ptr<PatchScreen> makePatchScreen(const ScreenOptions& options) {
  if (options.choice.empty()) return makeNoScreen();
  if (options.choice == "fullscreen") return makeSdlScreen({0, 0, options});
  const std::size_t cross = options.choice.find('x');
  if (cross == std::string::npos) {
    throw Failure(ExitCode::kUsage,
                  "--display " + options.choice + ": fullscreen or WIDTHxHEIGHT is needed");
  }
  const int width = integerFlag("--display", options.choice.substr(0, cross), 16, 16384);
  const int height = integerFlag("--display", options.choice.substr(cross + 1), 16, 16384);
  return makeSdlScreen({width, height, options});
}

}  // namespace kovctl
