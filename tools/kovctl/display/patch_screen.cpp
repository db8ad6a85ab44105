// SPDX-License-Identifier: MIT
#include "display/patch_screen.h"

#include "display/window_process.h"
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

void checkScreenChoice(const std::string& choice) {
  if (choice.empty() || choice == "fullscreen") return;
  const std::size_t cross = choice.find('x');
  if (cross == std::string::npos) {
    throw Failure(ExitCode::kUsage,
                  "--display " + choice + ": fullscreen or WIDTHxHEIGHT is needed");
  }
  integerFlag("--display", choice.substr(0, cross), 16, 16384);
  integerFlag("--display", choice.substr(cross + 1), 16, 16384);
}

std::unique_ptr<PatchScreen> makeNoScreen() {
  return std::make_unique<NoScreen>();
}

std::unique_ptr<PatchScreen> makePatchScreen(const ScreenOptions& options) {
  if (options.choice.empty()) return makeNoScreen();
  checkScreenChoice(options.choice);
  return std::make_unique<WindowProcess>(options);
}

}  // namespace kovctl
