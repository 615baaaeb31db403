#include "internal/PictureTexture.h"

#include "internal/quad.h"

#include <SFML/Window/Context.hpp>

#include <algorithm>

namespace gw {

namespace {

/// Takes each pixel from the picture as it is.
constexpr const char *SHADER = "uniform sampler2D picture;"
                               "void main() {"
                               "  gl_FragColor = texture2D(picture, gl_TexCoord[0].xy);"
                               "}";

/// How OpenGL's functions are called.
#ifdef _WIN32
#define GL_CALL __stdcall
#else
#define GL_CALL
#endif

/// Has the graphics card keep the texture as it keeps windows, with blue first. What was
/// in the texture is lost.
void keepLikeWindow(const sf::Texture &texture) {
  constexpr unsigned TEXTURE_2D = 0x0de1; // OpenGL's names
  constexpr int RGBA = 0x1908;
  constexpr unsigned BGRA = 0x80e1;
  constexpr unsigned UNSIGNED_BYTE = 0x1401;
  using TexImage =
      void(GL_CALL *)(unsigned target, int level, int kept_as, int width, int height,
                      int border, unsigned format, unsigned type, const void *p_pixels);
  const auto tex_image =
      reinterpret_cast<TexImage>(sf::Context::getFunction("glTexImage2D"));
  if (!tex_image)
    return;
  const sf::Vector2i size(texture.getSize());
  sf::Texture::bind(&texture);
  tex_image(TEXTURE_2D, 0, RGBA, size.x, size.y, 0, BGRA, UNSIGNED_BYTE, nullptr);
  sf::Texture::bind(nullptr);
}

} // namespace

/// The target is cleared only after the upload, which sends off what was drawn before:
/// so clearing and drawing are one piece of work.
bool PictureTexture::draw(sf::RenderTarget &target, const std::uint32_t *p_pixels,
                          sf::Color color, const std::vector<sf::IntRect> &areas) {
  const bool has_picture = !areas.empty() && make();
  if (has_picture) {
    texture->setSmooth(sf::Vector2i(target.getSize()) != size);
    // One row more on both sides, which a smooth texture looks at as well.
    const sf::IntRect last = areas.back();
    upload(p_pixels, std::max(areas.front().position.y - 1, 0),
           std::min(last.position.y + last.size.y + 1, size.y));
  }
  target.clear(color);
  if (has_picture)
    drawAreas(target, areas);
  return has_picture || areas.empty();
}

bool PictureTexture::make() {
  if (texture) {
    if (!shader)
      prepareCopying();
    return true;
  }
  texture.emplace();
  if (!texture->resize(sf::Vector2u(sf::Vector2i(stride, size.y))))
    texture.reset();
  return texture.has_value();
}

/// With software OpenGL, rectangles of a texture that is kept like the window, with a
/// shader that only copies, are copied row by row: a full screen takes less than half the
/// time. Without one of the two it looks the same. Getting there takes longer than many
/// frames: the first picture is there sooner without.
void PictureTexture::prepareCopying() {
  keepLikeWindow(*texture);
  shader.emplace();
  if (sf::Shader::isAvailable() &&
      shader->loadFromMemory(SHADER, sf::Shader::Type::Fragment))
    shader->setUniform("picture", sf::Shader::CurrentTexture);
}

void PictureTexture::upload(const std::uint32_t *p_pixels, int first_row, int end_row) {
  const auto *p_rows = reinterpret_cast<const std::uint8_t *>(
      p_pixels + static_cast<std::ptrdiff_t>(first_row) * stride);
  texture->update(p_rows, sf::Vector2u(sf::Vector2i(stride, end_row - first_row)),
                  sf::Vector2u(sf::Vector2i(0, first_row)));
}

void PictureTexture::drawAreas(sf::RenderTarget &target,
                               const std::vector<sf::IntRect> &areas) {
  vertices.clear();
  for (const sf::IntRect &area : areas)
    addQuad(vertices, sf::FloatRect(area), sf::FloatRect(area), sf::Color::White);
  sf::RenderStates states(sf::BlendNone);
  states.texture = &*texture;
  states.shader = shader && shader->getNativeHandle() != 0 ? &*shader : nullptr;
  drawQuads(target, vertices, states);
}

} // namespace gw
