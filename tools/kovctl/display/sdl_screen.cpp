// SPDX-License-Identifier: MIT
#include "display/sdl_screen.h"

#define SDL_MAIN_HANDLED
#include <SDL.h>

#include <chrono>
#include <thread>

#include "failure.h"

namespace kovctl {
namespace {

[[noreturn]] void fail(const std::string& what) {
  throw Failure(ExitCode::kInstrument, what + ": " + SDL_GetError());
}

class SdlScreen : public PatchScreen {
 public:
  explicit SdlScreen(const SdlWindow& wanted) : settle(wanted.options.settleSeconds) {
    // Interrupts are this program's own business.
    SDL_SetHint(SDL_HINT_NO_SIGNAL_HANDLERS, "1");
    SDL_SetHint(SDL_HINT_VIDEO_ALLOW_SCREENSAVER, "0");
    if (SDL_Init(SDL_INIT_VIDEO) != 0) fail("no display to draw patches on");
    try {
      open(wanted);
    } catch (...) {
      close();
      throw;
    }
  }
  SdlScreen(const SdlScreen&) = delete;
  SdlScreen& operator=(const SdlScreen&) = delete;
  ~SdlScreen() override { close(); }

  // Software drawing into the window's own surface: no scaling, filtering or colour management of
  // a renderer comes between the components and the screen.
  void show(const Patch& patch) override {
    if (!isOpen()) throw Failure(ExitCode::kInstrument, "the patch window was closed");
    SDL_Surface* const surface = SDL_GetWindowSurface(window);
    if (surface == nullptr) fail("cannot draw the patch");
    const auto [r, g, b] = patch.bytes();
    const Uint32 pixel = SDL_MapRGB(surface->format, static_cast<Uint8>(r), static_cast<Uint8>(g),
                                    static_cast<Uint8>(b));
    if (SDL_FillRect(surface, nullptr, pixel) != 0 || SDL_UpdateWindowSurface(window) != 0) {
      fail("cannot draw the patch");
    }
    isOpen();
    std::this_thread::sleep_for(std::chrono::duration<double>(settle));
  }

  bool isOpen() override {
    for (SDL_Event event; SDL_PollEvent(&event) != 0;) {
      const bool escape = event.type == SDL_KEYDOWN && event.key.keysym.sym == SDLK_ESCAPE;
      if (event.type == SDL_QUIT || escape) closed = true;
    }
    return !closed;
  }

 private:
  void open(const SdlWindow& wanted) {
    const int display = wanted.options.display;
    if (display >= SDL_GetNumVideoDisplays()) {
      throw Failure(ExitCode::kUsage, "there is no display " + std::to_string(display));
    }
    const int position = static_cast<int>(SDL_WINDOWPOS_CENTERED_DISPLAY(display));
    const bool whole = wanted.width == 0;
    window = SDL_CreateWindow("kovctl", position, position, whole ? 640 : wanted.width,
                              whole ? 480 : wanted.height,
                              whole ? SDL_WINDOW_FULLSCREEN_DESKTOP : SDL_WINDOW_BORDERLESS);
    if (window == nullptr) fail("cannot open the patch window");
    SDL_ShowCursor(SDL_DISABLE);
    SDL_RaiseWindow(window);
  }

  void close() {
    if (window != nullptr) SDL_DestroyWindow(window);
    window = nullptr;
    SDL_QuitSubSystem(SDL_INIT_VIDEO);
  }

  SDL_Window* window = nullptr;
  double settle;
  bool closed = false;
};

}  // namespace

std::unique_ptr<PatchScreen> makeSdlScreen(const SdlWindow& wanted) {
  return std::make_unique<SdlScreen>(wanted);
}

}  // namespace kovctl
