/// The peer of glidewing-screen: the same full screen as a libtcod console, once for
/// each of its renderers. Started by bench/table.py in the run directory; needs a
/// display.

#include "Screen.h"
#include "timeSteps.h"

#include <libtcod/libtcod.h>

#include <cstdlib>

namespace {

/// A way to get the console onto the screen.
struct Renderer {
  const char *name;
  TCOD_renderer_t type;
  const char *sdl_driver; ///< how SDL draws for it; null where it does not
};

constexpr Renderer RENDERERS[] = {
    {"OPENGL2", TCOD_RENDERER_OPENGL2, nullptr},
    {"SDL2", TCOD_RENDERER_SDL2, "opengl"},
    {"SDL2-software", TCOD_RENDERER_SDL2, "software"},
    {"SDL", TCOD_RENDERER_SDL, nullptr},
    {"OPENGL", TCOD_RENDERER_OPENGL, nullptr},
};

/// @return null, with the benchmark skipped, where the renderer does not work
tcod::ContextPtr openWindow(benchmark::State &state, const Renderer &renderer,
                            TCOD_Tileset *p_tileset) {
  if (renderer.sdl_driver)
    setenv("SDL_RENDER_DRIVER", renderer.sdl_driver, 1);
  TCOD_ContextParams params{};
  params.tcod_version = TCOD_COMPILEDVERSION;
  params.columns = bench::COLUMNS;
  params.rows = bench::ROWS;
  params.renderer_type = renderer.type;
  params.tileset = p_tileset;
  params.window_title = "libtcod-screen";
  TCOD_Context *p_context = nullptr;
  if (TCOD_context_new(&params, &p_context) < 0)
    state.SkipWithError(TCOD_get_error());
  tcod::ContextPtr p_owned(p_context);
  if (p_owned && p_owned->get_renderer_type() != renderer.type) {
    state.SkipWithError("libtcod took another renderer");
    p_owned.reset();
  }
  return p_owned;
}

void FullScreen(benchmark::State &state, const Renderer &renderer) {
  using namespace bench;
  const tcod::TilesetPtr p_tileset(
      TCOD_load_truetype_font_("gw-font.ttf", CELL_WIDTH, CELL_HEIGHT));
  const tcod::ConsolePtr p_console(TCOD_console_new(COLUMNS, ROWS));
  const tcod::ContextPtr p_context = openWindow(state, renderer, p_tileset.get());
  if (!p_context)
    return;
  int frame = 0;
  const auto draw_frame = [&] {
    for (int y = 0; y < ROWS; y++)
      for (int x = 0; x < COLUMNS; x++) {
        const gw::ColorDefinition &color = gw::definitionOf(colorAt(x, y, frame));
        (*p_console)[{x, y}] = {characterAt(x, y, frame),
                                {color.red, color.green, color.blue, 255},
                                {0, 0, 0, 255}};
      }
    if (TCOD_context_present(p_context.get(), p_console.get(), nullptr) < 0)
      state.SkipWithError(TCOD_get_error());
    frame++;
  };
  timeSteps(state, draw_frame);
}

} // namespace

int main(int argc, char **argv) {
  for (const Renderer &renderer : RENDERERS)
    benchmark::RegisterBenchmark(renderer.name, FullScreen, renderer)->UseManualTime();
  benchmark::Initialize(&argc, argv);
  benchmark::RunSpecifiedBenchmarks();
}
