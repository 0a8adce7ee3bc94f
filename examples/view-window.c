/* Shows the dial in a window until it is closed. The keys Left and Right change the view.
 *
 * usage: view-window [DEVICE]      /dev/ttyUSB0 unless told otherwise
 *
 * The engine draws into a window in memory; SDL shows its picture. */

#include <SDL.h>
#include <ferolin-device.h>
#include <ferolin.h>
#include <stdio.h>

enum { WIDTH = 480, HEIGHT = 480, DPI = 192 };

static uint32_t pixels[WIDTH * HEIGHT];

/* Passes the user's input on to the engine. Returns 0 when the window was closed. */
static int handle_events(HWND picture) {
  SDL_Event event;
  while (SDL_PollEvent(&event)) {
    if (event.type == SDL_QUIT) {
      return 0;
    }
    if (event.type == SDL_MOUSEBUTTONDOWN) {
      OnMouseDown(picture, event.button.x, event.button.y);
    } else if (event.type == SDL_MOUSEMOTION) {
      OnMouseMove(picture, event.motion.x, event.motion.y);
    } else if (event.type == SDL_MOUSEBUTTONUP) {
      OnMouseUp(picture, event.button.x, event.button.y);
    } else if (event.type == SDL_KEYDOWN && event.key.keysym.sym == SDLK_LEFT) {
      SetCurRenderWidget((GetCurRenderWidget() + GetWidgetsCount() - 1) % GetWidgetsCount());
    } else if (event.type == SDL_KEYDOWN && event.key.keysym.sym == SDLK_RIGHT) {
      SetCurRenderWidget((GetCurRenderWidget() + 1) % GetWidgetsCount());
    }
  }
  return 1;
}

static void show(SDL_Renderer* renderer, SDL_Texture* texture, HWND picture) {
  /* Nothing is drawn before the first position. */
  if (ferolin_copy_picture(picture, pixels, WIDTH, HEIGHT)) {
    SDL_UpdateTexture(texture, NULL, pixels, WIDTH * (int)sizeof pixels[0]);
  }
  SDL_RenderCopy(renderer, texture, NULL, NULL);
  SDL_RenderPresent(renderer);
}

int main(int argc, char** argv) {
  SDL_Window* frame;
  SDL_Renderer* renderer;
  SDL_Texture* texture;
  HWND picture;

  ferolin_map_serial_port("COM1", argc > 1 ? argv[1] : "/dev/ttyUSB0");
  ferolin_set_resolution(DPI);
  picture = ferolin_create_window(WIDTH, HEIGHT);
  if (SDL_Init(SDL_INIT_VIDEO) != 0 ||
      SDL_CreateWindowAndRenderer(WIDTH, HEIGHT, 0, &frame, &renderer) != 0) {
    fprintf(stderr, "%s\n", SDL_GetError());
    return 1;
  }
  SDL_SetWindowTitle(frame, "Ferolin");
  texture = SDL_CreateTexture(renderer, SDL_PIXELFORMAT_RGB888, SDL_TEXTUREACCESS_STREAMING, WIDTH,
                              HEIGHT);
  SetUseGPSAPI(0);
  SetComPortName(TEXT("COM1"));
  SetComPortSpeed(4800);
  SetRenderWindow(picture);
  SetCurRenderWidget(FEROLIN_VIEW_SPEEDOMETER);
  if (!StartCallBack(picture)) {
    fprintf(stderr, "the engine does not start\n");
    return 1;
  }
  while (handle_events(picture)) {
    const int button = ferolin_wait(picture, 16);
    if (button == FEROLIN_BUTTON_PREVIOUS_VIEW) {
      SetCurRenderWidget((GetCurRenderWidget() + GetWidgetsCount() - 1) % GetWidgetsCount());
    } else if (button == FEROLIN_BUTTON_NEXT_VIEW) {
      SetCurRenderWidget((GetCurRenderWidget() + 1) % GetWidgetsCount());
    }
    show(renderer, texture, picture);
  }
  StopCallBack();
  SetRenderWindow(NULL);
  ferolin_destroy_window(picture);
  SDL_Quit();
  return 0;
}
