// SPDX-License-Identifier: MIT
#include <SDL.h>

#include <array>
#include <cstdint>
#include <sstream>
#include <thread>

#include "display/patch_window.h"
#include "system/streams.h"

namespace kovctl {
namespace {

using Color = std::array<int, 3>;

void say(const std::string& line) {
  sys::write(sys::Stream::kOut, line + "\n");
}

bool complain(const char* what) {
  sys::write(sys::Stream::kErr, std::string(what) + ": " + SDL_GetError() + "\n");
  return false;
}

/// One window, drawn into its own surface by the processor: no scaling, filtering or colour
/// management of a renderer comes between the components and the screen.
class PatchWindow {
 public:
  PatchWindow() = default;
  PatchWindow(const PatchWindow&) = delete;
  PatchWindow& operator=(const PatchWindow&) = delete;
  ~PatchWindow() {
    if (window != nullptr) SDL_DestroyWindow(window);
    SDL_Quit();
  }

  bool open(const std::string& choice, int display) {
    SDL_SetMainReady();
    if (SDL_Init(SDL_INIT_VIDEO) != 0) return complain("no display to draw patches on");
    if (display >= SDL_GetNumVideoDisplays()) {
      SDL_SetError("there is no display %d", display);
      return complain("cannot open the patch window");
    }
    // The display's own place and size: where no window manager runs, nobody else makes a window
    // fill it.
    SDL_Rect place{};
    if (SDL_GetDisplayBounds(display, &place) != 0) return complain("the display has no size");
    const bool whole = choice == "fullscreen";
    if (!whole) {
      char cross = 0;
      std::istringstream(choice) >> place.w >> cross >> place.h;
      place.x = place.y = static_cast<int>(SDL_WINDOWPOS_CENTERED_DISPLAY(display));
    }
    window = SDL_CreateWindow("kovctl", place.x, place.y, place.w, place.h,
                              whole ? SDL_WINDOW_FULLSCREEN_DESKTOP : SDL_WINDOW_BORDERLESS);
    if (window == nullptr) return complain("cannot open the patch window");
    SDL_ShowCursor(SDL_DISABLE);
    SDL_RaiseWindow(window);
    return draw();
  }

  void setColor(const Color& wanted) { color = wanted; }

  bool draw() {
    SDL_Surface* const surface = SDL_GetWindowSurface(window);
    if (surface == nullptr) return complain("cannot draw the patch");
    const Uint32 pixel = SDL_MapRGB(surface->format, static_cast<Uint8>(color[0]),
                                    static_cast<Uint8>(color[1]), static_cast<Uint8>(color[2]));
    if (SDL_FillRect(surface, nullptr, pixel) != 0 || SDL_UpdateWindowSurface(window) != 0) {
      return complain("cannot draw the patch");
    }
    return true;
  }

 private:
  SDL_Window* window = nullptr;
  Color color{0, 0, 0};
};

constexpr int kDrawCode = 1;
constexpr int kEndCode = 2;

void push(int code, const Color& color) {
  SDL_Event event{};
  event.type = SDL_USEREVENT;
  event.user.code = code;
  const auto packed = static_cast<std::uintptr_t>(color[0] << 16 | color[1] << 8 | color[2]);
  event.user.data1 = reinterpret_cast<void*>(packed);
  SDL_PushEvent(&event);
}

// Waiting for a line and waiting for the window system are two waits.
void readInput() {
  for (std::string line; sys::readLine(line);) {
    Color color{};
    std::istringstream numbers(line);
    if (numbers >> color[0] >> color[1] >> color[2]) push(kDrawCode, color);
  }
  push(kEndCode, {});
}

ExitCode serve(PatchWindow& window) {
  for (SDL_Event event; SDL_WaitEvent(&event) != 0;) {
    const bool escape = event.type == SDL_KEYDOWN && event.key.keysym.sym == SDLK_ESCAPE;
    if (event.type == SDL_QUIT || escape) {
      say("closed");
      return ExitCode::kOk;
    }
    if (event.type == SDL_WINDOWEVENT && !window.draw()) return ExitCode::kInstrument;
    if (event.type != SDL_USEREVENT) continue;
    if (event.user.code == kEndCode) return ExitCode::kOk;
    const auto packed = reinterpret_cast<std::uintptr_t>(event.user.data1);
    const Color color{static_cast<int>(packed >> 16 & 0xff), static_cast<int>(packed >> 8 & 0xff),
                      static_cast<int>(packed & 0xff)};
    window.setColor(color);
    if (!window.draw()) return ExitCode::kInstrument;
    say("shown " + std::to_string(color[0]) + " " + std::to_string(color[1]) + " " +
        std::to_string(color[2]));
  }
  return ExitCode::kInstrument;
}

}  // namespace

ExitCode runPatchWindow(const std::string& choice, int display) {
  PatchWindow window;
  if (!window.open(choice, display)) return ExitCode::kInstrument;
  say("open");
  // It ends with the process: nobody can wake it from its wait for a line.
  std::thread(readInput).detach();
  return serve(window);
}

}  // namespace kovctl
